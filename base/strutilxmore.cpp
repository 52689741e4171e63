// The text routines that neither the library nor the tool calls: positions, replacement, splitting, and
// numbers in groups of digits.
#include "base/strutilxmore.h"

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

shortstring deletechar(char character, std::string_view text) noexcept {
  shortstring result;
  for (const char kept : text)
    if (kept != character) result.append(1, kept);
  return result;
}

shortstring lowercase(std::string_view text) noexcept {
  shortstring result;
  for (const char character : text) result.append(1, lowchar(character));
  return result;
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

// ---- numbers

tnumbertext int64tonicestr(std::int64_t number) noexcept {
  const tnumbertext plain = inttostr(number);
  std::string_view digits = plain;
  tnumbertext result;
  if (number < 0) {
    result.append("-");
    digits.remove_prefix(1);
  }
  std::size_t group = (digits.size() - 1) % 3 + 1;
  result.append(digits.substr(0, group));
  for (; group < digits.size(); group += 3) {
    result.append(",");
    result.append(digits.substr(group, 3));
  }
  return result;
}

tnumbertext inttonicestr(std::int32_t number) noexcept { return int64tonicestr(number); }

shortstring inttonicestrw(std::int32_t number, std::int32_t width) noexcept {
  const tnumbertext text = inttonicestr(number);
  const auto wanted = static_cast<std::size_t>(std::clamp<std::int32_t>(width, 0, shortstring::capacity));
  shortstring result;
  if (text.view().size() < wanted) result.append(wanted - text.view().size(), ' ');
  return result.append(text);
}

std::int32_t integerwidth(std::int64_t number) noexcept {
  return static_cast<std::int32_t>(inttostr(number).view().size());
}

}  // namespace optcore
