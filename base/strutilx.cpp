// Routines on short texts.
#include "base/strutilx.h"

#include <algorithm>

namespace optcore {

// ---- positions

namespace {

template <class tmatch>
std::int32_t firstposition(std::string_view text, std::int32_t start, tmatch matches) noexcept {
  for (std::size_t i = static_cast<std::size_t>(std::max(start, 1)); i <= text.size(); ++i)
    if (matches(text[i - 1])) return static_cast<std::int32_t>(i);
  return 0;
}

template <class tmatch>
std::int32_t lastposition(std::string_view text, std::int32_t start, tmatch matches) noexcept {
  for (std::size_t i = std::min(text.size(), static_cast<std::size_t>(std::max(start, 0))); i >= 1; --i)
    if (matches(text[i - 1])) return static_cast<std::int32_t>(i);
  return 0;
}

auto equals(char character) {
  return [character](char other) { return other == character; };
}
auto equalsanycase(char character) {
  return [character](char other) { return upchar(other) == upchar(character); };
}
auto belongsto(const tcharset& set) {
  return [&set](char other) { return inset(set, other); };
}
std::int32_t endof(std::string_view text) { return static_cast<std::int32_t>(text.size()); }

}  // namespace

std::int32_t lchpos(char character, std::string_view text, std::int32_t start) noexcept {
  return firstposition(text, start, equals(character));
}
std::int32_t rchpos(char character, std::string_view text) noexcept {
  return rchpos(character, text, endof(text));
}
std::int32_t rchpos(char character, std::string_view text, std::int32_t start) noexcept {
  return lastposition(text, start, equals(character));
}
std::int32_t lchupos(char character, std::string_view text, std::int32_t start) noexcept {
  return firstposition(text, start, equalsanycase(character));
}
std::int32_t rchupos(char character, std::string_view text) noexcept {
  return rchupos(character, text, endof(text));
}
std::int32_t rchupos(char character, std::string_view text, std::int32_t start) noexcept {
  return lastposition(text, start, equalsanycase(character));
}
std::int32_t lchsetpos(const tcharset& set, std::string_view text, std::int32_t start) noexcept {
  return firstposition(text, start, belongsto(set));
}
std::int32_t rchsetpos(const tcharset& set, std::string_view text) noexcept {
  return lastposition(text, endof(text), belongsto(set));
}

// ---- replacement and case

shortstring replacestr(std::string_view from, std::string_view to, std::string_view text) noexcept {
  shortstring result;
  std::size_t done = 0;
  while (!from.empty()) {
    const std::size_t found = text.find(from, done);
    if (found == std::string_view::npos) break;
    result.append(text.substr(done, found - done)).append(to);
    done = found + from.size();
  }
  return result.append(text.substr(done));
}

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

shortstring deletechar(char character, std::string_view text) noexcept {
  shortstring result;
  for (const char kept : text)
    if (kept != character) result.append(1, kept);
  return result;
}

shortstring lowercase(std::string_view text) noexcept { return changed(text, lowchar); }
shortstring uppercase(std::string_view text) noexcept { return changed(text, upchar); }

// ---- filling

shortstring fillstr(char character, std::int32_t count) noexcept {
  return shortstring().append(static_cast<std::size_t>(std::max(count, 0)), character);
}
shortstring blankstr(std::int32_t count) noexcept { return fillstr(' ', count); }

shortstring padleft(std::string_view text, std::int32_t width) noexcept {
  const std::int32_t wanted = std::clamp<std::int32_t>(width, 0, shortstring::capacity);
  return blankstr(wanted - endof(text)).append(text);
}
shortstring padright(std::string_view text, std::int32_t width) noexcept {
  return shortstring(text).append(blankstr(std::max(width, 0) - endof(text)));
}
shortstring padrightmod(std::string_view text, std::int32_t width) noexcept {
  if (width < 1) return text;
  const std::int32_t excess = endof(text) % width;
  return padright(text, excess == 0 ? endof(text) : endof(text) + (width - excess));
}

// ---- splitting

namespace {
constexpr std::string_view blanks = " \t";
}

std::string_view extracttoken(std::string_view text, std::int32_t& position) noexcept {
  const std::size_t from = static_cast<std::size_t>(std::max(position, 1)) - 1;
  const std::size_t first = std::min(text.find_first_not_of(blanks, from), text.size());
  const std::size_t last = std::min(text.find_first_of(blanks, first), text.size());
  position = static_cast<std::int32_t>(last) + 1;
  return text.substr(first, last - first);
}

// ---- names with trailing numbers

namespace {

std::string_view withoutzeros(std::string_view digits) noexcept {
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
