// Puts together what was found in a file.
#include "tools/lsp/publisher.h"

#include <algorithm>
#include <utility>

namespace tool::lsp {

namespace {

std::set<std::string> keysof(const tdiagnostics& diagnostics) {
  std::set<std::string> result;
  for (const auto& [key, list] : diagnostics) result.insert(key);
  return result;
}

}  // namespace

void tpublisher::publish(const tdocument& document, const tworkspace& workspace, const tsend& send) {
  tdiagnostics& found = ffound[document.key()];
  std::set<std::string> keys = keysof(found);
  found = diagnosticsof(document, workspace);
  keys.merge(keysof(found));
  this->send(keys, document.key(), workspace, send);
}

void tpublisher::withdraw(const tdocument& document, const tworkspace& workspace, const tsend& send) {
  const auto found = ffound.find(document.key());
  if (found == ffound.end()) return;
  const std::set<std::string> keys = keysof(found->second);
  ffound.erase(found);
  this->send(keys, "", workspace, send);
}

// `always` is the file whose list is sent even if it is the same as before.
void tpublisher::send(const std::set<std::string>& keys, const std::string& always,
                      const tworkspace& workspace, const tsend& send) {
  for (const std::string& key : keys) {
    json list = json::array();
    std::set<json> known;
    for (const auto& [document, diagnostics] : ffound)
      if (const auto part = diagnostics.find(key); part != diagnostics.end())
        for (const json& each : part->second)
          if (known.insert(each).second) list.push_back(each);
    const auto before = fsent.find(key);
    const bool issame = before == fsent.end() ? list.empty() : before->second == list;
    if (issame && key != always) continue;
    json params = {{"uri", workspace.documents.uriof(key)}, {"diagnostics", list}};
    if (const tdocument* document = workspace.documents.withkey(key)) params["version"] = document->version();
    send(std::move(params));
    if (list.empty())
      fsent.erase(key);
    else
      fsent.insert_or_assign(key, std::move(list));
  }
}

}  // namespace tool::lsp
