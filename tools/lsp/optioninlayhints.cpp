// The default beside each value that a line sets.
#include <algorithm>

#include "tools/doc/reference.h"
#include "tools/lsp/features.h"
#include "tools/lsp/optionlines.h"
#include "tools/lsp/optiontexts.h"

namespace tool::lsp {

namespace {

std::string labelof(const toptionline& line, const tstatementspans& statement) {
  if (statement.option == nullptr || statement.value.empty()) return {};
  const std::int32_t index = indexof(*line.store, *statement.option);
  if (index < 0) return {};
  const std::string text = describeoption(*line.store, index).defaultvalue.text;
  return text.empty() ? "" : "default " + text;
}

}  // namespace

tanswer optioninlayhints(const trequest& request) {
  const tdocument& document = *request.document();
  const optcore::tvksoptions* store = document.snapshot() == nullptr ? nullptr : document.snapshot()->store();
  if (store == nullptr || !request.workspace.settings->inlayhints) return json();
  const ttext& text = *document.text();
  const json& range = member(request.params, "range");
  const std::int32_t first =
      text.lineat(text.offsetat(positionfrom(member(range, "start")), request.encoding()));
  const std::int32_t last =
      text.lineat(text.offsetat(positionfrom(member(range, "end")), request.encoding()));
  json result = json::array();
  walklines(*store, text, [&](const toptionline& line) {
    for (const tstatementspans& each : line.parts.statements) {
      const std::string label = line.number < first ? "" : labelof(line, each);
      if (label.empty()) continue;
      const std::size_t end = line.span.begin + std::max(each.value.end, each.second.end);
      const json place = rangejson(text, {end, end}, request.encoding());
      result.push_back({{"position", place["start"]}, {"label", printable(label)}, {"paddingLeft", true}});
    }
    return line.number < last;
  });
  return result;
}

}  // namespace tool::lsp
