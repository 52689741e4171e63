// Routines on short texts: character sets, replacement, case, filling, trimming, and comparison of names that
// end in a number. Short strings that they return are cut at 255 characters. The other routines of this unit
// are in strutilxmore.h.
#pragma once

#include <bitset>
#include <cstdint>
#include <string_view>

#include "base/shortstring.h"
#include "base/textcase.h"

namespace optcore {

// A set of characters: one bit for each character code.
using tcharset = std::bitset<256>;

inline bool inset(const tcharset& set, char character) { return set[static_cast<unsigned char>(character)]; }

// Replaces every occurrence of `from` by `to`.
shortstring replacechar(char from, char to, std::string_view text) noexcept;

shortstring uppercase(std::string_view text) noexcept;

// padleft and padright add blanks on one side up to a width, padrightmod on the right up to the next multiple
// of a width. A text that is long enough is unchanged. blankstr and fillstr return `count` blanks or
// characters.
shortstring padleft(std::string_view text, std::int32_t width) noexcept;
shortstring padright(std::string_view text, std::int32_t width) noexcept;
shortstring padrightmod(std::string_view text, std::int32_t width) noexcept;
shortstring blankstr(std::int32_t count) noexcept;
shortstring fillstr(char character, std::int32_t count) noexcept;

constexpr bool isblank(char character) { return character == ' ' || character == '\t'; }
// Without the blanks and tabs at the end, or at both ends.
constexpr std::string_view trimright(std::string_view text) noexcept {
  while (!text.empty() && isblank(text.back())) text.remove_suffix(1);
  return text;
}
constexpr std::string_view trim(std::string_view text) noexcept {
  while (!text.empty() && isblank(text.front())) text.remove_prefix(1);
  return trimright(text);
}

// Three-way comparison of names by their prefix, regardless of case, then by the number at their end: iter2
// comes before iter10. The result is negative, zero or positive.
std::int32_t strucmpnum(std::string_view a, std::string_view b) noexcept;

}  // namespace optcore
