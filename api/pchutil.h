// Conversion of zero-terminated texts. pchutilmore.h has the rest of the unit.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace optcore {

// The text of a zero-terminated argument; empty for a null pointer. A text of 255 characters, one short of
// what a short string can hold, and every longer one is replaced by words that say so. The result is a view
// of the argument, or of these words.
inline std::string_view pchartostr(const char* text,
                                   std::string_view overflow = "PCharToStr Overflow") noexcept {
  constexpr std::size_t overlong = 255;
  if (text == nullptr) return {};
  const std::size_t length = ::strnlen(text, overlong);
  return length < overlong ? std::string_view(text, length) : overflow;
}

}  // namespace optcore
