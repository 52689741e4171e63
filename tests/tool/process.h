// Runs the tool as a process in a directory of its own, with files that the test writes there.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/handle.h"

namespace tooltest {

struct tresult {
  int code;  // the exit code, -1 when a signal has ended the tool
  std::string out;
  std::string err;
};

class ttool {
 public:
  // Files by name and contents.
  explicit ttool(std::initializer_list<std::pair<std::string_view, std::string_view>> files = {});

  // Makes the examples of the repository visible under the name that they have there.
  void linkexamples() const;
  tresult run(const std::vector<std::string>& arguments, std::string_view standardinput = "") const;
  std::string path(std::string_view name) const { return fdirectory.path(name); }
  std::string contents(std::string_view name) const { return testsupport::readfile(fdirectory.path(name)); }

 private:
  testsupport::ttempdir fdirectory;
};

}  // namespace tooltest
