// Finds the part of the line that a finding is about.
#include "tools/lsp/diagnostics.h"

#include <algorithm>
#include <utility>

#include "tools/lsp/uri.h"

namespace tool::lsp {

namespace {

constexpr int severityerror = 1;
constexpr int severitywarning = 2;
constexpr int tagdeprecated = 2;

// The line without the blanks around it.
tspan trimmed(const ttext& text, tspan line) {
  const std::string_view blanks = " \t\r";
  while (line.end > line.begin && blanks.find(text.bytes()[line.end - 1]) != std::string_view::npos)
    --line.end;
  while (line.end > line.begin && blanks.find(text.bytes()[line.begin]) != std::string_view::npos)
    ++line.begin;
  return line;
}

std::string messageof(const tfinding& finding) {
  std::string result = utf8(messagetext(finding));
  for (const std::string& note : notesof(finding)) result += "\n" + utf8(note);
  return result;
}

class tconversion {
 public:
  tconversion(const tdocument& document, const tworkspace& workspace)
      : fdocument(document), fworkspace(workspace) {}

  tdiagnostics run();

 private:
  void add(const tfinding& finding);
  json diagnostic(const tfinding& finding, const ttext& text) const;
  const ttext* textof(const std::string& key) const;

  const tdocument& fdocument;
  const tworkspace& fworkspace;
  std::map<std::string, std::string> fkeys;  // of the names of files
  tdiagnostics fresult;
};

const ttext* tconversion::textof(const std::string& key) const {
  const tsnapshot& snapshot = *fdocument.snapshot();
  if (key == fdocument.key()) return snapshot.text.get();
  const auto found = snapshot.texts.find(key);
  return found == snapshot.texts.end() ? nullptr : found->second.get();
}

json tconversion::diagnostic(const tfinding& finding, const ttext& text) const {
  const tspan span = trimmed(text, text.line(std::max(finding.place.line, 1)));
  json result = {{"range", rangejson(text, span, fworkspace.client.encoding)},
                 {"severity", finding.severity == tseverity::error ? severityerror : severitywarning},
                 {"code", finding.rule},
                 {"source", "wexcorin"},
                 {"message", messageof(finding)}};
  if (finding.rule == "deprecated") result["tags"] = {tagdeprecated};
  return result;
}

// A finding about a file that cannot be read stands where the file is asked for.
void tconversion::add(const tfinding& finding) {
  if (finding.severity == tseverity::plain) return;
  const auto [at, isnew] = fkeys.try_emplace(finding.place.file);
  if (isnew) at->second = keyof(finding.place.file);
  const ttext* text = textof(at->second);
  if (text != nullptr)
    fresult[at->second].push_back(diagnostic(finding, *text));
  else
    fresult[fdocument.key()].push_back(diagnostic(finding, ttext("")));
}

tdiagnostics tconversion::run() {
  fresult[fdocument.key()];
  for (const tfinding& finding : fdocument.snapshot()->findings) add(finding);
  return std::move(fresult);
}

}  // namespace

tdiagnostics diagnosticsof(const tdocument& document, const tworkspace& workspace) {
  return tconversion(document, workspace).run();
}

}  // namespace tool::lsp
