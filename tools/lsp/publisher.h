// Sends diagnostics. Several documents may have findings in one file, for example in the definition of all of
// them; each finding is then sent once.
#pragma once

#include <functional>
#include <map>
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
  void send(const std::set<std::string>& keys, const std::string& always, const tworkspace& workspace,
            const tsend& send);

  std::map<std::string, tdiagnostics> ffound;  // by the keys of the documents
  std::map<std::string, json> fsent;           // the last list of each file that is not empty
};

}  // namespace tool::lsp
