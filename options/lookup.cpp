// Finding options by name in the three lookup modes.
#include "options/lookup.h"

#include <algorithm>
#include <cassert>

#include "base/textcase.h"
#include "options/toption.h"

namespace optcore {

tsignificantkey::tsignificantkey(tlookupmode mode, std::string_view name) noexcept {
  name = name.substr(0, shortstring::capacity);
  if (mode == tlookupmode::path)
    addpath(name);
  else
    addminos(name);
}

void tsignificantkey::append(std::string_view text) noexcept {
  assert(flength + text.size() <= fcharacters.size());
  for (const char character : text) fcharacters[flength++] = upchar(character);
}

// Three characters of each word; no separator is needed, because all have the same length. A name that
// matches nothing is kept whole, so that many such names do not share one hash.
void tsignificantkey::addpath(std::string_view name) noexcept {
  constexpr std::size_t significant = 3;
  for (std::size_t begin = 0; begin <= name.size();) {
    const std::size_t end = std::min(name.find('_', begin), name.size());
    if (end - begin < significant) {
      fmatchable = false;
      flength = 0;
      append(name);
      return;
    }
    append(name.substr(begin, significant));
    begin = end + 1;
  }
}

// The number of the first characters, at most three, then these characters, which may include underscores.
// Then, for each underscore of the name, an underscore and up to four characters of the word after it.
void tsignificantkey::addminos(std::string_view name) noexcept {
  const std::string_view first = name.substr(0, 3);
  fcharacters[flength++] = static_cast<char>('0' + first.size());
  append(first);
  for (std::size_t sign = name.find('_'); sign != std::string_view::npos; sign = name.find('_', sign + 1)) {
    const std::string_view word = name.substr(sign + 1, 4);
    append("_");
    append(word.substr(0, word.find('_')));
  }
}

namespace {

// Keys are passed by value, but these are large.
struct tkeyreference {
  const tsignificantkey& key;
  std::uint32_t hash() const noexcept { return key.hash(); }
  friend bool operator==(const tsignificantkey& a, tkeyreference b) noexcept { return a == b.key; }
};

}  // namespace

std::int32_t tlookup::findsignificant(tlookupmode mode, std::string_view name) const {
  tnameindex& index = mode == tlookupmode::path ? fpathindex : fminosindex;
  const auto keyat = [this, mode](std::int32_t i) { return tsignificantkey(mode, foptions.getname(i)); };
  const tsignificantkey sought(mode, name);
  return sought.matchable() ? index.find(foptions.count(), tkeyreference{sought}, keyat) : -1;
}

}  // namespace optcore
