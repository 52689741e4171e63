// What every entry point needs: text arguments as views, text results as ttextout, and the barrier that no
// exception passes.
#pragma once

#include <cstdint>
#include <string_view>
#include <type_traits>

#include "api/handle.h"
#include "api/pchutil.h"
#include "base/textout.h"

namespace optcore {

static_assert(sizeof(optshortstring) == sizeof(shortstring));

// A null pointer reads as the empty text in both forms.
inline std::string_view in(const optshortstring* text) noexcept {
  return text == nullptr ? std::string_view() : std::string_view(text->text, text->length);
}
inline std::string_view in(const char* text) noexcept { return pchartostr(text); }

// A named result: it must outlive the call that fills it. The buffer may be that of a text argument, since
// results are written only when the arguments have been used.
class tout : public ttextout {
 public:
  explicit tout(optshortstring* buffer) noexcept : ttextout(shortform(), reinterpret_cast<char*>(buffer)) {}
  explicit tout(char* buffer) noexcept : ttextout(zeroterminatedform(), buffer) {}
};

// Runs the call and gives its result as the interface knows it: 1 and 0 for true and false. When the call
// fails for want of memory the result is `failure`, and a message tells: not every function has a result.
// Only what stores, reads or writes can fail so: questions need no memory.
template <class tcall>
auto guarded(tvksoptions* handle, std::int32_t failure, tcall call) noexcept {
  using tresult = std::conditional_t<std::is_void_v<decltype(call())>, void, std::int32_t>;
  try {
    return static_cast<tresult>(call());
  } catch (...) {
    handle->messages().addoutofmemory();
    return static_cast<tresult>(failure);
  }
}

template <class tcall>
auto guarded(tvksoptions* handle, tcall call) noexcept {
  return guarded(handle, 0, call);
}

}  // namespace optcore
