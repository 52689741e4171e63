// Finds the successors by names, synonyms and the reasons of deprecations.
#include "tools/migrating/successors.h"

#include "base/textcase.h"

namespace tool {

using namespace optcore;

tsuccessors::tsuccessors(const tpositions& older, const tpositions& newer)
    : folder(older),
      fnewer(newer),
      fsuccessors(static_cast<std::size_t>(older.definition().getcount())),
      fpredecessors(static_cast<std::size_t>(newer.definition().getcount()), -1) {
  const tcounterparts counterparts(older, newer);
  for (std::int32_t i = 0; i < older.definition().getcount(); ++i)
    if (const std::int32_t newposition = counterparts.newerof(i); newposition >= 0) {
      fsuccessors[static_cast<std::size_t>(i)] = newer.definition().getobjects(newposition);
      fpredecessors[static_cast<std::size_t>(newposition)] = i;
    }
  for (std::int32_t i = 0; i < older.definition().getcount(); ++i) follow(counterparts, i);
}

// An option that gives way to a new one.
void tsuccessors::follow(const tcounterparts& counterparts, std::int32_t position) {
  const toption& before = folder.definition().option(position);
  const std::int32_t counterpart = counterparts.newerof(position);
  std::string_view reason = before.deprecatedmsg();
  if (counterpart >= 0) reason = fnewer.definition().option(counterpart).deprecatedmsg();
  const std::int32_t replacement = reason.empty() ? -1 : namedin(reason, fnewer, before.name());
  if (replacement < 0 || fpredecessors[static_cast<std::size_t>(replacement)] >= 0) return;
  const toption& after = fnewer.definition().option(replacement);
  if (folder.named(after.name()) >= 0 || after.opttype() != before.opttype()) return;
  fsuccessors[static_cast<std::size_t>(position)] = &after;
  fpredecessors[static_cast<std::size_t>(replacement)] = position;
}

namespace {

// In lookup mode Minos, the words of a name are typed with blanks between them, and the first words that are a
// name count.
bool istyped(const tdefinition& definition, std::string_view name) {
  if (definition.lookupmode() != tlookupmode::minos) return true;
  int words = 1;
  for (std::size_t at = name.find('_'); at != std::string_view::npos; at = name.find('_', at + 1)) {
    const bool joins = at + 1 < name.size() && isletter(name[at + 1]);
    if (!joins || ++words > 4 || definition.optionasobj(name.substr(0, at)) != nullptr) return false;
  }
  return true;
}

bool finds(const tdefinition& definition, std::string_view name, const toption& option) {
  return definition.optionasobj(name) == &option && istyped(definition, name);
}

bool iskeyword(const tdefinition& definition, std::string_view name) {
  return !definition.dotname().empty() && struequal(name, definition.dotname());
}

// The first synonym that finds the option; none if synonyms of it set nothing.
std::string synonymof(const tdefinition& definition, const toption& option) {
  if (option.hasdeprecation(tdeprecation::obsoletesynonym)) return {};
  const auto& synonyms = definition.synonyms();
  for (std::int32_t i = 0; i < synonyms.count(); ++i)
    if (definition.synonymtarget(i) == &option && finds(definition, synonyms.getname(i), option))
      return std::string(synonyms.getname(i));
  return {};
}

}  // namespace

std::string writtenname(const tdefinition& definition, const toption& option) {
  const std::string_view name = option.name();
  if (name.starts_with('.')) return definition.optlookup(name) < 0 ? "" : std::string(name.substr(1));
  std::string result(name);
  if (!finds(definition, name, option)) result = synonymof(definition, option);
  const std::string typed(definition.nounderscore(result).view());
  // a sign before the keyword of indicators makes it the name of an option
  return iskeyword(definition, typed.substr(0, typed.find(' '))) ? "-" + typed : typed;
}

std::string reasonof(const toption& older, const toption* newer) {
  if (newer != nullptr && !newer->deprecatedmsg().empty()) return std::string(newer->deprecatedmsg());
  if (newer != nullptr && !newer->deprecatedmsg2().empty()) return std::string(newer->deprecatedmsg2());
  return std::string(older.deprecatedmsg().empty() ? older.deprecatedmsg2() : older.deprecatedmsg());
}

}  // namespace tool
