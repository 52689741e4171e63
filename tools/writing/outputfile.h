// The file that a command writes. All commands write through this class, so that none spoils a file: a
// regular file is replaced as a whole when its contents are complete, and a file that the command reads is
// never written over.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/writing/filemarks.h"

namespace tool {

// No program reads from the FIFO, or from the terminal or pipe, in time.
inline constexpr std::int32_t noreader = -1;

class toutputfile {
 public:
  // Takes the name on the command line: "-" is standard output. Opens nothing.
  explicit toutputfile(const std::string& name);

  // The name in findings.
  std::string name() const { return fname == "-" ? "<stdout>" : fname; }

  // Whether writing would destroy one of these files.
  bool isoneof(const tfilemarks& files) const;

  // Writes the contents. Returns 0, the system's error code or `noreader`; a regular file is then as it was. On
  // a terminal whatever could control it is shown as an escape. With a model, another file, a regular file gets
  // the permissions of that file.
  std::int32_t write(std::string_view contents, const std::string& model = {}) const;

 private:
  std::string fname;
  std::string fpath;               // where symbolic links lead
  std::optional<int> fdescriptor;  // one of this process that the name stands for, such as /dev/stdout
};

// What a result of writing that is not 0 says to people.
std::string_view writeproblem(std::int32_t code);

}  // namespace tool
