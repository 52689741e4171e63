// Finds options, synonyms and groups in all definitions of the workspace.
#include <algorithm>
#include <set>

#include "tools/lsp/features.h"
#include "tools/lsp/locations.h"
#include "tools/lsp/symbolkinds.h"
#include "tools/lsp/uri.h"
#include "tools/reading/nearnames.h"

namespace tool::lsp {

namespace {

constexpr std::size_t mostsymbols = 1000;

struct tsource {
  std::string uri;
  std::shared_ptr<const ttext> text;
  std::shared_ptr<const tdefinitionindex> index;
};

struct thit {
  int rank;
  const tsource* source;
  const tdefinitionindex::tentry* entry;
};

std::vector<tsource> definitionsof(const trequest& request) {
  const tworkspace& workspace = request.workspace;
  std::map<std::string, std::shared_ptr<const ttext>> texts;
  for (const auto& [uri, document] : workspace.documents.all())
    if (document.kind() == tdocumentkind::definition) texts[document.key()] = document.text();
  for (const std::string& path : workspace.files->definitions)
    if (const std::string key = keyof(path); !request.iscancelled()) {
      const tdocument* document = workspace.documents.withkey(key);
      if (document == nullptr) texts[key] = loadtext(key);
    }
  std::vector<tsource> result;
  for (auto& [key, text] : texts) {
    if (text == nullptr || request.iscancelled()) continue;
    const tdocument* document = workspace.documents.withkey(key);
    result.push_back(
        {workspace.documents.uriof(key), text,
         document != nullptr ? document->index() : std::make_shared<const tdefinitionindex>(*text)});
  }
  return result;
}

std::string keyofname(std::string_view text) {
  std::string result = folded(text);
  std::ranges::replace(result, '-', '_');
  return result;
}

// How well the name fits, the best 0; below 0 if it does not.
int rankof(const tdefinitionindex::tentry& entry, const std::string& query) {
  const std::string name = keyofname(entry.name);
  const std::size_t at = name.find(query);
  if (at != std::string::npos) return name == query ? 0 : at == 0 ? 1 : 2;
  return keyofname(entry.text).find(query) != std::string::npos ? 3 : -1;
}

std::vector<thit> hitsof(const std::vector<tsource>& sources, const std::string& query) {
  std::vector<thit> result;
  for (const tsource& source : sources)
    for (const tdefinitionindex::tentry& entry : source.index->entries())
      if (const int rank = rankof(entry, query); rank >= 0) result.push_back({rank, &source, &entry});
  std::ranges::stable_sort(result, {}, &thit::rank);
  return result;
}

// The names that may have been meant.
std::vector<thit> nearhitsof(const std::vector<tsource>& sources, const std::string& typed) {
  std::set<std::string> names;
  for (const tsource& source : sources)
    for (const tdefinitionindex::tentry& entry : source.index->entries()) names.emplace(entry.name);
  std::vector<thit> result;
  for (const std::string& name :
       tnearnames({names.begin(), names.end()}).nearest(typed, tmatch::nearorlonger))
    for (const tsource& source : sources)
      for (const tdefinitionindex::tentry& entry : source.index->entries())
        if (entry.name == name) result.push_back({0, &source, &entry});
  return result;
}

}  // namespace

tanswer workspacesymbols(const trequest& request) {
  const std::string query = textof(member(request.params, "query"));
  const std::vector<tsource> sources = definitionsof(request);
  std::vector<thit> hits = hitsof(sources, keyofname(query));
  if (hits.empty()) hits = nearhitsof(sources, query);
  json result = json::array();
  for (const thit& hit : hits) {
    if (result.size() == mostsymbols) break;
    json symbol = {
        {"name", printable(hit.entry->name)},
        {"kind", request.workspace.client.symbolkind(kindof(*hit.entry))},
        {"location", locationjson(hit.source->uri, *hit.source->text, hit.entry->span, request.encoding())}};
    if (const auto* group = hit.entry->kind == tdefinitionindex::tkind::option && hit.entry->number > 0
                                ? hit.source->index->group(hit.entry->number)
                                : nullptr)
      symbol["containerName"] = printable(group->text);
    result.push_back(std::move(symbol));
  }
  return result;
}

}  // namespace tool::lsp
