// Reads as check does with one option file.
#include "tools/lsp/analysis.h"

#include <sys/stat.h>

#include <exception>
#include <iterator>
#include <utility>

#include "tools/lsp/uri.h"
#include "tools/outofmemory.h"

namespace tool::lsp {

namespace {

void prepare(treading& reading, tsources& sources, const tsettings& settings) {
  reading.readfrom(sources);
  reading.watch();
  reading.setlimit(settings.limit);
  for (const std::string& rule : settings.allow) reading.allow(rule);
}

// Changes whenever the file does.
std::string stampof(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return {};
  std::string result;
  for (const auto number :
       {static_cast<std::uint64_t>(status.st_dev), status.st_ino, static_cast<std::uint64_t>(status.st_size),
        static_cast<std::uint64_t>(status.st_mtim.tv_sec),
        static_cast<std::uint64_t>(status.st_mtim.tv_nsec)})
    result.append(std::to_string(number)).push_back(' ');
  return result;
}

std::shared_ptr<const tdefinitionstate> readdefinition(const std::string& name,
                                                       const tdocumentstate& document) {
  const auto result = std::make_shared<tdefinitionstate>(document.open);
  result->name = name;
  result->key = keyof(name);
  prepare(result->reading, result->sources, *document.settings);
  result->isopened = result->reading.readdefinition(name);
  result->reading.checkdefinition();
  result->text = result->sources.textof(name);
  result->takelines();
  result->collectnames();
  result->sources.close();
  return result;
}

std::shared_ptr<const ttext> opentext(const tdocumentstate& document, const std::string& key) {
  const auto found = document.open->find(key);
  return found == document.open->end() ? nullptr : found->second;
}

void take(tsnapshot& snapshot, const tfindinglist& findings) {
  snapshot.findings.insert(snapshot.findings.end(), findings.kept().begin(), findings.kept().end());
}

void readoptions(tsnapshot& snapshot, const tdocumentstate& document, tsources& sources) {
  snapshot.reading = std::make_unique<treading>();
  prepare(*snapshot.reading, sources, *document.settings);
  snapshot.reading->readdefinitionof(snapshot.definition->reading);
  snapshot.reading->watchassignments();
  snapshot.reading->readoptions({{}, {document.name}, {}});
  snapshot.reading->checklines();
  take(snapshot, snapshot.reading->findings());
}

}  // namespace

void tdefinitionstate::collectnames() {
  fnames = std::make_unique<const tnametable>(store());
  namesnear("name", false);  // what it needs is made at the first call
}

const std::shared_ptr<const tdefinitionindex>& tdefinitionstate::index() const {
  if (findex == nullptr) findex = std::make_shared<const tdefinitionindex>(*text);
  return findex;
}

std::vector<std::string> tdefinitionstate::namesnear(const std::string& typed, bool dotted) const {
  using tproblem = optcore::tsubject::tproblem;
  const std::string sought = dotted ? "." + typed : typed;
  const optcore::tsubject subject = {
      .name = sought, .problem = dotted ? tproblem::unknowndotoption : tproblem::unknownoption};
  return fsuggester.suggestionsfor(subject, typed);
}

tfounddefinition definitionof(const std::string& optionfile, const tsettings& settings, ttextsource& source) {
  tfounddefinition found = finddefinition(optionfile, source);
  const bool isnotfound = found.problem && found.problem->rule == "no-definition";
  if (!isnotfound || settings.definition.empty()) return found;
  return {settings.definition, "named in the settings", {}};
}

// Drops what no document uses any more.
void tanalysis::forgetothers() {
  constexpr std::size_t most = 8;
  for (auto each = fdefinitions.begin(); each != fdefinitions.end() && fdefinitions.size() > most;)
    each = each->second.state.use_count() == 1 ? fdefinitions.erase(each) : std::next(each);
}

std::shared_ptr<const tdefinitionstate> tanalysis::definition(const std::string& name,
                                                              const tdocumentstate& document) {
  if (fsettings != document.settings) fdefinitions.clear();
  fsettings = document.settings;
  const std::string key = keyof(name);
  const auto open = opentext(document, key);
  const std::string stamp = open == nullptr ? stampof(key) : "";
  tkept& kept = fdefinitions[key];
  if (kept.state == nullptr || kept.open != open || kept.stamp != stamp || kept.state->name != name)
    kept = {readdefinition(name, document), open, stamp};
  auto result = kept.state;
  forgetothers();
  return result;
}

void tanalysis::read(const tdocumentstate& document, tsnapshot& result) {
  tsources sources(document.open);
  const tfounddefinition found = document.kind == tdocumentkind::options
                                     ? definitionof(document.name, *document.settings, sources)
                                     : tfounddefinition{document.name, {}, {}};
  if (found.problem) result.findings.push_back(*found.problem);
  if (!found.path.empty()) {
    result.definition = definition(found.path, document);
    take(result, result.definition->reading.findings());
    if (document.kind == tdocumentkind::options && result.definition->isopened)
      readoptions(result, document, sources);
  }
  result.texts = sources.texts();
  if (result.definition != nullptr) result.texts[result.definition->key] = result.definition->text;
}

std::shared_ptr<const tsnapshot> tanalysis::run(const tdocumentstate& document) {
  const auto result = std::make_shared<tsnapshot>();
  result->kind = document.kind;
  result->serial = document.serial;
  result->text = document.text;
  try {
    read(document, *result);
  } catch (const std::exception& error) {
    result->problem = problemtext(error);
  }
  return result;
}

}  // namespace tool::lsp
