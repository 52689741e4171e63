// doc markdown: a reference of the options that help lists. Each group has a table of its options, then a
// section for each of them. An index of names ends it. Links lead to anchors of their own, because programs
// make different anchors from headings.
#include <algorithm>
#include <initializer_list>

#include "base/textcase.h"
#include "tools/doc/anchors.h"
#include "tools/doc/documents.h"
#include "tools/doc/markdowntext.h"
#include "tools/text.h"

namespace tool {

namespace {

std::string codes(const std::vector<std::string>& texts) {
  std::string result;
  for (const std::string& text : texts)
    if (!text.empty()) result += (result.empty() ? "" : ", ") + markdowncode(text);
  return result;
}

std::string standingtext(const char* before, const tnamestanding& standing, const char* after) {
  const std::string reason = standing.reason.empty() ? "" : "; " + markdownprose(standing.reason);
  switch (standing.standing) {
    case tstanding::current: break;
    case tstanding::deprecated: return before + ("deprecated" + reason) + after;
    case tstanding::obsolete: return before + ("obsolete and ignored" + reason) + after;
  }
  return {};
}

class tmarkdownwriter {
 public:
  explicit tmarkdownwriter(const treference& reference)
      : freference(reference), fchapters(chapters(reference)), fanchors(fchapters) {}

  std::string write() {
    paragraph("# " + markdownprose(titleof(freference)));
    if (!freference.release.empty()) paragraph(markdownprose(freference.release));
    paragraph(lookuptext(freference.lookupmode));
    contents();
    for (std::size_t i = 0; i < fchapters.size(); ++i) {
      heading("## " + markdownprose(fchapters[i].title), fanchors.ofchapter(i));
      summary(fchapters[i]);
      for (const toptionreference* option : fchapters[i].options) describe(*option);
    }
    index();
    return ftext;
  }

 private:
  void contents() {
    for (std::size_t i = 0; i < fchapters.size(); ++i)
      line("- " + link(markdownprose(fchapters[i].title), fanchors.ofchapter(i)));
    line("- " + link("Index of names", fanchors.ofindex()));
    line("");
  }

  void index() {
    heading("## Index of names", fanchors.ofindex());
    for (const tindexentry& entry : fanchors.index()) {
      const std::string& anchor = fanchors.of(*entry.option);
      line("- " + (entry.synonym ? markdowncode(entry.name) + ": see " : "") +
           link(markdowncode(entry.option->name), anchor));
    }
  }

  static std::string link(const std::string& text, const std::string& anchor) {
    return "[" + text + "](#" + anchor + ")";
  }

  void heading(const std::string& text, const std::string& anchor) {
    paragraph("<a id=\"" + anchor + "\"></a>");
    paragraph(text);
  }

  static std::string lookuptext(optcore::tlookupmode mode) {
    switch (mode) {
      case optcore::tlookupmode::normal: break;
      case optcore::tlookupmode::path:
        return "Only the first three characters of each word in a name are compared.";
      case optcore::tlookupmode::minos:
        return "Only three characters of the first word in a name are compared, and four of each other word.";
    }
    return "Names are typed in full, in upper or lower case.";
  }

  // Without the column of defaults if no option has one.
  void summary(const tchapter& chapter) {
    const bool defaults = std::ranges::any_of(
        chapter.options, [](const toptionreference* option) { return !option->defaultvalue.text.empty(); });
    if (defaults)
      head({"Option", "Default", "Meaning"});
    else
      head({"Option", "Meaning"});
    for (const toptionreference* option : chapter.options)
      line("| " + link(markdowncode(option->name), fanchors.of(*option)) + " | " +
           (defaults ? markdowncode(option->defaultvalue.text) + " | " : "") + markdownprose(option->help) +
           " |");
    line("");
  }

  void describe(const toptionreference& option) {
    heading("### " + markdowncode(option.name), fanchors.of(option));
    if (!option.help.empty()) paragraph(markdownprose(option.help));
    fact("Type", typephrase(option));
    fact("Range", rangephrase(option));
    fact("Default", markdowncode(option.defaultvalue.text));
    fact("Options", codes(option.members));
    fact("Synonyms", codes(option.synonyms) + standingtext(" (", option.synonymstanding, ")"));
    fact("Status", standingtext("", option.standing, ""));
    line("");
    for (const std::string& text : option.details) line(markdownprose(text));
    if (!option.details.empty()) line("");
    values(option);
  }

  void values(const toptionreference& option) {
    if (std::ranges::none_of(option.values, &tvaluereference::listed)) return;
    head({"Value", "Meaning"});
    for (const tvaluereference& value : option.values)
      if (value.listed)
        line("| " + markdowncode(value.value.text) + " | " + markdownprose(value.help) + " |");
    line("");
  }

  void head(std::initializer_list<std::string_view> columns) {
    for (const std::string_view column : columns) ftext.append("| ").append(column).append(" ");
    ftext.append("|\n");
    for (std::size_t i = 0; i < columns.size(); ++i) ftext.append("|---");
    ftext.append("|\n");
  }
  void fact(const char* title, const std::string& text) {
    if (!text.empty()) line(std::string("- ") + title + ": " + text);
  }
  void paragraph(const std::string& text) { ftext.append(text).append("\n\n"); }
  void line(const std::string& text) { ftext.append(text).append("\n"); }

  const treference& freference;
  std::vector<tchapter> fchapters;
  tanchors fanchors;
  std::string ftext;
};

}  // namespace

std::string markdowndocument(const treference& reference) { return tmarkdownwriter(reference).write(); }

}  // namespace tool
