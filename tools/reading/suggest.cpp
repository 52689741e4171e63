// Computes the edit distance and chooses the names that an unknown name is compared with.
#include "tools/reading/suggest.h"

#include <algorithm>
#include <utility>

#include "base/textcase.h"

namespace tool {

using namespace optcore;

namespace {

constexpr std::size_t maxsuggestions = 3;

// Returns the text in upper case and with underscores for blanks, the form in which names are compared.
std::string folded(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = c == ' ' ? '_' : upchar(c);
  return result;
}

std::size_t difference(std::size_t a, std::size_t b) { return a > b ? a - b : b - a; }

// The number of typing mistakes in a word of this length. A word with more mistakes is another word.
std::size_t tolerated(std::size_t length) { return std::clamp<std::size_t>(length / 3, 1, 4); }

bool isnear(std::string_view typed, std::string_view candidate, std::size_t distance) {
  return distance <= tolerated(typed.size()) && distance < std::max(typed.size(), candidate.size());
}

bool isabbreviation(std::string_view typed, std::string_view candidate) {
  return typed.size() >= 3 && candidate.starts_with(typed);
}

std::vector<std::string> dotnames(const tvksoptions& store) {
  std::vector<std::string> result;
  for (std::int32_t i = 0; i < store.getcount(); ++i)
    if (const std::string_view name = store.definition().getstrings(i); name.starts_with('.'))
      result.emplace_back(name);
  return result;
}

std::vector<std::string> words(const tenumstroption& option) {
  std::vector<std::string> result;
  result.reserve(static_cast<std::size_t>(option.items().count()));
  for (std::int32_t i = 0; i < option.items().count(); ++i) result.emplace_back(option.items().getname(i));
  return result;
}

}  // namespace

std::size_t editdistance(std::string_view a, std::string_view b) {
  const std::string from = folded(a);
  const std::string to = folded(b);
  // the distances from the first i - 2, i - 1 and i characters of `from` to each beginning of `to`
  std::vector<std::size_t> beforelast, last(to.size() + 1), row(to.size() + 1);
  for (std::size_t j = 0; j <= to.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= from.size(); ++i) {
    beforelast = std::exchange(last, row);
    row[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
      row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
      if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1])
        row[j] = std::min(row[j], beforelast[j - 2] + 1);
    }
  }
  return row[to.size()];
}

std::vector<std::string> nearest(std::string_view typed, const std::vector<std::string>& candidates,
                                 tmatch match) {
  const std::string key = folded(typed);
  std::vector<std::pair<std::size_t, const std::string*>> found;
  for (const std::string& candidate : candidates) {
    // the name that was typed is no suggestion, even if the lookup mode does not match it
    if (struequal(typed, candidate)) continue;
    const std::string name = folded(candidate);
    const bool abbreviated = match == tmatch::nearorlonger && isabbreviation(key, name);
    if (!abbreviated && difference(key.size(), name.size()) > tolerated(key.size())) continue;
    const std::size_t distance = editdistance(key, name);
    if (abbreviated || isnear(key, name, distance)) found.emplace_back(distance, &candidate);
  }
  std::ranges::stable_sort(found, {}, &std::pair<std::size_t, const std::string*>::first);
  std::vector<std::string> result;
  for (const auto& [distance, name] : found)
    if (result.size() < maxsuggestions && std::ranges::find(result, *name) == result.end())
      result.push_back(*name);
  return result;
}

std::vector<std::string> keynames(const tvksoptions& store) {
  std::vector<std::string> result;
  for (std::int32_t i = 0; i < store.getcount(); ++i)
    if (const std::string name(store.definition().option(i).getname());
        !name.starts_with('.') && !name.starts_with("--"))
      result.push_back(name);
  for (std::int32_t i = 0; i < store.optsynonymcount(); ++i)
    if (store.definition().synonymtarget(i) != nullptr)
      result.emplace_back(store.definition().nounderscore(store.definition().synonyms().getname(i)));
  return result;
}

std::vector<std::string> tsuggester::suggestionsfor(const tsubject& subject) {
  if (subject.problem == tsubject::tproblem::other || subject.problem == tsubject::tproblem::unusablefile)
    return {};
  const bool isvalue = subject.problem == tsubject::tproblem::illegalvalue;
  tword word(subject.problem, subject.option, isvalue ? subject.value : subject.name);
  const auto known = fanswers.find(word);
  if (known != fanswers.end()) return known->second;
  if (fcomparisons > mostcomparisons) return {};
  return fanswers.emplace(std::move(word), found(subject)).first->second;
}

std::vector<std::string> tsuggester::compared(std::string_view word, const std::vector<std::string>& names,
                                              tmatch match) {
  fcomparisons += names.size();
  return nearest(word, names, match);
}

std::vector<std::string> tsuggester::found(const tsubject& subject) {
  switch (subject.problem) {
    case tsubject::tproblem::other:
    case tsubject::tproblem::unusablefile: break;
    case tsubject::tproblem::unknownoption: return likekey(std::string(subject.name));
    case tsubject::tproblem::unknowndotoption:
      if (!fdots) fdots = dotnames(fstore);
      return compared(subject.name, *fdots, tmatch::nearorlonger);
    case tsubject::tproblem::illegalvalue:
      if (const auto* option = ifis<tenumstroption>(subject.option))
        return compared(subject.value, words(*option), tmatch::nearorlonger);
  }
  return {};
}

// A key may have too many words: in lookup mode Minos, the words of the value are joined to an unknown key.
// So its first words are also tried alone, unless they are too short.
std::vector<std::string> tsuggester::likekey(const std::string& key) {
  if (!fkeys) fkeys = keynames(fstore);
  std::vector<std::string> result = compared(key, *fkeys, tmatch::nearorlonger);
  for (std::size_t end = key.rfind('_'); result.empty() && end != std::string::npos && end >= 4;
       end = key.rfind('_', end - 1)) {
    const std::string first = key.substr(0, end);
    if (const toption* option = fstore.optionasobj(first)) return {std::string(option->getname())};
    result = compared(first, *fkeys, tmatch::near);
  }
  return result;
}

}  // namespace tool
