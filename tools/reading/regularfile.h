// How the tool itself reads a file, beside what the library reads. Only regular files are opened: another one
// may never end, or keep the tool waiting.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/descriptor.h"

namespace tool {

class tregularfile {
 public:
  // The library reads no more of a file either.
  static constexpr std::uint64_t mostbytes = 0x7FFFFFFF;

  // Opens the file if it is a regular one.
  explicit tregularfile(const std::string& path);

  bool isopen() const { return fdescriptor.get() >= 0; }
  // As it was when the file was opened.
  std::uint64_t size() const { return fsize; }
  // The next part of the file; empty at its end, after an error and behind `mostbytes`. Valid until the next call.
  std::string_view next();
  // All of the file; nothing if it cannot be read or has more bytes than `most`.
  std::optional<std::string> contents(std::uint64_t most = mostbytes);

 private:
  const std::string fpath;
  const tdescriptor fdescriptor;
  std::uint64_t fsize = 0;
  std::uint64_t fleft = mostbytes;
  bool ffailed = false;
  std::vector<char> fblock;
};

}  // namespace tool
