// Routines on short texts: positions, replacement, case, filling and splitting. Positions are counted from 1,
// 0 means absent. Results that are texts are cut at 255 characters.
#pragma once

#include <bitset>
#include <cstdint>
#include <string_view>

#include "base/shortstring.h"
#include "base/textcase.h"

namespace optcore {

// A set of characters, indexed by their codes.
using tcharset = std::bitset<256>;

inline bool inset(const tcharset& set, char character) { return set[static_cast<unsigned char>(character)]; }

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
shortstring replacechar(char from, char to, std::string_view text) noexcept;
shortstring deletechar(char character, std::string_view text) noexcept;

shortstring lowercase(std::string_view text) noexcept;
shortstring uppercase(std::string_view text) noexcept;

// Blanks added on the left or right up to a width; up to the next multiple of a width for padrightmod. A text
// that is as long already is unchanged.
shortstring padleft(std::string_view text, std::int32_t width) noexcept;
shortstring padright(std::string_view text, std::int32_t width) noexcept;
shortstring padrightmod(std::string_view text, std::int32_t width) noexcept;
shortstring blankstr(std::int32_t count) noexcept;
shortstring fillstr(char character, std::int32_t count) noexcept;

// Without the blanks and tabs at either end.
constexpr bool isblank(char character) { return character == ' ' || character == '\t'; }
constexpr std::string_view trimright(std::string_view text) noexcept {
  while (!text.empty() && isblank(text.back())) text.remove_suffix(1);
  return text;
}
constexpr std::string_view trim(std::string_view text) noexcept {
  while (!text.empty() && isblank(text.front())) text.remove_prefix(1);
  return trimright(text);
}

// The next word, ended by a blank or tab, from `position` (1-based) on, which moves behind it; empty at the
// end.
std::string_view extracttoken(std::string_view text, std::int32_t& position) noexcept;

// Compares names as a prefix (regardless of case) and a trailing number: iter2 comes before iter10. Negative,
// zero or positive.
std::int32_t strucmpnum(std::string_view a, std::string_view b) noexcept;

}  // namespace optcore
