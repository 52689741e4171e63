// Chooses names: those that begin with what is typed, those of whose words it is the beginnings, those that have
// it inside, and then those that check would suggest.
#include <algorithm>

#include "base/textcase.h"
#include "tools/doc/reference.h"
#include "tools/lsp/candidates.h"
#include "tools/reading/listedoptions.h"
#include "tools/reading/nearnames.h"

namespace tool::lsp {

namespace {

using namespace optcore;

constexpr std::size_t mostnames = 200;
constexpr std::size_t fewnames = 10;     // below this, near names are looked for
constexpr std::size_t shortestnear = 3;  // shorter words are near to anything

enum class trank : std::uint8_t { beginning, words, inside, none };

// Whether the words that are typed begin words of the name, in their order: "it_lim" and "iteration_limit".
bool hasbeginnings(std::string_view name, std::string_view typed) {
  while (!typed.empty()) {
    const std::string_view word = typed.substr(0, typed.find('_'));
    while (!name.starts_with(word)) {
      const std::size_t next = name.find('_');
      if (next == std::string_view::npos) return false;
      name.remove_prefix(next + 1);
    }
    typed.remove_prefix(std::min(word.size() + 1, typed.size()));
    name.remove_prefix(std::min(name.find('_'), name.size() - 1) + 1);
    if (name.empty()) return typed.empty();
  }
  return true;
}

// Both as names are compared.
trank rankof(std::string_view name, std::string_view typed) {
  if (name.starts_with(typed)) return trank::beginning;
  if (hasbeginnings(name, typed)) return trank::words;
  return typed.size() > 1 && name.find(typed) != std::string_view::npos ? trank::inside : trank::none;
}

struct tname {
  trank rank;
  bool deprecated;
  std::string key;  // as names are compared
  std::int32_t option;
  std::int32_t synonym = -1;  // its position; -1 for the name of the option itself
};

class tnamechoice {
 public:
  tnamechoice(const tdefinitionstate& definition, const std::string& typed, bool dotted)
      : fstate(definition),
        fstore(definition.store()),
        fdefinition(fstore.definition()),
        ftyped(typed),
        fkey(folded(typed)),
        fdotted(dotted) {}

  tcandidates run() {
    for (std::int32_t i = 0; i < fdefinition.getcount(); ++i) addoption(i);
    if (!fdotted)
      for (std::int32_t i = 0; i < fdefinition.synonyms().count(); ++i) addsynonym(i);
    sort();
    tcandidates result;
    result.iscomplete =
        fnames.size() <= mostnames && (fkey.size() >= shortestnear || fnames.size() >= fewnames);
    for (std::size_t i = 0; i < std::min(fnames.size(), mostnames); ++i)
      result.all.push_back(candidate(fnames[i]));
    addkeyword(result);
    if (fnames.size() < fewnames && fkey.size() >= shortestnear) addnear(result);
    return result;
  }

 private:
  bool isoffered(const toption& option) const {
    const std::string_view name = option.name();
    return name.starts_with('.') == fdotted && !name.starts_with("--") && islisted(fdefinition, option);
  }

  void addoption(std::int32_t index) {
    const toption& option = fdefinition.option(index);
    if (!isoffered(option)) return;
    std::string key = folded(option.name().substr(fdotted ? 1 : 0));
    const trank rank = rankof(key, fkey);
    if (rank == trank::none) return;
    const bool deprecated =
        option.hasdeprecation(tdeprecation::deprecated) || option.hasdeprecation(tdeprecation::obsolete);
    fnames.push_back({rank, deprecated, std::move(key), index});
  }

  void addsynonym(std::int32_t position) {
    const toption* option = fdefinition.synonymtarget(position);
    if (option == nullptr || !isoffered(*option)) return;
    std::string key = folded(fdefinition.synonyms().getname(position));
    const trank rank = rankof(key, fkey);
    if (rank == trank::none) return;
    const bool deprecated = option->hasdeprecation(tdeprecation::deprecatedsynonym) ||
                            option->hasdeprecation(tdeprecation::obsoletesynonym);
    fnames.push_back(
        {rank, deprecated, std::move(key), fdefinition.synonyms().getobject(position), position});
  }

  // By their names, or in the order of the definition if nothing is typed.
  void sort() {
    std::ranges::stable_sort(fnames, [&](const tname& a, const tname& b) {
      if (a.rank != b.rank) return a.rank < b.rank;
      if (a.deprecated != b.deprecated) return b.deprecated;
      return !fkey.empty() && a.key < b.key;
    });
  }

  tcandidate candidate(const tname& name) const {
    const toptionreference reference = describeoption(fstore, name.option);
    if (name.synonym >= 0)
      return {.text = utf8(fdefinition.nounderscore(fdefinition.synonyms().getname(name.synonym))),
              .kind = tcandidatekind::reference,
              .detail = "synonym of " + reference.name + ": " + detailof(reference),
              .deprecated = name.deprecated,
              .option = name.option};
    return {.text = reference.name.substr(fdotted ? 1 : 0),
            .detail = detailof(reference),
            .deprecated = name.deprecated,
            .option = name.option};
  }

  static std::string detailof(const toptionreference& reference) {
    std::string result = typephrase(reference);
    if (!reference.defaultvalue.text.empty()) result += ", default " + reference.defaultvalue.text;
    if (!reference.help.empty()) result += ": " + reference.help;
    return result;
  }

  void addkeyword(tcandidates& result) const {
    const std::string_view keyword = fdefinition.dotname();
    if (fdotted || keyword.empty() || !folded(keyword).starts_with(fkey)) return;
    result.all.push_back(
        {.text = utf8(keyword), .kind = tcandidatekind::keyword, .detail = "begins an indicator"});
  }

  void addnear(tcandidates& result) const {
    result.iscomplete = false;
    for (const std::string& name : fstate.namesnear(ftyped, fdotted)) {
      const std::int32_t index = fdotted ? fstore.optlookup(name) : fdefinition.indexof(name);
      const bool isthere =
          std::ranges::any_of(fnames, [&](const tname& each) { return each.option == index; });
      if (index < 0 || isthere || !isoffered(fdefinition.option(index))) continue;
      result.all.push_back(candidate({trank::none, false, {}, index}));
      result.all.back().isnear = true;
    }
  }

  const tdefinitionstate& fstate;
  const tvksoptions& fstore;
  const tdefinition& fdefinition;
  const std::string& ftyped;
  const std::string fkey;
  const bool fdotted;
  std::vector<tname> fnames;
};

}  // namespace

tcandidates namesfor(const tdefinitionstate& definition, const std::string& typed, bool dotted) {
  return tnamechoice(definition, typed, dotted).run();
}

}  // namespace tool::lsp
