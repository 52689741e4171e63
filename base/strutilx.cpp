// Routines on short texts: replacement, case, filling, and comparison of names that end in a number.
#include "base/strutilx.h"

#include <algorithm>

namespace optcore {

namespace {

std::int32_t lengthof(std::string_view text) { return static_cast<std::int32_t>(text.size()); }

}  // namespace

// ---- replacement and case

namespace {

template <class tchange>
shortstring changed(std::string_view text, tchange change) noexcept {
  shortstring result;
  for (const char character : text) result.append(1, change(character));
  return result;
}

}  // namespace

shortstring replacechar(char from, char to, std::string_view text) noexcept {
  return changed(text, [from, to](char character) { return character == from ? to : character; });
}

shortstring uppercase(std::string_view text) noexcept { return changed(text, upchar); }

// ---- filling

shortstring fillstr(char character, std::int32_t count) noexcept {
  return shortstring().append(static_cast<std::size_t>(std::max(count, 0)), character);
}
shortstring blankstr(std::int32_t count) noexcept { return fillstr(' ', count); }

shortstring padleft(std::string_view text, std::int32_t width) noexcept {
  const std::int32_t wanted = std::clamp<std::int32_t>(width, 0, shortstring::capacity);
  return blankstr(wanted - lengthof(text)).append(text);
}
shortstring padright(std::string_view text, std::int32_t width) noexcept {
  return shortstring(text).append(blankstr(std::max(width, 0) - lengthof(text)));
}
shortstring padrightmod(std::string_view text, std::int32_t width) noexcept {
  if (width < 1) return text;
  const std::int32_t excess = lengthof(text) % width;
  return padright(text, excess == 0 ? lengthof(text) : lengthof(text) + (width - excess));
}

// ---- names with trailing numbers

namespace {

inline std::string_view withoutzeros(std::string_view digits) noexcept {
  return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

// Compares runs of digits of any length by their values.
std::int32_t comparenumbers(std::string_view a, std::string_view b) noexcept {
  a = withoutzeros(a);
  b = withoutzeros(b);
  if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
  return a.compare(b);
}

}  // namespace

std::int32_t strucmpnum(std::string_view a, std::string_view b) noexcept {
  const auto prefixlength = [](std::string_view name) {
    std::size_t length = name.size();
    while (length > 0 && isdigit(name[length - 1])) --length;
    return length;
  };
  const std::size_t lengtha = prefixlength(a);
  const std::size_t lengthb = prefixlength(b);
  const std::int32_t difference = strucmp(a.substr(0, lengtha), b.substr(0, lengthb));
  if (difference != 0) return difference;
  return comparenumbers(a.substr(lengtha), b.substr(lengthb));
}

}  // namespace optcore
