// Conversion of zero-terminated texts. pchutilmore.h has the rest of the unit.
#pragma once

#include <string_view>

namespace optcore {

// The text of a zero-terminated argument; empty for a null pointer. Instead of a text of 255 and more
// characters the result is the words that say so. It is a view of the argument, or of these words.
std::string_view pchartostr(const char* text, std::string_view overflow = "PCharToStr Overflow") noexcept;

}  // namespace optcore
