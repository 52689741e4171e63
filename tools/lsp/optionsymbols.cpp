// The settings of an option file, for the outline of the editor.
#include <algorithm>

#include "tools/lsp/features.h"
#include "tools/lsp/optionlines.h"

namespace tool::lsp {

namespace {

using tstatementkind = tstatementspans::tkind;

// The kinds of symbols of the protocol.
int kindof(const tstatementspans& statement) {
  constexpr int property = 7, list = 18, object = 19, event = 24;
  switch (statement.kind) {
    case tstatementkind::list: return list;
    case tstatementkind::dotline: return object;
    case tstatementkind::immediate:
    case tstatementkind::indicator: return event;
    case tstatementkind::setting:
    case tstatementkind::unknown: break;
  }
  return property;
}

// From the symbol of a dot line, or the dashes of a list, to the end of the name.
tspan namespan(const tstatementspans& statement) {
  return {statement.kind == tstatementkind::list ? statement.whole.begin
          : statement.symbol.empty()             ? statement.name.begin
                                                 : statement.symbol.begin,
          statement.name.end};
}

// What follows the name.
std::string detailof(const tstatementspans& statement, std::string_view line) {
  const std::string_view rest = line.substr(statement.name.end, statement.whole.end - statement.name.end);
  const std::size_t begin = rest.find_first_not_of(" \t=:");
  return begin == std::string_view::npos ? "" : printable(rest.substr(begin));
}

json symbolof(const toptionline& line, const tstatementspans& statement, const tdocument& document,
              const trequest& request) {
  const tspan name = namespan(statement);
  const tspan whole = {std::min(statement.whole.begin, name.begin), std::max(statement.whole.end, name.end)};
  const json range = rangejson(*document.text(), line.intext(whole), request.encoding());
  json result = {{"name", printable(name.of(line.text))},
                 {"kind", request.workspace.client.symbolkind(kindof(statement))}};
  if (request.workspace.client.can("textDocument", "documentSymbol", "hierarchicalDocumentSymbolSupport")) {
    result["range"] = range;
    result["selectionRange"] = rangejson(*document.text(), line.intext(name), request.encoding());
    result["detail"] = detailof(statement, line.text);
  } else {
    result["location"] = {{"uri", document.uri()}, {"range", range}};
  }
  return result;
}

}  // namespace

tanswer optionsymbols(const trequest& request) {
  const tdocument& document = *request.document();
  const optcore::tvksoptions* store = document.snapshot() == nullptr ? nullptr : document.snapshot()->store();
  json result = json::array();
  if (store == nullptr) return result;
  walklines(*store, *document.text(), [&](const toptionline& line) {
    for (const tstatementspans& each : line.parts.statements)
      if (!each.name.empty()) result.push_back(symbolof(line, each, document, request));
    return true;
  });
  return result;
}

}  // namespace tool::lsp
