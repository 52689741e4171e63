// Reads the lines from the first one on, because a line may change how the next ones are read.
#include "tools/lsp/optionlines.h"

namespace tool::lsp {

void walklines(const optcore::tvksoptions& store, const ttext& text,
               const std::function<bool(const toptionline&)>& each) {
  toptionline line = {&store, 0, {}, {}, true, {}};
  for (std::int32_t number = 1; number <= text.linecount(); ++number) {
    line.number = number;
    line.span = text.line(number);
    line.text = readpart(text.part(line.span));
    line.eolonly = line.parts.eolonly;
    const bool isplain = isread(line.text);
    line.parts = isplain ? spansof(store.definition(), line.text, line.eolonly) : tlinespans{};
    if (!isplain) line.parts.eolonly = line.eolonly;
    if (!each(line)) return;
  }
}

std::optional<toptionline> optionlineat(const tdocument& document, std::size_t offset) {
  const tsnapshot* snapshot = document.snapshot().get();
  if (document.kind() != tdocumentkind::options || snapshot == nullptr || snapshot->store() == nullptr)
    return std::nullopt;
  const std::int32_t number = document.text()->lineat(offset);
  std::optional<toptionline> result;
  walklines(*snapshot->store(), *document.text(), [&](const toptionline& line) {
    if (line.number == number) result = line;
    return line.number < number;
  });
  return result;
}

}  // namespace tool::lsp
