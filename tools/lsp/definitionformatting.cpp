// Aligns the fields of a definition. What each line says stays the same, and so do comments and long help.
#include <algorithm>
#include <array>

#include "input/linereader.h"
#include "tools/lsp/edits.h"
#include "tools/lsp/features.h"

namespace tool::lsp {

namespace {

using tspankind = tdefinitionspans::tkind;

// The columns of the first line of an entry. Types without bounds leave their columns free.
enum tcolumn : std::size_t { name, type, reference, defaultvalue, low, high, flag, group, columncount };
constexpr std::size_t widest = 40;  // longer words stand out of their column

struct tcell {
  std::size_t column;
  std::string_view word;
};

struct trow {
  tspan span;  // of the line in the text
  std::string_view before;
  std::string_view lead;  // what the line begins with
  std::vector<tcell> cells;
  std::string_view text;
};

std::size_t widthof(std::string_view word) { return columns(utf8(word)); }

// Lines that are aligned with each other.
class ttable {
 public:
  void add(trow row) {
    for (const tcell& cell : row.cells)
      fwidths[cell.column] = std::max(fwidths[cell.column], std::min(widthof(cell.word), widest));
    frows.push_back(std::move(row));
  }
  // Adds the lines that change.
  void close(tfileedits& edits) {
    for (const trow& row : frows) {
      const std::string line = laidout(row);
      if (line != row.before && line.size() <= optcore::tlinereader::maxline) edits.add(row.span, line);
    }
    frows.clear();
    fwidths.fill(0);
  }

 private:
  std::string laidout(const trow& row) const {
    std::string result(row.lead);
    std::size_t column = 0;
    for (const tcell& cell : row.cells) {
      for (; column < cell.column; ++column)
        if (fwidths[column] > 0) result.append(fwidths[column] + 1, ' ');
      const std::size_t width = widthof(cell.word);
      const std::string blanks(fwidths[column] - std::min(width, fwidths[column]), ' ');
      const bool right = column == reference || column == group;
      result.append(right ? blanks : "").append(cell.word).append(right ? "" : blanks).append(" ");
      ++column;
    }
    result.append(row.text.empty() ? "" : " ").append(row.text);
    result.erase(result.find_last_not_of(' ') + 1);
    return result;
  }

  std::vector<trow> frows;
  std::array<std::size_t, columncount> fwidths{};
};

std::size_t columnof(const tfield& field) {
  if (field.form == tform::helpflag) return flag;
  if (field.form == tform::groupnumber) return group;
  if (field.name == "default") return defaultvalue;
  if (field.name == "lowest value") return low;
  return field.name == "highest value" ? high : reference;  // also a kind, and the number of a group
}

// Nothing for a line that stays as it is: one that is too long, that lacks something or is not read.
std::optional<trow> rowof(const tdefinitionline& line) {
  const tdefinitionspans& parts = line.parts;
  trow row = {
      {line.span.begin, line.span.begin + line.text.size()}, line.text, "", {}, parts.text.of(line.text)};
  const bool lacks =
      std::ranges::any_of(parts.fields, [](const tfieldspan& each) { return each.span.empty(); });
  const bool islong = line.text.size() == optcore::tlinereader::maxline;  // perhaps more
  if (lacks || islong || line.text.find('\x1a') != std::string_view::npos) return std::nullopt;
  if (parts.kind == tspankind::entry) {
    const bool issynonym = parts.keyword == "synonym";
    if (parts.fields.empty() && !issynonym) return std::nullopt;
    const tspan word = {parts.type.begin, parts.ismodified ? parts.modifier.end : parts.type.end};
    row.cells = {{name, parts.name.of(line.text)}, {type, word.of(line.text)}};
    if (issynonym) row.text = line.text.substr(parts.references[0].begin);
  } else if (parts.kind == tspankind::value) {
    row.lead = " ";
    row.cells = {{name, parts.fields[0].span.of(line.text)}, {flag, parts.fields[1].span.of(line.text)}};
    return row;
  } else if (parts.kind == tspankind::mark && line.text[parts.references[0].begin - 1] != '"') {
    row.lead = " ";
    row.cells = {{name, parts.references[0].of(line.text)}};
    return row;
  } else {
    return std::nullopt;
  }
  for (const tfieldspan& each : parts.fields)
    row.cells.push_back({columnof(*each.field), each.span.of(line.text)});
  return row;
}

}  // namespace

tanswer definitionformatting(const trequest& request) {
  const tdocument& document = *request.document();
  tfileedits edits(document.text());
  ttable entries, below;  // those of a paragraph, and those below one entry
  walkdefinition(*document.text(), [&](const tdefinitionline& line) {
    if (line.parts.kind == tspankind::entry || line.text.empty()) below.close(edits);
    if (line.text.empty()) entries.close(edits);
    if (std::optional<trow> row = rowof(line))
      (line.parts.kind == tspankind::entry ? entries : below).add(*row);
  });
  below.close(edits);
  entries.close(edits);
  return twritten{edits.writtenedits(request.encoding())};
}

}  // namespace tool::lsp
