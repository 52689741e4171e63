// Reads lines as texts.
#include "tools/migrating/trial.h"

#include <algorithm>

#include "input/linereader.h"

namespace tool {

using namespace optcore;

namespace {

// Whether a statement does something beyond the store.
bool actsoutside(const tstatementspans& statement) {
  if (statement.kind != tstatementspans::tkind::immediate) return false;
  const timmkind kind = as<timmediateoption>(*statement.option).immkind();
  return kind != timmkind::eolflag && kind != timmkind::nobounds;
}

}  // namespace

const tmeaning& ttrial::read(std::string_view line, tlinestate& state) {
  fmeaning.clear();
  const std::string_view part = line.substr(0, optcore::tlinereader::maxline);
  fspans = spansof(fstore.definition(), part, state.eolonly);
  if (part.empty() || part.front() == '*') return fmeaning;
  ftext = part;
  const bool isblanked = blankout(part);
  fstore.opteolonlyset(state.eolonly);
  fstore.optnoboundsset(state.nobounds);
  fstore.optreadfrompchar(ftext.c_str());
  fstore.optclearmessages();
  state = {fspans.eolonly, fstore.nobounds()};
  if (isblanked) addblanked(part);
  return fmeaning;
}

// Blanks stand in the place of what must not be read.
bool ttrial::blankout(std::string_view line) {
  bool result = false;
  for (const tstatementspans& statement : fspans.statements) {
    if (!actsoutside(statement)) continue;
    result = true;
    const std::size_t end = std::max(statement.whole.end, statement.value.end);
    std::fill(ftext.begin() + static_cast<std::ptrdiff_t>(statement.whole.begin),
              ftext.begin() + static_cast<std::ptrdiff_t>(std::min(end, line.size())), ' ');
  }
  return result;
}

// Adds the statements that were not read, each in its place.
void ttrial::addblanked(std::string_view line) {
  std::vector<tstatement> all;
  all.reserve(fspans.statements.size());
  auto next = fmeaning.statements.begin();
  for (const tstatementspans& statement : fspans.statements) {
    const bool isread = next != fmeaning.statements.end();
    if (actsoutside(statement))
      all.push_back({tstep::tkind::statement, std::string(statement.name.of(line)), statement.option,
                     isread ? next->effects : fmeaning.effects.size(),
                     isread ? next->problems : fmeaning.problems.size()});
    else if (isread)
      all.push_back(*next++);
  }
  fmeaning.statements = std::move(all);
}

}  // namespace tool
