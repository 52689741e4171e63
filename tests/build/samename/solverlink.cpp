// A client in a shared library, with the C++ header.
#include <cstdio>

#include <wexcorin/wexcorin.hpp>

extern "C" int solve() {
  try {
    const wexcorin::options options;
    return 0;
  } catch (const wexcorin::interface_mismatch& problem) {
    std::fprintf(stderr, "%s\n", problem.what());
    return 1;
  }
}
