// Ends the process at an assertion that does not hold.
#include "fuzz/support/check.h"

#include <cstdio>
#include <cstdlib>

namespace fuzzing {

void fail(const char* file, int line, std::string_view condition, const std::string& seen) {
  std::fprintf(stderr, "%s:%d: does not hold: %.*s\n%s\n", file, line, static_cast<int>(condition.size()),
               condition.data(), seen.c_str());
  std::fflush(stderr);
  std::abort();
}

}  // namespace fuzzing
