// The explain command: prints what a definition says about one option, then each line that touched it, and
// the value in force. Dot options, indicators and symbols are explained by their entries.
#include <algorithm>
#include <iostream>

#include "base/textcase.h"
#include "tools/commands.h"
#include "tools/doc/reference.h"
#include "tools/reading/reading.h"
#include "tools/table.h"
#include "tools/terminal.h"
#include "tools/tracing/origins.h"
#include "tools/tracing/touches.h"
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

template <class T, class ttext>
std::string joined(const std::vector<T>& items, ttext textof) {
  std::string result;
  for (const T& item : items) result += (result.empty() ? "" : ", ") + textof(item);
  return result;
}

std::string grouptext(const tvksoptions& store, std::int32_t number) {
  const std::int32_t position = store.definition().groupwithnumber(number);
  if (position < 0) return "";
  const auto& groups = store.definition().groups();
  return utf8(std::string(groups.getname(position))) + ": " + utf8(groups.getobject(position)->helptext());
}

std::string standingtext(const tnamestanding& standing) {
  if (standing.standing == tstanding::current) return "";
  return (standing.standing == tstanding::obsolete ? "obsolete; " : "deprecated; ") + standing.reason;
}

void printdefinition(const tvksoptions& store, const toption& option) {
  std::int32_t index = 0;
  while (&store.definition().option(index) != &option) ++index;
  const toptionreference reference = describeoption(store, index);
  std::cout << printable(reference.name) << (reference.help.empty() ? "" : ": " + printable(reference.help))
            << '\n';
  for (const std::string& line : reference.details) std::cout << "  " << printable(line) << '\n';
  printentry("type", typephrase(reference));
  printentry("range", rangephrase(reference));
  printentry("values",
             joined(reference.values, [](const tvaluereference& value) { return value.value.text; }));
  printentry("default", reference.defaultvalue.text);
  printentry("members", joined(reference.members, [](const std::string& name) { return name; }));
  printentry("group", grouptext(store, reference.group));
  printentry("synonyms", joined(synonymsof(store, index), [](const std::string& name) { return name; }));
  printentry("name", standingtext(reference.standing));
  printentry("its synonyms", standingtext(reference.synonymstanding));
}

// ---- what the lines did

std::string quoted(const ttouch& touch, std::string_view what) {
  return std::string(what) + (touch.value.empty() ? "" : " " + touch.value);
}

std::string resulttext(const ttouches& touches, const ttouch& touch) {
  const bool twovalues = touches.option() != nullptr && touches.option()->subtype() == tsubtype::twovalues;
  const std::string value = !twovalues                      ? ""
                            : touch.which == twhich::second ? " second value"
                                                            : " first value";
  std::string result;
  switch (touch.kind) {
    case ttouch::tkind::stored: result = quoted(touch, "stored" + value); break;
    case ttouch::tkind::outofbounds: result = quoted(touch, "accepted outside the bounds" + value); break;
    case ttouch::tkind::refused: result = "refused"; break;
    case ttouch::tkind::noted: result = "reported"; break;
    case ttouch::tkind::passedon: result = "passed its text on to its members"; break;
    case ttouch::tkind::acted: result = "acted"; break;
    case ttouch::tkind::kept: result = quoted(touch, "entry kept with value"); break;
  }
  result += linkstext(touches.links(touch.links));
  if (!touch.message.empty()) result += ": " + utf8(touch.message);
  return result + (touch.overridden ? "; overridden later" : "");
}

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

std::string forcetext(const ttouches& touches, const toption& option, twhich which) {
  const ttouch* touch = touches.inforce(which);
  std::string value = currentvalue(option, which).text;
  if (touch != nullptr && option.opttype() == topttype::strlist) return value;
  return value +
         (touch == nullptr ? ", the default" : ", from " + placetext(touches, touch->source, touch->line));
}

void printforce(const ttouches& touches, const std::string& symbol) {
  const toption* option = touches.option();
  if (option == nullptr || !symbol.empty()) return;
  const tshownvalue value = currentvalue(*option, twhich::first);
  if (value.json.is_null()) return;
  std::cout << "\nIn force: " << printable(forcetext(touches, *option, twhich::first)) << '\n';
  if (option->subtype() == tsubtype::twovalues)
    std::cout << "Second value: " << printable(forcetext(touches, *option, twhich::second)) << '\n';
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
