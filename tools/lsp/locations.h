// Places in definitions as the protocol has them.
#pragma once

#include <string>
#include <vector>

#include "tools/lsp/definitionindex.h"
#include "tools/lsp/workspace.h"

namespace tool::lsp {

// The places of a definition that name one entry, and that of the entry itself.
struct tnamed {
  const tdefinitionindex::tentry* entry;
  std::vector<tspan> names;  // without that of its own line
};

// The entry at this place, which may be the number of a group. Its entry is null if there is none.
tnamed namedat(const tdefinitionindex& index, std::size_t offset);

json locationjson(const std::string& uri, const ttext& text, tspan span, tencoding encoding);

}  // namespace tool::lsp
