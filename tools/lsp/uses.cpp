// Looks through the option files.
#include "tools/lsp/uses.h"

#include <set>

#include "tools/lsp/optionlines.h"
#include "tools/lsp/uri.h"

namespace tool::lsp {

namespace {

using namespace optcore;

std::set<std::string> optionfilekeys(const tworkspace& workspace) {
  std::set<std::string> result;
  for (const auto& [uri, document] : workspace.documents.all())
    if (document.kind() == tdocumentkind::options) result.insert(document.key());
  for (const std::string& path : workspace.files->optionfiles) {
    std::string key = keyof(path);
    const tdocument* document = workspace.documents.withkey(key);
    if (document == nullptr || document->kind() == tdocumentkind::options) result.insert(std::move(key));
  }
  return result;
}

// The key of the definition that belongs to an option file; empty if there is none.
std::string definitionkeyof(const std::string& key, const tworkspace& workspace, tsources& sources) {
  const tdocument* document = workspace.documents.withkey(key);
  if (document != nullptr && document->snapshot() != nullptr) {
    const auto& definition = document->snapshot()->definition;
    return definition == nullptr ? "" : definition->key;
  }
  const std::string path =
      definitionof(document == nullptr ? key : document->name(), *workspace.settings, sources).path;
  return path.empty() ? "" : keyof(path);
}

}  // namespace

tspan firstword(const ttext& text, std::int32_t number) {
  const tspan line = text.line(number);
  const std::size_t begin = text.part(line).find_first_not_of(" \t");
  if (begin == std::string_view::npos) return line;
  const std::size_t end = text.part(line).find_first_of(" \t", begin);
  return {line.begin + begin, end == std::string_view::npos ? line.end : line.begin + end};
}

std::vector<tuse> declarationsof(const tdefinitionstate& definition, std::int32_t index) {
  std::vector<tuse> result;
  const auto add = [&](std::int32_t line) {
    if (line > 0 && definition.text != nullptr)
      result.push_back({definition.key, definition.text, firstword(*definition.text, line)});
  };
  const tdefinition& options = definition.store().definition();
  add(definition.lines().ofoption(options, index));
  for (std::int32_t i = 0; i < options.synonyms().count(); ++i)
    if (options.synonyms().getobject(i) == index) add(definition.lines().ofsynonym(i));
  return result;
}

json locationof(const tuse& use, const tworkspace& workspace) {
  return {{"uri", workspace.documents.uriof(use.key)},
          {"range", rangejson(*use.text, use.name, workspace.client.encoding)}};
}

std::vector<tuse> usesof(const trequest& request, const tdefinitionstate& definition, std::int32_t index) {
  const tworkspace& workspace = request.workspace;
  const toption& option = definition.store().definition().option(index);
  tsources sources(workspace.documents.texts());
  std::vector<tuse> result;
  for (const std::string& key : optionfilekeys(workspace)) {
    if (request.iscancelled()) break;
    if (definitionkeyof(key, workspace, sources) != definition.key) continue;
    const tdocument* document = workspace.documents.withkey(key);
    const std::shared_ptr<const ttext> text = document != nullptr ? document->text() : loadtext(key);
    if (text == nullptr) continue;
    walklines(definition.store(), *text, [&](const toptionline& line) {
      for (const tstatementspans& each : line.parts.statements)
        if (each.option == &option) result.push_back({key, text, line.intext(each.name)});
      return true;
    });
  }
  return result;
}

}  // namespace tool::lsp
