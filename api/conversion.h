// What every entry point needs: text arguments as views, text results as ttextout, and the barrier that no
// exception passes.
#pragma once

#include <cstdint>
#include <new>
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

// A text result. The buffer may be that of a text argument, since results are written only when the arguments
// have been used.
inline ttextout out(optshortstring* buffer) noexcept {
  return {ttextout::tform::shortstring, reinterpret_cast<char*>(buffer)};
}
inline ttextout out(char* buffer) noexcept { return {ttextout::tform::zeroterminated, buffer}; }

// Runs the call and returns its result as the interface has it: 1 and 0 for true and false. When the call
// fails for want of memory the result is `failure`, and a message says so: not every function has a result.
// Only what stores, reads or writes can fail so: queries need no memory. Nothing else is thrown here; if
// something were, the message would not blame the memory.
template <class tcall>
auto guarded(tvksoptions* handle, std::int32_t failure, tcall call) noexcept {
  using tresult = std::conditional_t<std::is_void_v<decltype(call())>, void, std::int32_t>;
  try {
    return static_cast<tresult>(call());
  } catch (const std::bad_alloc&) {
    handle->messages().addoutofmemory();
  } catch (...) {
    handle->messages().addinternalerror();
  }
  return static_cast<tresult>(failure);
}

template <class tcall>
auto guarded(tvksoptions* handle, tcall call) noexcept {
  return guarded(handle, 0, call);
}

}  // namespace optcore
