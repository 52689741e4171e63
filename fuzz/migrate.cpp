// The input is a byte of switches, an older definition, a newer one, an option file and one that it may include
// as "part", with a line "%%" between these parts. The option file is migrated. What it sets under the newer
// definition must be what it set under the older one, unless a note says otherwise; migrating it once more must
// change nothing; and nothing must change if the definition is the same and has no deprecated names.
#include "tools/migrating/migration.h"

#include <algorithm>
#include <map>
#include <set>

#include "base/textcase.h"
#include "fuzz/support/target.h"

namespace fuzzing {
namespace {

using namespace optcore;
using tool::taction;
using tool::tmigratedfile;

using tfiles = std::map<std::string, std::string>;

std::string uppertext(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), upchar);
  return result;
}

// The files that were read, with their notes.
std::deque<tmigratedfile> migrated(tool::tdefinitions& definitions, bool pins) {
  tool::tmigration migration(definitions, pins, [](const std::string& name) -> std::optional<std::string> {
    return readfile(name);
  });
  beforecall();
  if (!migration.run("opt")) return {};
  migration.finish();
  return migration.takefiles();
}

// The names that notes are about, in upper case; `all` if a note may be about any option.
struct tnoted {
  std::set<std::string> names;
  std::set<std::string> pinned;  // whose old defaults were written
  bool all = false;
  bool taken = false;
};

tnoted notedin(const std::deque<tmigratedfile>& files, const tdefinition& older) {
  tnoted result;
  for (const tmigratedfile& file : files) {
    result.all |= file.notes.unlisted() != 0 || !file.isread;
    for (const auto& [line, note] : file.notes.kept()) {
      result.taken |= note.action == taction::taken;
      const bool counts = note.decide || note.action == taction::clamped ||
                          note.action == taction::commented || note.action == taction::reduced ||
                          note.action == taction::newdefault;
      std::string name = note.name;
      std::ranges::replace(name, ' ', '_');
      if (note.action == taction::pinned) result.pinned.insert(uppertext(name));
      if (!counts || note.action == taction::refused) continue;
      const toption* option = older.exactoption(name);
      const bool spreads = option == nullptr || option->datatype() == tdatatype::none;
      result.all |= spreads;
      result.names.insert(uppertext(name));
    }
  }
  return result;
}

tool::titem itemof(const toption& option, twhich which) {
  tool::titem result{
      .kind = tool::teffect::tkind::value, .type = option.opttype(), .subtype = option.subtype()};
  if (const auto* number = ifis<tdbloption>(&option))
    result.value = number->value(which);
  else if (const auto integer = option.getasinteger12(which))
    result.value = *integer;
  else
    result.value = std::string(option.getasstring12(which).view());
  return result;
}

// Whether both options hold the same.
bool isheld(const toption& before, const toption& after) {
  if (const auto* list = ifis<tstrlistoption>(&before)) {
    const auto* other = ifis<tstrlistoption>(&after);
    if (other == nullptr || other->itemcount() != list->itemcount()) return false;
    for (std::int32_t i = 0; i < list->itemcount(); ++i)
      if (list->item(i) != other->item(i)) return false;
    return true;
  }
  const bool havetwo = before.subtype() == tsubtype::twovalues && after.subtype() == tsubtype::twovalues;
  return tool::samevalue(itemof(before, twhich::first), itemof(after, twhich::first)) &&
         (!havetwo || tool::samevalue(itemof(before, twhich::second), itemof(after, twhich::second)));
}

// What the files set under both definitions.
void checkvalues(const tool::tdefinitions& definitions, const optcore::tvksoptions& before,
                 const optcore::tvksoptions& after, const tnoted& noted) {
  const tool::tsuccessors& successors = definitions.successors();
  for (std::int32_t i = 0; i < successors.count(); ++i) {
    const toption* newer = successors.of(i);
    const toption& older = before.definition().option(i);
    if (newer == nullptr || older.datatype() == tdatatype::none || older.name().starts_with('.')) continue;
    const std::string name = uppertext(older.name());
    if (noted.names.contains(name) || noted.taken) continue;
    const toption& now = after.definition().option(successors.newer().of(newer));
    if (older.defined() != 0 || noted.pinned.contains(name))
      HOLDS(now.defined() != 0 && isheld(older, now), older.name(), older.getasstring().view(),
            now.getasstring().view());
    else
      HOLDS(now.defined() == 0, now.name(), now.getasstring().view());
  }
  std::set<const toption*> continued;
  for (std::int32_t i = 0; i < successors.count(); ++i) continued.insert(successors.of(i));
  for (std::int32_t i = 0; i < definitions.newer.store().getcount() && !noted.taken; ++i) {
    const toption& option = after.definition().option(i);
    if (!continued.contains(&definitions.newdefinition().option(i)))
      HOLDS(option.defined() == 0, option.name());
  }
}

void checkproof(tool::tdefinitions& definitions, const tfiles& old, const std::deque<tmigratedfile>& files) {
  const tnoted noted = notedin(files, definitions.older.store().definition());
  optcore::tvksoptions before, after;
  const auto read = [](optcore::tvksoptions& store, const char* definition) {
    beforecall();
    HOLDS(store.optreaddefinition(definition) == 0, definition);
    store.optclearmessages();
    beforecall();
    store.optreadparameterfile("opt");
  };
  for (const auto& [name, bytes] : old) writefile(name, bytes);
  read(before, "old");
  for (const tmigratedfile& file : files) writefile(file.name, file.after);
  read(after, "new");
  if (!noted.all) checkvalues(definitions, before, after, noted);
}

// Whether names are deprecated or obsolete.
bool hasmarks(const tdefinition& definition) {
  for (std::int32_t i = 0; i < definition.getcount(); ++i)
    for (const auto mark : {tdeprecation::deprecated, tdeprecation::obsolete, tdeprecation::deprecatedsynonym,
                            tdeprecation::obsoletesynonym})
      if (definition.option(i).hasdeprecation(mark)) return true;
  return false;
}

// The columns of the names are where the library found them.
class tcolumncheck final : public tstoreobserver {
 public:
  explicit tcolumncheck(optcore::tvksoptions& store) : fstore(store) { store.setobserver(this); }
  ~tcolumncheck() override { fstore.setobserver(nullptr); }
  void run(std::string_view line, bool eolonly) {
    line = tool::readpart(line);
    if (line.empty() || line.front() == '*' || line.find('\0') != line.npos) return;
    fstore.opteolonlyset(eolonly);
    fkeys.clear();
    const tool::tlinespans spans = tool::spansof(fstore.definition(), line, eolonly);
    fstore.optreadfrompchar(std::string(line).c_str());
    fstore.optclearmessages();
    std::vector<std::string> names;
    for (const auto& each : spans.statements)
      names.emplace_back(each.kind == tool::tstatementspans::tkind::dotline ? each.symbol.of(line)
                                                                            : each.name.of(line));
    HOLDS(names.size() == fkeys.size(), line);
    for (std::size_t i = 0; i < names.size(); ++i) {
      std::string name;  // in lookup mode Minos, blanks stand for underscores
      for (const char c : names[i])
        if (c != ' ' && c != '\t') name.push_back(c);
      std::erase(fkeys[i], '_');
      std::erase(name, '_');
      const std::size_t sign = std::min(fkeys[i].find_first_not_of('-'), fkeys[i].size());
      HOLDS(name.size() > 250 || name == fkeys[i].substr(sign), line, name, fkeys[i]);
    }
  }

 private:
  void filed(const tmessage&) override {}
  void assigned(const toption&, std::int32_t) override {}
  void stepped(const tstep& step) override {
    const bool begins = step.kind == tstep::tkind::statement || step.kind == tstep::tkind::indicator ||
                        (step.kind == tstep::tkind::dotline && step.option == nullptr);
    if (begins) fkeys.emplace_back(step.key);
  }

  optcore::tvksoptions& fstore;
  std::vector<std::string> fkeys;
};

void checkcolumns(std::string_view text) {
  optcore::tvksoptions store;
  beforecall();
  store.optreaddefinition("old");
  tcolumncheck check(store);
  for (int lines = 0; !text.empty() && lines < 200; ++lines) {
    const std::string_view line = nextline(text);
    beforecall();
    check.run(line, lines % 3 != 0);
  }
}

}  // namespace
}  // namespace fuzzing

void fuzzing::run(std::string_view input) {
  const unsigned switches = input.empty() ? 0 : static_cast<unsigned char>(input.front());
  input.remove_prefix(input.empty() ? 0 : 1);
  const auto [older, rest] = split(input);
  const auto [another, more] = split(rest);
  const auto [options, part] = split(more);
  const tfiles old = {{"opt", std::string(options)}, {"part", std::string(part)}};
  for (const auto& [name, bytes] : old) writefile(name, bytes);
  const bool aresame = (switches & 4) != 0;
  writefile("old", older);
  writefile("new", aresame ? older : another);
  tool::tdefinitions definitions((switches & 1) != 0);
  beforecall();
  if (!definitions.read("old", "new")) return;
  checkcolumns(options);
  const bool pins = (switches & 2) != 0;
  const std::deque<tmigratedfile> files = migrated(definitions, pins);
  for (const tmigratedfile& file : files) {
    HOLDS(file.replaced.empty() == (file.before == file.after) || !file.isread, file.name);
    HOLDS(!aresame || hasmarks(definitions.newdefinition()) || file.before == file.after, file.after);
  }
  checkproof(definitions, old, files);
  for (const tmigratedfile& file : migrated(definitions, pins))
    HOLDS(!file.isread || file.before == file.after, file.before, file.after);
}
