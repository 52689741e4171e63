// Finds the part of the line that a finding is about.
#include "tools/lsp/diagnostics.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "base/textcase.h"
#include "tools/lsp/optionlines.h"
#include "tools/lsp/uri.h"
#include "tools/reading/fieldnotes.h"

namespace tool::lsp {

namespace {

constexpr int severityerror = 1;
constexpr int severitywarning = 2;
constexpr int diagnosticunnecessary = 1;
constexpr int diagnosticdeprecated = 2;

// The line without the blanks around it.
tspan trimmed(const ttext& text, tspan line) {
  const std::string_view blanks = " \t\r";
  while (line.end > line.begin && blanks.find(text.bytes()[line.end - 1]) != std::string_view::npos)
    --line.end;
  while (line.end > line.begin && blanks.find(text.bytes()[line.begin]) != std::string_view::npos)
    ++line.begin;
  return line;
}

// Whether the characters beside the word are none of a name.
bool isalone(std::string_view line, tspan word) {
  const auto continues = [](char c) { return optcore::isletter(c) || optcore::isdigit(c) || c == '_'; };
  const bool joinsbefore = word.begin > 0 && continues(line[word.begin - 1]) && continues(line[word.begin]);
  return !joinsbefore &&
         !(word.end < line.size() && continues(line[word.end]) && continues(line[word.end - 1]));
}

// The word in the line, from a place on; empty if it is not there.
tspan findword(std::string_view line, std::string_view word, std::size_t from) {
  if (word.empty()) return {};
  for (std::size_t at = line.find(word, from); at != std::string_view::npos; at = line.find(word, at + 1))
    if (isalone(line, {at, at + word.size()})) return {at, at + word.size()};
  return {};
}

// The part of a definition's line that is meant; empty if that is not known.
tspan meantindefinition(const tfinding& finding, std::string_view line) {
  const std::vector<tfieldpart> parts = partsof(line);
  for (const tfieldpart& part : parts)
    if (part.name == finding.field && !part.span.empty()) return part.span;
  if (const tspan value = findword(line, finding.value, 0); !value.empty()) return value;
  return parts.front().span;  // the name; empty in a line that continues an entry
}

// What a line in end-of-line mode has behind the statement, and is not read.
tspan remainderof(const tstatementspans& statement, std::string_view line) {
  const std::size_t end = std::max({statement.name.end, statement.value.end, statement.second.end});
  const std::size_t begin = std::min(line.find_first_not_of(" \t", end), line.size());
  return begin < statement.whole.end ? tspan{begin, line.find_last_not_of(" \t") + 1} : tspan{};
}

// The same for a line of an option file. A value stands in a statement of its name, if there is one; a number
// may be written otherwise than the library reports it.
tspan meantinoptions(const tfinding& finding, std::string_view line, const tlinespans& spans) {
  std::size_t from = 0;
  tspan name, reported, remainder;
  for (const tstatementspans& each : spans.statements) {
    if (finding.name.empty() || !optcore::struequal(each.name.of(line), finding.name)) continue;
    name = each.name;
    from = each.name.end;
    reported = each.value;
    if (each.kind == tstatementspans::tkind::setting) remainder = remainderof(each, line);
    if (!findword(line, finding.value, from).empty()) break;
  }
  if (const tspan value = findword(line, finding.value, from); !value.empty()) return value;
  if (!finding.value.empty() && !reported.empty()) return reported;
  if (finding.rule == "option-file" && finding.value.empty() && !remainder.empty()) return remainder;
  if (name.empty()) name = findword(line, finding.name, 0);
  if (name.empty() && spans.statements.size() == 1) name = spans.statements.front().whole;
  return name;
}

std::string messageof(const tfinding& finding) {
  std::string result = printable(messagetext(finding));
  for (const std::string& note : notesof(finding)) result += "\n" + printable(note);
  return result;
}

class tconversion {
 public:
  tconversion(const tdocument& document, const tworkspace& workspace)
      : fdocument(document), fworkspace(workspace), fsnapshot(*document.snapshot()) {}

  tdiagnostics run();

 private:
  void add(const tfinding& finding);
  json diagnostic(const tfinding& finding, const std::string& key, const ttext& text);
  json related(const tfinding& finding);
  tspan spanof(const tfinding& finding, const std::string& key, const ttext& text);
  tlinespans spansin(const std::string& key, const ttext& text, std::int32_t number);
  const std::string& keyoffile(const std::string& name);
  std::shared_ptr<const ttext> textof(const std::string& key) const;
  tencoding encoding() const { return fworkspace.client.encoding; }

  const tdocument& fdocument;
  const tworkspace& fworkspace;
  const tsnapshot& fsnapshot;
  std::map<std::string, std::string> fkeys;  // of the names of files
  // For each file, whether end-of-line mode is on at the beginning of each line.
  std::map<std::string, std::vector<bool>> fmodes;
  tdiagnostics fresult;
};

const std::string& tconversion::keyoffile(const std::string& name) {
  const auto [at, isnew] = fkeys.try_emplace(name);
  if (isnew) at->second = keyof(name);
  return at->second;
}

std::shared_ptr<const ttext> tconversion::textof(const std::string& key) const {
  const auto found = fsnapshot.texts.find(key);
  return found == fsnapshot.texts.end() ? nullptr : found->second;
}

// The parts of a line of an option file.
tlinespans tconversion::spansin(const std::string& key, const ttext& text, std::int32_t number) {
  const optcore::tdefinition& definition = fsnapshot.store()->definition();
  std::vector<bool>& modes = fmodes.try_emplace(key, 1, true).first->second;
  while (modes.size() < static_cast<std::size_t>(number)) {
    const std::string_view line = readpart(text.part(text.line(static_cast<std::int32_t>(modes.size()))));
    modes.push_back(isread(line) ? spansof(definition, line, modes.back()).eolonly : modes.back());
  }
  const std::string_view line = readpart(text.part(text.line(number)));
  return isread(line) ? spansof(definition, line, modes[static_cast<std::size_t>(number) - 1]) : tlinespans{};
}

tspan tconversion::spanof(const tfinding& finding, const std::string& key, const ttext& text) {
  const std::int32_t number = std::max(finding.place.line, 1);
  const tspan line = text.line(number);
  const std::string_view bytes = text.part(line);
  const bool isoptions = fsnapshot.reading != nullptr && key != fsnapshot.definition->key;
  const tspan meant = finding.place.line == 0 ? tspan{}
                      : isoptions             ? meantinoptions(finding, bytes, spansin(key, text, number))
                                              : meantindefinition(finding, bytes);
  return meant.empty() ? trimmed(text, line) : tspan{line.begin + meant.begin, line.begin + meant.end};
}

json tconversion::related(const tfinding& finding) {
  json result = json::array();
  for (const trelated& each : finding.related) {
    const std::string& key = keyoffile(each.place.file);
    const auto text = textof(key);
    if (text == nullptr) continue;
    tfinding there = {each.place, finding.severity, finding.rule, {}};
    there.name = finding.name;
    const tspan span = spanof(there, key, *text);
    result.push_back(
        {{"location",
          {{"uri", fworkspace.documents.uriof(key)}, {"range", rangejson(*text, span, encoding())}}},
         {"message", printable(each.text)}});
  }
  return result;
}

json tconversion::diagnostic(const tfinding& finding, const std::string& key, const ttext& text) {
  json result = {{"range", rangejson(text, spanof(finding, key, text), encoding())},
                 {"severity", finding.severity == tseverity::error ? severityerror : severitywarning},
                 {"code", finding.rule},
                 {"source", "wexcorin"},
                 {"message", messageof(finding)}};
  const bool iswithoutuse = finding.rule == "no-members" || finding.rule == "group-empty";
  if (finding.rule == "deprecated") result["tags"] = {diagnosticdeprecated};
  if (iswithoutuse) result["tags"] = {diagnosticunnecessary};
  if (fworkspace.client.can("textDocument", "publishDiagnostics", "relatedInformation"))
    if (json lines = related(finding); !lines.empty()) result["relatedInformation"] = std::move(lines);
  return result;
}

// A finding about a file that cannot be read stands in the document that asks for it.
void tconversion::add(const tfinding& finding) {
  if (finding.severity == tseverity::plain) return;
  const std::string& key = keyoffile(finding.place.file);
  if (const auto text = textof(key))
    fresult.try_emplace(key, tfilediagnostics{text})
        .first->second.list.push_back(diagnostic(finding, key, *text));
  else
    fresult[fdocument.key()].list.push_back(diagnostic(finding, fdocument.key(), ttext("")));
}

tdiagnostics tconversion::run() {
  fresult.try_emplace(fdocument.key(), tfilediagnostics{fsnapshot.text});
  for (const tfinding& finding : fsnapshot.findings) add(finding);
  return std::move(fresult);
}

}  // namespace

tdiagnostics diagnosticsof(const tdocument& document, const tworkspace& workspace) {
  return tconversion(document, workspace).run();
}

}  // namespace tool::lsp
