// linkage.hpp: finds out whose xcreate and xfree the program got. Part of wexcorin.hpp. With a C library
// before glibc 2.34, link with -ldl.
#ifndef WEXCORIN_LINKAGE_HPP
#define WEXCORIN_LINKAGE_HPP

#include <dlfcn.h>

#include <stdexcept>
#include <string>

#include "wexcorin/wexcorin.h"

namespace wexcorin {

// Thrown when the program does not get the library that it was written for: the library found at run time
// does not suit the header, or another library's function hides one of its functions.
class interface_mismatch : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

namespace detail {

// The functions that the dynamic linker found. These are variables, so that it writes their values: in a
// program that is not position-independent, a constant would be the address of a jump in the program. They
// and what uses them are hidden, because each shared library of a process may get other functions.
using anyfunction = void (*)();
[[gnu::visibility("hidden")]] inline anyfunction volatile linkedxcreate =
    reinterpret_cast<anyfunction>(&xcreate);
[[gnu::visibility("hidden")]] inline anyfunction volatile linkedxfree = reinterpret_cast<anyfunction>(&xfree);
[[gnu::visibility("hidden")]] inline anyfunction volatile linkedown =
    reinterpret_cast<anyfunction>(&coptreadparameterfile);  // no other library has one of this name

// Throws when the function is not in the same file as the library's other functions.
[[gnu::visibility("hidden")]] inline void requireown(anyfunction function, const char* name) {
  Dl_info library{};
  Dl_info found{};
  if (dladdr(reinterpret_cast<void*>(linkedown), &library) == 0 ||
      dladdr(reinterpret_cast<void*>(function), &found) == 0 || library.dli_fbase == found.dli_fbase)
    return;
  throw interface_mismatch("wexcorin: The program got " + std::string(name) + " of " + found.dli_fname +
                           " in place of the function of that name in " + library.dli_fname +
                           ". The client guide of wexcorin says how to link both.");
}

[[gnu::visibility("hidden")]] inline void requireownfunctions() {
  requireown(linkedxcreate, "xcreate");
  requireown(linkedxfree, "xfree");
}

}  // namespace detail

}  // namespace wexcorin

#endif
