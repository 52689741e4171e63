// Mends a line of a definition: another word for one that is not known, a line for a group that has none.
#include <algorithm>
#include <set>

#include "tools/lsp/edits.h"
#include "tools/lsp/features.h"
#include "tools/reading/advice.h"

namespace tool::lsp {

namespace {

class tdefinitionactions {
 public:
  explicit tdefinitionactions(const trequest& request)
      : frequest(request),
        fdocument(*request.document()),
        findex(*fdocument.index()),
        ffirst(lineof("start")),
        flast(lineof("end")) {}

  json run() {
    for (const tdefinitionindex::treference& each : findex.references())
      if (isasked(each.line) && findex.target(each) == nullptr) suggest(each);
    for (std::int32_t line = ffirst; line <= std::min(flast, ffirst + mostlines); ++line) mendtype(line);
    std::set<std::int32_t> numbers;
    for (const tdefinitionindex::tgroupfield& each : findex.groupfields())
      if (isasked(each.line) && findex.group(each.number) == nullptr && numbers.insert(each.number).second)
        addgroup(each);
    return std::move(factions);
  }

 private:
  static constexpr std::int32_t mostlines = 100;

  std::int32_t lineof(std::string_view end) const {
    const tposition position = positionfrom(member(frequest.params, "range", end));
    return fdocument.text()->lineat(fdocument.text()->offsetat(position, frequest.encoding()));
  }
  bool isasked(std::int32_t line) const { return line >= ffirst && line <= flast; }

  // With the client's own findings about the line.
  void add(std::int32_t line, const std::string& title, tspan span, const std::string& text) {
    tfileedits edits(fdocument.text());
    edits.add(span, text);
    const tworkspaceedits all = {{fdocument.key(), std::move(edits)}};
    json action = {
        {"title", title}, {"kind", quickfix}, {"edit", workspaceeditjson(all, frequest.workspace)}};
    json found = json::array();
    for (const json& each : arrayof(member(frequest.params, "context", "diagnostics")))
      if (integerof(member(each, "range", "start", "line")) == line - 1) found.push_back(each);
    if (!found.empty()) action["diagnostics"] = std::move(found);
    factions.push_back(std::move(action));
  }

  void replace(std::int32_t line, tspan span, const std::string& word) {
    add(line, "Change to " + inquotes(printable(word)), span, word);
  }

  // What check suggests for this name. A line of a multilist may have several names, and its findings quote them.
  void suggest(const tdefinitionindex::treference& name) {
    if (fdocument.snapshot() == nullptr) return;
    const std::string quoted = name.keyword == "multilist" ? inquotes(name.name) : "";
    for (const tfinding& finding : fdocument.snapshot()->findings)
      if (fdocument.linenow(finding.place.line) == name.line && finding.place.file == fdocument.name() &&
          finding.text.find(quoted) != std::string::npos)
        for (const std::string& each : finding.suggestions) replace(name.line, name.span, each);
  }

  void mendtype(std::int32_t number) {
    const tdefinitionline line = definitionlineat(*fdocument.text(), fdocument.text()->line(number).begin);
    const tdefinitionspans& parts = line.parts;
    if (!parts.keyword.empty() || parts.type.empty()) return;
    for (const std::string& each : typeslike(parts.type.of(line.text)))
      replace(number, line.intext(parts.type), each);
  }

  // Below the last group line; above the first entry if there is none.
  void addgroup(const tdefinitionindex::tgroupfield& field) {
    const std::string number = std::to_string(field.number);
    std::string name = "group" + number;
    while (findex.find(tdefinitionindex::tkind::group, name) != nullptr) name += "_";
    const std::string line = name + " group " + number + " 1 Group " + number;
    const tdefinitionindex::tentry* last = nullptr;
    for (const tdefinitionindex::tentry& each : findex.entries())
      if (each.kind == tdefinitionindex::tkind::group) last = &each;
    const ttext& text = *fdocument.text();
    const bool isbelow = last != nullptr;
    const std::size_t at = isbelow ? text.line(last->line).end : text.line(findex.entries()[0].line).begin;
    const std::string end(text.lineend());
    add(field.line, "Add a line for the group " + number, {at, at}, isbelow ? end + line : line + end);
  }

  const trequest& frequest;
  const tdocument& fdocument;
  const tdefinitionindex& findex;
  const std::int32_t ffirst, flast;  // the lines that are asked for
  json factions = json::array();
};

}  // namespace

tanswer definitionactions(const trequest& request) {
  return wantsquickfixes(request) ? tdefinitionactions(request).run() : json::array();
}

}  // namespace tool::lsp
