// The show command: prints the options with their values, as an aligned table or as JSON.
#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>

#include "tools/commands.h"
#include "tools/doc/reference.h"
#include "tools/jsontext.h"
#include "tools/reading/reading.h"
#include "tools/table.h"
#include "tools/terminal.h"
#include "tools/tracing/fingerprint.h"
#include "tools/tracing/origins.h"

namespace tool {

namespace {

using nlohmann::ordered_json;

// An option with its current values and its default.
struct trow {
  toptionreference option;
  bool set;
  tshownvalue value, value2, defaultvalue;
  const optcore::toption* stored;
};

std::vector<tshownvalue> legalvalues(const toptionreference& option) {
  if (option.type == optcore::topttype::boolean) return {shownboolean(0), shownboolean(1)};
  std::vector<tshownvalue> result;
  for (const tvaluereference& value : option.values) result.push_back(value.value);
  return result;
}

std::string legaltext(const toptionreference& option) {
  std::string result = rangephrase(option);
  for (const tshownvalue& value : legalvalues(option)) result += (result.empty() ? "" : ", ") + value.text;
  return result;
}

bool hastwovalues(const trow& row) { return row.option.subtype == optcore::tsubtype::twovalues; }

// One text for both values if both come from the same line.
std::string origintext(const trow& row, const torigins* origins) {
  if (origins == nullptr) return {};
  std::string first = origins->text(*row.stored, optcore::twhich::first);
  if (!hastwovalues(row)) return first;
  const std::string second = origins->text(*row.stored, optcore::twhich::second);
  return second == first ? first : first + "; " + second;
}

ttable::tcells cellsof(const trow& row, const torigins* origins) {
  const std::string second = row.value2.text.empty() ? "" : " " + row.value2.text;
  return {std::to_string(row.option.number),
          row.option.name,
          std::string(typeword(row.option)),
          row.set ? "yes" : "",
          row.value.text + second,
          origintext(row, origins),
          row.defaultvalue.text,
          legaltext(row.option)};
}

bool wantsorigin(const tshowarguments& arguments) {
  return arguments.origin || std::ranges::find(arguments.columns, origincolumn) != arguments.columns.end();
}

// The names were checked when the command line was read.
std::vector<std::size_t> columnsof(const tshowarguments& arguments) {
  std::vector<std::string> names = arguments.columns;
  if (names.empty()) names.assign(showcolumns.begin(), showcolumns.end());
  if (arguments.columns.empty() && !arguments.origin) std::erase(names, origincolumn);
  std::vector<std::size_t> result;
  result.reserve(names.size());
  for (const std::string& name : names)
    result.push_back(static_cast<std::size_t>(std::ranges::find(showcolumns, name) - showcolumns.begin()));
  return result;
}

void printrows(const std::vector<trow>& rows, const torigins* origins, const tshowarguments& arguments) {
  ttable table({"Nr", "Name", "Type", "Set", "Value", "Origin", "Default", "Range or values"},
               talign::rightfirst);
  for (const trow& row : rows) table.add(cellsof(row, origins));
  table.select(columnsof(arguments));
  table.print(arguments.wide ? 0 : terminalwidth());
}

// The options are one level deep in the document, so their members are three levels deep.
std::string rowjson(const trow& row, const torigins* origins) {
  tjsonpieces result('{', 2);
  const auto add = [&](const char* key, const ordered_json& value) { result.add(jsonlines(value, 3), key); };
  add("number", row.option.number);
  add("name", row.option.name);
  add("type", typeword(row.option));
  add("set", row.set);
  add("value", row.value.json);
  if (!row.value2.json.is_null()) add("value2", row.value2.json);
  if (origins != nullptr) {
    result.add(origins->json(*row.stored, optcore::twhich::first, 3), "origin");
    if (hastwovalues(row)) result.add(origins->json(*row.stored, optcore::twhich::second, 3), "origin2");
  }
  add("default", row.defaultvalue.json);
  if (!row.option.low.json.is_null()) {
    add("low", row.option.low.json);
    add("high", row.option.high.json);
  }
  ordered_json values;
  for (const tshownvalue& value : legalvalues(row.option)) values.push_back(value.json);
  if (!values.is_null()) add("values", values);
  return result.finish('}');
}

void printjson(const treading& reading, const std::vector<trow>& rows, const torigins* origins,
               bool withfingerprint) {
  std::cout << "{\n  \"definition\": " << jsonlines(jsontext(reading.definition()), 1);
  if (withfingerprint) std::cout << ",\n  \"fingerprint\": \"" << fingerprint(reading.store()) << '"';
  std::cout << ",\n  \"options\": ";
  tjsonpieces options('[', 1);
  for (const trow& row : rows) {
    options.add(rowjson(row, origins));
    std::cout << options.take();
  }
  std::cout << options.finish(']') << "\n}\n";
}

// The default of a strlist is the empty list. An option that reading an option file added has no default.
tshownvalue defaultof(const toptionreference& option, bool isdefined) {
  const bool islist = option.type == optcore::topttype::strlist;
  return islist && isdefined ? tshownvalue{{}, ordered_json::array()} : option.defaultvalue;
}

// `defined` is the number of options in the definition. Options that reading added come after them.
std::vector<trow> rowsof(const optcore::tvksoptions& store, std::int32_t defined, bool changedonly) {
  std::vector<trow> rows;
  for (std::int32_t i = 0; i < store.getcount(); ++i) {
    const optcore::toption& option = store.definition().option(i);
    if (changedonly && option.defined() == 0) continue;
    trow row = {describeoption(store, i),
                option.defined() != 0,
                currentvalue(option, optcore::twhich::first),
                {},
                {},
                &option};
    if (option.subtype() == optcore::tsubtype::twovalues)
      row.value2 = currentvalue(option, optcore::twhich::second);
    row.defaultvalue = defaultof(row.option, i < defined);
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace

int run(const tshowarguments& arguments) {
  treading reading;
  if (!reading.readdefinition(arguments.inputs.definition)) return reportproblems(reading.findings());
  const std::int32_t defined = reading.store().getcount();
  std::optional<torigins> origins;
  if (wantsorigin(arguments)) origins.emplace(reading);
  const bool opened = reading.readoptions(arguments.inputs);
  const int code = reportproblems(reading.findings());
  if (!opened) return code;
  if (arguments.fingerprint && !arguments.json) {
    std::cout << fingerprint(reading.store()) << '\n';
    return code;
  }
  const std::vector<trow> rows = rowsof(reading.store(), defined, arguments.changedonly);
  const torigins* traced = origins ? &*origins : nullptr;
  if (arguments.json)
    printjson(reading, rows, traced, arguments.fingerprint);
  else
    printrows(rows, traced, arguments);
  return code;
}

}  // namespace tool
