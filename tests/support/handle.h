// For the tests of the exported functions: pairs of handles, and a temporary directory.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "support/bothforms.h"
#include "support/table.h"

namespace testsupport {

using tlines = std::vector<std::string>;

using bothforms::everytype;

// Joins lines to one text. When two such texts differ, gtest shows the lines that differ.
std::string joined(const tlines& lines);

std::string readfile(const std::filesystem::path& path);

// A new directory under TMPDIR. It is removed at the end, with everything in it.
class ttempdir {
 public:
  ttempdir();
  ~ttempdir();
  ttempdir(const ttempdir&) = delete;
  ttempdir& operator=(const ttempdir&) = delete;
  std::string path(std::string_view name) const;
  std::string write(std::string_view name, std::string_view bytes) const;  // returns the file's path

 private:
  std::filesystem::path fpath;
};

// A store for each text form. Everything is done to both, and they must agree.
class thandle : public bothforms::thandles {
 public:
  const ttempdir& directory() const { return fdirectory; }

  // expanded replaces "%DIR%/" by the path of the handle's temporary directory; shortened removes that path.
  std::string expanded(std::string_view text) const;
  std::string shortened(std::string_view text) const;

  // Read expanded texts, and return the results of the functions that read them.
  int definition(std::string_view text);  // the file DEF
  int parameters(std::string_view text);  // the file OPT
  void string(std::string_view text);     // with optreadfromstr

  tlines messages();                           // all messages, shortened
  tlines help(const std::string& request);     // the messages that a request adds
  std::string written();                       // the bytes that optwriteparameterfile writes
  int number(const std::string& name);         // from optfindstr, -1 for an unknown name
  std::string value(const std::string& name);  // "?" for an unknown name, "first|second" for two values

 private:
  ttempdir fdirectory;
};

}  // namespace testsupport
