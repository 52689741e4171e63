// show: the options with their values, as an aligned table or as JSON.
#include <unistd.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <nlohmann/json.hpp>

#include "tools/commands.h"
#include "tools/jsontext.h"
#include "tools/optionrow.h"
#include "tools/reading.h"

namespace tool {

namespace {

using nlohmann::ordered_json;

constexpr std::size_t columncount = 7;
using tcells = std::array<std::string, columncount>;

std::string legaltext(const toptionrow& row) {
  if (!row.low.text.empty()) return row.low.text + " to " + row.high.text;
  std::string result;
  for (const tshownvalue& value : row.values) result += (result.empty() ? "" : ", ") + value.text;
  return result;
}

tcells cellsof(const toptionrow& row) {
  const std::string second = row.value2.text.empty() ? "" : " " + row.value2.text;
  tcells cells = {
      std::to_string(row.number), row.name,      row.type, row.set ? "yes" : "", row.value.text + second,
      row.defaultvalue.text,      legaltext(row)};
  for (std::string& cell : cells) cell = printable(cell);
  return cells;
}

// Cells as wide as the widest of their column; nothing follows the last one that is not empty.
std::string aligned(const tcells& cells, const std::array<std::size_t, columncount>& widths) {
  std::string line;
  for (std::size_t column = 0; column < columncount; ++column) {
    const std::string blanks(widths[column] - columns(cells[column]), ' ');
    line += (column == 0 ? blanks + cells[column] : cells[column] + blanks) + "  ";
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

void printtable(const std::vector<toptionrow>& rows) {
  std::vector<tcells> lines = {tcells{"Nr", "Name", "Type", "Set", "Value", "Default", "Range or values"}};
  for (const toptionrow& row : rows) lines.push_back(cellsof(row));
  std::array<std::size_t, columncount> widths{};
  for (const tcells& cells : lines)
    for (std::size_t column = 0; column < columncount; ++column)
      widths[column] = std::max(widths[column], columns(cells[column]));
  const tpalette palette(STDOUT_FILENO);
  for (std::size_t line = 0; line < lines.size(); ++line)
    std::cout << palette.paint(line == 0 ? tcolour::bold : tcolour::none, aligned(lines[line], widths))
              << '\n';
}

ordered_json rowjson(const toptionrow& row) {
  ordered_json result = {{"number", row.number},
                         {"name", jsontext(row.name)},
                         {"type", row.type},
                         {"set", row.set},
                         {"value", row.value.json}};
  if (!row.value2.json.is_null()) result["value2"] = row.value2.json;
  result["default"] = row.defaultvalue.json;
  if (!row.low.json.is_null()) {
    result["low"] = row.low.json;
    result["high"] = row.high.json;
  }
  for (const tshownvalue& value : row.values) result["values"].push_back(value.json);
  return result;
}

void printjson(const std::string& definition, const std::vector<toptionrow>& rows) {
  ordered_json options = ordered_json::array();
  for (const toptionrow& row : rows) options.push_back(rowjson(row));
  const ordered_json document = {{"definition", jsontext(definition)}, {"options", options}};
  std::cout << document.dump(2) << '\n';
}

std::vector<toptionrow> rowsof(const thandle& handle, const std::vector<tshownvalue>& defaults,
                               bool changedonly) {
  std::vector<toptionrow> rows;
  for (std::int32_t number = 1; number <= handle.count(); ++number) {
    if (changedonly && handle.info(number).defined == 0) continue;
    // option text may have added options, which have no default
    const std::size_t index = static_cast<std::size_t>(number - 1);
    rows.push_back(describeoption(handle, number, index < defaults.size() ? defaults[index] : tshownvalue()));
  }
  return rows;
}

}  // namespace

int run(const tshowarguments& arguments) {
  treading reading;
  if (!reading.readdefinition(arguments.inputs.definition)) return reportproblems(reading.finish());
  const std::vector<tshownvalue> defaults = firstvalues(reading.handle());
  const bool opened = reading.readoptions(arguments.inputs);
  const int code = reportproblems(reading.finish());
  if (!opened) return code;
  const std::vector<toptionrow> rows = rowsof(reading.handle(), defaults, arguments.changedonly);
  if (arguments.json)
    printjson(reading.definition(), rows);
  else
    printtable(rows);
  return code;
}

}  // namespace tool
