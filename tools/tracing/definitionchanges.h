// What has changed between two definitions of the options of a solver, as records, each with what it means to
// option files.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "options/vksoptions.h"
#include "tools/tracing/counterparts.h"

namespace tool {

// From the one that matters least.
enum class timpact : std::uint8_t {
  compatible,  // option files stay clean and mean the same
  silent,      // an option file stays clean, but may mean something else
  breaking     // an option file that was clean may be refused
};
inline constexpr auto impactnames = std::to_array<std::string_view>({"compatible", "silent", "breaking"});

struct tchange {
  timpact impact;
  std::string_view kind;      // what has changed: "type", "default", ...
  std::string name;           // of the option, synonym or group, in the older definition if it is there
  std::string before, after;  // perhaps empty
  std::string text;           // the whole change for people, without the name
};

// The changes in the order of the older definition, then what is new. Both definitions must have been read
// without errors.
//
// An option file counts as clean if nothing is reported about it, except that a name is deprecated or
// obsolete; it is refused if an error is reported, or if a value is no longer taken, because its name has
// become obsolete. It is read in end-of-line mode, unless it switches that off itself.
std::vector<tchange> definitionchanges(const optcore::tvksoptions& older, const optcore::tvksoptions& newer);

// What the comparison knows while it runs. For the files that make the parts of the list.
struct tcomparison {
  tpositions older, newer;
  tcounterparts counterparts{older, newer};
  std::vector<bool> ismember;    // of a macro or multilist, for the options of the older definition
  std::vector<bool> hassynonym;  // the same
  bool manyonline = false;       // an option file of the older definition may have several settings on a line
  std::vector<tchange> changes{};

  const optcore::tdefinition& before() const { return older.definition(); }
  const optcore::tdefinition& after() const { return newer.definition(); }
  void add(timpact impact, std::string_view kind, std::string_view name, const std::string& before,
           const std::string& after, const std::string& text);
};

// Adds how the option at this position differs from its counterpart.
void addoptionchanges(tcomparison& comparison, std::int32_t position);
// Adds the options and synonyms whose names are new, gone or find something else, or whose standing has
// changed.
void addkeychanges(tcomparison& comparison);

// What it means that lines which named the one option name the other one now: silent if that takes them all,
// otherwise breaking. `dotlines` says of what kind they are.
timpact impactofother(const tcomparison& comparison, const optcore::toption& before,
                      const optcore::toption& after, bool dotlines);

}  // namespace tool
