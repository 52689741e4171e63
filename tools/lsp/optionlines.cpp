// Reads the lines from the first one on, because a line may change how the next ones are read.
#include "tools/lsp/optionlines.h"

namespace tool::lsp {

std::optional<toptionline> optionlineat(const tdocument& document, std::size_t offset) {
  const tsnapshot* snapshot = document.snapshot().get();
  if (document.kind() != tdocumentkind::options || snapshot == nullptr || snapshot->store() == nullptr)
    return std::nullopt;
  const ttext& text = *document.text();
  const std::int32_t last = text.lineat(offset);
  toptionline result = {snapshot->store(), last, {}, {}, {}};
  for (std::int32_t number = 1; number <= last; ++number) {
    result.span = text.line(number);
    result.text = readpart(text.part(result.span));
    const bool eolonly = result.parts.eolonly;
    const bool isread = !result.text.empty() && result.text.front() != '*';
    result.parts = isread ? spansof(result.store->definition(), result.text, eolonly) : tlinespans{};
    if (!isread) result.parts.eolonly = eolonly;
  }
  return result;
}

}  // namespace tool::lsp
