// Compares names word by word.
#include "tools/reading/namewords.h"

#include <algorithm>
#include <optional>
#include <set>
#include <tuple>

#include "base/textcase.h"
#include "tools/reading/nearnames.h"

namespace tool {

namespace {

using twords = std::vector<std::string>;

constexpr std::size_t shortest = 3;  // shorter words must be the same as a whole

twords wordsof(std::string_view text) {
  twords words(1);
  for (const char c : folded(text))
    if (optcore::isletter(c) || optcore::isdigit(c))
      words.back() += c;
    else if (!words.back().empty())
      words.emplace_back();
  if (words.back().empty()) words.pop_back();
  return words;
}

// Words that are the same begin alike.
std::string beginning(const std::string& word) { return word.substr(0, shortest); }

bool issameword(std::string_view a, std::string_view b) {
  return a == b || (std::min(a.size(), b.size()) >= shortest && (a.starts_with(b) || b.starts_with(a)));
}

struct tmatching {
  std::size_t leftover;  // words that were typed, but belong to no word of the name
  bool disordered;
};

// Each word of the name takes the first word that is the same and not yet taken. Nothing if there is none.
std::optional<tmatching> match(const twords& name, const twords& typed) {
  std::vector<bool> taken(typed.size());
  std::size_t next = 0;
  bool disordered = false;
  for (const std::string& word : name) {
    std::size_t at = 0;
    while (at < typed.size() && (taken[at] || !issameword(word, typed[at]))) ++at;
    if (at == typed.size()) return std::nullopt;
    taken[at] = true;
    disordered = disordered || at < next;
    next = at;
  }
  return tmatching{typed.size() - name.size(), disordered};
}

}  // namespace

tnamewords::tnamewords(const std::vector<std::string>& names) : fnames(names) {
  std::unordered_map<std::string, std::size_t> uses;
  fwords.reserve(names.size());
  for (const std::string& name : names)
    for (const std::string& word : fwords.emplace_back(wordsof(name))) ++uses[beginning(word)];
  for (std::size_t i = 0; i < fwords.size(); ++i) {
    if (fwords[i].empty()) continue;
    const auto rarest =
        std::ranges::min_element(fwords[i], {}, [&](const auto& word) { return uses[beginning(word)]; });
    fbeginnings[beginning(*rarest)].push_back(i);
  }
}

std::vector<std::string> tnamewords::matching(std::string_view typed, bool leaveover) const {
  constexpr std::size_t mostsuggestions = 3;
  const twords words = wordsof(typed);
  if (words.size() < 2) return {};
  std::set<std::string> beginnings;
  for (const std::string& word : words) beginnings.insert(beginning(word));
  std::set<std::tuple<std::size_t, bool, std::size_t>> hits;  // words left over, disordered, position
  for (const std::string& each : beginnings) {
    const auto names = fbeginnings.find(each);
    if (names == fbeginnings.end()) continue;
    for (const std::size_t i : names->second)
      if (const auto found = match(fwords[i], words); found && (leaveover || found->leftover == 0))
        hits.emplace(found->leftover, found->disordered, i);
  }
  std::vector<std::string> result;
  for (const auto& [leftover, disordered, i] : hits) {
    if (leftover != std::get<0>(*hits.begin()) || result.size() == mostsuggestions) break;
    result.push_back(fnames[i]);
  }
  return result;
}

}  // namespace tool
