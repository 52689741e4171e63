// What all entry points share: `in` makes a view of a text argument, `out` wraps the buffer of a text result,
// `barrier` lets no exception pass, `guarded` also sees to the floating-point settings, and `allocating` to
// the memory of exceptions. Views and wrappers point into the caller's buffers; nothing is owned here. The
// entry points themselves are in the files exports_*.cpp.
#pragma once

#include <cstdint>
#include <new>
#include <string_view>
#include <type_traits>

#include "api/handle.h"
#include "api/pchutil.h"
#include "base/floatscope.h"
#include "base/readytothrow.h"
#include "base/textout.h"

namespace optcore {

static_assert(sizeof(optshortstring) == sizeof(shortstring));

// A view of a text argument. A null pointer means the empty text, in both forms.
inline std::string_view in(const optshortstring* text) noexcept {
  return text == nullptr ? std::string_view() : std::string_view(text->text, text->length);
}
inline std::string_view in(const char* text) noexcept { return pchartostr(text); }

// Wraps the caller's buffer for a text result. A text argument may use the same buffer, because results are
// written only after the arguments have been used.
inline ttextout out(optshortstring* buffer) noexcept {
  return {ttextout::tform::shortstring, reinterpret_cast<char*>(buffer)};
}
inline ttextout out(char* buffer) noexcept { return {ttextout::tform::zeroterminated, buffer}; }

// Runs the call and returns its result in the form of the interface: 1 and 0 for true and false. When memory
// runs out, the result is `failure`, and a message is filed as well, because some functions have no result.
// Queries can fail this way, too: looking up a name may need memory for the index of the names. No other
// exception is expected; one would be filed as an internal error.
template <class tcall>
auto barrier(tvksoptions* handle, std::int32_t failure, tcall call) noexcept {
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
auto barrier(tvksoptions* handle, tcall call) noexcept {
  return barrier(handle, 0, call);
}

// The same with the floating-point settings of the library. Queries do without them: they look up names and
// move numbers, and the text of a double sees to the settings by itself.
template <class tcall>
auto guarded(tvksoptions* handle, std::int32_t failure, tcall call) noexcept {
  const tfloatscope settings;
  return barrier(handle, failure, call);
}

template <class tcall>
auto guarded(tvksoptions* handle, tcall call) noexcept {
  return guarded(handle, 0, call);
}

// The same for calls that store texts or read files: they fail at once when there is no memory for an exception.
// Other calls need memory for messages and indices alone, which see to this themselves.
template <class tcall>
auto allocating(tvksoptions* handle, std::int32_t failure, tcall call) noexcept {
  if (readytothrow()) [[likely]]
    return guarded(handle, failure, call);
  handle->messages().addoutofmemory();
  return static_cast<decltype(guarded(handle, failure, call))>(failure);
}

template <class tcall>
auto allocating(tvksoptions* handle, tcall call) noexcept {
  return allocating(handle, 0, call);
}

}  // namespace optcore
