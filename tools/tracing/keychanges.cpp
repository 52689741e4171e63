// Compares how the names of two definitions are found: those that option files of the older one may use, and
// those that are new.
#include <algorithm>
#include <array>
#include <unordered_map>

#include "base/textcase.h"
#include "options/lookup.h"
#include "tools/doc/reference.h"
#include "tools/tracing/acceptance.h"
#include "tools/tracing/definitionchanges.h"

namespace tool {

using namespace optcore;

namespace {

// ---- finding a name as option files are read

// Whether the words of a key can be typed with blanks between them: a digit ends the key.
bool joins(std::string_view word) { return !word.empty() && !isdigit(word.front()); }

// In lookup mode Minos, a name is typed with blanks; the first words that are a name of their own count.
// `partial` is set if words are left over, which then belong to the value.
std::int32_t foundminos(const tdefinition& definition, std::string_view name, bool& partial) {
  std::size_t end = name.find('_');
  for (int words = 1; words <= 4; ++words) {
    const std::string_view key = name.substr(0, end);
    if (words == 1 && struequal(key, definition.dotname()) && !key.empty()) return -1;
    const std::int32_t position = definition.indexof(key);
    partial = end != std::string_view::npos;
    if (position >= 0 || !partial) return position;
    const std::size_t begin = end + 1;
    end = name.find('_', begin);
    if (!joins(name.substr(begin, end - begin))) return -1;
  }
  return -1;
}

// The position of the option that the whole name finds; -1 if there is none. `partial` as above.
std::int32_t found(const tdefinition& definition, std::string_view name, bool& partial) {
  partial = false;
  if (name.starts_with('.')) return definition.optlookup(name);
  if (definition.lookupmode() == tlookupmode::minos) return foundminos(definition, name, partial);
  const bool isindicator = !definition.dotname().empty() && struequal(name, definition.dotname());
  return isindicator ? -1 : definition.indexof(name);
}

tstanding standingof(const toption& option, bool ownname) {
  if (option.hasdeprecation(ownname ? tdeprecation::obsolete : tdeprecation::obsoletesynonym))
    return tstanding::obsolete;
  const bool isdeprecated =
      option.hasdeprecation(ownname ? tdeprecation::deprecated : tdeprecation::deprecatedsynonym);
  return isdeprecated ? tstanding::deprecated : tstanding::current;
}

constexpr auto standingnames = std::to_array<const char*>({"current", "deprecated", "obsolete"});

std::string reasonof(const toption& option, bool ownname) {
  return std::string(ownname ? option.deprecatedmsg() : option.deprecatedmsg2());
}

// ---- the comparison

class tkeycomparison {
 public:
  explicit tkeycomparison(tcomparison& comparison)
      : fcomparison(comparison), fbefore(comparison.before()), fafter(comparison.after()) {}

  void run() {
    for (std::int32_t i = 0; i < fbefore.getcount(); ++i) option(i);
    for (std::int32_t i = 0; i < fbefore.synonyms().count(); ++i) synonym(fbefore.synonyms().getname(i));
    keyword();
    if (fbefore.lookupmode() == fafter.lookupmode() && fbefore.lookupmode() == tlookupmode::minos)
      shortsynonyms();
    for (std::int32_t i = 0; i < fafter.getcount(); ++i) added(i);
    for (std::int32_t i = 0; i < fafter.synonyms().count(); ++i) addedsynonym(i);
  }

 private:
  void add(timpact impact, std::string_view kind, std::string_view name, std::string_view before,
           std::string_view after, const std::string& text) {
    fcomparison.add(impact, kind, name, std::string(before), std::string(after), text);
  }
  bool haveshortforms() const {
    return fbefore.lookupmode() == fafter.lookupmode() && fbefore.lookupmode() != tlookupmode::normal;
  }

  // What a name of the older definition finds in the newer one, typed as it was. In lookup mode Minos, a key
  // with an underscore finds nothing.
  std::int32_t foundnow(std::string_view name, bool& partial) const {
    const bool isminos = fafter.lookupmode() == tlookupmode::minos;
    const bool wasminos = fbefore.lookupmode() == tlookupmode::minos;
    partial = false;
    if (isminos && !wasminos && !name.starts_with('.') && name.find('_') != std::string_view::npos) return -1;
    return found(fafter, name, partial);
  }

  // ---- names of options

  void option(std::int32_t position) {
    const std::string_view name = fbefore.getstrings(position);
    bool partial = false;
    if (found(fbefore, name, partial) != position) return indirect(position);  // another one hides it
    const std::int32_t counterpart = fcomparison.counterparts.newerof(position);
    const std::int32_t now = foundnow(name, partial);
    if (counterpart < 0) return removed(position, now, partial);
    calledotherwise(name, fafter.getstrings(counterpart));
    if (now != counterpart || partial) return lost(name, fbefore.option(position), now, partial);
    standing(name, fbefore.option(position), fafter.option(now));
    shortforms(position, counterpart);
  }

  // Whether a line can name an option that its name does not find. What hides it may be the keyword of
  // indicators or a synonym: a sign before the name helps, or a short form.
  bool isreached(std::int32_t position) const {
    const std::string_view name = fbefore.getstrings(position);
    const bool isminos = fbefore.lookupmode() == tlookupmode::minos;
    for (std::size_t end = name.find('_'); isminos && end != name.npos; end = name.find('_', end + 1))
      if (fbefore.optlookup(name.substr(0, end)) >= 0) return false;
    return fbefore.optlookup(name) == position;
  }

  // An option that no line can name counts only as a member of others.
  void indirect(std::int32_t position) {
    const std::string_view name = fbefore.getstrings(position);
    const bool hasreach = isreached(position);
    const std::int32_t counterpart = fcomparison.counterparts.newerof(position);
    if (counterpart < 0)
      return add(hasreach ? timpact::breaking : timpact::compatible, "removed", name, {}, {},
                 "The option is gone, but its name did not find it");
    calledotherwise(name, fafter.getstrings(counterpart));
    if (hasreach) shortforms(position, counterpart);
  }

  void calledotherwise(std::string_view name, std::string_view newname) {
    if (!struequal(name, newname))
      add(timpact::compatible, "renamed", name, name, newname, "It is now called " + std::string(newname));
    else if (name != newname)
      add(timpact::compatible, "spelling", name, name, newname, "It is now spelled " + std::string(newname));
  }

  void removed(std::int32_t position, std::int32_t now, bool partial) {
    const toption& option = fbefore.option(position);
    const std::string_view name = option.name();
    std::string text = "The option is gone";
    const std::int32_t replacement = namedin(reasonof(option, true), fcomparison.newer, name);
    if (now < 0) {
      if (replacement >= 0) text.append("; use ").append(fafter.getstrings(replacement));
      return add(timpact::breaking, "removed", name, {},
                 replacement >= 0 ? fafter.getstrings(replacement) : "", text);
    }
    add(impact(name, option, now, partial, isdotoption(option)), "removed", name, {}, fafter.getstrings(now),
        text.append("; its name now finds ").append(fafter.getstrings(now)));
  }

  // What is left over when only a part of the name is found becomes a part of the value: then a value in
  // quotes is refused.
  timpact impact(std::string_view key, const toption& before, std::int32_t now, bool partial,
                 bool dotline) const {
    const toption& after = fafter.option(now);
    const bool wasobsolete =
        !dotline && standingof(before, struequal(key, before.name())) == tstanding::obsolete;
    const bool isobsolete =
        !dotline && standingof(after, struequal(key, after.name())) == tstanding::obsolete;
    // what was an obsolete name is set now, and checked
    if (isobsolete != wasobsolete && (isobsolete || after.subtype() != tsubtype::novalue))
      return timpact::breaking;
    if (!partial) return impactofother(fcomparison, before, after, dotline);
    const bool takes = takesanytext(after) && after.subtype() != tsubtype::novalue;
    return takes && before.subtype() == tsubtype::novalue ? timpact::silent : timpact::breaking;
  }

  void lost(std::string_view name, const toption& before, std::int32_t now, bool partial) {
    if (now < 0) return add(timpact::breaking, "name", name, {}, {}, "The name no longer finds the option");
    add(impact(name, before, now, partial, isdotoption(before)), "name", name, {}, fafter.getstrings(now),
        "The name now finds " + std::string(fafter.getstrings(now)));
  }

  // ---- deprecated and obsolete names

  void standing(std::string_view key, const toption& before, const toption& after) {
    const bool ownbefore = struequal(key, before.name()), ownafter = struequal(key, after.name());
    standing(key, standingof(before, ownbefore), after, ownafter, "The name is now ");
  }

  void standing(std::string_view key, tstanding before, const toption& option, bool ownname,
                std::string text) {
    const tstanding after = standingof(option, ownname);
    if (before == after) return;
    const std::string reason = reasonof(option, ownname);
    const std::string_view name = standingnames[static_cast<std::size_t>(after)];
    text.append(name);
    const std::int32_t replacement =
        after == tstanding::current ? -1 : namedin(reason, fcomparison.newer, key);
    if (after != tstanding::current && !reason.empty()) text.append(": ").append(reason);
    // what was an obsolete name is set now, and checked
    const timpact istaken = option.subtype() == tsubtype::novalue ? timpact::silent : timpact::breaking;
    const timpact impact = after == tstanding::obsolete    ? timpact::breaking
                           : before == tstanding::obsolete ? istaken
                                                           : timpact::compatible;
    const bool isnew = replacement >= 0 && fcomparison.counterparts.olderof(replacement) < 0;
    if (isnew) text = "It gives way to " + std::string(fafter.getstrings(replacement)) + ". " + text;
    add(impact, isnew ? "renamed" : name, key, {}, replacement >= 0 ? fafter.getstrings(replacement) : "",
        text);
  }

  // ---- short forms: the exact name was looked up already

  void shortforms(std::int32_t position, std::int32_t counterpart) {
    const std::string_view name = fbefore.getstrings(position);
    if (!haveshortforms()) return;
    if (fafter.optlookup(name) != counterpart)
      return add(timpact::breaking, "short forms", name, {}, {},
                 "Short forms of the name no longer find the option");
    if (name.starts_with('.')) return;
    standing(name, standingof(fbefore.option(position), false), fafter.option(counterpart), false,
             "Short forms of the name are now ");
  }

  // In mode Minos, the first words of a name may be spelled like a synonym that is new, which then ends the
  // name.
  void shortsynonyms() {
    std::unordered_map<std::string, std::string> captured;  // by their significant characters
    for (std::int32_t i = 0; i < fbefore.getcount(); ++i) {
      const std::string name(fbefore.getstrings(i));
      for (std::size_t end = name.find('_'); end != std::string::npos; end = name.find('_', end + 1))
        captured.emplace(significant(name.substr(0, end)), name);
    }
    const auto check = [&](std::string_view key) {
      const auto hit = captured.find(significant(key));
      if (hit == captured.end() || fbefore.indexof(key) >= 0) return;
      add(timpact::breaking, "short forms", hit->second, {}, key,
          "Short forms of the name that begin with " + std::string(key) + " no longer find the option");
    };
    for (std::int32_t i = 0; i < fafter.synonyms().count(); ++i)
      if (fafter.optlookup(fafter.synonyms().getname(i)) < 0) check(fafter.synonyms().getname(i));
    if (!struequal(fbefore.dotname(), fafter.dotname()) && !fafter.dotname().empty()) check(fafter.dotname());
  }

  static std::string significant(std::string_view name) {
    std::string result = uppertext(name.substr(0, 3));
    for (std::size_t sign = name.find('_'); sign != std::string_view::npos; sign = name.find('_', sign + 1)) {
      const std::string_view word = name.substr(sign + 1, 4);
      result.append("_").append(uppertext(word.substr(0, word.find('_'))));
    }
    return result;
  }
  static std::string uppertext(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), upchar);
    return result;
  }

  // ---- synonyms

  void synonym(std::string_view key) {
    bool partial = false, newpartial = false;
    const std::int32_t position = found(fbefore, key, partial);
    if (position < 0 || partial || struequal(fbefore.getstrings(position), key)) return;
    const std::int32_t counterpart = fcomparison.counterparts.newerof(position);
    const std::int32_t now = foundnow(key, newpartial);
    if (counterpart >= 0 && now == counterpart && !newpartial)
      return standing(key, fbefore.option(position), fafter.option(now));
    const toption& before = fbefore.option(position);
    if (now < 0)
      add(timpact::breaking, "synonym", key, before.name(), {},
          "The synonym of " + std::string(before.name()) + " is gone");
    else
      add(impact(key, before, now, newpartial, false), "synonym", key, before.name(), fafter.getstrings(now),
          "The synonym of " + std::string(before.name()) + " now finds " +
              std::string(fafter.getstrings(now)));
  }

  // ---- what is new

  // A new keyword of indicators hides what had its name or, as a short form, found an option.
  void keyword() {
    const std::string_view key = fafter.dotname();
    if (key.empty() || struequal(key, fbefore.dotname())) return;
    const std::int32_t position = fbefore.indexof(key);
    if (position >= 0)
      add(timpact::breaking, "name", key, fbefore.getstrings(position), {},
          "The name is now the keyword of indicators");
  }

  void added(std::int32_t position) {
    if (fcomparison.counterparts.olderof(position) < 0)
      add(timpact::compatible, "added", fafter.getstrings(position), {}, fafter.getstrings(position),
          "The option is new");
  }

  // What a synonym that takes a name from another option does is said there.
  void addedsynonym(std::int32_t index) {
    const std::string_view key = fafter.synonyms().getname(index);
    const std::int32_t target = fafter.synonyms().getobject(index);
    const std::int32_t same = fbefore.synonyms().indexof(key);
    const bool isrename = fcomparison.older.named(key) >= 0;
    if (same < 0 && !isrename && target >= 0)
      add(timpact::compatible, "synonym", key, {}, fafter.getstrings(target),
          "The synonym of " + std::string(fafter.getstrings(target)) + " is new");
  }

  tcomparison& fcomparison;
  const tdefinition& fbefore;
  const tdefinition& fafter;
};

}  // namespace

void addkeychanges(tcomparison& comparison) { tkeycomparison(comparison).run(); }

}  // namespace tool
