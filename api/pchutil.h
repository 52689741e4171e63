// Conversion of zero-terminated text arguments to views. The other routines of this unit are in
// pchutilmore.h.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace optcore {

// Returns the text of a zero-terminated argument; the empty text for a null pointer. A text of more than 254
// characters, one less than a short string can hold, is replaced by `overflow`. The result is a view of the
// argument or of `overflow`.
inline std::string_view pchartostr(const char* text,
                                   std::string_view overflow = "PCharToStr Overflow") noexcept {
  constexpr std::size_t overlong = 255;
  if (text == nullptr) return {};
  const std::size_t length = ::strnlen(text, overlong);
  return length < overlong ? std::string_view(text, length) : overflow;
}

}  // namespace optcore
