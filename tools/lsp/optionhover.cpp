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

bool has(tspan span, std::size_t offset) {
  return !span.empty() && offset >= span.begin && offset <= span.end;
}

// Reads the texts of the last analysis again to see what their lines do with the target: each request has
// another one. An option is given by its index; it is none below 0.
std::string explained(const tdocument& document, std::int32_t index, ttarget target, tmarkup markup) {
  const tsnapshot& snapshot = *document.snapshot();
  tsources sources(std::make_shared<const ttexts>(snapshot.texts));
  treading reading;
  reading.readfrom(sources);
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

class thoverat {
 public:
  thoverat(const tdocument& document, const toptionline& line, tmarkup markup)
      : fdocument(document), fline(line), fmarkup(markup) {}

  std::string text(const tstatementspans& statement, std::size_t offset) {
    if (has(fline.intext(statement.name), offset)) return atname(statement);
    if (has(fline.intext(statement.symbol), offset)) return atsymbol(statement);
    for (const tspan value : {statement.value, statement.second})
      if (statement.option != nullptr && has(fline.intext(value), offset)) return atvalue(statement, value);
    return {};
  }
  tspan span() const { return fspan; }

 private:
  std::string atname(const tstatementspans& statement) {
    fspan = fline.intext(statement.name);
    const std::string name(statement.name.of(fline.text));
    if (statement.kind == tstatementspans::tkind::indicator)
      return codetext(name, fmarkup) + ": the keyword of indicators\n\n" +
             explained(fdocument, -1, {.listname = {}, .symbol = {}, .indicators = true}, fmarkup);
    if (statement.kind == tstatementspans::tkind::list)
      return codetext("--" + name, fmarkup) + "\n\n" +
             explained(fdocument, -1, {.listname = "--" + name, .symbol = {}}, fmarkup);
    if (statement.option == nullptr) return {};
    const std::int32_t index = indexof(*fline.store, *statement.option);
    return definitiontext(*fline.store, index, fmarkup) + "\n" +
           explained(fdocument, index, {.listname = {}, .symbol = {}}, fmarkup);
  }

  std::string atsymbol(const tstatementspans& statement) {
    fspan = fline.intext(statement.symbol);
    const std::string_view name = statement.symbol.of(fline.text);
    return codetext(name, fmarkup) + ": a symbol\n\n" +
           explained(fdocument, -1, {.listname = {}, .symbol = plainsymbol(name)}, fmarkup);
  }

  std::string atvalue(const tstatementspans& statement, tspan value) {
    fspan = fline.intext(value);
    return valuetext(*fline.store, *statement.option, value.of(fline.text), fmarkup);
  }

  const tdocument& fdocument;
  const toptionline& fline;
  const tmarkup fmarkup;
  tspan fspan{};
};

}  // namespace

tanswer optionhover(const trequest& request) {
  const tdocument& document = *request.document();
  const std::size_t offset = request.offset();
  const std::optional<toptionline> line = optionlineat(document, offset);
  if (!line) return json();
  const tmarkup kind = markup(request.workspace.client.hovermarkdown());
  thoverat hover(document, *line, kind);
  for (const tstatementspans& each : line->parts.statements) {
    const std::string text = hover.text(each, offset);
    if (text.empty()) continue;
    return json{{"contents", {{"kind", nameof(kind)}, {"value", text}}},
                {"range", rangejson(*document.text(), hover.span(), request.encoding())}};
  }
  return json();
}

}  // namespace tool::lsp
