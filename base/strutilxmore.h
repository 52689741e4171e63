// The rest of the unit of text routines: neither the library nor the tool calls these; programs that are
// built with the objects may. Positions are counted from 1, 0 means absent. Results that are texts are cut at
// 255 characters.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/numtext.h"
#include "base/shortstring.h"
#include "base/strutilx.h"

namespace optcore {

// First and last position of a character; the forms with a start look at it and what follows it (lch) or
// comes before it (rch). The "u" forms take upper and lower case for the same, the "set" forms any character
// of a set.
std::int32_t lchpos(char character, std::string_view text, std::int32_t start = 1) noexcept;
std::int32_t rchpos(char character, std::string_view text) noexcept;
std::int32_t rchpos(char character, std::string_view text, std::int32_t start) noexcept;
std::int32_t lchupos(char character, std::string_view text, std::int32_t start = 1) noexcept;
std::int32_t rchupos(char character, std::string_view text) noexcept;
std::int32_t rchupos(char character, std::string_view text, std::int32_t start) noexcept;
std::int32_t lchsetpos(const tcharset& set, std::string_view text, std::int32_t start = 1) noexcept;
std::int32_t rchsetpos(const tcharset& set, std::string_view text) noexcept;

// Every occurrence replaced, from left to right; an empty `from` replaces nothing.
shortstring replacestr(std::string_view from, std::string_view to, std::string_view text) noexcept;
shortstring deletechar(char character, std::string_view text) noexcept;
shortstring lowercase(std::string_view text) noexcept;

// The next word, ended by a blank or tab, from `position` (1-based) on, which moves behind it; empty at the
// end.
std::string_view extracttoken(std::string_view text, std::int32_t& position) noexcept;

// Decimal with a comma between groups of three digits, padded on the left with blanks to width (at most 255).
tnumbertext inttonicestr(std::int32_t number) noexcept;
tnumbertext int64tonicestr(std::int64_t number) noexcept;
shortstring inttonicestrw(std::int32_t number, std::int32_t width) noexcept;

// The number of characters of inttostr(number).
std::int32_t integerwidth(std::int64_t number) noexcept;

}  // namespace optcore
