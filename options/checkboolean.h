// The words that parameter text accepts as true and false.
#pragma once

#include <string_view>

namespace optcore {

enum class tbooleanword { yes, no, neither };

// Compares the whole text, regardless of case, with 1 Y YES ON TRUE T and with 0 N NO OFF FALSE F. Blanks are
// not trimmed.
tbooleanword checkboolean(std::string_view text) noexcept;

}  // namespace optcore
