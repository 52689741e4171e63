// Reads the parameters of initialize and the settings.
#include "tools/lsp/client.h"

#include <algorithm>

#include "tools/reading/rules.h"

namespace tool::lsp {

namespace {

// Every client knows the first ones.
bool isknown(const json& kinds, int kind) {
  constexpr int last = 18;
  const json& known = arrayof(member(kinds, "valueSet"));
  return kind <= last || std::ranges::any_of(known, [kind](const json& each) { return each == kind; });
}

}  // namespace

int tclient::completionkind(int kind, int otherwise) const {
  const json& kinds = member(capabilities, "textDocument", "completion", "completionItemKind");
  return isknown(kinds, kind) ? kind : otherwise;
}

int tclient::symbolkind(int kind) const {
  constexpr int property = 7;
  return isknown(member(capabilities, "textDocument", "documentSymbol", "symbolKind"), kind) ? kind
                                                                                             : property;
}

tclient clientof(const json& initialize) {
  tclient result;
  result.capabilities = member(initialize, "capabilities");
  if (has(member(result.capabilities, "general", "positionEncodings"), "utf-8"))
    result.encoding = tencoding::utf8;
  return result;
}

tsettings settingsfrom(const json& value) {
  if (value.is_array()) return settingsfrom(value.empty() ? json() : value.front());
  if (member(value, "wexcorin").is_object()) return settingsfrom(member(value, "wexcorin"));
  tsettings result;
  result.definition = textof(member(value, "definition"));
  for (const json& each : arrayof(member(value, "allow")))
    if (const trule* rule = findrule(textof(each)); rule != nullptr && iswarning(*rule))
      result.allow.emplace_back(rule->name);
  if (const auto limit = integerof(member(value, "limit")); limit && *limit > 0)
    result.limit = static_cast<std::size_t>(*limit);
  result.inlayhints = flagof(member(value, "inlayHints"));
  return result;
}

}  // namespace tool::lsp
