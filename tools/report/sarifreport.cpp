// Findings in the Static Analysis Results Interchange Format, which code review reads.
#include <filesystem>
#include <iostream>
#include <nlohmann/json.hpp>

#include "release.h"
#include "tools/jsontext.h"
#include "tools/reading/rules.h"
#include "tools/report/report.h"

namespace tool {

namespace {

using nlohmann::ordered_json;

// A path as a URI, which is relative if the path is.
std::string uriof(const std::string& file) {
  const std::string path = std::filesystem::path(file).lexically_normal().string();
  std::string result = path.starts_with('/') ? "file://" : "";
  for (const char c : path) {
    const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    const bool kept = plain || c == '-' || c == '.' || c == '_' || c == '~' || c == '/';
    result += kept ? std::string(1, c) : percentcode(c);
  }
  return result;
}

// Braces in a message are doubled, because single ones stand for arguments.
ordered_json message(std::string_view text) {
  std::string result;
  for (const char c : text) result.append(c == '{' || c == '}' ? 2 : 1, c);
  return {{"text", jsontext(result)}};
}

ordered_json rulesjson() {
  ordered_json result = ordered_json::array();
  for (const trule& rule : checkrules())
    result.push_back({{"id", rule.name},
                      {"shortDescription", message(rule.meaning)},
                      {"defaultConfiguration", {{"level", iswarning(rule) ? "warning" : "error"}}}});
  return result;
}

// What stands in no file has its place in the text.
ordered_json resultjson(const tfinding& finding) {
  const bool infile = isinfile(finding.place);
  std::string text = (infile ? "" : placetext(finding.place) + ": ") + messagetext(finding);
  for (const std::string& note : notesof(finding)) text += "\n" + note;
  ordered_json result = {
      {"ruleId", finding.rule},
      {"ruleIndex", findrule(finding.rule) - checkrules().data()},
      {"level", finding.severity == tseverity::error ? "error" : "warning"},
      {"message", message(text)},
  };
  if (!infile) return result;
  ordered_json place = {{"artifactLocation", {{"uri", uriof(finding.place.file)}}}};
  if (finding.place.line != 0) place["region"] = {{"startLine", finding.place.line}};
  result["locations"] = ordered_json::array({{{"physicalLocation", place}}});
  return result;
}

}  // namespace

void printsarif(const treport& report) {
  ordered_json results = ordered_json::array();
  ordered_json notifications = ordered_json::array();
  bool successful = true;
  for (const tfinding& finding : report.findings.kept()) {
    successful = successful && !finding.unusable;
    if (finding.severity == tseverity::plain)
      notifications.push_back({{"level", "note"}, {"message", message(finding.text)}});
    else
      results.push_back(resultjson(finding));
  }
  notifications.push_back({{"level", "note"}, {"message", message(summarytext(report))}});
  const ordered_json driver = {
      {"name", "wexcorin"}, {"version", optcore::release::version}, {"rules", rulesjson()}};
  const ordered_json invocation = {{"executionSuccessful", successful},
                                   {"toolExecutionNotifications", notifications}};
  const ordered_json run = {{"tool", {{"driver", driver}}},
                            {"invocations", ordered_json::array({invocation})},
                            {"results", results}};
  const ordered_json document = {{"version", "2.1.0"}, {"runs", ordered_json::array({run})}};
  std::cout << jsondocumenttext(document);
}

}  // namespace tool
