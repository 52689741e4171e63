// What explain says about the option or symbol under the cursor, or the text of a value.
#include <optional>
#include <utility>

#include "base/textcase.h"
#include "tools/doc/reference.h"
#include "tools/lsp/features.h"
#include "tools/lsp/optionlines.h"
#include "tools/lsp/optiontexts.h"

namespace tool::lsp {

namespace {

using namespace optcore;

// Reads the texts of the last analysis again to see what their lines do with the target: each request has
// another one. An option is given by its index; it is none below 0.
std::string explained(const tdocument& document, std::int32_t index, ttarget target, tmarkup markup) {
  const tsnapshot& snapshot = *document.snapshot();
  tsources sources(std::make_shared<const ttexts>(snapshot.texts));
  treading reading;
  reading.readfrom(sources);
  reading.suggestnothing();
  reading.readdefinitionof(snapshot.definition->reading);
  if (index >= 0 && index < reading.store().getcount())
    target.option = &reading.store().definition().option(index);
  const bool issymbol = !target.symbol.empty();
  ttouches touches(reading, std::move(target));
  reading.readoptions({{}, {document.name()}, {}});
  touches.markoverridden();
  return touchestext(touches, issymbol, markup);
}

// Of a choice; empty if the value has none.
std::string valuetext(const tvksoptions& store, const toption& option, std::string_view typed,
                      tmarkup markup) {
  const toptionreference reference = describeoption(store, indexof(store, option));
  for (const tvaluereference& value : reference.values)
    if (struequal(value.value.text, typed) && !value.help.empty())
      return codetext(value.value.text, markup) + ": " + prosetext(value.help, markup) + "\n";
  return {};
}

std::string nametext(const tdocument& document, const toptionline& line, const tstatementspans& statement,
                     tmarkup markup) {
  const std::string name(statement.name.of(line.text));
  if (statement.kind == tstatementspans::tkind::indicator)
    return codetext(name, markup) + ": the keyword of indicators\n\n" +
           explained(document, -1, {.listname = {}, .symbol = {}, .indicators = true}, markup);
  if (statement.kind == tstatementspans::tkind::list)
    return codetext("--" + name, markup) + "\n\n" +
           explained(document, -1, {.listname = "--" + name, .symbol = {}}, markup);
  if (statement.option == nullptr) return {};
  const std::int32_t index = indexof(*line.store, *statement.option);
  return definitiontext(*line.store, index, markup) + "\n" +
         explained(document, index, {.listname = {}, .symbol = {}}, markup);
}

std::string parttext(const tdocument& document, const toptionline& line, const tpartat& part,
                     tmarkup markup) {
  const std::string_view typed = document.text()->part(part.span);
  switch (part.kind) {
    case tpartat::tkind::name: return nametext(document, line, *part.statement, markup);
    case tpartat::tkind::symbol:
      return codetext(typed, markup) + ": a symbol\n\n" +
             explained(document, -1, {.listname = {}, .symbol = plainsymbol(typed)}, markup);
    case tpartat::tkind::value: break;
  }
  const toption* option = part.statement->option;
  return option == nullptr ? "" : valuetext(*line.store, *option, typed, markup);
}

}  // namespace

tanswer optionhover(const trequest& request) {
  const tdocument& document = *request.document();
  const std::size_t offset = request.offset();
  const std::optional<toptionline> line = optionlineat(document, offset);
  const std::optional<tpartat> part = line ? partat(*line, offset) : std::nullopt;
  if (!part) return json();
  const tmarkup kind = markup(request.workspace.client.hovermarkdown());
  const std::string text = parttext(document, *line, *part, kind);
  if (text.empty()) return json();
  return json{{"contents", {{"kind", nameof(kind)}, {"value", text}}},
              {"range", rangejson(*document.text(), part->span, request.encoding())}};
}

}  // namespace tool::lsp
