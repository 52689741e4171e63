// Keeps the documents as the client has them, and has them analysed when they, or what they depend on, change.
#include <algorithm>
#include <filesystem>
#include <utility>

#include "tools/lsp/session.h"
#include "tools/lsp/uri.h"

namespace tool::lsp {

// ---- notifications

void tsession::open(const json& params) {
  const json& item = member(params, "textDocument");
  if (!member(item, "uri").is_string() || !member(item, "text").is_string()) return;
  const tdocument& document = fworkspace.documents.open(
      tdocument(textof(member(item, "uri")), textof(member(item, "languageId")), textof(member(item, "text")),
                integerof(member(item, "version")).value_or(0)));
  fdue[document.uri()] = {};
  renewdependants(document);
}

void tsession::change(const json& params) {
  const json& item = member(params, "textDocument");
  tdocument* document = fworkspace.documents.find(textof(member(item, "uri")));
  if (document == nullptr) return;
  const std::int64_t version = integerof(member(item, "version")).value_or(document->version());
  if (!document->change(member(params, "contentChanges"), version, fworkspace.client.encoding))
    return log("A change of " + document->uri() + " makes no sense");
  fdue[document->uri()] = tinbox::tclock::now() + fserving.quiet;
  renewdependants(*document);
}

void tsession::close(const json& params) {
  const tdocument* found = fworkspace.documents.find(textof(member(params, "textDocument", "uri")));
  if (found == nullptr) return;
  const tdocument document = *found;
  finbox.unpark();
  fworkspace.documents.close(document.uri());
  fpublisher.withdraw(document, fworkspace,
                      [this](json list) { tell("textDocument/publishDiagnostics", std::move(list)); });
  renewdependants(document);
}

// A definition, or a file that names definitions, may belong to any option file.
void tsession::changefiles(const json& params) {
  constexpr int changed = 2;
  bool isfolderchanged = false;
  for (const json& each : arrayof(member(params, "changes"))) {
    const std::filesystem::path path = pathofuri(textof(member(each, "uri")));
    const std::string key = keyof(path.string());
    const bool mayconcernall = path.extension() == ".def" || path.filename() == "wexcorin.json";
    analyseall([&](const tdocument& document) {
      return (mayconcernall && document.kind() == tdocumentkind::options) ||
             (document.snapshot() != nullptr && document.snapshot()->texts.contains(key));
    });
    isfolderchanged = isfolderchanged || member(each, "type") != changed;
  }
  if (isfolderchanged) scanfolders();
}

// ---- analysis

void tsession::analyseall(const std::function<bool(const tdocument&)>& concerns) {
  for (const auto& [uri, document] : fworkspace.documents.all())
    if (concerns(document)) fdue[uri] = tinbox::tclock::now() + fserving.quiet;
}

void tsession::renewdependants(const tdocument& document) {
  analyseall([&](const tdocument& other) {
    return &other != &document && other.uri() != document.uri() && other.snapshot() != nullptr &&
           other.snapshot()->texts.contains(document.key());
  });
}

std::optional<tsession::ttime> tsession::nextdue() const {
  if (fdue.empty()) return std::nullopt;
  return std::ranges::min_element(fdue, {}, &std::pair<const std::string, ttime>::second)->second;
}

void tsession::analysedue() {
  const ttime now = tinbox::tclock::now();
  for (auto each = fdue.begin(); each != fdue.end();) {
    if (each->second > now) {
      ++each;
      continue;
    }
    if (const tdocument* document = fworkspace.documents.find(each->first)) analyse(*document);
    each = fdue.erase(each);
  }
}

void tsession::analyse(const tdocument& document) {
  const tdocumentstate state = {
      document.name(),    document.kind(), document.serial(), document.text(), fworkspace.documents.texts(),
      fworkspace.settings};
  fanalyst.ask(document.uri(), [this, uri = document.uri(), state] {
    finbox.put([this, uri, snapshot = fanalysis.run(state)] { take(uri, snapshot); });
  });
}

void tsession::take(const std::string& uri, const std::shared_ptr<const tsnapshot>& snapshot) {
  finbox.unpark();
  tdocument* document = fworkspace.documents.find(uri);
  if (document == nullptr) return;
  const auto before = document->snapshot();
  if (!document->take(snapshot)) return;
  const bool hasotherdefaults = before != nullptr && before->definition != snapshot->definition;
  if (hasotherdefaults && fworkspace.settings->inlayhints) refreshhints();
  watchincluded(*document);
  if (!snapshot->problem.empty()) log(document->name() + ": " + snapshot->problem);
  if (document->iscurrent())
    fpublisher.publish(*document, fworkspace,
                       [this](json list) { tell("textDocument/publishDiagnostics", std::move(list)); });
}

}  // namespace tool::lsp
