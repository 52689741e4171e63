// What a fuzz target asserts: a condition that does not hold ends the process, with the place and a word on
// what was seen, so that the fuzzer keeps the input.
#pragma once

#include <string>
#include <string_view>

namespace fuzzing {

[[noreturn]] void fail(const char* file, int line, std::string_view condition, const std::string& seen);

}  // namespace fuzzing

// The text about what was seen is built only when it is needed.
#define FUZZ_CHECK(condition, seen) \
  ((condition) ? static_cast<void>(0) : ::fuzzing::fail(__FILE__, __LINE__, #condition, seen))
