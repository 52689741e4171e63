// Tries changes of the line in a store of their own, and takes the first that is read without a message.
#include "tools/lsp/repairs.h"

#include <algorithm>
#include <optional>
#include <set>

#include "base/textcase.h"
#include "tools/reading/characters.h"

namespace tool::lsp {

namespace {

using namespace optcore;

class trepairs {
 public:
  trepairs(const tfinding& finding, const toptionline& line, ttrial& trial)
      : ffinding(finding), fline(line), fdefinition(line.store->definition()), ftrial(trial) {
    for (const tstatementspans& each : line.parts.statements)
      if (!finding.name.empty() && struequal(each.name.of(line.text), finding.name)) fstatement = &each;
  }

  void suggestions();
  void newname();
  void comment();
  std::vector<trepair> take() { return std::move(fresult); }

 private:
  struct tchange {
    tspan span;  // of the line
    std::string text;
    bool clean;
  };

  std::string changed(tspan span, std::string_view text) const {
    return std::string(fline.text.substr(0, span.begin)).append(text).append(fline.text.substr(span.end));
  }
  bool isclean(tspan span, std::string_view text) {
    return ftrial.isclean(changed(span, text), fline.eolonly);
  }
  bool findsoption(tspan span, std::string_view text) const;
  std::vector<tspan> namespans(std::size_t begin) const;
  std::optional<std::size_t> nameplace() const;
  std::optional<tchange> changeto(const std::string& suggestion);
  std::optional<tspan> valuespan() const;
  std::string namein(std::string_view reason) const;
  void add(const tchange& change, bool preferred);

  const tfinding& ffinding;
  const toptionline& fline;
  const tdefinition& fdefinition;
  ttrial& ftrial;
  const tstatementspans* fstatement = nullptr;  // that the finding is about, as far as its name tells
  std::vector<trepair> fresult;
};

void trepairs::add(const tchange& change, bool preferred) {
  const std::string before(change.span.of(fline.text));
  fresult.push_back({"Replace " + printable(inquotes(before)) + " by " + printable(inquotes(change.text)),
                     {fline.intext(change.span), change.text},
                     preferred && change.clean});
}

// ---- taking a suggestion

// Where the name begins, with the period of a dot option.
std::optional<std::size_t> trepairs::nameplace() const {
  if (fstatement != nullptr) return fstatement->name.begin;
  const std::size_t at = ffinding.name.empty() ? std::string_view::npos : fline.text.find(ffinding.name);
  return at == std::string_view::npos ? std::nullopt : std::optional(at);
}

// The name may end with its word or with one of the next ones, because its words may have been typed apart.
std::vector<tspan> trepairs::namespans(std::size_t begin) const {
  constexpr std::size_t most = 6;
  std::vector<tspan> result;
  std::size_t end = begin;
  while (end < fline.text.size() && (isnamecharacter(fline.text[end]) || end == begin)) ++end;
  result.push_back({begin, end});
  while (result.size() < most && end < fline.text.size() && fline.text[end] != '=') {
    end = fline.text.find_first_not_of(" \t", end);
    if (end == std::string_view::npos) break;
    end = std::min(fline.text.find_first_of(" \t=,", end), fline.text.size());
    result.push_back({begin, end});
  }
  return result;
}

bool trepairs::findsoption(tspan span, std::string_view text) const {
  const std::string line = changed(span, text);
  const tlinespans parts = spansof(fdefinition, line, fline.eolonly);
  return std::ranges::any_of(parts.statements, [&](const tstatementspans& each) {
    return each.option != nullptr && each.name.begin >= span.begin &&
           each.name.begin <= span.begin + 1;  // behind the period of a dot option
  });
}

std::optional<tspan> trepairs::valuespan() const {
  if (fstatement == nullptr || ffinding.value.empty()) return std::nullopt;
  const std::size_t at = fline.text.find(ffinding.value, fstatement->name.end);
  return at == std::string_view::npos ? std::nullopt : std::optional(tspan{at, at + ffinding.value.size()});
}

// The first change that is read without a message, or else the first that at least finds an option.
std::optional<trepairs::tchange> trepairs::changeto(const std::string& suggestion) {
  if (const auto value = valuespan(); value && isclean(*value, suggestion))
    return tchange{*value, suggestion, true};
  const std::optional<std::size_t> place = nameplace();
  if (!place) return std::nullopt;
  const std::string text(fdefinition.nounderscore(suggestion));
  std::optional<tchange> result;
  for (const tspan span : namespans(*place)) {
    if (!findsoption(span, text)) continue;
    if (isclean(span, text)) return tchange{span, text, true};
    if (!result) result = tchange{span, text, false};
  }
  return result;
}

void trepairs::suggestions() {
  for (const std::string& suggestion : ffinding.suggestions)
    if (const auto change = changeto(suggestion)) add(*change, ffinding.suggestions.size() == 1);
}

// ---- replacing a deprecated name

// The only name of another option in the reason that the definition gives.
std::string trepairs::namein(std::string_view reason) const {
  std::set<const toption*> found;
  for (std::size_t at = 0; at < reason.size();) {
    std::size_t end = at;
    while (end < reason.size() && isnamecharacter(reason[end])) ++end;
    const toption* option = end > at ? fdefinition.exactoption(reason.substr(at, end - at)) : nullptr;
    if (option != nullptr && option != fstatement->option &&
        !option->hasdeprecation(tdeprecation::deprecated) && !option->hasdeprecation(tdeprecation::obsolete))
      found.insert(option);
    at = std::max(end, at + 1);
  }
  return found.size() == 1 ? std::string((*found.begin())->name()) : "";
}

void trepairs::newname() {
  if (fstatement == nullptr || fstatement->option == nullptr) return;
  const toption& option = *fstatement->option;
  const std::string typed(fstatement->name.of(fline.text));
  const bool bysynonym = fdefinition.optlookup(typed) < 0;
  std::string name = bysynonym ? std::string(option.name()) : namein(option.deprecatedmsg());
  if (name.empty()) return;
  name = std::string(fdefinition.nounderscore(name));
  add({fstatement->name, name, isclean(fstatement->name, name)}, true);
}

// ---- commenting out

// The whole line, or the last statement where others stand before it.
void trepairs::comment() {
  const std::vector<tstatementspans>& all = fline.parts.statements;
  if (all.size() <= 1) {
    fresult.push_back({"Make the line a comment", {{fline.span.begin, fline.span.begin}, "* "}});
    return;
  }
  const tcharset& characters = fdefinition.eolcommset();
  std::size_t character = 0;
  while (character < characters.size() && !characters[character]) ++character;
  if (character == characters.size() || fstatement != &all.back()) return;
  const std::size_t place = fline.span.begin + fstatement->whole.begin;
  fresult.push_back({"Make the rest of the line a comment",
                     {{place, place}, std::string(1, static_cast<char>(character)) + " "}});
}

// ---- removing an overridden line

// With its end. A line that does more than set this option once stays.
std::optional<trepair> removal(const toptionline& earlier, const toptionline& line, const ttext& text) {
  const auto setsone = [](const toptionline& each) { return each.parts.statements.size() == 1; };
  if (!setsone(earlier) || line.number == earlier.number) return std::nullopt;
  const toption* option = earlier.parts.statements.front().option;
  const bool sameoption =
      option != nullptr && std::ranges::any_of(line.parts.statements, [&](const tstatementspans& each) {
        return each.option == option;
      });
  if (!sameoption || option->subtype() == tsubtype::twovalues) return std::nullopt;
  const tspan next = text.line(earlier.number + 1);
  return trepair{"Remove line " + std::to_string(earlier.number) + ", which is overridden",
                 {{earlier.span.begin, next.begin}, ""},
                 true};
}

}  // namespace

std::vector<trepair> repairsof(const tfinding& finding, const toptionline& line,
                               const std::vector<toptionline>& related, const ttext& text, ttrial& trial) {
  trepairs repairs(finding, line, trial);
  repairs.suggestions();
  if (finding.rule == "deprecated") repairs.newname();
  if (finding.rule == "unknown-option" || finding.rule == "bad-separator") repairs.comment();
  std::vector<trepair> result = repairs.take();
  for (const toptionline& each : related)
    if (auto repair = removal(each, line, text)) result.push_back(std::move(*repair));
  return result;
}

}  // namespace tool::lsp
