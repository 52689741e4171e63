// Looks through the option files.
#include "tools/lsp/uses.h"

#include <map>
#include <set>
#include <utility>

#include "tools/lsp/optionlines.h"
#include "tools/lsp/uri.h"
#include "tools/reading/definitionspans.h"

namespace tool::lsp {

namespace {

using namespace optcore;

std::set<std::string> optionfilekeys(const tworkspace& workspace, const tfolderfiles& files) {
  std::set<std::string> result;
  for (const auto& [uri, document] : workspace.documents.all())
    if (document.kind() == tdocumentkind::options) result.insert(document.key());
  for (const std::string& path : files.optionfiles) result.insert(keyof(path));
  return result;
}

// The key of the definition that belongs to an option file; empty if there is none.
std::string definitionkeyof(const std::string& key, const tworkspace& workspace, tsources& sources) {
  const tdocument* document = workspace.documents.withkey(key);
  const std::string path =
      definitionof(document == nullptr ? key : document->name(), *workspace.settings, sources).path;
  return path.empty() ? "" : keyof(path);
}

std::shared_ptr<const ttext> currenttext(const std::string& key, const tworkspace& workspace) {
  const tdocument* document = workspace.documents.withkey(key);
  return document != nullptr ? document->text() : loadtext(key);
}

// The keys of the files that the text includes.
std::vector<std::string> includedby(const tvksoptions& store, const ttext& text) {
  std::vector<std::string> result;
  walklines(store, text, [&](const toptionline& line) {
    for (const tstatementspans& each : line.parts.statements) {
      const auto* option = ifis<timmediateoption>(each.option);
      const bool includes = option != nullptr && option->immkind() == timmkind::readfile;
      const std::string_view name = withoutquotes(line.text, each.value).of(line.text);
      if (includes && !name.empty()) result.push_back(keyof(std::string(name)));
    }
    return true;
  });
  return result;
}

}  // namespace

tspan firstword(const ttext& text, std::int32_t number) {
  const tspan line = text.line(number);
  const std::size_t begin = text.part(line).find_first_not_of(" \t");
  if (begin == std::string_view::npos) return line;
  const std::size_t end = text.part(line).find_first_of(" \t", begin);
  return {line.begin + begin, end == std::string_view::npos ? line.end : line.begin + end};
}

std::optional<tuse> declarationof(const tdefinitionstate& definition, std::int32_t index) {
  const std::int32_t line = definition.lines().ofoption(definition.store().definition(), index);
  if (line <= 0 || definition.text == nullptr) return std::nullopt;
  return tuse{definition.key, definition.text, firstword(*definition.text, line)};
}

std::vector<tuse> usesindefinition(const tworkspace& workspace, const tdefinitionstate& definition,
                                   std::int32_t index, bool declared) {
  const tdocument* document = workspace.documents.withkey(definition.key);
  const auto text = document != nullptr ? document->text() : definition.text;
  if (text == nullptr) return {};
  const auto entries = document != nullptr ? document->index() : definition.index();
  const std::string_view name = definition.store().definition().option(index).name();
  const tdefinitionindex::tentry* option = entries->find(tdefinitionindex::tkind::option, name);
  if (option == nullptr) return {};
  std::vector<tuse> result;
  if (declared) result.push_back({definition.key, text, option->span});
  for (const tdefinitionindex::treference* each : entries->referencesto(*option))
    result.push_back({definition.key, text, each->span});
  return result;
}

json locationof(const tuse& use, const tworkspace& workspace) {
  return {{"uri", workspace.documents.uriof(use.key)},
          {"range", rangejson(*use.text, use.name, workspace.client.encoding)}};
}

std::vector<toptionfile> optionfilesof(const trequest& request, const std::string& definitionkey,
                                       const tvksoptions& store, const tfolderfiles& files) {
  const tworkspace& workspace = request.workspace;
  tsources sources(workspace.documents.texts());
  std::map<std::string, std::shared_ptr<const ttext>> found;
  std::vector<std::string> waiting;
  for (const std::string& key : optionfilekeys(workspace, files))
    if (!request.iscancelled() && definitionkeyof(key, workspace, sources) == definitionkey)
      waiting.push_back(key);
  while (!waiting.empty() && !request.iscancelled()) {
    const std::string key = std::move(waiting.back());
    waiting.pop_back();
    const auto [at, isnew] = found.try_emplace(key);
    if (!isnew || (at->second = currenttext(key, workspace)) == nullptr) continue;
    for (std::string& each : includedby(store, *at->second)) {
      const std::string other = found.contains(each) ? "" : definitionkeyof(each, workspace, sources);
      if (other.empty() || other == definitionkey) waiting.push_back(std::move(each));
    }
  }
  std::vector<toptionfile> result;
  for (auto& [key, text] : found)
    if (text != nullptr) result.push_back({key, text});
  return result;
}

std::vector<tuse> usesof(const trequest& request, const tdefinitionstate& definition, std::int32_t index) {
  const toption& option = definition.store().definition().option(index);
  std::vector<tuse> result;
  for (const toptionfile& file :
       optionfilesof(request, definition.key, definition.store(), *request.workspace.files))
    walklines(definition.store(), *file.text, [&](const toptionline& line) {
      for (const tstatementspans& each : line.parts.statements)
        if (each.option == &option) result.push_back({file.key, file.text, line.intext(each.name)});
      return true;
    });
  return result;
}

}  // namespace tool::lsp
