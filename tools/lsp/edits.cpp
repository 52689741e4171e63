// Makes the protocol's forms of changes.
#include "tools/lsp/edits.h"

namespace tool::lsp {

json editjson(const ttext& text, const ttextedit& edit, tencoding encoding) {
  return {{"range", rangejson(text, edit.span, encoding)}, {"newText", utf8(edit.text)}};
}

bool wantsquickfixes(const trequest& request) {
  const json& only = member(request.params, "context", "only");
  const json& literals =
      member(request.workspace.client.capabilities, "textDocument", "codeAction", "codeActionLiteralSupport");
  const bool isasked = !only.is_array() || only.empty() || has(only, quickfix) || has(only, "");
  return isasked && literals.is_object();
}

std::string tfileedits::result() const {
  const std::string& bytes = ftext->bytes();
  std::string result;
  std::size_t from = 0;
  for (const auto& [begin, edit] : fedits) {
    result.append(bytes, from, begin - from).append(edit.text);
    from = edit.span.end;
  }
  return result.append(bytes, from);
}

json tfileedits::edits(tencoding encoding) const {
  json result = json::array();
  for (const auto& [begin, edit] : fedits) result.push_back(editjson(*ftext, edit, encoding));
  return result;
}

std::string tfileedits::writtenedits(tencoding encoding) const {
  std::string result = "[";
  for (const auto& [begin, edit] : fedits) {
    result += result.size() == 1 ? "{\"range\":" : ",{\"range\":";
    appendrange(result, *ftext, edit.span, encoding);
    result += ",\"newText\":";
    appendtext(result, utf8(edit.text));
    result += '}';
  }
  return result += ']';
}

json workspaceeditjson(const tworkspaceedits& edits, const tworkspace& workspace) {
  const tencoding encoding = workspace.client.encoding;
  json changes = json::object(), versioned = json::array();
  for (const auto& [key, file] : edits) {
    if (file.empty()) continue;
    const tdocument* document = workspace.documents.withkey(key);
    json version = document != nullptr ? json(document->version()) : json();
    versioned.push_back({{"textDocument", {{"uri", workspace.documents.uriof(key)}, {"version", version}}},
                         {"edits", file.edits(encoding)}});
    changes[workspace.documents.uriof(key)] = file.edits(encoding);
  }
  if (workspace.client.can("workspace", "workspaceEdit", "documentChanges"))
    return {{"documentChanges", std::move(versioned)}};
  return {{"changes", std::move(changes)}};
}

}  // namespace tool::lsp
