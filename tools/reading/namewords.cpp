// Compares names word by word.
#include "tools/reading/namewords.h"

#include <algorithm>
#include <optional>
#include <set>
#include <tuple>

#include "base/textcase.h"
#include "options/dotoptions.h"
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

constexpr std::size_t mostsuggestions = 3;

// How many words of the name the typed word is made of, each by its beginning of at least three letters; 0 if
// it cannot be made of them.
std::size_t wordsjoined(const twords& name, std::string_view typed) {
  std::vector<std::size_t> joined(typed.size() + 1);  // the most words that make the first letters
  for (const std::string& word : name)
    for (std::size_t at = typed.size(); at-- > 0;) {  // backwards: no word is taken twice
      if (at > 0 && joined[at] == 0) continue;
      const std::string_view rest = typed.substr(at);
      const auto common = static_cast<std::size_t>(std::ranges::mismatch(rest, word).in1 - rest.begin());
      for (std::size_t length = shortest; length <= common; ++length)
        joined[at + length] = std::max(joined[at + length], joined[at] + 1);
    }
  return joined.back();
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
    for (std::size_t word = 1; word < fwords[i].size(); ++word)
      for (std::size_t before = word - std::min<std::size_t>(word, 2); before < word; ++before)
        fbeginningpairs[beginning(fwords[i][before]) + beginning(fwords[i][word])].push_back(i);
  }
}

std::vector<std::string> tnamewords::matching(std::string_view typed, bool leaveover) const {
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

std::vector<std::string> tnamewords::abbreviated(std::string_view typed) const {
  constexpr std::size_t mostcandidates = 1'000;  // a beginning that so many names share tells nothing
  const twords words = wordsof(typed);
  if (words.size() != 1 || words[0].size() > optcore::maxidentifier) return {};
  const std::string& word = words[0];
  std::set<std::pair<std::size_t, std::size_t>> hits;  // words missing, position
  for (std::size_t second = shortest; second + shortest <= word.size(); ++second) {
    const auto names = fbeginningpairs.find(beginning(word) + word.substr(second, shortest));
    if (names == fbeginningpairs.end() || names->second.size() > mostcandidates) continue;
    for (const std::size_t i : names->second)
      if (const std::size_t joined = wordsjoined(fwords[i], word); joined > 1)
        hits.emplace(fwords[i].size() - joined, i);
  }
  std::vector<std::string> result;
  for (auto hit = hits.begin(); hit != hits.end() && result.size() < mostsuggestions; ++hit)
    result.push_back(fnames[hit->second]);
  return result;
}

}  // namespace tool
