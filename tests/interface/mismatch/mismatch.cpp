// A client that is run with a library which does not suit it; it prints what the C++ header says to that.
#include <iostream>

#include "wexcorin/wexcorin.hpp"

int main() {
  try {
    const wexcorin::options options;
    std::cout << "created\n";
  } catch (const wexcorin::interface_mismatch& mismatch) {
    std::cout << mismatch.what() << '\n';
  }
}
