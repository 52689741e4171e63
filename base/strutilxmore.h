// The text routines (see strutilx.h) that neither the library nor the tool calls. They are kept for programs
// that are linked with the library's objects. Positions count from 1; 0 means that nothing was found. Short
// strings that they return are cut at 255 characters.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/numtext.h"
#include "base/shortstring.h"
#include "base/strutilx.h"

namespace optcore {

// The first (lch) or last (rch) position of a character. With `start`, the search begins at that position and
// goes to the right (lch) or to the left (rch). The "u" forms ignore case; the "set" forms search for any
// character of a set.
std::int32_t lchpos(char character, std::string_view text, std::int32_t start = 1) noexcept;
std::int32_t rchpos(char character, std::string_view text) noexcept;
std::int32_t rchpos(char character, std::string_view text, std::int32_t start) noexcept;
std::int32_t lchupos(char character, std::string_view text, std::int32_t start = 1) noexcept;
std::int32_t rchupos(char character, std::string_view text) noexcept;
std::int32_t rchupos(char character, std::string_view text, std::int32_t start) noexcept;
std::int32_t lchsetpos(const tcharset& set, std::string_view text, std::int32_t start = 1) noexcept;
std::int32_t rchsetpos(const tcharset& set, std::string_view text) noexcept;

// Replaces every occurrence, from left to right. An empty `from` replaces nothing.
shortstring replacestr(std::string_view from, std::string_view to, std::string_view text) noexcept;
shortstring deletechar(char character, std::string_view text) noexcept;
shortstring lowercase(std::string_view text) noexcept;

// Returns the next word at or after `position` (1-based) and moves `position` past it. A word ends at a
// blank or tab. The result is empty when there is no further word.
std::string_view extracttoken(std::string_view text, std::int32_t& position) noexcept;

// The number in decimal, with a comma between groups of three digits. inttonicestrw pads it on the left with
// blanks to `width` (at most 255).
tnumbertext inttonicestr(std::int32_t number) noexcept;
tnumbertext int64tonicestr(std::int64_t number) noexcept;
shortstring inttonicestrw(std::int32_t number, std::int32_t width) noexcept;

// The number of characters of inttostr(number).
std::int32_t integerwidth(std::int64_t number) noexcept;

}  // namespace optcore
