// The get command: prints the value of one option, and nothing else.
#include <algorithm>
#include <iostream>

#include "tools/commands.h"
#include "tools/doc/reference.h"
#include "tools/reading/reading.h"
#include "tools/reading/symboltexts.h"
#include "tools/unknown.h"

namespace tool {

namespace {

using namespace optcore;

// The value as it is stored: a text without the quotes of option files.
std::string plaintext(const tshownvalue& value) {
  return value.json.is_string() ? value.json.get<std::string>() : value.text;
}

bool hasvalue(const toption& option) {
  switch (option.opttype()) {
    case topttype::multilist:
    case topttype::macro:
    case topttype::immediate: return false;
    default: return true;
  }
}

// The lines of a dot option, which gives values to symbols.
std::vector<std::string> dotlinesof(const tvksoptions& store, std::int32_t index) {
  std::vector<std::string> result;
  const tdotobjlist& entries = store.dotoptions();
  for (std::int32_t i = 0; i < entries.count(); ++i)
    if (const tdotobj& entry = *entries.getobject(i); entry.optionindex() == index)
      result.push_back(keytext(store, entry) + " = " + shown(entry.value()).text);
  return result;
}

// A line for each value that the option has.
std::vector<std::string> linesof(const tvksoptions& store, std::int32_t index, bool wantsdefault) {
  const toption& option = store.definition().option(index);
  std::vector<std::string> result;
  if (const auto* list = ifis<tstrlistoption>(&option)) {
    for (std::int32_t i = 0; !wantsdefault && i < list->itemcount(); ++i) result.emplace_back(list->item(i));
    return result;
  }
  if (option.name().starts_with('.') && !wantsdefault) return dotlinesof(store, index);
  const tshownvalue usual = describeoption(store, index).defaultvalue;
  result.push_back(plaintext(wantsdefault ? usual : currentvalue(option, twhich::first)));
  if (option.subtype() == tsubtype::twovalues)
    result.push_back(plaintext(wantsdefault ? usual : currentvalue(option, twhich::second)));
  return result;
}

}  // namespace

int run(const tgetarguments& arguments) {
  treading reading;
  const bool opened =
      reading.readdefinition(arguments.inputs.definition) && reading.readoptions(arguments.inputs);
  const int code = reportproblems(reading.findings());
  if (!opened) return code;
  const std::int32_t index = optionnamed(reading.store(), arguments.name);
  if (index < 0) {
    reportunknown(reading.store(), arguments.name);
    return std::max(code, exitproblems);
  }
  const toption& option = reading.store().definition().option(index);
  if (!hasvalue(option)) {
    std::cerr << "wexcorin: option " << printable(inquotes(option.getname())) << " has no value of its own\n";
    return std::max(code, exitproblems);
  }
  for (const std::string& line : linesof(reading.store(), index, arguments.wantsdefault))
    std::cout << printable(line) << '\n';
  return code;
}

}  // namespace tool
