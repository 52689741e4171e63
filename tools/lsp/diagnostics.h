// Findings as the diagnostics of the protocol.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tools/lsp/workspace.h"

namespace tool::lsp {

// The diagnostics of one file, and the text in which they stand; null if it has none.
struct tfilediagnostics {
  std::shared_ptr<const ttext> text;
  std::vector<json> list{};
};

// By the keys of the files; each file once, that of the document always.
using tdiagnostics = std::map<std::string, tfilediagnostics>;

tdiagnostics diagnosticsof(const tdocument& document, const tworkspace& workspace);

}  // namespace tool::lsp
