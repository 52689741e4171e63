// The words that parameter text takes for true and false.
#pragma once

#include <string_view>

namespace optcore {

enum class tbooleanword { yes, no, neither };

// The whole text in any case: 1 Y YES ON TRUE T, or 0 N NO OFF FALSE F. Blanks are not trimmed.
tbooleanword checkboolean(std::string_view text) noexcept;

}  // namespace optcore
