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
      {"textDocument/completion", bykind<optioncompletion, noanswer>, announcecompletion},
      {"completionItem/resolve", resolvecompletion, nullptr},
      {"textDocument/hover", bykind<optionhover, noanswer>, announcehover},
      {"textDocument/definition", bykind<optiontarget, noanswer>, announcetargets},
      {"textDocument/references", bykind<optionreferences, noanswer>, announcereferences},
      {"textDocument/documentHighlight", bykind<optionhighlights, noanswer>, announcehighlights},
      {"textDocument/documentSymbol", bykind<optionsymbols, noanswer>, announcesymbols},
      {"textDocument/codeAction", bykind<optioncodeactions, noanswer>, announcecodeactions},
      {"textDocument/formatting", bykind<optionformatting, noanswer>, announceformatting},
      {"textDocument/rangeFormatting", bykind<optionformatting, noanswer>, nullptr},
      {"textDocument/inlayHint", bykind<optioninlayhints, noanswer>, announceinlayhints},
  });
  return table;
}

}  // namespace tool::lsp
