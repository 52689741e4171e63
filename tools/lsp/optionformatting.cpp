// Changes the blanks of an option file, or those of some of its lines.
#include "tools/lsp/alignment.h"
#include "tools/lsp/edits.h"
#include "tools/lsp/features.h"
#include "tools/lsp/optionlines.h"

namespace tool::lsp {

namespace {

// Only what differs, so that the client keeps its place in the line.
ttextedit difference(tspan span, std::string_view before, std::string_view after) {
  std::size_t head = 0, tail = 0;
  const std::size_t most = std::min(before.size(), after.size());
  while (head < most && before[head] == after[head]) ++head;
  while (head + tail < most && before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) ++tail;
  return {{span.begin + head, span.end - tail}, std::string(after.substr(head, after.size() - head - tail))};
}

}  // namespace

tanswer optionformatting(const trequest& request) {
  const tdocument& document = *request.document();
  const optcore::tvksoptions* store = document.snapshot() == nullptr ? nullptr : document.snapshot()->store();
  if (store == nullptr) return json();
  const std::shared_ptr<const ttext> text = document.text();
  std::vector<tlaidline> lines;
  lines.reserve(static_cast<std::size_t>(text->linecount()));
  walklines(*store, *text, [&](const toptionline& line) {
    lines.push_back({text->part(line.span), line.eolonly});
    return true;
  });
  const json& range = member(request.params, "range");
  const auto lineof = [&](const char* end) {
    return text->lineat(text->offsetat(positionfrom(member(range, end)), request.encoding()));
  };
  const std::int32_t first = range.is_object() ? lineof("start") : 1;
  const std::int32_t last = range.is_object() ? lineof("end") : text->linecount();
  const std::vector<std::string> texts = aligned(store->definition(), lines);
  tfileedits edits(text);
  for (std::int32_t number = first; number <= last; ++number) {
    const auto position = static_cast<std::size_t>(number - 1);
    if (texts[position] == lines[position].text) continue;
    const ttextedit edit = difference(text->line(number), lines[position].text, texts[position]);
    edits.add(edit.span, edit.text);
  }
  return twritten{edits.writtenedits(request.encoding())};
}

}  // namespace tool::lsp
