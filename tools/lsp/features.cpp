// The table of features.
#include "tools/lsp/features.h"

#include <array>

namespace tool::lsp {

namespace {

using tanswering = tanswer (*)(const trequest& request);

tanswer noanswer(const trequest& /*request*/) { return json(); }

// A request about a document is answered by one function in option files, and by another one in definitions.
template <tanswering options, tanswering definitions>
tanswer bykind(const trequest& request) {
  return request.document()->kind() == tdocumentkind::options ? options(request) : definitions(request);
}

}  // namespace

std::span<const tfeature> features() {
  static constexpr auto table = std::to_array<tfeature>({
      {"textDocument/completion", bykind<optioncompletion, definitioncompletion>, announcecompletion},
      {"completionItem/resolve", resolvecompletion, nullptr},
      {"textDocument/hover", bykind<optionhover, definitionhover>, announcehover},
      {"textDocument/definition", bykind<optiontarget, definitiontarget>, announcetargets},
      {"textDocument/references", bykind<optionreferences, definitionreferences>, announcereferences},
      {"textDocument/documentHighlight", bykind<optionhighlights, definitionhighlights>, announcehighlights},
      {"textDocument/documentSymbol", bykind<optionsymbols, definitionsymbols>, announcesymbols},
      {"textDocument/codeAction", bykind<optioncodeactions, definitionactions>, announcecodeactions},
      {"textDocument/formatting", bykind<optionformatting, definitionformatting>, announceformatting},
      {"textDocument/rangeFormatting", bykind<optionformatting, noanswer>, nullptr},
      {"textDocument/inlayHint", bykind<optioninlayhints, noanswer>, announceinlayhints},
      {"textDocument/signatureHelp", signaturehelp, announcesignatures},
      {"workspace/symbol", workspacesymbols, announceworkspacesymbols},
      {"textDocument/prepareRename", preparerename, nullptr},
      {"textDocument/rename", rename, announcerename},
  });
  return table;
}

}  // namespace tool::lsp
