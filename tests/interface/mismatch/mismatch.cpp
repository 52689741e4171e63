// A client with an interface check of its own in place of the library's, which says no; it prints what the C++
// header says to that.
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
  for (const std::int32_t said : {0, 3}) {  // not at all; the program is newer
    answer = said;
    try {
      const wexcorin::options options;
      std::cout << "created\n";
    } catch (const wexcorin::interface_mismatch& mismatch) {
      std::cout << mismatch.what() << '\n';
    }
  }
}
