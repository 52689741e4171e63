// A client that replaces the library's interface check by one that fails, and prints what the C++ header
// reports then.
#include <cstring>
#include <iostream>

#include "wexcorin/wexcorin.hpp"

static std::int32_t answer;

std::int32_t xapiversion(std::int32_t, optshortstring* message, std::int32_t* compat) {
  message->length = 5;
  std::memcpy(message->text, "Said.", 5);
  *compat = answer;
  return answer != 0 ? 1 : 0;
}

int main() {
  for (const std::int32_t said : {0, 3}) {  // 0: the versions do not match; 3: the program is newer
    answer = said;
    try {
      const wexcorin::options options;
      std::cout << "created\n";
    } catch (const wexcorin::interface_mismatch& mismatch) {
      std::cout << mismatch.what() << '\n';
    }
  }
}
