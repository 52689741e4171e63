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
#include "tools/tracing/origins.h"

namespace tool {

namespace {

using nlohmann::ordered_json;

// An option with its current values and its default.
struct trow {
  toptionreference option;
  bool set;
  tshownvalue value, value2, defaultvalue;
  std::string origin;  // where the values come from, if that is wanted
  ordered_json originjson, originjson2;
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

ttable::tcells cellsof(const trow& row) {
  const std::string second = row.value2.text.empty() ? "" : " " + row.value2.text;
  return {std::to_string(row.option.number),
          row.option.name,
          std::string(optcore::opttypenames[optcore::ordinal(row.option.type)]),
          row.set ? "yes" : "",
          row.value.text + second,
          row.origin,
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

void printrows(const std::vector<trow>& rows, const tshowarguments& arguments) {
  ttable table({"Nr", "Name", "Type", "Set", "Value", "Origin", "Default", "Range or values"},
               talign::rightfirst);
  for (const trow& row : rows) table.add(cellsof(row));
  table.select(columnsof(arguments));
  table.print(arguments.wide ? 0 : terminalwidth());
}

ordered_json rowjson(const trow& row) {
  ordered_json result = {{"number", row.option.number},
                         {"name", row.option.name},
                         {"type", optcore::opttypenames[optcore::ordinal(row.option.type)]},
                         {"set", row.set},
                         {"value", row.value.json}};
  if (!row.value2.json.is_null()) result["value2"] = row.value2.json;
  if (!row.origin.empty()) {
    result["origin"] = row.originjson;
    if (!row.value2.json.is_null()) result["origin2"] = row.originjson2;
  }
  result["default"] = row.defaultvalue.json;
  if (!row.option.low.json.is_null()) {
    result["low"] = row.option.low.json;
    result["high"] = row.option.high.json;
  }
  for (const tshownvalue& value : legalvalues(row.option)) result["values"].push_back(value.json);
  return result;
}

void printjson(const std::string& definition, const std::vector<trow>& rows) {
  ordered_json options = ordered_json::array();
  for (const trow& row : rows) options.push_back(rowjson(row));
  const ordered_json document = {{"definition", jsontext(definition)}, {"options", options}};
  std::cout << jsondocumenttext(document);
}

// The default of a strlist is the empty list. An option that reading an option file added has no default.
tshownvalue defaultof(const toptionreference& option, bool isdefined) {
  const bool islist = option.type == optcore::topttype::strlist;
  return islist && isdefined ? tshownvalue{{}, ordered_json::array()} : option.defaultvalue;
}

void addorigin(trow& row, const torigins& origins, const optcore::toption& option) {
  row.origin = origins.text(option, optcore::twhich::first);
  row.originjson = origins.json(option, optcore::twhich::first);
  if (option.subtype() != optcore::tsubtype::twovalues) return;
  row.originjson2 = origins.json(option, optcore::twhich::second);
  const std::string second = origins.text(option, optcore::twhich::second);
  if (second != row.origin) row.origin += "; " + second;
}

// `defined` is the number of options in the definition. Options that reading added come after them.
std::vector<trow> rowsof(const optcore::tvksoptions& store, std::int32_t defined, bool changedonly,
                         const torigins* origins) {
  std::vector<trow> rows;
  for (std::int32_t i = 0; i < store.getcount(); ++i) {
    const optcore::toption& option = store.definition().option(i);
    if (changedonly && option.defined() == 0) continue;
    trow row = {describeoption(store, i),
                option.defined() != 0,
                currentvalue(option, optcore::twhich::first),
                {},
                {},
                {},
                {},
                {}};
    if (option.subtype() == optcore::tsubtype::twovalues)
      row.value2 = currentvalue(option, optcore::twhich::second);
    row.defaultvalue = defaultof(row.option, i < defined);
    if (origins != nullptr) addorigin(row, *origins, option);
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
  const std::vector<trow> rows =
      rowsof(reading.store(), defined, arguments.changedonly, origins ? &*origins : nullptr);
  if (arguments.json)
    printjson(reading.definition(), rows);
  else
    printrows(rows, arguments);
  return code;
}

}  // namespace tool
