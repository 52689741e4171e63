// The check command: prints what is wrong in a definition and in option files, one finding on each line, then
// a summary; or the same as JSON.
#include <unistd.h>

#include <iostream>
#include <nlohmann/json.hpp>

#include "tools/commands.h"
#include "tools/jsontext.h"
#include "tools/reading/reading.h"

namespace tool {

namespace {

using nlohmann::ordered_json;

struct tsummary {
  std::size_t errors, warnings, unlisted;
  std::int32_t options, set;
};

tsummary summaryof(const treading& reading) {
  const optcore::tvksoptions& store = reading.store();
  const tfindinglist& findings = reading.findings();
  tsummary result = {findings.count(tseverity::error), findings.count(tseverity::warning),
                     findings.unlisted(), store.getcount(), 0};
  for (std::int32_t i = 0; i < result.options; ++i)
    if (store.definition().option(i).defined() != 0) ++result.set;
  return result;
}

ordered_json findingjson(const tfinding& finding) {
  return {{"file", jsontext(finding.place.file)},
          {"line", finding.place.line == 0 ? ordered_json() : ordered_json(finding.place.line)},
          {"severity", finding.severity == tseverity::error ? "error" : "warning"},
          {"rule", finding.rule},
          {"text", jsontext(finding.text)},
          {"details", jsontexts(finding.details)},
          {"advice", jsontexts(finding.advice)},
          {"suggestions", jsontexts(finding.suggestions)}};
}

void printjson(const tfindings& findings, const tsummary& summary) {
  ordered_json list = ordered_json::array();
  ordered_json help = ordered_json::array();
  for (const tfinding& finding : findings)
    if (finding.severity == tseverity::plain)
      help.push_back(jsontext(finding.text));
    else
      list.push_back(findingjson(finding));
  const ordered_json document = {{"findings", list},
                                 {"help", help},
                                 {"summary",
                                  {{"errors", summary.errors},
                                   {"warnings", summary.warnings},
                                   {"unlisted", summary.unlisted},
                                   {"options", summary.options},
                                   {"set", summary.set}}}};
  std::cout << jsondocumenttext(document);
}

std::string summarytext(const tsummary& summary) {
  std::string result = "no problems";
  if (summary.errors + summary.warnings != 0)
    result = counted(summary.errors, "error") + ", " + counted(summary.warnings, "warning");
  if (summary.unlisted != 0) result += " (" + std::to_string(summary.unlisted) + " of them not listed)";
  return result + "; " + counted(static_cast<std::size_t>(summary.options), "option") + ", " +
         std::to_string(summary.set) + " set";
}

// A file on the command line that cannot be opened; one that another file includes has the line of that file.
bool ismistakeincall(const tfinding& finding) { return finding.unusable && finding.place.line == 0; }

void printtext(const tfindings& findings, const tsummary& summary) {
  const tpalette palette(STDOUT_FILENO);
  for (const tfinding& finding : findings)
    if (!ismistakeincall(finding)) writefinding(std::cout, finding, palette);
  std::cout << summarytext(summary) << '\n';
}

// Findings about the call, not about what was checked, are reported on standard error.
void reportunopened(const tfindings& findings) {
  const tpalette palette(STDERR_FILENO);
  for (const tfinding& finding : findings)
    if (ismistakeincall(finding)) writefinding(std::cerr, finding, palette);
}

}  // namespace

int run(const tcheckarguments& arguments) {
  treading reading;
  reading.watch();
  reading.setlimit(arguments.limit);
  for (const std::string& rule : arguments.allowed) reading.allow(rule);
  if (reading.readdefinition(arguments.inputs.definition)) {
    reading.checkdefinition();
    reading.watchassignments();
    reading.readoptions(arguments.inputs);
    reading.checklines();
  }
  const tfindings& findings = reading.findings().kept();
  const tsummary summary = summaryof(reading);
  reportunopened(findings);
  if (arguments.json)
    printjson(findings, summary);
  else
    printtext(findings, summary);
  return exitcode(findings, arguments.warningsaserrors);
}

}  // namespace tool
