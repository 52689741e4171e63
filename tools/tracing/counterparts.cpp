// Finds the counterparts by names and synonyms.
#include "tools/tracing/counterparts.h"

#include <algorithm>

#include "base/strutilx.h"
#include "base/textcase.h"

namespace tool {

using namespace optcore;

tpositions::tpositions(const tdefinition& definition) : fdefinition(definition) {
  fpositions.reserve(static_cast<std::size_t>(definition.getcount()));
  for (std::int32_t i = 0; i < definition.getcount(); ++i) fpositions.emplace(&definition.option(i), i);
}

std::int32_t tpositions::of(const toption* option) const {
  const auto found = fpositions.find(option);
  return found != fpositions.end() ? found->second : -1;
}

tcounterparts::tcounterparts(const tpositions& older, const tpositions& newer)
    : fnewer(static_cast<std::size_t>(older.definition().getcount()), -1),
      folder(static_cast<std::size_t>(newer.definition().getcount()), -1) {
  const auto pair = [&](std::int32_t before, std::int32_t after) {
    fnewer[static_cast<std::size_t>(before)] = after;
    folder[static_cast<std::size_t>(after)] = before;
  };
  const auto& synonyms = newer.definition().synonyms();
  for (std::int32_t i = 0; i < older.definition().getcount(); ++i)
    if (const std::int32_t same = newer.named(older.definition().getstrings(i)); same >= 0) pair(i, same);
  for (std::int32_t i = 0; i < older.definition().getcount(); ++i) {
    if (newerof(i) >= 0) continue;
    const std::int32_t synonym = synonyms.indexof(older.definition().getstrings(i));
    const std::int32_t target = synonym >= 0 ? synonyms.getobject(synonym) : -1;
    if (target >= 0 && olderof(target) < 0) pair(i, target);
  }
}

namespace {

bool isnamecharacter(char character) { return isletter(character) || isdigit(character) || character == '_'; }

// Calls `found` with the position of each option that a word of the text names, first those in quotes.
template <class tfound>
void eachnamed(std::string_view text, const tpositions& options, bool inquotes, tfound found) {
  for (std::size_t begin = 0; begin < text.size();) {
    if (!isnamecharacter(text[begin])) {
      ++begin;
      continue;
    }
    const auto end = static_cast<std::size_t>(
        std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(begin), text.end(), isnamecharacter) -
        text.begin());
    const bool quoted = begin > 0 && end < text.size() && text[begin - 1] == text[end] &&
                        std::string_view("\"'`").find(text[end]) != std::string_view::npos;
    if (quoted == inquotes) found(options.named(text.substr(begin, end - begin)));
    begin = end;
  }
}

}  // namespace

std::int32_t namedin(std::string_view reason, const tpositions& options, std::string_view but) {
  std::int32_t result = -1;
  for (const bool inquotes : {true, false})
    eachnamed(reason, options, inquotes, [&](std::int32_t position) {
      const std::string_view name = options.definition().getstrings(position);
      // outside quotes, only a name of several words is meant for sure
      const bool isname = position >= 0 && (inquotes || name.find('_') != std::string_view::npos);
      if (result < 0 && isname && !struequal(name, but)) result = position;
    });
  return result;
}

}  // namespace tool
