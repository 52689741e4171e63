// What the definition says about the option under the cursor.
#include <optional>

#include "tools/doc/reference.h"
#include "tools/lsp/features.h"
#include "tools/lsp/optionlines.h"

namespace tool::lsp {

namespace {

using namespace optcore;

struct tword {
  const toption* option;
  tspan span;  // in the text
};

// The name of an option at this place of an option file.
std::optional<tword> wordat(const tdocument& document, std::size_t offset) {
  const std::optional<toptionline> line = optionlineat(document, offset);
  if (!line) return std::nullopt;
  for (const tstatementspans& each : line->parts.statements) {
    const tspan name = line->intext(each.name);
    if (each.option != nullptr && offset >= name.begin && offset <= name.end) return tword{each.option, name};
  }
  return std::nullopt;
}

std::string markdownof(const tvksoptions& store, const toption& option) {
  std::int32_t index = 0;
  while (&store.definition().option(index) != &option) ++index;
  const toptionreference reference = describeoption(store, index);
  return "**" + utf8(reference.name) + "** " + typephrase(reference) + "\n\n" + utf8(reference.help);
}

}  // namespace

tanswer hover(const trequest& request) {
  const tdocument& document = *request.document();
  const std::optional<tword> word = wordat(document, request.offset());
  if (!word) return json();
  return json{{"contents",
               {{"kind", request.workspace.client.hovermarkdown() ? "markdown" : "plaintext"},
                {"value", markdownof(*document.snapshot()->store(), *word->option)}}},
              {"range", rangejson(*document.text(), word->span, request.encoding())}};
}

void announcehover(json& capabilities, const tclient& /*client*/) { capabilities["hoverProvider"] = true; }

}  // namespace tool::lsp
