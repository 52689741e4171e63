// The table of features.
#include "tools/lsp/features.h"

#include <array>

namespace tool::lsp {

std::span<const tfeature> features() {
  static constexpr auto table = std::to_array<tfeature>({
      {"textDocument/hover", hover, announcehover},
  });
  return table;
}

}  // namespace tool::lsp
