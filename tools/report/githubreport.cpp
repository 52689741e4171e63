// Findings as workflow commands. Every line is such a command, so that no text of a file is taken for another one.
#include <iostream>
#include <string_view>

#include "tools/report/report.h"

namespace tool {

namespace {

// The text of a command. Only line ends and percent signs are special there.
std::string escaped(std::string_view text, std::string_view special = "%\r\n") {
  std::string result;
  for (const char c : text)
    result += special.find(c) == std::string_view::npos ? std::string(1, c) : percentcode(c);
  return result;
}

// A property ends at a comma, and properties end at a colon.
std::string property(std::string_view text) { return escaped(printable(text), "%\r\n:,"); }

void printnotice(std::string_view text) {
  std::cout << "::notice title=wexcorin check::" << escaped(printable(text)) << '\n';
}

void printfinding(const tfinding& finding) {
  const tplace& place = finding.place;
  std::string properties, text;
  if (isinfile(place)) {
    properties = "file=" + property(place.file) + ",";
    if (place.line != 0) properties += "line=" + std::to_string(place.line) + ",";
  } else {
    text = placetext(place) + ": ";
  }
  text = printable(text + messagetext(finding));
  for (const std::string& note : notesof(finding)) text += "\n" + printable(note);
  std::cout << (finding.severity == tseverity::error ? "::error " : "::warning ") << properties
            << "title=" << property(finding.rule) << "::" << escaped(text) << '\n';
}

}  // namespace

void printgithub(const treport& report) {
  for (const tfinding& finding : report.findings.kept())
    if (finding.severity == tseverity::plain)
      printnotice(finding.text);
    else
      printfinding(finding);
  printnotice(summarytext(report));
}

}  // namespace tool
