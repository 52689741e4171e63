// All places that name the option under the cursor: in the definition and the option files of the workspace, and in
// this file.
#include "base/textcase.h"
#include "tools/lsp/features.h"
#include "tools/lsp/optionlines.h"
#include "tools/lsp/optiontexts.h"
#include "tools/lsp/uses.h"

namespace tool::lsp {

namespace {

// Whether two statements have the same name, or the same symbol if the place is one.
bool issame(const tstatementspans& a, std::string_view linea, const tpartat& part, std::string_view lineb) {
  const tstatementspans& b = *part.statement;
  if (part.kind != tpartat::tkind::symbol) return a.option != nullptr && a.option == b.option;
  return !a.symbol.empty() && optcore::struequal(a.symbol.of(linea), b.symbol.of(lineb));
}

}  // namespace

tanswer optionreferences(const trequest& request) {
  const tdocument& document = *request.document();
  const std::size_t offset = request.offset();
  const std::optional<toptionline> line = optionlineat(document, offset);
  const std::optional<tpartat> part = line ? partat(*line, offset) : std::nullopt;
  if (!part || part->kind != tpartat::tkind::name || part->statement->option == nullptr) return json();
  const tdefinitionstate& definition = *document.snapshot()->definition;
  const std::int32_t index = indexof(*line->store, *part->statement->option);
  json result = json::array();
  if (index < 0 || index >= definition.store().getcount()) return result;  // a list that lines made
  const bool declared = flagof(member(request.params, "context", "includeDeclaration"));
  for (const tuse& each : usesindefinition(request.workspace, definition, index, declared))
    result.push_back(locationof(each, request.workspace));
  for (const tuse& each : usesof(request, definition, index))
    result.push_back(locationof(each, request.workspace));
  return result;
}

tanswer optionhighlights(const trequest& request) {
  const tdocument& document = *request.document();
  const std::size_t offset = request.offset();
  const std::optional<toptionline> line = optionlineat(document, offset);
  const std::optional<tpartat> part = line ? partat(*line, offset) : std::nullopt;
  if (!part || part->kind == tpartat::tkind::value) return json();
  const bool issymbol = part->kind == tpartat::tkind::symbol;
  json result = json::array();
  walklines(*line->store, *document.text(), [&](const toptionline& other) {
    for (const tstatementspans& each : other.parts.statements)
      if (issame(each, other.text, *part, line->text))
        result.push_back(
            {{"range", rangejson(*document.text(), other.intext(issymbol ? each.symbol : each.name),
                                 request.encoding())}});
    return true;
  });
  return result;
}

}  // namespace tool::lsp
