// Routines on short texts: sets of characters, replacement, case, filling, trimming, and the order of names
// with numbers. Results that are texts are cut at 255 characters. strutilxmore.h has the rest of the unit.
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

// Every occurrence replaced.
shortstring replacechar(char from, char to, std::string_view text) noexcept;

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

// Compares names as a prefix (regardless of case) and a trailing number: iter2 comes before iter10. Negative,
// zero or positive.
std::int32_t strucmpnum(std::string_view a, std::string_view b) noexcept;

}  // namespace optcore
