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

// The other documents are analysed anew, with the text of the file on the disk.
void tpublisher::withdraw(const tdocument& document, const tworkspace& workspace, const tsend& send) {
  std::set<std::string> keys = {document.key()};
  if (const auto found = ffound.find(document.key()); found != ffound.end()) {
    keys.merge(keysof(found->second));
    ffound.erase(found);
  }
  for (auto& [other, found] : ffound) found.erase(document.key());
  this->send(keys, "", workspace, send);
  if (const auto sent = fsent.find(document.key()); sent != fsent.end()) sent->second.version.reset();
}

// All that was found in the text that the file has now.
json tpublisher::listof(const std::string& key, const tdocument* document) const {
  json result = json::array();
  std::set<json> known;
  for (const auto& [from, found] : ffound) {
    const auto part = found.find(key);
    if (part == found.end() || (document != nullptr && part->second.text != document->text())) continue;
    for (const json& each : part->second.list)
      if (known.insert(each).second) result.push_back(each);
  }
  return result;
}

// What the client knows is sent again only for another version of the analysed document `renewed`. A file may get
// another URI when it is opened or closed: the client then forgets what it has under the old one.
void tpublisher::send(const std::set<std::string>& keys, const std::string& renewed,
                      const tworkspace& workspace, const tsend& send) {
  for (const std::string& key : keys) {
    const tdocument* document = workspace.documents.withkey(key);
    const std::int64_t version = document != nullptr ? document->version() : 0;
    const std::string uri = workspace.documents.uriof(key);
    json list = listof(key, document);
    tsent& sent = fsent[key];
    if (sent.uri != uri && !sent.list.empty()) {
      send({{"uri", sent.uri}, {"diagnostics", json::array()}});
      sent.list.clear();
    }
    const bool isknown = sent.list == list && (key != renewed || sent.version == version);
    if (!isknown) {
      json params = {{"uri", uri}, {"diagnostics", list}};
      if (document != nullptr) params["version"] = version;
      send(std::move(params));
      sent = {uri, std::move(list), version};
    }
    if (document == nullptr && sent.list.empty()) fsent.erase(key);
  }
}

}  // namespace tool::lsp
