// Reads the lines from the first one on, because a line may change how the next ones are read.
#include "tools/lsp/optionlines.h"

#include <utility>

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

std::optional<tpartat> partat(const toptionline& line, std::size_t offset) {
  using tkind = tpartat::tkind;
  for (const tstatementspans& each : line.parts.statements)
    for (const auto& [kind, part] : {std::pair(tkind::name, each.name),
                                     {tkind::symbol, each.symbol},
                                     {tkind::value, each.value},
                                     {tkind::value, each.second}}) {
      const tspan span = line.intext(part);
      if (!span.empty() && offset >= span.begin && offset <= span.end) return tpartat{kind, &each, span};
    }
  return std::nullopt;
}

}  // namespace tool::lsp
