// Chooses what an unknown name is compared with.
#include "tools/reading/suggest.h"

#include <algorithm>
#include <array>

#include "base/textcase.h"
#include "tools/reading/advice.h"

namespace tool {

using namespace optcore;

namespace {

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

// Whether the problem is a name or word that may be mistyped.
bool isaboutword(tsubject::tproblem problem) {
  using enum tsubject::tproblem;
  return problem == unknownoption || problem == unknowndotoption || problem == badseparator ||
         problem == illegalvalue || problem == unknowntype;
}

// The text up to a blank, comma or equals sign.
std::string_view firstword(std::string_view text) { return text.substr(0, text.find_first_of(" \t,=\"")); }

// The words of other option languages before an assignment.
bool issetter(std::string_view word) {
  static constexpr std::array<std::string_view, 6> setters = {"set",   "let",       "option",
                                                              "param", "parameter", "options"};
  return std::ranges::any_of(setters, [&](std::string_view setter) { return struequal(word, setter); });
}

bool isseparator(char c) { return c == '/' || c == '.' || c == '-' || c == ':' || c == '\\'; }

// With one underscore for separators between words, and without those at either end.
std::string withunderscores(std::string_view text) {
  std::string result;
  for (const char c : text)
    if (!isseparator(c))
      result += c;
    else if (!result.empty() && result.back() != '_')
      result += '_';
  while (result.ends_with('_')) result.pop_back();
  return result;
}

// What was typed where the name stands in the line: the whole word, and the next one after a setter. The name
// alone if it is not in the line.
std::string typedat(std::string_view line, std::string_view name) {
  const std::string_view stem = name.substr(std::min(name.find_first_not_of("-."), name.size()));
  const std::size_t at = line.find(stem);
  if (stem.empty() || at == std::string_view::npos) return std::string(name);
  const std::size_t begin = line.find_last_of(" \t,", at) + 1;  // npos + 1 is 0
  const std::string_view word = firstword(line.substr(begin));
  if (!issetter(word)) return std::string(word);
  line.remove_prefix(begin + word.size());
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  return std::string(word).append(" ").append(firstword(line));
}

}  // namespace

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

const tnearnames& tsuggester::keys() {
  if (!fkeys) fkeys.emplace(keynames(fstore));
  return *fkeys;
}

// The option's name as option files write it; empty if no option has the name.
std::string tsuggester::known(std::string_view name) const {
  const toption* option = fstore.optionasobj(name);
  if (option == nullptr || option->name().starts_with("--") || option->name().starts_with('.')) return {};
  return std::string(option->getname());
}

std::vector<std::string> tsuggester::suggestionsfor(const tsubject& subject, std::string_view line) {
  if (!isaboutword(subject.problem)) return {};
  const bool isvalue = subject.problem == tsubject::tproblem::illegalvalue ||
                       subject.problem == tsubject::tproblem::unknowntype;
  tword word(subject.problem, subject.option,
             isvalue ? std::string(subject.value) : typedat(line, subject.name));
  const auto known = fanswers.find(word);
  if (known != fanswers.end()) return known->second;
  if (fanswers.size() == mostwords) return {};
  std::vector<std::string> suggestions = found(subject, std::get<std::string>(word));
  return fanswers.emplace(std::move(word), std::move(suggestions)).first->second;
}

std::vector<std::string> tsuggester::found(const tsubject& subject, std::string_view typed) {
  switch (subject.problem) {
    case tsubject::tproblem::other:
    case tsubject::tproblem::unknowntype: return typeslike(subject.value);
    case tsubject::tproblem::badreference:
    case tsubject::tproblem::badhelpflag:
    case tsubject::tproblem::unusablefile:
    case tsubject::tproblem::duplicatename:
    case tsubject::tproblem::undefineddefault: break;
    case tsubject::tproblem::unknownoption: return likekey(subject.name, typed);
    case tsubject::tproblem::badseparator: {
      std::vector<std::string> names = likekey(withunderscores(typed), typed);
      // the name itself is right where only the sign after it is wrong
      std::erase_if(names, [&](const std::string& name) { return struequal(name, subject.name); });
      return names;
    }
    case tsubject::tproblem::unknowndotoption: {
      if (!fdots) fdots.emplace(dotnames(fstore));
      if (std::string name = writtenotherwise(typed); !name.empty()) return {std::move(name)};
      return fdots->nearest(subject.name, tmatch::nearorlonger);
    }
    case tsubject::tproblem::illegalvalue:
      if (const auto* option = ifis<tenumstroption>(subject.option))
        return permittedlike(*option, subject.value);
  }
  return {};
}

std::vector<std::string> tsuggester::permittedlike(const tenumstroption& option, std::string_view word) {
  auto known = fwords.find(&option);
  if (known == fwords.end()) known = fwords.emplace(&option, words(option)).first;
  return known->second.nearest(word, tmatch::nearorlonger);
}

// A name that is known when signs or words of other formats are taken away comes first, because it is then
// plain what was meant.
std::vector<std::string> tsuggester::likekey(std::string_view key, std::string_view typed) {
  if (const std::size_t blank = typed.find(' ');
      blank != std::string_view::npos && blank + 1 < typed.size()) {
    typed.remove_prefix(blank + 1);
    if (std::string name = known(withunderscores(typed)); !name.empty()) return {std::move(name)};
    return likekey(withunderscores(typed), typed);
  }
  if (std::string name = writtenotherwise(typed); !name.empty()) return {std::move(name)};
  std::vector<std::string> result = keys().nearest(key, tmatch::nearorlonger);
  if (result.empty()) result = withoutlastwords(key);
  for (std::string& name : endingwith(key))
    if (result.size() < 3 && std::ranges::find(result, name) == result.end())
      result.push_back(std::move(name));
  return result;
}

// The name with other separators than underscores, with words before or after it, or with its value
// directly after it. Empty if none of these is known.
std::string tsuggester::writtenotherwise(std::string_view typed) const {
  const auto separator = [](std::string_view text, std::size_t from) {
    const auto* const found = std::find_if(text.begin() + from, text.end(), isseparator);
    return static_cast<std::size_t>(found - text.begin());
  };
  for (std::size_t begin = 0; begin < typed.size(); begin = separator(typed, begin) + 1)
    if (std::string name = known(withunderscores(typed.substr(begin))); !name.empty()) return name;
  for (std::size_t end = typed.size(); end > 0; --end)
    if (isseparator(typed[end - 1]))
      if (std::string name = known(withunderscores(typed.substr(0, end))); !name.empty()) return name;
  return gluedtovalue(typed);
}

// The longest known name that a digit follows.
std::string tsuggester::gluedtovalue(std::string_view typed) const {
  for (std::size_t end = typed.size(); end-- > 1;)
    if (isdigit(typed[end]) && !isdigit(typed[end - 1]))
      if (std::string name = known(withunderscores(typed.substr(0, end))); !name.empty()) return name;
  return {};
}

// A key may have too many words: in lookup mode Minos, the words of the value are joined to an unknown key.
// So its first words are also tried alone, unless they are too short.
std::vector<std::string> tsuggester::withoutlastwords(std::string_view key) {
  std::vector<std::string> result;
  for (std::size_t end = key.rfind('_'); result.empty() && end != std::string::npos && end >= 4;
       end = key.rfind('_', end - 1)) {
    const std::string_view first = key.substr(0, end);
    if (std::string name = known(first); !name.empty()) return {std::move(name)};
    result = keys().nearest(first, tmatch::near);
  }
  return result;
}

// Names whose last words are the key, or the other way round: the first word may be the name of a part of the
// solver.
std::vector<std::string> tsuggester::endingwith(std::string_view key) {
  for (std::size_t begin = key.find('_'); begin != std::string::npos; begin = key.find('_', begin + 1))
    if (std::string name = known(key.substr(begin + 1)); !name.empty()) return {std::move(name)};
  return keys().endingwith("_" + std::string(key));
}

}  // namespace tool
