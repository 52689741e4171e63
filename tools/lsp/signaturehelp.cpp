// Which field of a definition's line one is in, and what it means.
#include "tools/lsp/features.h"
#include "tools/lsp/locations.h"

namespace tool::lsp {

namespace {

using tspankind = tdefinitionspans::tkind;

// Places in labels are always counted in UTF-16.
std::int64_t unitsof(const std::string& text) {
  return ttext(text).positionof(text.size(), tencoding::utf16).character;
}

struct tparameter {
  std::string label;
  std::string_view meaning;
};

class tsignature {
 public:
  explicit tsignature(const tdefinitionline& line) : fline(line), fparts(line.parts) {
    if (fparts.kind == tspankind::entry) addentry();
    for (const tfieldspan& each : fparts.fields) add(each.field->name, each.field->meaning);
    if (fparts.kind == tspankind::value) add("text", "The help text of the value: the rest of the line.");
    if (fparts.kind == tspankind::mark) {
      add("option", "The name of an option or synonym.");
      add("text", "What users should do instead: the rest of the line.");
    }
    if (fparts.kind == tspankind::members) add("option", "The name of an option that stands above.");
    if (fparts.kind == tspankind::help) add("text", "A line of long help.");
    if (fparts.kind == tspankind::entry && !meaningoftext(fparts.keyword).empty())
      add("text", meaningoftext(fparts.keyword));
  }

  bool empty() const { return fparameters.empty(); }

  json signature(bool offsets) const {
    std::string label;
    json parameters = json::array();
    for (const tparameter& each : fparameters) {
      if (!label.empty()) label += ' ';
      json name = each.label;
      if (offsets) name = {unitsof(label), unitsof(label + each.label)};
      parameters.push_back({{"label", std::move(name)}, {"documentation", each.meaning}});
      label += each.label;
    }
    return {{"label", label}, {"parameters", std::move(parameters)}};
  }

  std::size_t active(std::size_t column) const {
    const tdefinitionspans& parts = fparts;
    const std::size_t last = fparameters.size() - 1;
    if (parts.kind == tspankind::mark) return column <= parts.references.front().end ? 0 : last;
    const std::size_t before = parts.kind == tspankind::entry ? 2 : 0;
    if (before > 0 && column <= parts.name.end) return 0;
    const bool isintype = column <= (parts.ismodified ? parts.modifier.end : parts.type.end);
    if (before > 0 && (parts.type.empty() || isintype)) return 1;
    if (const tfieldspan* field = parts.fieldat(column))
      return before + static_cast<std::size_t>(field - parts.fields.data());
    return last;
  }

 private:
  void add(std::string_view name, std::string_view meaning) {
    fparameters.push_back({"<" + std::string(name) + ">", meaning});
  }

  void addentry() {
    const tspan word = {fparts.type.begin, fparts.ismodified ? fparts.modifier.end : fparts.type.end};
    add("name",
        "A letter, followed by letters, digits and underscores; a period before it for a dot option.");
    if (fparts.keyword.empty())
      add("type", "What the line defines, such as integer, enumstr or group.");
    else
      fparameters.push_back({printable(word.of(fline.text)), meaningof(fparts.keyword)});
    if (fparts.keyword == "synonym") add("option", "The name of an option that stands above.");
  }

  const tdefinitionline& fline;
  const tdefinitionspans& fparts;
  std::vector<tparameter> fparameters;
};

}  // namespace

tanswer signaturehelp(const trequest& request) {
  const tdocument& document = *request.document();
  if (document.kind() != tdocumentkind::definition) return json();
  const std::size_t offset = request.offset();
  const tdefinitionline line = definitionlineat(*document.text(), offset);
  const tsignature signature(line);
  if (signature.empty()) return json();
  const bool offsets = request.workspace.client.can("textDocument", "signatureHelp", "signatureInformation",
                                                    "parameterInformation", "labelOffsetSupport");
  return json{{"signatures", json::array({signature.signature(offsets)})},
              {"activeSignature", 0},
              {"activeParameter", signature.active(offset - line.span.begin)}};
}

}  // namespace tool::lsp
