// Lays the differences out.
#include "tools/tracing/settingreport.h"

#include <algorithm>
#include <iostream>

#include "tools/doc/markdowntext.h"
#include "tools/jsontext.h"
#include "tools/table.h"
#include "tools/terminal.h"

namespace tool {

namespace {

using nlohmann::ordered_json;
using trows = std::vector<ttable::tcells>;

constexpr auto kindnames = std::to_array<const char*>(
    {"option", "list", "dot line", "indicator", "order of dot lines", "order of indicators"});

std::string origin(const tsettingreport& report, std::size_t difference, std::size_t value) {
  return report.origins.empty() ? "" : report.origins[difference][value];
}

void printjson(const tsettingreport& report) {
  ordered_json list = ordered_json::array();
  for (std::size_t i = 0; i < report.differences.size(); ++i) {
    const auto& [key, values] = report.differences[i];
    ordered_json each = {{"kind", kindnames[static_cast<std::size_t>(key.kind)]}, {"name", key.name}};
    each["values"] = ordered_json::array();
    for (std::size_t k = 0; k < values.size(); ++k) {
      ordered_json value = {{"value", values[k].json}};
      if (!report.origins.empty()) value["origin"] = origin(report, i, k);
      each["values"].push_back(std::move(value));
    }
    list.push_back(std::move(each));
  }
  const ordered_json document = {{"definition", jsontext(report.definition)},
                                 {"compared", jsontexts(report.names)},
                                 {"differences", std::move(list)}};
  std::cout << jsondocumenttext(document);
}

void print(const ttable::tcells& headings, const trows& rows, treportform form) {
  if (rows.empty()) {
    std::cout << (form == treportform::markdown ? "No differences.\n" : "no differences\n");
    return;
  }
  if (form == treportform::text) {
    ttable table(headings, talign::left);
    for (const ttable::tcells& row : rows) table.add(row);
    return table.print(terminalwidth());
  }
  const auto line = [](const ttable::tcells& cells) {
    for (const std::string& cell : cells)
      std::cout << "| " << (cell.empty() ? "" : markdownprose(cell) + " ");
    std::cout << "|\n";
  };
  line(headings);
  for (std::size_t i = 0; i < headings.size(); ++i) std::cout << "| --- ";
  std::cout << "|\n";
  for (const ttable::tcells& row : rows) line(row);
}

// Long lists are cut, because the names of entries are of any number.
std::string shortened(const std::string& text) {
  constexpr std::size_t longest = 300;
  return text.size() <= longest ? text : utf8(std::string_view(text).substr(0, longest)) + "...";
}

}  // namespace

void printpair(const tsettingreport& report, treportform form) {
  if (form == treportform::json) return printjson(report);
  trows rows;
  for (std::size_t i = 0; i < report.differences.size(); ++i) {
    const auto& [key, values] = report.differences[i];
    ttable::tcells row = {key.name};
    for (std::size_t k = 0; k < values.size(); ++k) {
      const std::string from = origin(report, i, k);
      row.push_back(shortened(values[k].text) + (from.empty() ? "" : " [" + from + "]"));
    }
    rows.push_back(std::move(row));
  }
  print({"Setting", utf8(report.names[0]), utf8(report.names[1])}, rows, form);
}

void printmatrix(const tsettingreport& report, treportform form) {
  if (form == treportform::json) return printjson(report);
  trows rows;
  for (const auto& [key, values] : report.differences) {
    std::vector<std::pair<std::string, std::string>>
        files;  // of each value, in the order of the command line
    for (std::size_t k = 0; k < values.size(); ++k) {
      auto found = std::ranges::find(files, values[k].text, &std::pair<std::string, std::string>::first);
      if (found == files.end()) found = files.insert(files.end(), {values[k].text, {}});
      found->second += (found->second.empty() ? "" : " ") + utf8(report.names[k]);
    }
    for (const auto& [text, names] : files)
      rows.push_back({&text == &files.front().first ? key.name : "", shortened(text), names});
  }
  print({"Setting", "Value", "Files"}, rows, form);
}

}  // namespace tool
