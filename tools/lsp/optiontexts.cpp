// Sets the texts.
#include "tools/lsp/optiontexts.h"

#include <algorithm>

#include "tools/doc/markdowntext.h"
#include "tools/doc/optionfacts.h"
#include "tools/tracing/origins.h"
#include "tools/tracing/touchtexts.h"

namespace tool::lsp {

using namespace optcore;

std::string codetext(std::string_view text, tmarkup markup) {
  return markup == tmarkup::markdown ? markdowncode(text) : printable(text);
}

std::string prosetext(std::string_view text, tmarkup markup) {
  return markup == tmarkup::markdown ? markdownprose(text) : printable(text);
}

std::int32_t indexof(const tvksoptions& store, const toption& option) {
  const std::int32_t found = store.definition().optlookup(option.name());
  if (store.definition().getobjects(found) == &option) return found;
  for (std::int32_t index = 0; index < store.getcount(); ++index)
    if (&store.definition().option(index) == &option) return index;
  return -1;
}

namespace {

constexpr std::size_t mostlines = 20;  // of a list in a small window

std::string bullet(const std::string& text) { return "- " + text + "\n"; }

// With their texts, if they have any.
std::string valuelist(const toptionreference& reference, tmarkup markup) {
  std::string result;
  for (std::size_t i = 0; i < std::min(reference.values.size(), mostlines); ++i) {
    const tvaluereference& value = reference.values[i];
    result += "  " + bullet(codetext(value.value.text, markup) +
                            (value.help.empty() ? "" : ": " + prosetext(value.help, markup)));
  }
  if (reference.values.size() > mostlines)
    result += "  " + bullet(std::to_string(reference.values.size() - mostlines) + " more");
  return result;
}

std::string facttext(const toptionfact& fact, const toptionreference& reference, tmarkup markup) {
  const std::string_view title = fact.title;
  const bool havetexts =
      std::ranges::any_of(reference.values, [](const tvaluereference& value) { return !value.help.empty(); });
  if (title == "values" && havetexts) return bullet("values:") + valuelist(reference, markup);
  const bool iscode = title == "default";
  return bullet(std::string(title) + ": " +
                (iscode ? codetext(fact.text, markup) : prosetext(fact.text, markup)));
}

}  // namespace

std::string definitiontext(const tvksoptions& store, std::int32_t index, tmarkup markup) {
  const toptionreference reference = describeoption(store, index);
  const std::string name = prosetext(reference.name, markup);
  std::string result = markup == tmarkup::markdown ? "**" + name + "**" : name;
  if (!reference.help.empty()) result += ": " + prosetext(reference.help, markup);
  result += "\n\n";
  for (const std::string& line : reference.details) result += prosetext(line, markup) + "\n";
  if (!reference.details.empty()) result += "\n";
  for (const toptionfact& fact : factsof(store, index, reference))
    result += facttext(fact, reference, markup);
  return result;
}

std::string touchestext(const ttouches& touches, bool issymbol, tmarkup markup) {
  const std::vector<ttouch>& all = touches.all();
  std::string result;
  if (all.empty()) return "No line touched it.\n";
  const std::size_t first = all.size() > mostlines ? all.size() - mostlines : 0;
  if (first > 0) result += bullet(counted(first, "earlier line"));
  for (std::size_t i = first; i < all.size(); ++i)
    result += bullet(prosetext(placetext(touches, all[i].source, all[i].line), markup) + " " +
                     codetext(all[i].text, markup) + " " + prosetext(resulttext(touches, all[i]), markup));
  const std::vector<std::string> values = issymbol ? std::vector<std::string>() : forcetexts(touches);
  if (!values.empty()) result += "\nIn force: " + prosetext(values[0], markup) + "\n";
  if (values.size() > 1) result += "\nSecond value: " + prosetext(values[1], markup) + "\n";
  return result;
}

}  // namespace tool::lsp
