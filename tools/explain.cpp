// The explain command: prints what a definition says about one option, then each line that touched it, and
// the value in force. Dot options, indicators and symbols are explained by their entries.
#include <algorithm>
#include <iostream>

#include "base/textcase.h"
#include "tools/commands.h"
#include "tools/doc/optionfacts.h"
#include "tools/reading/reading.h"
#include "tools/table.h"
#include "tools/terminal.h"
#include "tools/tracing/origins.h"
#include "tools/tracing/touches.h"
#include "tools/tracing/touchtexts.h"
#include "tools/unknown.h"

namespace tool {

namespace {

using namespace optcore;

// ---- what is to be explained

// The dot option and the symbol in ".prior x(1)" or "x.prior(1)".
std::optional<ttarget> dottarget(const tvksoptions& store, const std::string& name) {
  const std::size_t period = name.find('.');
  if (period == std::string::npos) return std::nullopt;
  const std::size_t end = std::min(name.find_first_of(" (", period), name.size());
  const std::int32_t index = store.optlookup(name.substr(period, end - period));
  if (index < 0) return std::nullopt;
  return ttarget{.option = &store.definition().option(index),
                 .listname = {},
                 .symbol = plainsymbol(name.substr(0, period) + name.substr(end))};
}

ttarget targetof(const tvksoptions& store, const std::string& name) {
  const std::int32_t index = optionnamed(store, name);
  if (index >= 0) return {.option = &store.definition().option(index), .listname = {}, .symbol = {}};
  if (name.starts_with("--")) return {.listname = name, .symbol = {}};
  if (auto target = dottarget(store, name)) return *target;
  const bool isindicator =
      !store.definition().dotname().empty() && struequal(name, store.definition().dotname());
  return {.listname = {}, .symbol = isindicator ? "" : plainsymbol(name), .indicators = isindicator};
}

// ---- what the definition says

void printentry(const char* name, const std::string& text) {
  if (!text.empty())
    std::cout << "  " << std::string(name).append(12 - std::string_view(name).size(), ' ') << printable(text)
              << '\n';
}

void printdefinition(const tvksoptions& store, const toption& option) {
  std::int32_t index = 0;
  while (&store.definition().option(index) != &option) ++index;
  const toptionreference reference = describeoption(store, index);
  std::cout << printable(reference.name) << (reference.help.empty() ? "" : ": " + printable(reference.help))
            << '\n';
  for (const std::string& line : reference.details) std::cout << "  " << printable(line) << '\n';
  for (const toptionfact& fact : factsof(store, index, reference)) printentry(fact.title, fact.text);
}

// ---- what the lines did

void printtouches(const ttouches& touches) {
  if (touches.all().empty()) {
    std::cout << "\nNo line touched it.\n";
    return;
  }
  std::cout << '\n';
  ttable table({"Where", "Line", "What it did"}, talign::left);
  for (const ttouch& touch : touches.all())
    table.add({placetext(touches, touch.source, touch.line), touch.text, resulttext(touches, touch)});
  table.print(terminalwidth());
}

void printforce(const ttouches& touches, const std::string& symbol) {
  if (!symbol.empty()) return;
  const std::vector<std::string> values = forcetexts(touches);
  if (!values.empty()) std::cout << "\nIn force: " << printable(values[0]) << '\n';
  if (values.size() > 1) std::cout << "Second value: " << printable(values[1]) << '\n';
}

}  // namespace

int run(const texplainarguments& arguments) {
  treading reading;
  if (!reading.readdefinition(arguments.inputs.definition)) return reportproblems(reading.findings());
  const ttarget target = targetof(reading.store(), arguments.name);
  ttouches touches(reading, target);
  const bool opened = reading.readoptions(arguments.inputs);
  const int code = reportproblems(reading.findings());
  if (!opened) return code;
  if (touches.option() == nullptr && touches.all().empty() && !target.indicators) {
    reportunknown(reading.store(), arguments.name);
    return std::max(code, exitproblems);
  }
  touches.markoverridden();
  if (touches.option() != nullptr)
    printdefinition(reading.store(), *touches.option());
  else
    std::cout << printable(arguments.name)
              << (target.indicators ? ": the keyword of indicators" : ": a symbol") << '\n';
  printtouches(touches);
  printforce(touches, target.symbol);
  return code;
}

}  // namespace tool
