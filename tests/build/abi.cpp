// Prints the type of every exported function, as the compiler sees it in the public header, and the layout of
// the types that clients compile in.
#include <cxxabi.h>
#include <wexcorin/wexcorin.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <typeinfo>

namespace {

void print(const char* name, const std::type_info& type) {
  char* readable = abi::__cxa_demangle(type.name(), nullptr, nullptr, nullptr);
  std::printf("%s: %s\n", name, readable);
  std::free(readable);
}

}  // namespace

int main() {
#define WEXCORIN_SYMBOL(name) print(#name, typeid(name));
#include "abi_symbols.inc"
  std::printf("struct optshortstring: %zu bytes, length at %zu, text at %zu\n", sizeof(optshortstring),
              offsetof(optshortstring, length), offsetof(optshortstring, text));
}
