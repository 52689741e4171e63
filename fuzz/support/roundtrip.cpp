// The round trip of a parameter file, and the state that a pair keeps for it.
#include <bit>
#include <map>
#include <queue>
#include <vector>

#include "api/handle.h"
#include "fuzz/support/target.h"
#include "tools/reading/readback.h"

namespace fuzzing {

std::int32_t tpair::readdefinition(std::string_view filename) {
  const bool isfirst = one(optcount) == 0;
  const std::string bytes = readfile(filename);
  const std::int32_t code = call(BOTH(readdefinition), ttext(filename));
  if (code == 0) fdefinitions += isfirst ? 1 : 2;
  if (code == 0 && isfirst) fdefinition = bytes;
  return code;
}

void tpair::clearmessages() {
  fwasfull = wasfull();
  one(optclearmessages);
}

bool tpair::wasfull() const { return fwasfull || handle(0)->messages().full(); }

namespace {

// Returns the file that both handles write. There must be no message about writing.
std::string written(tpair& pair, const std::string& filename) {
  const std::int32_t before = pair.one(optmessagecount);
  writefile(filename, "what was there before");
  beforecall();
  HOLDS(coptwriteparameterfile(pair.handle(0), filename.c_str()) == 0, filename);
  const std::string bytes = readfile(filename);
  HOLDS(pair.call(BOTH(writeparameterfile), filename) == 0, filename);
  HOLDS(bytes == readfile(filename), bytes, readfile(filename));
  HOLDS(pair.one(optmessagecount) == before, "a message about writing");
  return bytes;
}

// All values and marks of an option as text; empty if there is no option.
std::string contents(const optcore::toption* option) {
  using namespace optcore;
  if (option == nullptr) return {};
  std::string all;
  if (const auto* list = ifis<tstrlistoption>(option)) {
    for (std::int32_t i = 0; i < list->itemcount(); ++i)
      all.append(std::to_string(list->item(i).size())).append(" ").append(list->item(i)).append("\n");
    return all;
  }
  all = option->defined() != 0 ? "set" : "";  // if only one of two values is set, both are written
  all.append(option->outofbounds() != 0 ? " out of bounds" : "");
  for (const tvaluetext& text : {option->getasstring(), option->getasstring2()})
    all.append("\n").append(text.view());
  if (const auto* dbl = ifis<tdbloption>(option))
    for (const double value : {dbl->getasdouble(), dbl->getasdouble2()})
      all.append("\n").append(std::to_string(std::bit_cast<std::uint64_t>(value)));
  return all;
}

// The same for all options, and the values of the dot entries, whose texts are in the file.
std::string contents(const optcore::tvksoptions& store) {
  std::string all;
  for (std::int32_t i = 0; i < store.getcount(); ++i)
    all += contents(store.definition().getobjects(i)) + "\n\n";
  for (std::int32_t i = 0; i < store.dotoptions().count(); ++i)
    all += std::to_string(std::bit_cast<std::uint64_t>(store.dotoptions().getobject(i)->value())) + "\n";
  return all;
}

// For each option the same one in the other store, or null: an option of the definition by number, an added one by
// name. The n-th written of several with the same name is the n-th that was added.
std::vector<const optcore::toption*> twins(const tpair& pair, const tpair& again, std::int32_t defined) {
  const optcore::tdefinition& here = pair.handle(0)->definition();
  const optcore::tdefinition& there = again.handle(0)->definition();
  std::map<std::string, std::queue<const optcore::toption*>> added;
  for (std::int32_t i = defined; i < there.getcount(); ++i)
    added[std::string(there.option(i).name())].push(there.getobjects(i));
  std::vector<const optcore::toption*> result;
  for (std::int32_t i = 0; i < here.getcount(); ++i) {
    result.push_back(i < defined ? there.getobjects(i) : nullptr);
    auto& same = added[std::string(here.option(i).name())];
    if (i < defined || here.option(i).defined() == 0 || same.empty()) continue;
    result.back() = same.front();
    same.pop();
  }
  return result;
}

// Options that the tool names must differ, or a line about them must have been refused; an option may be the
// same nevertheless if its default is no legal value. They are reset. Returns false when none was set.
bool resetnamed(tpair& pair, const std::vector<const optcore::toption*>& twins,
                const std::vector<tool::tdifference>& differences) {
  bool isreset = false;
  for (const tool::tdifference& each : differences) {
    if (each.option == 0) continue;
    const optcore::toption& option = pair.handle(0)->definition().option(each.option - 1);
    if (option.defined() == 0) continue;
    const std::string here = contents(&option);
    const std::string there = contents(twins[static_cast<std::size_t>(each.option - 1)]);
    const bool isrefused = each.text.find("is not read back as it was set") != std::string::npos;
    HOLDS(here != there || isrefused, each.text, here);
    isreset = true;
  }
  for (const tool::tdifference& each : differences)
    if (each.option > 0) pair.one(optresetnr, each.option);
  return isreset;
}

// Does one round trip. Returns true if options were reset, so that another one is needed.
bool triesagain(tpair& pair, bool eolonly) {
  const std::string first = written(pair, "out1");
  if (pair.definition() == nullptr) return false;
  tpair again;
  writefile("round.def", *pair.definition());
  HOLDS(again.readdefinition("round.def") == 0, "definition");
  again.clearmessages();
  again.one(opteolonlyset, eolonly ? 1 : 0);
  const std::int32_t defined = again.one(optcount);
  tool::treadback readback(*again.handle(0));
  HOLDS(again.call(BOTH(readparameterfile), ttext("out1")) == 0, "what was written");
  const std::vector<tool::tdifference> differences = readback.differences(*pair.handle(0));
  const std::string second = written(again, "out2");
  std::int32_t errors{}, warnings{};
  again.one(opterrorcount, errors, warnings);
  const std::vector<const optcore::toption*> others = twins(pair, again, defined);
  if (differences.empty()) {
    HOLDS(errors == 0, first, messages(again));
    HOLDS(first == second, first, second);
    for (std::int32_t number = 1; number <= pair.one(optcount); ++number) {
      const optcore::toption& option = pair.handle(0)->definition().option(number - 1);
      const std::string here = contents(&option);
      HOLDS(option.defined() == 0 || here == contents(others[static_cast<std::size_t>(number - 1)]), here);
    }
    return false;
  }
  HOLDS(errors != 0 || first != second || contents(*pair.handle(0)) != contents(*again.handle(0)),
        differences.front().text, first);
  return resetnamed(pair, others, differences);
}

}  // namespace

void checkroundtrip(tpair& pair, bool eolonly) {
  while (triesagain(pair, eolonly)) continue;
}

}  // namespace fuzzing
