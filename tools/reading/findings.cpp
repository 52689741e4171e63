// Writes findings as lines of text.
#include "tools/reading/findings.h"

#include <ostream>
#include <string_view>
#include <utility>

#include "tools/reading/rules.h"

namespace tool {

namespace {

struct tlabel {
  std::string_view word;
  tcolour colour;
};

tlabel labelof(tseverity severity) {
  return severity == tseverity::error ? tlabel{"error", tcolour::red} : tlabel{"warning", tcolour::yellow};
}

bool issame(const tfinding& a, const tfinding& b) {
  return a.severity == b.severity && a.place == b.place && a.text == b.text && a.details == b.details &&
         a.optionfile == b.optionfile;
}

void writeline(std::ostream& stream, const tpalette& palette, const tplace& place, tlabel label,
               std::string_view text) {
  stream << palette.paint(tcolour::bold, printable(placetext(place)) + ":") << ' '
         << palette.paint(label.colour, std::string(label.word) + ":") << ' ' << printable(text) << '\n';
}

}  // namespace

std::string placetext(const tplace& place) {
  return place.line == 0 ? place.file : place.file + ":" + std::to_string(place.line);
}

void tfindinglist::begin(tfinding finding) {
  end();
  fopen = std::move(finding);
}

void tfindinglist::explain(std::string detail) {
  if (fopen) fopen->details.push_back(std::move(detail));
}

void tfindinglist::end() {
  if (!fopen) return;
  tfinding finding = *std::exchange(fopen, std::nullopt);
  if (finding.severity == tseverity::warning && allows(finding.rule)) return;
  const bool repeats = finding.severity != tseverity::plain && flast && issame(finding, *flast);
  if (repeats) return;
  ++fseverities[static_cast<std::size_t>(finding.severity)];
  if (finding.severity == tseverity::plain || fcounts[finding.rule]++ < flimit)
    fkept.push_back(finding);
  else
    ++funlisted;
  flast = std::move(finding);
}

void tfindinglist::countunlisted(tseverity severity) {
  end();
  ++fseverities[static_cast<std::size_t>(severity)];
  ++funlisted;
}

// A finding in a file that the option file includes does not tell by itself to which one it belongs.
void tfindinglist::append(const tfindinglist& other, const std::string& optionfile) {
  std::array<std::size_t, 3> severities = other.fseverities;
  for (tfinding finding : other.fkept) {
    --severities[static_cast<std::size_t>(finding.severity)];
    if (!optionfile.empty() && finding.place.file != optionfile && finding.severity != tseverity::plain)
      finding.advice.push_back("Found when " + inquotes(optionfile) + " was checked");
    finding.optionfile = optionfile;
    begin(std::move(finding));
  }
  end();
  for (std::size_t i = 0; i < severities.size(); ++i) fseverities[i] += severities[i];
  funlisted += other.funlisted;
}

std::string messagetext(const tfinding& finding) {
  const std::string suggestion = suggestiontext(finding.suggestions);
  return finding.text + (suggestion.empty() ? "" : "; " + suggestion);
}

std::vector<std::string> notesof(const tfinding& finding) {
  std::vector<std::string> result = finding.details;
  result.insert(result.end(), finding.advice.begin(), finding.advice.end());
  return result;
}

void writefinding(std::ostream& stream, const tfinding& finding, const tpalette& palette) {
  if (finding.severity == tseverity::plain) {
    stream << printable(finding.text) << '\n';
    return;
  }
  const trule* rule = findrule(finding.rule);
  const bool showsrule = rule != nullptr && rule->filedby == tfiledby::tool;
  writeline(stream, palette, finding.place, labelof(finding.severity),
            messagetext(finding) + (showsrule ? " [" + std::string(rule->name) + "]" : ""));
  for (const std::string& note : notesof(finding))
    writeline(stream, palette, finding.place, {"note", tcolour::cyan}, note);
}

std::string suggestiontext(const std::vector<std::string>& suggestions) {
  std::string result;
  for (std::size_t i = 0; i < suggestions.size(); ++i) {
    const bool last = i + 1 == suggestions.size();
    result += (i == 0 ? "" : last ? " or " : ", ") + inquotes(suggestions[i]);
  }
  return result.empty() ? result : "did you mean " + result + "?";
}

}  // namespace tool
