// Chooses names: those that begin with what is typed, those of whose words it is the beginnings, those that have
// it inside, and then those that check would suggest.
#include <algorithm>
#include <array>

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
  }
  return true;
}

// Both as names are compared.
trank rankof(std::string_view name, std::string_view typed) {
  if (name.starts_with(typed)) return trank::beginning;
  if (hasbeginnings(name, typed)) return trank::words;
  return typed.size() > 1 && name.find(typed) != std::string_view::npos ? trank::inside : trank::none;
}

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
    choose();
    tcandidates result;
    std::size_t count = 0;
    for (const auto& names : fchosen) {
      count += names.size();
      for (const tname* name : names)
        if (result.all.size() < mostnames) result.all.push_back(candidate(*name));
    }
    const bool isfew = count < fewnames;
    result.iscomplete = !isfew && count <= mostnames;
    addkeyword(result);
    if (isfew && fkey.size() >= shortestnear) addnear(result);
    return result;
  }

 private:
  using tname = tnametable::tname;

  // By their names, or in the order of the definition if nothing is typed.
  void choose() {
    if (fkey.empty())
      for (const tname& each : fstate.names().names()) add(each);
    else
      for (const tname* each : fstate.names().bykey()) add(*each);
  }

  void add(const tname& name) {
    if (name.key.starts_with('.') != fdotted || (fdotted && name.synonym >= 0)) return;
    const trank rank = rankof(std::string_view(name.key).substr(fdotted ? 1 : 0), fkey);
    if (rank == trank::none) return;
    fchosen[2 * static_cast<std::size_t>(rank) + (name.deprecated ? 1 : 0)].push_back(&name);
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

  // First what the text finds as a short form of a name.
  void addnear(tcandidates& result) const {
    addnear(result, fdotted ? "." + ftyped : ftyped);
    for (const std::string& name : fstate.namesnear(ftyped, fdotted)) addnear(result, name);
  }
  void addnear(tcandidates& result, const std::string& name) const {
    const std::int32_t index = fdotted ? fstore.optlookup(name) : fdefinition.indexof(name);
    const bool isthere =
        std::ranges::any_of(result.all, [&](const tcandidate& each) { return each.option == index; });
    if (index < 0 || isthere || !islisted(fdefinition, fdefinition.option(index))) return;
    result.all.push_back(candidate({{}, index, -1, false}));
    result.all.back().isnear = true;
  }

  const tdefinitionstate& fstate;
  const tvksoptions& fstore;
  const tdefinition& fdefinition;
  const std::string& ftyped;
  const std::string fkey;
  const bool fdotted;
  std::array<std::vector<const tname*>, 6> fchosen;  // of each rank, the deprecated ones last
};

}  // namespace

tcandidates namesfor(const tdefinitionstate& definition, const std::string& typed, bool dotted) {
  return tnamechoice(definition, typed, dotted).run();
}

}  // namespace tool::lsp
