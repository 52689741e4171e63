// Finds the defaults that have changed where a file relies on them, and writes the old ones.
#include "tools/migrating/migration.h"
#include "tools/migrating/settingtexts.h"
#include "tools/tracing/acceptance.h"

namespace tool {

using namespace optcore;

namespace {

// None for an option without a default.
tvalue defaultof(const toption& option) {
  switch (option.opttype()) {
    case topttype::integer: return as<tintoption>(option).defaultvalue();
    case topttype::dbl: return as<tdbloption>(option).defaultvalue();
    case topttype::boolean: return as<tbooleanoption>(option).defaultvalue();
    case topttype::enumint: return as<tenumintoption>(option).defaultvalue();
    case topttype::string: return std::string(as<tstringoption>(option).defaultvalue());
    case topttype::enumstr: return std::string(as<tenumstroption>(option).defaultvalue());
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return {};
}

titem defaultitem(const toption& option, const toption& newer) {
  return {.kind = teffect::tkind::value,
          .option = &newer,
          .value = defaultof(option),
          .type = option.opttype(),
          .subtype = option.subtype()};
}

// Of what notes on these values speak.
std::string subject(const toption& option, const std::vector<twhich>& values) {
  if (option.subtype() != tsubtype::twovalues || values.size() == 2) return "The default";
  return values.front() == twhich::first ? "The default of the first value"
                                         : "The default of the second value";
}

}  // namespace

// Options that can tell only whether they were named have no default to rely on.
void tmigration::pin(const tmigratedfile& file) {
  if (fdefinitions.areequal() || fpinned.contains(&file)) return;
  tpins& pins = fpinned[&file];
  const tdefinition& definition = fdefinitions.successors().older().definition();
  for (std::int32_t i = 0; i < fdefinitions.successors().count(); ++i) {
    const toption* newer = fdefinitions.successors().of(i);
    if (newer == nullptr) continue;
    const toption& older = definition.option(i);
    if (older.subtype() == tsubtype::novalue || newer->subtype() == tsubtype::novalue) continue;
    const std::vector<twhich> values = unsetvalues(i, *newer);
    if (values.empty()) continue;
    const titem before = defaultitem(older, *newer), after = defaultitem(*newer, *newer);
    const bool hasnone = before.value.index() == 0 && after.value.index() == 0;
    if (!hasnone && !samevalue(before, after)) pinoption(pins, older, *newer, values);
  }
}

// The values that no line of the result sets under any of the definitions. A line may set only one of two.
std::vector<twhich> tmigration::unsetvalues(std::int32_t position, const toption& newer) const {
  const toption& older = fstore->definition().option(position);
  const std::int32_t before = foldset[static_cast<std::size_t>(position)];
  const std::int32_t now = fset[static_cast<std::size_t>(fdefinitions.successors().newer().of(&newer))];
  const bool hastwo = newer.subtype() == tsubtype::twovalues, hadtwo = older.subtype() == tsubtype::twovalues;
  if ((!hastwo || !hadtwo) && (before | now) != 0) return {};
  std::vector<twhich> result;
  for (const twhich which : {twhich::first, twhich::second})
    if ((which == twhich::first || hastwo || hadtwo) && ((before | now) & valuebit(which)) == 0)
      result.push_back(which);
  return result;
}

void tmigration::pinoption(tpins& pins, const toption& older, const toption& newer,
                           const std::vector<twhich>& values) {
  titem item = defaultitem(older, newer);
  const auto shown = [](const tvalue& value) { return value.index() == 0 ? "none" : valuetext(value); };
  const std::string what =
      subject(newer, values) + " is now " + shown(defaultof(newer)) + ", was " + shown(item.value);
  const auto note = [&](taction action, const std::string& text, bool decide) {
    pins.notes.push_back({action, std::string(older.getname()), what + text, decide});
  };
  const bool isvalue = item.value.index() != 0 && defaultof(newer).index() != 0;
  if (!isvalue || isdotoption(newer) || newer.hasdeprecation(tdeprecation::obsolete))
    return note(taction::newdefault, "; a line cannot set it", fpins);
  if (!fpins) return note(taction::newdefault, "; --pin keeps the old one", false);
  toutcome expected;
  for (const twhich which : values) {
    item.which = which;
    expected.items.push_back(item);
  }
  const tdefinition& definition = fdefinitions.newdefinition();
  const auto attempt = [&](const toutcome& outcome) {
    const auto texts = settingtexts(definition, outcome, flastneweolonly);
    const bool can =
        texts && fdefinitions.rewriter().canadd(texts->front(), outcome, {flastagaineolonly, fagainnobounds},
                                                {flastneweolonly, fnewnobounds});
    if (can) pins.lines.push_back(texts->front());
    return can;
  };
  if (attempt(expected)) return note(taction::pinned, "; the old one was written", false);
  if (!clamp(expected).empty() && fdefinitions.clamps() && attempt(expected))
    return note(taction::clamped, "; " + valuetext(expected.items[0].value) + ", the bound, was written",
                false);
  note(taction::left, "; it can no longer be set", true);
}

// A file that others include gets no pins: they would replace what was set before it is included.
void tmigration::finish() {
  for (tmigratedfile& file : ffiles) {
    tpins& pins = fpinned[&file];
    for (tnote& note : pins.notes) {
      if (file.isincluded && (note.action == taction::pinned || note.action == taction::clamped))
        note = {taction::left, note.name, "Not pinned, because another file includes this one", true};
      file.notes.add(0, note);
    }
    if (file.isincluded || pins.lines.empty()) continue;
    pins.lines.insert(pins.lines.begin(), "* Defaults that have changed");
    file.addlines(pins.lines);
  }
}

}  // namespace tool
