// What the word under the cursor of a definition means: an option, a keyword, a modifier or a field.
#include "tools/lsp/features.h"
#include "tools/lsp/locations.h"
#include "tools/lsp/optiontexts.h"
#include "tools/reading/fieldnotes.h"

namespace tool::lsp {

namespace {

using tentrykind = tdefinitionindex::tkind;

struct thover {
  std::string text;
  tspan span;  // in the text
};

bool isin(tspan span, std::size_t offset) {
  return !span.empty() && span.begin <= offset && offset <= span.end;
}

class thoverat {
 public:
  explicit thoverat(const trequest& request)
      : fdocument(*request.document()),
        foffset(request.offset()),
        fmarkup(markup(request.workspace.client.hovermarkdown())) {}

  std::optional<thover> run() const {
    const tdefinitionindex& index = *fdocument.index();
    if (const auto place = index.at(foffset)) return thover{entrytext(index, *place->entry), place->span};
    const tdefinitionline line = definitionlineat(*fdocument.text(), foffset);
    const tdefinitionspans& parts = line.parts;
    if (isin(line.intext(parts.type), foffset) && !parts.keyword.empty())
      return thover{keywordtext(parts.keyword), line.intext(parts.type)};
    if (parts.ismodified && isin(line.intext(parts.modifier), foffset))
      return modifierhover(line.intext(parts.modifier), parts.modifier.of(line.text));
    for (const tfieldspan& each : parts.fields)
      if (isin(line.intext(each.span), foffset))
        return thover{fieldtext(index, each, each.span.of(line.text)), line.intext(each.span)};
    return std::nullopt;
  }

  tmarkup kind() const { return fmarkup; }

 private:
  std::string keywordtext(std::string_view keyword) const {
    const std::string fields = fieldsof(keyword);
    return codetext(keyword, fmarkup) + "\n\n" + prosetext(meaningof(keyword), fmarkup) +
           (fields.empty() ? "" : "\n\n" + prosetext(fields + ".", fmarkup)) + "\n";
  }

  std::optional<thover> modifierhover(tspan span, std::string_view modifier) const {
    const std::string_view meaning = meaningofmodifier(modifier);
    if (meaning.empty()) return std::nullopt;
    return thover{codetext(modifier, fmarkup) + "\n\n" + prosetext(meaning, fmarkup) + "\n", span};
  }

  std::string fieldtext(const tdefinitionindex& index, const tfieldspan& field, std::string_view word) const {
    std::string result =
        prosetext(field.field->name, fmarkup) + "\n\n" + prosetext(field.field->meaning, fmarkup) + "\n";
    if (field.field->form != tform::groupnumber) return result;
    for (const tdefinitionindex::tentry& each : index.entries())
      if (each.kind == tentrykind::group && std::to_string(each.number) == word)
        return result + "\n" + grouptext(index, each);
    return result;
  }

  std::string grouptext(const tdefinitionindex& index, const tdefinitionindex::tentry& group) const {
    std::size_t count = 0;
    for (const tdefinitionindex::tgroupfield& each : index.groupfields())
      count += each.number == group.number;
    return codetext(group.name, fmarkup) + ": " + prosetext(utf8(group.text), fmarkup) + "\n\ngroup " +
           std::to_string(group.number) + ", " + counted(count, "option") + "\n";
  }

  // An option that the last analysis does not know is shown as its line has it.
  std::string entrytext(const tdefinitionindex& index, const tdefinitionindex::tentry& entry) const {
    if (entry.kind == tentrykind::group) return grouptext(index, entry);
    const optcore::tvksoptions* store = fdocument.store();
    const std::int32_t position = store == nullptr ? -1 : store->definition().indexof(entry.name);
    const std::string text =
        position < 0 ? codetext(entry.name, fmarkup) + ": " + prosetext(utf8(entry.text), fmarkup) + "\n"
                     : definitiontext(*store, position, fmarkup);
    return entry.kind == tentrykind::option ? text : codetext(entry.name, fmarkup) + ": a synonym\n\n" + text;
  }

  const tdocument& fdocument;
  const std::size_t foffset;
  const tmarkup fmarkup;
};

}  // namespace

tanswer definitionhover(const trequest& request) {
  const thoverat at(request);
  const std::optional<thover> hover = at.run();
  if (!hover) return json();
  return json{{"contents", {{"kind", nameof(at.kind())}, {"value", hover->text}}},
              {"range", rangejson(*request.document()->text(), hover->span, request.encoding())}};
}

}  // namespace tool::lsp
