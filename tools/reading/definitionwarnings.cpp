// Looks through the options, synonyms and groups of a definition.
#include "tools/reading/definitionwarnings.h"

#include "tools/reading/listedoptions.h"

#include <algorithm>
#include <map>
#include <utility>

namespace tool {

using namespace optcore;

namespace {

class tdefinitioncheck {
 public:
  tdefinitioncheck(const tdefinition& definition, tdefinitionlines& lines, const std::string& file)
      : fdefinition(definition), flines(lines), ffile(file) {}

  void groups();
  void option(std::int32_t index);
  void reachable(std::int32_t index, const std::set<std::int32_t>& reported);
  void synonym(std::int32_t position);
  tfindings& found() { return ffindings; }

 private:
  // `field` is what is meant in the line, the name if it is empty; `other` is a line that has to do with it, 0
  // if there is none.
  void warn(std::int32_t line, std::string_view rule, std::string text, std::string_view field = {},
            std::int32_t other = 0) {
    tfinding finding = {{ffile, line}, tseverity::warning, rule, std::move(text)};
    finding.field = field;
    if (other > 0) finding.related.push_back({{ffile, other}, std::string(definedhere)});
    ffindings.push_back(std::move(finding));
  }
  std::int32_t lineof(std::int32_t index) { return flines.ofoption(fdefinition, index); }
  void group(const toption& option, std::int32_t line);
  void reference(const toption& option, std::int32_t line);
  void members(const toption& option, std::int32_t line);
  void values(std::int32_t index);
  void value(std::int32_t index, std::int32_t position, const std::string& word, const toptionx& item);

  const tdefinition& fdefinition;
  tdefinitionlines& flines;
  const std::string& ffile;
  std::map<std::int32_t, std::pair<std::string, std::int32_t>> freferences;
  std::set<std::int32_t> fundeclared;
  tfindings ffindings;
};

// Options of a group may stand behind the line at which the reading ended.
void tdefinitioncheck::groups() {
  if (fdefinition.earlyend() != 0) return;
  std::set<std::int32_t> used;
  for (std::int32_t i = 1; i < fdefinition.getcount(); ++i) used.insert(fdefinition.option(i).groupnr());
  for (std::int32_t i = 0; i < fdefinition.groups().count(); ++i)
    if (!used.contains(fdefinition.groups().getobject(i)->groupnumber()))
      warn(flines.ofgroup(i), "group-empty",
           "Group " + inquotes(fdefinition.groups().getname(i)) + " has no options");
}

// The first option of each group that no line declares.
void tdefinitioncheck::group(const toption& option, std::int32_t line) {
  const std::int32_t number = option.groupnr();
  if (number <= 0 || fdefinition.groupwithnumber(number) >= 0 || !fundeclared.insert(number).second) return;
  warn(line, "group-undeclared",
       "No group line declares the group " + std::to_string(number) + " of option " +
           inquotes(option.getname()) + "; the summary of the help does not list it",
       "group");
}

// The number 0 usually means that there is none.
void tdefinitioncheck::reference(const toption& option, std::int32_t line) {
  if (!hasusermap(option.opttype()) || option.refnr() == 0) return;
  const auto [at, isnew] = freferences.try_emplace(option.refnr(), option.getname(), line);
  if (!isnew)
    warn(line, "reference-twice",
         "Option " + inquotes(option.getname()) + " has the reference number " +
             std::to_string(option.refnr()) + " of option " + inquotes(at->second.first) + " at line " +
             std::to_string(at->second.second),
         "reference number", at->second.second);
}

void tdefinitioncheck::members(const toption& option, std::int32_t line) {
  const auto* list = ifis<tmultilistoption>(&option);
  const auto* macro = ifis<tmacrooption>(&option);
  if ((list != nullptr && list->items().count() == 0) || (macro != nullptr && macro->items().count() == 0))
    warn(line, "no-members", "Option " + inquotes(option.getname()) + " has no members, so it sets nothing");
}

void tdefinitioncheck::value(std::int32_t index, std::int32_t position, const std::string& word,
                             const toptionx& item) {
  if (item.islisted() && item.helptext().empty())
    warn(flines.ofvalue(fdefinition, index, position), "no-value-text",
         "Value " + word + " of option " + inquotes(fdefinition.option(index).getname()) + " has no text");
}

void tdefinitioncheck::values(std::int32_t index) {
  const toption& option = fdefinition.option(index);
  if (const auto* words = ifis<tenumstroption>(&option))
    for (std::int32_t i = 0; i < words->items().count(); ++i)
      value(index, i, inquotes(words->items().getname(i)), *words->items().getobject(i));
  if (const auto* numbers = ifis<tenumintoption>(&option))
    for (std::int32_t i = 0; i < numbers->items().count(); ++i)
      value(index, i, std::to_string(numbers->items().get(i)->enumvalue()), *numbers->items().get(i));
}

void tdefinitioncheck::option(std::int32_t index) {
  const toption& option = fdefinition.option(index);
  const std::int32_t line = lineof(index);
  group(option, line);
  reference(option, line);
  members(option, line);
  if (const auto* boolean = ifis<tbooleanoption>(&option);
      boolean != nullptr && boolean->defaultvalue() != 0 && boolean->defaultvalue() != 1)
    warn(line, "boolean-default",
         "Default of option " + inquotes(option.getname()) + " is " +
             std::to_string(boolean->defaultvalue()) + ", but booleans are 0 or 1",
         "default");
  if (islisted(fdefinition, option) && option.helptext().empty())
    warn(line, "no-help", "Help lists option " + inquotes(option.getname()) + ", but it has no help text");
  values(index);
}

// A lookup line may stand after options, and makes their names equal without a message.
void tdefinitioncheck::reachable(std::int32_t index, const std::set<std::int32_t>& reported) {
  const toption& option = fdefinition.option(index);
  const std::int32_t line = lineof(index);
  if (fdefinition.optlookup(option.name()) == index || reported.contains(line)) return;
  const tholder holder = holderof(option.name(), fdefinition, flines);
  warn(line, "name-not-found",
       "Option " + inquotes(option.getname()) + " cannot be set by its name" +
           (fdefinition.optlookup(option.name()) < 0 ? ", which the lookup mode does not find"
                                                     : ". " + holder.text),
       {}, holder.line);
}

void tdefinitioncheck::synonym(std::int32_t position) {
  const auto name = fdefinition.synonyms().getname(position);
  const toption* found = fdefinition.getobjects(fdefinition.optlookup(name));
  if (found == nullptr || found == fdefinition.synonymtarget(position)) return;
  const tholder holder = holderof(name, fdefinition, flines);
  warn(flines.ofsynonym(position), "name-not-found",
       "Synonym " + inquotes(fdefinition.nounderscore(name)) + " is never used. " + holder.text, {},
       holder.line);
}

}  // namespace

tholder holderof(std::string_view name, const tdefinition& definition, tdefinitionlines& lines) {
  const auto holder = [&](const char* kind, std::string_view found, std::int32_t line) -> tholder {
    return {std::string("The name finds ") + kind + inquotes(definition.nounderscore(found)) +
                (line == 0 ? ", which every definition has" : " at line " + std::to_string(line)),
            line};
  };
  if (const std::int32_t index = definition.optlookup(name); index >= 0)
    return holder("option ", definition.getstrings(index), lines.ofoption(definition, index));
  const std::int32_t position = definition.synonyms().indexof(name);
  return position < 0 ? tholder{} : holder("synonym ", name, lines.ofsynonym(position));
}

tfindings definitionwarnings(const tdefinition& definition, tdefinitionlines& lines, const std::string& file,
                             const std::set<std::int32_t>& reported) {
  tdefinitioncheck check(definition, lines, file);
  check.groups();
  for (std::int32_t i = 1; i < definition.getcount(); ++i) {
    check.option(i);
    check.reachable(i, reported);
  }
  for (std::int32_t i = 0; i < definition.synonyms().count(); ++i) check.synonym(i);
  std::ranges::stable_sort(check.found(), {}, [](const tfinding& finding) { return finding.place.line; });
  return std::move(check.found());
}

}  // namespace tool
