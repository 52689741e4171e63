// Sends diagnostics. Several documents may have findings in one file, for example in the definition of all of
// them; each finding is then sent once.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "tools/lsp/diagnostics.h"

namespace tool::lsp {

class tpublisher {
 public:
  using tsend = std::function<void(json params)>;

  // What the analysis of a document has found takes the place of what it found before.
  void publish(const tdocument& document, const tworkspace& workspace, const tsend& send);
  // What was found in a document that has been closed.
  void withdraw(const tdocument& document, const tworkspace& workspace, const tsend& send);

 private:
  struct tsent {
    std::string uri{};  // by which the client has them
    json list = json::array();
    std::optional<std::int64_t> version{};  // of the document
  };

  void send(const std::set<std::string>& keys, const std::string& renewed, const tworkspace& workspace,
            const tsend& send);
  json listof(const std::string& key, const tdocument* document) const;

  std::map<std::string, tdiagnostics> ffound;  // by the keys of the documents
  std::map<std::string, tsent> fsent;          // by the keys of the files
};

}  // namespace tool::lsp
