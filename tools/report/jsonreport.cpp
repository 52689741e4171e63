// Findings as JSON for programs.
#include <iostream>
#include <nlohmann/json.hpp>

#include "tools/jsontext.h"
#include "tools/report/report.h"

namespace tool {

namespace {

using nlohmann::ordered_json;

ordered_json orabsent(const std::string& text) { return text.empty() ? ordered_json() : jsontext(text); }

ordered_json findingjson(const tfinding& finding, bool separate) {
  ordered_json result = {
      {"file", jsontext(finding.place.file)},
      {"line", finding.place.line == 0 ? ordered_json() : ordered_json(finding.place.line)},
      {"severity", finding.severity == tseverity::error ? "error" : "warning"},
      {"rule", finding.rule},
      {"text", jsontext(finding.text)},
      {"details", jsontexts(finding.details)},
      {"advice", jsontexts(finding.advice)},
      {"suggestions", jsontexts(finding.suggestions)}};
  if (separate) result["optionfile"] = orabsent(finding.optionfile);
  return result;
}

ordered_json summaryjson(const treport& report) {
  ordered_json definitions = ordered_json::array();
  for (const treport::tdefinition& each : report.definitions)
    definitions.push_back({{"path", jsontext(each.path)}, {"found", orabsent(each.how)}});
  return {{"errors", report.findings.count(tseverity::error)},
          {"warnings", report.findings.count(tseverity::warning)},
          {"unlisted", report.findings.unlisted()},
          {"options", report.options},
          {"set", report.set},
          {"separate", report.separate},
          {"definitions", definitions}};
}

}  // namespace

void printjson(const treport& report) {
  ordered_json list = ordered_json::array();
  ordered_json help = ordered_json::array();
  for (const tfinding& finding : report.findings.kept())
    if (finding.severity == tseverity::plain)
      help.push_back(jsontext(finding.text));
    else
      list.push_back(findingjson(finding, report.separate != 0));
  const ordered_json document = {{"findings", list}, {"help", help}, {"summary", summaryjson(report)}};
  std::cout << jsondocumenttext(document);
}

}  // namespace tool
