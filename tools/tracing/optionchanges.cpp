// Compares an option with its counterpart, aspect by aspect.
#include <algorithm>
#include <set>

#include "base/textcase.h"
#include "tools/doc/reference.h"
#include "tools/doc/shownvalue.h"
#include "tools/tracing/acceptance.h"
#include "tools/tracing/definitionchanges.h"

namespace tool {

using namespace optcore;

namespace {

class toptioncomparison {
 public:
  toptioncomparison(tcomparison& comparison, std::int32_t position)
      : fcomparison(comparison),
        fposition(position),
        fbefore(comparison.before().option(position)),
        fafter(comparison.after().option(comparison.counterparts.newerof(position))) {}

  void run() {
    if (fbefore.opttype() != fafter.opttype()) {
      type();
    } else {
      modifier();
      values();
    }
    texts();
  }

 private:
  void add(timpact impact, std::string_view kind, const std::string& before, const std::string& after,
           const std::string& text) {
    fcomparison.add(impact, kind, fbefore.name(), before, after, text);
  }
  void addvalues(timpact impact, std::string_view kind, const std::string& before, const std::string& after,
                 const std::string& what) {
    add(impact, kind, before, after, what + " is now " + after + ", was " + before);
  }
  bool ismember() const { return fcomparison.ismember[static_cast<std::size_t>(fposition)]; }

  // ---- type and modifier

  static std::string typetext(const toption& option) {
    const std::string_view modifier = subtypemodifiers[ordinal(option.subtype())];
    return std::string(opttypenames[ordinal(option.opttype())]) + (modifier.empty() ? "" : ".") +
           std::string(modifier);
  }

  // A dot option is set by dot lines, and by others only if it has a synonym.
  bool hasdotlines() const { return isdotoption(fbefore); }
  bool haslines() const {
    return !hasdotlines() || fcomparison.hassynonym[static_cast<std::size_t>(fposition)];
  }

  void type() {
    const bool taketexts = hasdotlines() || ismember();
    const bool takes = (!taketexts || takestexts(fbefore, fafter)) &&
                       (!haslines() || takeslines(fbefore, fafter, fcomparison.manyonline));
    addvalues(takes ? timpact::silent : timpact::breaking, "type", typetext(fbefore), typetext(fafter),
              "The type");
  }

  // A dot line has one value, which an option without a value ignores.
  timpact modifierondotlines() const {
    if (fbefore.subtype() == tsubtype::novalue) return timpact::breaking;
    return fafter.subtype() == tsubtype::novalue ? timpact::silent : timpact::compatible;
  }

  timpact modifieronlines() const {
    const tsubtype before = fbefore.subtype(), after = fafter.subtype();
    bool takes = after == tsubtype::optional;
    if (before == tsubtype::novalue) return takes && !ismember() ? timpact::compatible : timpact::breaking;
    takes = takes || (after == tsubtype::twovalues && takestwovalues(fbefore, fcomparison.manyonline));
    return before == tsubtype::required && takes ? timpact::compatible : timpact::breaking;
  }

  timpact modifierimpact() const {
    return std::max(hasdotlines() ? modifierondotlines() : timpact::compatible,
                    haslines() ? modifieronlines() : timpact::compatible);
  }

  void modifier() {
    if (fbefore.subtype() == fafter.subtype()) return;
    addvalues(modifierimpact(), "modifier", typetext(fbefore), typetext(fafter), "The type");
  }

  // ---- values

  void values() {
    switch (fbefore.opttype()) {
      case topttype::integer: return bounded<tintoption>();
      case topttype::dbl: return bounded<tdbloption>();
      case topttype::string:
        return defaultvalue(shown(as<tstringoption>(fbefore).defaultvalue()),
                            shown(as<tstringoption>(fafter).defaultvalue()));
      case topttype::boolean:
        return defaultvalue(shownboolean(as<tbooleanoption>(fbefore).defaultvalue()),
                            shownboolean(as<tbooleanoption>(fafter).defaultvalue()));
      case topttype::enumstr: return choice();
      case topttype::enumint: return numberchoice();
      case topttype::multilist: return listmembers();
      case topttype::macro: return macromembers();
      case topttype::immediate: return immediate();
      case topttype::strlist: return;
    }
  }

  void defaultvalue(const tshownvalue& before, const tshownvalue& after) {
    if (before.text != after.text)
      addvalues(timpact::silent, "default", before.text, after.text, "The default");
  }

  template <class tbounded>
  void bounded() {
    const auto& before = as<tbounded>(fbefore);
    const auto& after = as<tbounded>(fafter);
    defaultvalue(shown(before.defaultvalue()), shown(after.defaultvalue()));
    const std::string range = shown(before.lo()).text + " to " + shown(before.hi()).text;
    const std::string newrange = shown(after.lo()).text + " to " + shown(after.hi()).text;
    if (range == newrange) return;
    const bool narrower = after.lo() > before.lo() || after.hi() < before.hi();
    const bool takesnone = before.subtype() == tsubtype::novalue;
    add(narrower && !takesnone ? timpact::breaking : timpact::compatible, "bounds", range, newrange,
        "The range is now " + newrange + ", was " + range + (narrower ? " (narrower)" : " (wider)"));
  }

  timpact impactofless() const {
    return fbefore.subtype() == tsubtype::novalue ? timpact::compatible : timpact::breaking;
  }
  void removedvalue(const std::string& value) {
    add(impactofless(), "values", value, {}, "The value " + value + " is gone");
  }
  void addedvalue(const std::string& value) {
    add(timpact::compatible, "values", {}, value, "The value " + value + " is new");
  }

  void choice() {
    const auto& before = as<tenumstroption>(fbefore);
    const auto& after = as<tenumstroption>(fafter);
    defaultvalue(shown(before.defaultvalue()), shown(after.defaultvalue()));
    for (std::int32_t i = 0; i < before.items().count(); ++i) {
      const std::string_view word = before.items().getname(i);
      const std::int32_t now = after.items().indexof(word);
      if (now < 0)
        removedvalue(shown(word).text);
      else if (after.items().getname(now) != word && before.items().indexof(word) == i)
        addvalues(timpact::silent, "values", shown(word).text, shown(after.items().getname(now)).text,
                  "The value " + shown(word).text);
    }
    for (std::int32_t i = 0; i < after.items().count(); ++i)
      if (before.items().indexof(after.items().getname(i)) < 0)
        addedvalue(shown(after.items().getname(i)).text);
  }

  void numberchoice() {
    const auto& before = as<tenumintoption>(fbefore);
    const auto& after = as<tenumintoption>(fafter);
    defaultvalue(shownnumber(before.defaultvalue()), shownnumber(after.defaultvalue()));
    for (std::int32_t i = 0; i < before.items().count(); ++i)
      if (const std::int32_t value = before.items().get(i)->enumvalue(); !after.hasitem(value))
        removedvalue(std::to_string(value));
    for (std::int32_t i = 0; i < after.items().count(); ++i)
      if (const std::int32_t value = after.items().get(i)->enumvalue(); !before.hasitem(value))
        addedvalue(std::to_string(value));
  }

  void immediate() {
    const timmkind before = as<timmediateoption>(fbefore).immkind(),
                   after = as<timmediateoption>(fafter).immkind();
    if (before == after) return;
    // each use of a message is an error
    addvalues(before == timmkind::message ? timpact::compatible : timpact::breaking, "action",
              std::string(immkindnames[ordinal(before)]), std::string(immkindnames[ordinal(after)]),
              "What it does");
  }

  // ---- members

  static std::string membertext(const tdefinition& definition, const std::vector<std::int32_t>& positions) {
    std::string result;
    for (const std::int32_t position : positions)
      result.append(result.empty() ? "" : " ").append(definition.getstrings(position));
    return result;
  }

  static std::vector<std::int32_t> positionsof(const tpositions& positions, const toption& option) {
    std::vector<std::int32_t> result;
    if (const auto* list = ifis<tmultilistoption>(&option))
      for (std::int32_t i = 0; i < list->items().count(); ++i) result.push_back(list->items().get(i));
    if (const auto* macro = ifis<tmacrooption>(&option))
      for (std::int32_t i = 0; i < macro->items().count(); ++i)
        result.push_back(positions.of(macro->items().get(i)));
    return result;
  }

  void addmembers(timpact impact, const std::vector<std::int32_t>& before,
                  const std::vector<std::int32_t>& after) {
    addvalues(impact, "members", membertext(fcomparison.before(), before),
              membertext(fcomparison.after(), after), "The list of members");
  }

  // The words of the value belong to the members one by one.
  void listmembers() {
    const std::vector<std::int32_t> before = positionsof(fcomparison.older, fbefore);
    const std::vector<std::int32_t> after = positionsof(fcomparison.newer, fafter);
    timpact impact = after.size() < before.size() ? timpact::breaking : timpact::compatible;
    for (std::size_t i = 0; i < before.size() && i < after.size(); ++i) {
      if (fcomparison.counterparts.newerofany(before[i]) == after[i]) continue;
      const toption* from = fcomparison.before().getobjects(before[i]);
      const toption* to = fcomparison.after().getobjects(after[i]);
      const bool takes = from != nullptr && to != nullptr && takestexts(*from, *to);
      impact = std::max(impact, takes ? timpact::silent : timpact::breaking);
    }
    if (impact != timpact::compatible || before.size() != after.size()) addmembers(impact, before, after);
  }

  // The options that a macro sets in the end. Returns false if a multilist is among them, which splits the
  // text.
  static bool leavesof(const tpositions& positions, const toption& option, std::set<std::int32_t>& leaves) {
    bool result = true;
    for (const std::int32_t position : positionsof(positions, option)) {
      const toption& member = positions.definition().option(position);
      if (member.opttype() == topttype::multilist)
        result = false;
      else if (member.opttype() == topttype::macro)
        result = leavesof(positions, member, leaves) && result;
      else
        leaves.insert(position);
    }
    return result;
  }

  // A member that is new must take all that the members took before.
  timpact macroimpact() const {
    std::set<std::int32_t> before, after, kept;
    const bool splits = !leavesof(fcomparison.older, fbefore, before);
    if (!leavesof(fcomparison.newer, fafter, after) || splits) return timpact::breaking;
    timpact impact = timpact::compatible;
    for (const std::int32_t position : before) {
      const std::int32_t now = fcomparison.counterparts.newerof(position);
      if (after.contains(now))
        kept.insert(now);
      else
        impact = timpact::silent;
    }
    for (const std::int32_t position : after) {
      if (kept.contains(position)) continue;
      const toption& member = fcomparison.after().option(position);
      const bool takes = std::ranges::any_of(
          before, [&](std::int32_t each) { return takestexts(fcomparison.before().option(each), member); });
      impact = std::max(impact, takes ? timpact::silent : timpact::breaking);
    }
    return impact;
  }

  void macromembers() {
    std::vector<std::int32_t> before = positionsof(fcomparison.older, fbefore);
    const std::vector<std::int32_t> after = positionsof(fcomparison.newer, fafter);
    std::vector<std::int32_t> now;
    now.reserve(before.size());
    for (const std::int32_t position : before) now.push_back(fcomparison.counterparts.newerofany(position));
    if (now != after) addmembers(macroimpact(), before, after);
  }

  // ---- texts

  static std::string groupof(const tdefinition& definition, const toption& option) {
    const std::int32_t position = definition.groupwithnumber(option.groupnr());
    return position < 0 ? "" : std::string(definition.groups().getname(position));
  }

  static std::string detailsof(const toption& option) {
    std::string result;
    for (std::int32_t i = 0; option.bigtext() != nullptr && i < option.bigtext()->count(); ++i)
      result.append(option.bigtext()->get(i)).append("\n");
    return result;
  }

  void texts() {
    const std::string group = groupof(fcomparison.before(), fbefore),
                      newgroup = groupof(fcomparison.after(), fafter);
    if (!struequal(group, newgroup))
      add(timpact::compatible, "group of option", group, newgroup,
          "It is now in the group " + newgroup + ", was in " + group);
    if (fbefore.helptext() != fafter.helptext())
      add(timpact::compatible, "help", std::string(fbefore.helptext()), std::string(fafter.helptext()),
          "The help is now: " + std::string(fafter.helptext()));
    else if (detailsof(fbefore) != detailsof(fafter))
      add(timpact::compatible, "help", {}, {}, "The details of the help have changed");
    if (fbefore.islisted() != fafter.islisted())
      add(timpact::compatible, "listing", {}, {},
          fafter.islisted() ? "It is now listed in the help" : "It is no longer listed in the help");
    if (fbefore.refnr() != fafter.refnr())
      addvalues(timpact::compatible, "reference number", std::to_string(fbefore.refnr()),
                std::to_string(fafter.refnr()), "The reference number");
  }

  tcomparison& fcomparison;
  std::int32_t fposition;
  const toption& fbefore;
  const toption& fafter;
};

}  // namespace

void addoptionchanges(tcomparison& comparison, std::int32_t position) {
  toptioncomparison(comparison, position).run();
}

}  // namespace tool
