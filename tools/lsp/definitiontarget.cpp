// Where the option, synonym or group under the cursor of a definition is defined and used.
#include <algorithm>

#include "base/textcase.h"
#include "tools/lsp/features.h"
#include "tools/lsp/locations.h"
#include "tools/lsp/uses.h"

namespace tool::lsp {

namespace {

using tentrykind = tdefinitionindex::tkind;

// The uses in option files; those of a synonym are the ones that are written like it.
void adduses(const trequest& request, const tdefinitionindex::tentry& entry, json& locations) {
  const auto& snapshot = request.document()->snapshot();
  const auto definition = snapshot == nullptr ? nullptr : snapshot->definition;
  if (definition == nullptr || entry.kind == tentrykind::group) return;
  const optcore::tdefinition& known = definition->store().definition();
  const std::int32_t index = known.indexof(entry.name);
  if (index < 0) return;
  for (const tuse& use : usesof(request, *definition, index)) {
    std::string written(use.text->part(use.name));
    std::ranges::replace(written, ' ', '_');
    if (entry.kind == tentrykind::option || optcore::struequal(written, entry.name))
      locations.push_back(
          locationjson(request.workspace.documents.uriof(use.key), *use.text, use.name, request.encoding()));
  }
}

}  // namespace

tnamed namedat(const tdefinitionindex& index, std::size_t offset) {
  tnamed result = {nullptr, {}};
  if (const auto place = index.at(offset)) result.entry = place->entry;
  for (const tdefinitionindex::tgroupfield& each : index.groupfields())
    if (each.span.begin <= offset && offset <= each.span.end) result.entry = index.group(each.number);
  if (result.entry == nullptr) return result;
  for (const tdefinitionindex::treference* each : index.referencesto(*result.entry))
    result.names.push_back(each->span);
  for (const tdefinitionindex::tgroupfield& each : index.groupfields())
    if (index.group(each.number) == result.entry) result.names.push_back(each.span);
  return result;
}

json locationjson(const std::string& uri, const ttext& text, tspan span, tencoding encoding) {
  return {{"uri", uri}, {"range", rangejson(text, span, encoding)}};
}

tanswer definitiontarget(const trequest& request) {
  const ttext& text = *request.document()->text();
  const tdefinitionindex& index = *request.document()->index();
  const tnamed named = namedat(index, request.offset());
  if (named.entry == nullptr) return json();
  return locationjson(request.document()->uri(), text, named.entry->span, request.encoding());
}

tanswer definitionreferences(const trequest& request) {
  const ttext& text = *request.document()->text();
  const tdefinitionindex& index = *request.document()->index();
  const tnamed named = namedat(index, request.offset());
  if (named.entry == nullptr) return json();
  json result = json::array();
  const auto add = [&](tspan span) {
    result.push_back(locationjson(request.document()->uri(), text, span, request.encoding()));
  };
  if (flagof(member(request.params, "context", "includeDeclaration"))) add(named.entry->span);
  for (const tspan& each : named.names) add(each);
  adduses(request, *named.entry, result);
  return result;
}

tanswer definitionhighlights(const trequest& request) {
  constexpr int read = 2, write = 3;
  const ttext& text = *request.document()->text();
  const tdefinitionindex& index = *request.document()->index();
  const tnamed named = namedat(index, request.offset());
  if (named.entry == nullptr) return json();
  const auto highlight = [&](tspan span, int kind) -> json {
    return {{"range", rangejson(text, span, request.encoding())}, {"kind", kind}};
  };
  json result = json::array({highlight(named.entry->span, write)});
  for (const tspan& each : named.names) result.push_back(highlight(each, read));
  return result;
}

}  // namespace tool::lsp
