// Offers names, values and files.
#include <optional>
#include <utility>

#include "tools/lsp/candidates.h"
#include "tools/lsp/features.h"
#include "tools/lsp/optiontexts.h"
#include "tools/lsp/symbolkinds.h"

namespace tool::lsp {

namespace {

tcandidates candidatesfor(const tdocument& document, const toptionline& line, const ttyped& typed) {
  const tdefinitionstate& definition = *document.snapshot()->definition;
  switch (typed.kind) {
    case ttyped::tkind::nothing: break;
    case ttyped::tkind::value: return valuesfor(*line.store, typed);
    case ttyped::tkind::name:
    case ttyped::tkind::dotname: {
      tcandidates result = namesfor(definition, typed.beginning, typed.kind == ttyped::tkind::dotname);
      result.span = typed.span;
      return result;
    }
  }
  return {};
}

// What is typed stands for near names in the client's own choice.
json itemof(const tcandidate& candidate, std::size_t position, const json& range, const ttyped& typed,
            const trequest& request) {
  const tclient& client = request.workspace.client;
  const auto otherwise =
      candidate.kind == tcandidatekind::folder ? tcandidatekind::file : tcandidatekind::value;
  const int kind = client.completionkind(static_cast<int>(candidate.kind), static_cast<int>(otherwise));
  json result = {{"label", printable(candidate.text)},
                 {"kind", kind},
                 {"sortText", sorttext(position)},
                 {"textEdit", {{"range", range}, {"newText", candidate.text}}}};
  if (!candidate.detail.empty()) result["detail"] = printable(candidate.detail);
  if (result["label"] != candidate.text) result["filterText"] = candidate.text;
  if (candidate.isnear) result["filterText"] = utf8(typed.beginning);
  if (candidate.option >= 0)
    result["data"] = {{"uri", request.document()->uri()}, {"option", candidate.option}};
  if (!candidate.deprecated) return result;
  const json& tags =
      member(client.capabilities, "textDocument", "completion", "completionItem", "tagSupport");
  if (tags.is_object())
    result["tags"] = {tagdeprecated};
  else
    result["deprecated"] = true;
  return result;
}

}  // namespace

tanswer optioncompletion(const trequest& request) {
  const tdocument& document = *request.document();
  const std::size_t offset = request.offset();
  const std::optional<toptionline> line = optionlineat(document, offset);
  if (!line) return json();
  const ttyped typed = typedat(*line, offset - line->span.begin);
  const tcandidates candidates = candidatesfor(document, *line, typed);
  const json range = rangejson(*document.text(), line->intext(candidates.span), request.encoding());
  json items = json::array();
  for (const tcandidate& each : candidates.all)
    items.push_back(itemof(each, items.size(), range, typed, request));
  return json{{"isIncomplete", !candidates.iscomplete}, {"items", std::move(items)}};
}

// Items of other kinds are complete. An option that the definition has no longer has no documentation.
tanswer resolvecompletion(const trequest& request) {
  json result = request.params;
  const tdocument* document = request.workspace.documents.find(textof(member(result, "data", "uri")));
  const auto option = integerof(member(result, "data", "option"));
  if (document == nullptr || document->snapshot() == nullptr || !option) return result;
  const optcore::tvksoptions* store = document->snapshot()->store();
  if (store == nullptr || *option < 0 || *option >= store->getcount()) return result;
  const tmarkup kind = markup(request.workspace.client.completionmarkdown());
  result["documentation"] = {{"kind", nameof(kind)},
                             {"value", definitiontext(*store, static_cast<std::int32_t>(*option), kind)}};
  return result;
}

}  // namespace tool::lsp
