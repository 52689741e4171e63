// Findings as the diagnostics of the protocol.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tools/lsp/workspace.h"

namespace tool::lsp {

// By the keys of the files; each file once, that of the document always.
using tdiagnostics = std::map<std::string, std::vector<json>>;

tdiagnostics diagnosticsof(const tdocument& document, const tworkspace& workspace);

}  // namespace tool::lsp
