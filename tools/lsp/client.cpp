// Reads the parameters of initialize and the settings.
#include "tools/lsp/client.h"

#include "tools/reading/rules.h"

namespace tool::lsp {

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
