// Chooses what an unknown name is compared with.
#include "tools/reading/suggest.h"

#include <algorithm>
#include <array>

#include "base/textcase.h"
#include "options/checkboolean.h"
#include "tools/reading/advice.h"

namespace tool {

using namespace optcore;

namespace {

std::vector<std::string> words(const tenumstroption& option) {
  std::vector<std::string> result;
  result.reserve(static_cast<std::size_t>(option.items().count()));
  for (std::int32_t i = 0; i < option.items().count(); ++i) result.emplace_back(option.items().getname(i));
  return result;
}

bool isaboutvalue(const tsubject& subject) {
  using enum tsubject::tproblem;
  return subject.problem == illegalvalue || subject.problem == unknowntype ||
         (subject.problem == other && subject.option != nullptr && !subject.value.empty());
}

// Whether the line has the name with the beginning of a number after it: gap0.1
bool isgluedtonumber(std::string_view line, std::string_view name) {
  const std::size_t at = name.empty() ? std::string_view::npos : line.find(name);
  if (at == std::string_view::npos) return false;
  line.remove_prefix(at + name.size());
  return line.size() > 1 && line[0] == '.' && isdigit(line[1]);
}

// The name behind signs that no name begins with: $threads, "threads". Empty if the line begins otherwise.
std::string_view behindsigns(std::string_view line) {
  constexpr std::string_view signs = "$_\"'%@&#\\<[({";
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  const std::size_t begin = line.find_first_not_of(signs);
  if (begin == 0 || begin == std::string_view::npos) return {};
  line.remove_prefix(begin);
  return line.substr(0, line.find_first_of("\"'>])} \t=:,"));
}

// Whether the problem is that the line begins with such a sign.
bool isaboutsigns(const tsubject& subject, std::string_view line) {
  return subject.problem == tsubject::tproblem::other && subject.option == nullptr && subject.name.empty() &&
         !behindsigns(line).empty();
}

// Whether the problem is a name or word that may be mistyped.
bool isaboutword(const tsubject& subject, std::string_view line) {
  using enum tsubject::tproblem;
  return isaboutsigns(subject, line) || subject.problem == unknownoption ||
         subject.problem == unknowndotoption || subject.problem == badseparator || isaboutvalue(subject) ||
         (subject.problem == other && subject.option == nullptr && isgluedtonumber(line, subject.name));
}

// The words of other option languages before an assignment.
constexpr auto setters =
    std::to_array<std::string_view>({"set", "let", "option", "param", "parameter", "options"});
bool issetter(std::string_view word) {
  return std::ranges::any_of(setters, [&](std::string_view setter) { return struequal(word, setter); });
}

constexpr std::string_view separators = "/.-:\\";
bool isseparator(char c) { return separators.find(c) != std::string_view::npos; }

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

// The words of the text up to an equals sign, comma or double quote, at most five.
std::vector<std::string> firstwords(std::string_view text) {
  constexpr std::size_t most = 5;
  text = text.substr(0, text.find_first_of(",=\""));
  std::vector<std::string> words;
  for (std::size_t begin = 0; words.size() < most;
       begin = std::min(text.find_first_of(" \t", begin), text.size())) {
    begin = text.find_first_not_of(" \t", begin);
    if (begin == std::string_view::npos) break;
    words.emplace_back(text.substr(begin, text.find_first_of(" \t", begin) - begin));
  }
  return words;
}

std::string joined(const std::vector<std::string>& words, std::size_t count, char separator) {
  std::string result;
  for (std::size_t i = 0; i < count; ++i) result.append(i == 0 ? 0 : 1, separator).append(words[i]);
  return result;
}

// Where the name stands in the line as a whole; npos if nowhere.
std::size_t placeof(std::string_view line, std::string_view name) {
  const auto belongs = [](char c) { return isletter(c) || isdigit(c) || c == '_'; };
  for (std::size_t at = line.find(name); at != std::string_view::npos; at = line.find(name, at + 1)) {
    const std::size_t end = at + name.size();
    if ((at == 0 || !belongs(line[at - 1])) && (end == line.size() || !belongs(line[end]))) return at;
  }
  return std::string_view::npos;
}

// What was typed where the name stands in the line: the whole word that has it, and the words after that,
// with one blank between them. The name alone if it is not in the line.
std::string typedat(std::string_view line, std::string_view name) {
  if (name.empty()) return std::string(behindsigns(line));
  const std::string_view stem = name.substr(std::min(name.find_first_not_of("-."), name.size()));
  const std::size_t at = stem.empty() ? std::string_view::npos : placeof(line, stem);
  if (at == std::string_view::npos) return std::string(name);
  const std::vector<std::string> words = firstwords(line.substr(line.find_last_of(" \t,", at) + 1));
  return joined(words, words.size(), ' ');
}

std::string_view firstword(std::string_view typed) { return typed.substr(0, typed.find(' ')); }

constexpr std::size_t longestname = 255;  // longer names are cut

// Whether the text may be a value of the option: the beginning of a number, a boolean or a permitted word.
bool beginsvalue(const toption& option, std::string_view text) {
  if (text.find_first_of("0123456789") <= text.find_first_not_of("+-.:")) return true;
  const auto* permitted = ifis<tenumstroption>(&option);
  return checkboolean(text) != tbooleanword::neither
             ? option.opttype() == topttype::boolean
             : permitted != nullptr && permitted->items().indexof(text) >= 0;
}

std::vector<std::string> booleanwordslike(std::string_view word) {
  static const tnearnames names({"on", "off", "true", "false", "yes", "no"});
  return names.nearest(word, tmatch::near);
}

// Adds the names that the list does not have yet, up to three in all.
void append(std::vector<std::string>& list, std::vector<std::string> names) {
  for (std::string& name : names)
    if (list.size() < 3 && std::ranges::find(list, name) == list.end()) list.push_back(std::move(name));
}

}  // namespace

std::vector<std::string> dotnames(const tvksoptions& store) {
  std::vector<std::string> result;
  for (std::int32_t i = 0; i < store.getcount(); ++i)
    if (const std::string_view name = store.definition().getstrings(i); name.starts_with('.'))
      result.emplace_back(name);
  return result;
}

std::vector<std::string> keynames(const tvksoptions& store) {
  std::vector<std::string> result;
  for (std::int32_t i = 0; i < store.getcount(); ++i)
    if (const std::string name(store.definition().option(i).getname());
        !name.starts_with('.') && !name.starts_with("--"))
      result.push_back(name);
  for (std::int32_t i = 0; i < store.optsynonymcount(); ++i)
    if (const std::string_view name = store.definition().synonyms().getname(i);
        store.definition().synonymtarget(i) != nullptr && !name.starts_with('.'))
      result.emplace_back(store.definition().nounderscore(name));
  return result;
}

const tnearnames& tsuggester::keys() {
  if (!fkeys) fkeys.emplace(keynames(fstore));
  return *fkeys;
}

const tnearnames& tsuggester::dots() {
  if (!fdots) fdots.emplace(dotnames(fstore));
  return *fdots;
}

// The option's name as option files write it; empty if no option has the name.
std::string tsuggester::known(std::string_view name) const {
  const toption* option = fstore.optionasobj(name);
  if (option == nullptr || option->name().starts_with("--") || option->name().starts_with('.')) return {};
  return std::string(option->getname());
}

std::vector<std::string> tsuggester::suggestionsfor(const tsubject& subject, std::string_view line) {
  if (!isaboutword(subject, line)) return {};
  tword word(subject.problem, subject.option,
             isaboutvalue(subject) ? std::string(subject.value) : typedat(line, subject.name));
  const auto known = fanswers.find(word);
  if (known != fanswers.end()) return known->second;
  if (fanswers.size() == mostwords) return {};
  std::vector<std::string> suggestions = found(subject, std::get<std::string>(word));
  if (!isaboutvalue(subject)) suggestions = inforce(suggestions);
  return fanswers.emplace(std::move(word), std::move(suggestions)).first->second;
}

// The names of the definition are still growing, so they are collected each time.
std::vector<std::string> tsuggester::definedlike(const std::vector<std::string>& names) {
  constexpr std::int32_t most = 100;
  const std::string* unknown = nullptr;
  for (const std::string& name : names) {
    if (fstore.definition().exactoption(name) != nullptr) continue;
    if (unknown != nullptr) return {};
    unknown = &name;
  }
  if (unknown == nullptr || unknown->empty() || ++flooked > most) return {};
  if (std::string name = known(*unknown); !name.empty() && !struequal(name, *unknown))
    return {std::move(name)};
  return tnearnames(keynames(fstore)).nearest(*unknown, tmatch::nearorlonger);
}

std::vector<std::string> tsuggester::found(const tsubject& subject, const std::string& typed) {
  switch (subject.problem) {
    case tsubject::tproblem::other:
      if (subject.option == nullptr) return likekey(subject.name.empty() ? typed : subject.name, typed);
      if (std::string name = joinedtovalue(subject); !name.empty()) return {std::move(name)};
      return subject.option->opttype() == topttype::boolean ? booleanwordslike(subject.value)
                                                            : std::vector<std::string>();
    case tsubject::tproblem::unknowntype: return typeslike(subject.value);
    case tsubject::tproblem::unusablefile:
    case tsubject::tproblem::duplicatename:
    case tsubject::tproblem::undefineddefault: break;
    case tsubject::tproblem::unknownoption: return likekey(subject.name, typed);
    case tsubject::tproblem::badseparator: {
      // the name itself is right where only the sign after it is wrong
      if (const toption* option = fstore.optionasobj(subject.name);
          option != nullptr && beginsvalue(*option, firstword(typed).substr(subject.name.size())))
        return {};
      std::vector<std::string> names = likekey(withunderscores(firstword(typed)), typed);
      std::erase_if(names, [&](const std::string& name) { return struequal(name, subject.name); });
      return names;
    }
    case tsubject::tproblem::unknowndotoption: return likedot(subject.name, firstword(typed));
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
// plain what was meant. Then come names of the same words, those that are spelled alike, and those of which
// only a part was typed.
std::vector<std::string> tsuggester::likekey(std::string_view key, std::string_view typed) {
  std::vector<std::string> words = firstwords(typed);
  std::string behindsetter;
  if (words.size() > 1 && issetter(words[0])) {
    words.erase(words.begin());
    key = behindsetter = withunderscores(words[0]);
  }
  for (std::size_t count = std::min<std::size_t>(words.size(), 4); count > 1; --count)
    if (std::string name = known(withunderscores(joined(words, count, '-'))); !name.empty())
      return {std::move(name)};
  const std::string word = words.empty() ? std::string(key) : words[0];
  if (std::string name = known(withunderscores(word)); !name.empty()) return {std::move(name)};
  std::vector<std::string> result = samewords(word, false);
  if (!result.empty()) return result;
  if (std::string name = writtenotherwise(word); !name.empty()) return {std::move(name)};
  result = keys().nearest(key, tmatch::nearorlonger);
  if (result.empty()) append(result, fkeywords->abbreviated(word));
  if (result.empty()) append(result, knownpart(key));
  if (result.empty()) append(result, samewords(word, true));
  if (result.empty()) append(result, likelastpart(word));
  if (result.empty()) append(result, withoutlastwords(key));
  append(result, endingwith(key));
  if (result.empty() && !behindsetter.empty() && words.size() > 1) {  // set mip tolerances gap 2
    words[0] = setters[0];
    return likekey(words[1], joined(words, words.size(), ' '));
  }
  if (result.empty() && key.ends_with('s'))  // nodes
    result = keys().nearest(key.substr(0, key.size() - 1), tmatch::nearorlonger);
  if (result.size() < 3) append(result, dotname(key, result.empty()));
  return result;
}

// The dot option of this name or, if `near` is set, of a similar one.
std::vector<std::string> tsuggester::dotname(std::string_view key, bool near) {
  if (std::string name = "." + std::string(key); fstore.optionasobj(name) != nullptr)
    return {std::move(name)};
  return near ? dots().nearest("." + std::string(key), tmatch::near) : std::vector<std::string>();
}

// With the options themselves in place of their synonyms that should no longer be used.
std::vector<std::string> tsuggester::inforce(const std::vector<std::string>& names) const {
  std::vector<std::string> result;
  for (const std::string& name : names) {
    const toption* option = fstore.optionasobj(withunderscores(name));
    const bool isold = option != nullptr && !struequal(option->getname(), name) &&
                       (option->hasdeprecation(tdeprecation::deprecatedsynonym) ||
                        option->hasdeprecation(tdeprecation::obsoletesynonym));
    append(result, {isold ? std::string(option->getname()) : name});
  }
  return result;
}

// A name with a period in it may be one of a dot option, or have the period for an underscore. Behind the period,
// a dot option is not found by its synonyms.
std::vector<std::string> tsuggester::likedot(std::string_view dotname, std::string_view word) {
  for (const std::string_view name : {dotname, dotname.substr(1)})
    if (const toption* option = fstore.optionasobj(name);
        option != nullptr && option->name().starts_with('.'))
      return {std::string(option->getname())};
  if (std::string name = writtenotherwise(word); !name.empty()) return {std::move(name)};
  std::vector<std::string> result = samewords(word, false);
  append(result, dots().nearest(dotname, tmatch::nearorlonger));
  if (result.empty()) result = keys().nearest(withunderscores(word), tmatch::near);
  if (result.empty()) result = samewords(word, true);
  return result;
}

std::vector<std::string> tsuggester::samewords(std::string_view word, bool leaveover) {
  if (!fkeywords) fkeywords.emplace(keynames(fstore));
  std::vector<std::string> result = fkeywords->matching(word, leaveover);
  std::erase_if(result, [&](const std::string& name) { return struequal(name, word); });
  return result;
}

// A value may begin with the rest of the name: gap absolute 0.1
std::string tsuggester::joinedtovalue(const tsubject& subject) const {
  const std::vector<std::string> words = firstwords(subject.value);
  return words.size() < 2 ? "" : known(std::string(subject.name).append("_").append(words[0]));
}

// The part behind the last separator alone: what stands before it may be the name of a section.
std::vector<std::string> tsuggester::likelastpart(std::string_view word) {
  const std::size_t at = word.find_last_of(separators);
  if (at == std::string_view::npos || at + 1 == word.size()) return {};
  std::vector<std::string> result = keys().nearest(word.substr(at + 1), tmatch::nearorlonger);
  append(result, endingwith(word.substr(at + 1)));
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

// The longest known name that a value of its option follows: threads8, gap.5, methoddual
std::string tsuggester::gluedtovalue(std::string_view typed) const {
  for (std::size_t end = std::min(typed.size(), longestname + 1); end-- > 1;) {
    const std::string key = withunderscores(typed.substr(0, end));
    if (std::string name = known(key);
        !name.empty() && beginsvalue(*fstore.optionasobj(key), typed.substr(end)))
      return name;
  }
  return {};
}

// A key may have too many words: in lookup mode Minos, the words of the value are joined to an unknown key.
// So its first words are also tried alone, unless they are too short.
std::vector<std::string> tsuggester::withoutlastwords(std::string_view key) {
  std::vector<std::string> result;
  for (std::size_t end = key.rfind('_'); result.empty() && end != std::string::npos && end >= 4;
       end = key.rfind('_', end - 1)) {
    result = keys().nearest(key.substr(0, end), tmatch::near);
  }
  return result;
}

// The first word may be the name of a part of the solver, the last one a unit.
std::vector<std::string> tsuggester::knownpart(std::string_view key) const {
  for (std::size_t begin = key.find('_'); begin != std::string::npos; begin = key.find('_', begin + 1))
    if (std::string name = known(key.substr(begin + 1)); !name.empty()) return {std::move(name)};
  for (std::size_t end = key.rfind('_'); end != std::string::npos && end > 0; end = key.rfind('_', end - 1))
    if (std::string name = known(key.substr(0, end)); !name.empty()) return {std::move(name)};
  return {};
}

// Names whose last words are the key, or the other way round.
std::vector<std::string> tsuggester::endingwith(std::string_view key) {
  std::vector<std::string> result = knownpart(key);
  return result.empty() ? keys().endingwith("_" + std::string(key)) : result;
}

}  // namespace tool
