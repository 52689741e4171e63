// What the tests of the exported functions stand on: handles, and a temporary directory.
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

// The lines as one text, one line each; gtest shows two such texts that differ as a line by line difference.
std::string joined(const tlines& lines);

std::string readfile(const std::filesystem::path& path);

// A directory of its own under TMPDIR, removed with everything in it.
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

// A store for each text form. What is done is done to both, and they have to agree.
class thandle : public bothforms::thandles {
 public:
  const ttempdir& directory() const { return fdirectory; }

  // "%DIR%/" in a text becomes the path of the handle's temporary directory, or goes.
  std::string expanded(std::string_view text) const;
  std::string shortened(std::string_view text) const;

  // Reading from expanded texts. The results are those of the functions behind them.
  int definition(std::string_view text);  // the file DEF
  int parameters(std::string_view text);  // the file OPT
  void string(std::string_view text);     // optReadFromStr

  tlines messages();  // as optGetMessage gives them; names of the temporary directory without it
  tlines help(const std::string& request);     // what one request adds to the messages
  std::string written();                       // the bytes that optWriteParameterFile writes
  int number(const std::string& name);         // through optFindStr, -1 for an unknown name
  std::string value(const std::string& name);  // "?" for an unknown name, "first|second" of two values

 private:
  ttempdir fdirectory;
};

}  // namespace testsupport
