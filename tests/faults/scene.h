// What the tests of failures do with a handle: a sequence of calls from every family of functions, and every
// query.
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>

#include "support/handle.h"

namespace testsupport::faults {

// Whether operations can fail: during calls of the library, but not during the test's own work.
extern bool armed;

// Calls functions while operations can fail, and logs their results and outputs.
struct tsteps {
  template <class tfunction, class... targuments>
  void operator()(tfunction function, targuments... arguments) {
    text[0] = '\0';
    armed = true;
    long result = 0;
    if constexpr (std::is_same_v<std::invoke_result_t<tfunction, targuments...>, std::int32_t>)
      result = function(arguments...);
    else
      function(arguments...);
    armed = false;
    log += std::to_string(result) + ' ' + text + '\n';
  }
  std::string log;
  char text[256] = "";
};

// A folder with a definition and option files, which is the current one.
class tscene {
 public:
  tscene();
  // Does everything that a client does with a handle. Returns null when there was no memory for the handle.
  static std::string play(tvksoptions*& handle);
  // All messages. One is added first: a message that had no memory is filed in front of the next one.
  static std::string messages(tvksoptions* handle);

 private:
  ttempdir fdirectory;
};

// Makes every query with the number of every option. Each option, synonym, group, dot entry and indicator
// must still be found.
void askeverything(tvksoptions* handle);

}  // namespace testsupport::faults
