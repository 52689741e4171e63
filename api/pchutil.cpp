// Conversion of zero-terminated texts.
#include "api/pchutil.h"

#include <cstring>

namespace optcore {

// One short of what a short string can hold: a text this long is refused.
std::string_view pchartostr(const char* text, std::string_view overflow) noexcept {
  constexpr std::size_t overlong = 255;
  if (text == nullptr) return {};
  const std::size_t length = ::strnlen(text, overlong);
  return length < overlong ? std::string_view(text, length) : overflow;
}

}  // namespace optcore
