// Repairs for the findings about the lines that are selected.
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "tools/lsp/features.h"
#include "tools/lsp/optionlines.h"
#include "tools/lsp/repairs.h"
#include "tools/lsp/uri.h"

namespace tool::lsp {

namespace {

class toptionactions {
 public:
  explicit toptionactions(const trequest& request)
      : frequest(request),
        fdocument(*request.document()),
        ftext(fdocument.text()),
        ftrial(*fdocument.snapshot()->definition) {}

  json run();

 private:
  std::int32_t lineof(const char* end) const {
    return ftext->lineat(
        ftext->offsetat(positionfrom(member(frequest.params, "range", end)), frequest.encoding()));
  }
  // Where the place is now in this document; 0 if it is elsewhere.
  std::int32_t linenow(const tplace& place) {
    const auto [at, isnew] = fkeys.try_emplace(place.file);
    if (isnew) at->second = keyof(place.file);
    return at->second == fdocument.key() && place.line > 0 ? fdocument.linenow(place.line) : 0;
  }
  void findlines();
  void add(const tfinding& finding, const toptionline& line);
  json diagnosticsof(const tfinding& finding, const toptionline& line) const;

  const trequest& frequest;
  const tdocument& fdocument;
  const std::shared_ptr<const ttext> ftext;
  ttrial ftrial;
  std::map<std::string, std::string> fkeys;                         // of the names of files
  std::vector<std::pair<const tfinding*, std::int32_t>> ffindings;  // with the numbers of their lines
  std::map<std::int32_t, toptionline> flines;                       // that are needed, by their numbers
  json fresult = json::array();
};

// Those of the client that belong to the finding.
json toptionactions::diagnosticsof(const tfinding& finding, const toptionline& line) const {
  json result = json::array();
  for (const json& each : arrayof(member(frequest.params, "context", "diagnostics"))) {
    const tposition begin = positionfrom(member(each, "range", "start"));
    const bool isline = ftext->lineat(ftext->offsetat(begin, frequest.encoding())) == line.number;
    if (isline && textof(member(each, "code")) == finding.rule) result.push_back(each);
  }
  return result;
}

void toptionactions::add(const tfinding& finding, const toptionline& line) {
  std::vector<toptionline> related;
  for (const trelated& each : finding.related)
    if (const auto found = flines.find(linenow(each.place)); found != flines.end())
      related.push_back(found->second);
  for (const trepair& repair : repairsof(finding, line, related, *ftext, ftrial)) {
    tfileedits edits(ftext);
    edits.add(repair.edit.span, repair.edit.text);
    const tworkspaceedits all = {{fdocument.key(), edits}};
    json action = {
        {"title", repair.title}, {"kind", quickfix}, {"edit", workspaceeditjson(all, frequest.workspace)}};
    if (json diagnostics = diagnosticsof(finding, line); !diagnostics.empty())
      action["diagnostics"] = std::move(diagnostics);
    if (repair.preferred) action["isPreferred"] = true;
    fresult.push_back(std::move(action));
  }
}

// The lines of the findings that are asked for, and those that they name.
void toptionactions::findlines() {
  const std::int32_t first = lineof("start"), last = lineof("end");
  std::set<std::int32_t> numbers;
  for (const tfinding& finding : fdocument.snapshot()->findings) {
    const std::int32_t number = linenow(finding.place);
    if (number < first || number > last) continue;  // also one that is nowhere, 0
    ffindings.push_back({&finding, number});
    numbers.insert(number);
    for (const trelated& each : finding.related) numbers.insert(linenow(each.place));
  }
  walklines(*fdocument.snapshot()->store(), *ftext, [&](const toptionline& line) {
    if (numbers.contains(line.number)) flines.emplace(line.number, line);
    return !numbers.empty() && line.number < *numbers.rbegin();
  });
}

json toptionactions::run() {
  findlines();
  for (const auto& [finding, number] : ffindings) add(*finding, flines.at(number));
  return std::move(fresult);
}

}  // namespace

tanswer optioncodeactions(const trequest& request) {
  const tdocument& document = *request.document();
  const tsnapshot* snapshot = document.snapshot().get();
  if (!wantsquickfixes(request) || snapshot == nullptr || snapshot->store() == nullptr) return json::array();
  return toptionactions(request).run();
}

}  // namespace tool::lsp
