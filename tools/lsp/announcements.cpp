// What the answer to initialize says about the features.
#include "tools/lsp/features.h"

namespace tool::lsp {

void announcecompletion(json& capabilities, const tclient& /*client*/) {
  capabilities["completionProvider"] = {{"triggerCharacters", json::array({".", "=", " ", ":", "/", "\""})},
                                        {"resolveProvider", true}};
}

void announcehover(json& capabilities, const tclient& /*client*/) { capabilities["hoverProvider"] = true; }

void announcetargets(json& capabilities, const tclient& /*client*/) {
  capabilities["definitionProvider"] = true;
}

void announcereferences(json& capabilities, const tclient& /*client*/) {
  capabilities["referencesProvider"] = true;
}

void announcehighlights(json& capabilities, const tclient& /*client*/) {
  capabilities["documentHighlightProvider"] = true;
}

void announcesymbols(json& capabilities, const tclient& /*client*/) {
  capabilities["documentSymbolProvider"] = true;
}

void announcecodeactions(json& capabilities, const tclient& /*client*/) {
  capabilities["codeActionProvider"] = {{"codeActionKinds", json::array({"quickfix"})}};
}

void announceformatting(json& capabilities, const tclient& /*client*/) {
  capabilities["documentFormattingProvider"] = true;
  capabilities["documentRangeFormattingProvider"] = true;
}

void announceinlayhints(json& capabilities, const tclient& /*client*/) {
  capabilities["inlayHintProvider"] = true;
}

void announcesignatures(json& capabilities, const tclient& /*client*/) {
  capabilities["signatureHelpProvider"] = {{"triggerCharacters", json::array({" "})}};
}

void announceworkspacesymbols(json& capabilities, const tclient& /*client*/) {
  capabilities["workspaceSymbolProvider"] = true;
}

void announcerename(json& capabilities, const tclient& client) {
  capabilities["renameProvider"] = true;
  if (client.can("textDocument", "rename", "prepareSupport"))
    capabilities["renameProvider"] = {{"prepareProvider", true}};
}

}  // namespace tool::lsp
