// Compares what holds for the whole definition; options and names have files of their own.
#include "tools/tracing/definitionchanges.h"

#include <algorithm>

#include "tools/text.h"
#include "tools/tracing/acceptance.h"

namespace tool {

using namespace optcore;

void tcomparison::add(timpact impact, std::string_view kind, std::string_view name,
                      const std::string& beforetext, const std::string& aftertext, const std::string& text) {
  changes.push_back({impact, kind, utf8(name), utf8(beforetext), utf8(aftertext), utf8(text)});
}

timpact impactofother(const tcomparison& comparison, const toption& before, const toption& after,
                      bool dotlines) {
  const bool takes = dotlines ? takestexts(before, after) : takeslines(before, after, comparison.manyonline);
  return takes ? timpact::silent : timpact::breaking;
}

namespace {

// ---- how names are found

void addlookup(tcomparison& comparison) {
  const tlookupmode before = comparison.before().lookupmode(), after = comparison.after().lookupmode();
  if (before == after) return;
  const std::string beforename(lookupmodenames[ordinal(before)]), aftername(lookupmodenames[ordinal(after)]);
  const bool hadshortforms = before != tlookupmode::normal;
  comparison.add(hadshortforms ? timpact::breaking : timpact::silent, "lookup", {}, beforename, aftername,
                 "The lookup mode is now " + aftername + ", was " + beforename +
                     (hadshortforms ? "; short forms of names may not be found"
                                    : "; lists of texts (--NAME) with similar names become one"));
}

// ---- comments

std::string charactersof(const tcharset& set) {
  std::string result;
  for (std::size_t i = 0; i < set.size(); ++i)
    if (set.test(i)) result.push_back(static_cast<char>(i));
  return result;
}

// Whether something other than a text may hold the character and is refused without what follows it.
bool mayhold(const tdefinition& definition, char character) {
  if (!definition.dotname().empty()) return true;
  for (std::int32_t i = 0; i < definition.getcount(); ++i) {
    const toption& option = definition.option(i);
    const auto* immediate = ifis<timmediateoption>(&option);
    if (isdotoption(option) || (immediate != nullptr && immediate->immkind() == timmkind::readfile))
      return true;
    const auto* choice = ifis<tenumstroption>(&option);
    for (std::int32_t k = 0; choice != nullptr && k < choice->items().count(); ++k)
      if (choice->items().getname(k).find(character) != std::string_view::npos) return true;
  }
  return false;
}

void addcomments(tcomparison& comparison) {
  const std::string before = charactersof(comparison.before().eolcommset());
  const std::string after = charactersof(comparison.after().eolcommset());
  if (before == after) return;
  timpact impact = timpact::silent;
  for (const char character : before)
    if (after.find(character) == std::string::npos) impact = timpact::breaking;
  for (const char character : after)
    if (before.find(character) == std::string::npos && mayhold(comparison.before(), character))
      impact = timpact::breaking;
  comparison.add(impact, "comments", {}, before, after,
                 "Comments at the end of a line now begin with " + (after.empty() ? "nothing" : after) +
                     ", did with " + (before.empty() ? "nothing" : before));
}

// ---- indicators

// What the new keyword hides is among the changes of names.
void addindicator(tcomparison& comparison) {
  const std::string before(comparison.before().dotname()), after(comparison.after().dotname());
  if (struequal(before, after)) return;
  comparison.add(before.empty() ? timpact::compatible : timpact::breaking, "indicator", {}, before, after,
                 after.empty()    ? "There is no keyword of indicators any more, was " + before
                 : before.empty() ? "There is a keyword of indicators, " + after
                                  : "The keyword of indicators is now " + after + ", was " + before);
}

// ---- groups

std::string grouptext(const tdefinition& definition, std::int32_t position) {
  return std::string(definition.groups().getobject(position)->helptext());
}

void addgroups(tcomparison& comparison) {
  const auto& before = comparison.before().groups();
  const auto& after = comparison.after().groups();
  for (std::int32_t i = 0; i < before.count(); ++i) {
    const std::int32_t now = after.indexof(before.getname(i));
    const std::string title = grouptext(comparison.before(), i);
    if (now < 0)
      comparison.add(timpact::compatible, "group", before.getname(i), title, {}, "The group is gone");
    else if (title != grouptext(comparison.after(), now))
      comparison.add(
          timpact::compatible, "group", before.getname(i), title, grouptext(comparison.after(), now),
          "The title is now " + inquotes(grouptext(comparison.after(), now)) + ", was " + inquotes(title));
  }
  for (std::int32_t i = 0; i < after.count(); ++i)
    if (before.indexof(after.getname(i)) < 0)
      comparison.add(timpact::compatible, "group", after.getname(i), {}, grouptext(comparison.after(), i),
                     "The group is new");
}

// ---- what is known beforehand

std::vector<bool> membersof(const tdefinition& definition, const tpositions& positions) {
  std::vector<bool> result(static_cast<std::size_t>(definition.getcount()));
  const auto mark = [&](std::int32_t position) {
    if (position >= 0) result[static_cast<std::size_t>(position)] = true;
  };
  for (std::int32_t i = 0; i < definition.getcount(); ++i) {
    if (const auto* macro = ifis<tmacrooption>(&definition.option(i)))
      for (std::int32_t k = 0; k < macro->items().count(); ++k) mark(positions.of(macro->items().get(k)));
    if (const auto* list = ifis<tmultilistoption>(&definition.option(i)))
      for (std::int32_t k = 0; k < list->items().count(); ++k) mark(list->items().get(k));
  }
  return result;
}

std::vector<bool> withsynonyms(const tdefinition& definition) {
  std::vector<bool> result(static_cast<std::size_t>(definition.getcount()));
  for (std::int32_t i = 0; i < definition.synonyms().count(); ++i)
    if (const std::int32_t target = definition.synonyms().getobject(i); target >= 0)
      result[static_cast<std::size_t>(target)] = true;
  return result;
}

bool switcheslines(const tdefinition& definition) {
  for (std::int32_t i = 0; i < definition.getcount(); ++i) {
    const auto* immediate = ifis<timmediateoption>(&definition.option(i));
    if (immediate != nullptr && immediate->immkind() == timmkind::eolflag) return true;
  }
  return false;
}

}  // namespace

std::vector<tchange> definitionchanges(const tvksoptions& older, const tvksoptions& newer) {
  tcomparison comparison{.older = tpositions(older.definition()),
                         .newer = tpositions(newer.definition()),
                         .ismember = {},
                         .hassynonym = {}};
  comparison.ismember = membersof(comparison.before(), comparison.older);
  comparison.hassynonym = withsynonyms(comparison.before());
  comparison.manyonline = switcheslines(comparison.before());
  addlookup(comparison);
  addcomments(comparison);
  addindicator(comparison);
  for (std::int32_t i = 0; i < comparison.before().getcount(); ++i)
    if (comparison.counterparts.newerof(i) >= 0) addoptionchanges(comparison, i);
  addkeychanges(comparison);
  addgroups(comparison);
  return std::move(comparison.changes);
}

}  // namespace tool
