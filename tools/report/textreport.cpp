// Findings and their summary for people.
#include <unistd.h>

#include <iostream>

#include "tools/report/report.h"

namespace tool {

namespace {

std::string foundtext(const treport& report) {
  std::string result;
  for (const treport::tdefinition& each : report.definitions)
    if (!each.how.empty())
      result.append(result.empty() ? "; definition " : ", ").append(each.path).append(" (" + each.how + ")");
  return result;
}

}  // namespace

std::string summarytext(const treport& report) {
  const tfindinglist& findings = report.findings;
  const std::size_t errors = findings.count(tseverity::error), warnings = findings.count(tseverity::warning);
  std::string result = "no problems";
  if (errors + warnings != 0) result = counted(errors, "error") + ", " + counted(warnings, "warning");
  if (findings.unlisted() != 0) result += " (" + std::to_string(findings.unlisted()) + " of them not listed)";
  result += "; " + counted(static_cast<std::size_t>(report.options), "option") + ", " +
            std::to_string(report.set) + " set";
  if (report.separate != 0)
    result += "; " + counted(report.separate, "option file") +
              (report.separate == 1 ? ", checked on its own" : ", each checked on its own");
  return result + foundtext(report);
}

bool isinfile(const tplace& place) { return place.file != "<stdin>" && !place.file.starts_with("--set '"); }

void printtext(const treport& report) {
  const tpalette palette(STDOUT_FILENO);
  for (const tfinding& finding : report.findings.kept())
    if (!ismistakeincall(finding)) writefinding(std::cout, finding, palette);
  std::cout << printable(summarytext(report)) << '\n';
}

}  // namespace tool
