// The outline of a definition: its groups with their options, and below each option its synonyms.
#include <set>

#include "tools/lsp/features.h"
#include "tools/lsp/locations.h"
#include "tools/lsp/symbolkinds.h"

namespace tool::lsp {

namespace {

using tentry = tdefinitionindex::tentry;
using tentrykind = tdefinitionindex::tkind;

class toutline {
 public:
  toutline(const tdefinitionindex& index, const ttext& text, tencoding encoding)
      : findex(index), ftext(text), fencoding(encoding) {
    for (const tdefinitionindex::treference& each : index.references())
      if (each.keyword == "deprecated" || each.keyword == "obsolete") fmarked.insert(index.target(each));
    for (const tentry& each : index.entries())
      if (each.kind == tentrykind::group) fgroups.try_emplace(each.number, &each);
    for (const tdefinitionindex::treference& each : index.references())
      if (each.keyword == "synonym") ftargets[each.line] = index.target(each);
  }

  json tree() {
    for (const tentry& each : findex.entries()) fchildren[parentof(each)].push_back(&each);
    return symbols(nullptr);
  }

  json list(const std::string& uri) const {
    json result = json::array();
    for (const tentry& each : findex.entries()) {
      json symbol = {{"name", nameof(each)},
                     {"kind", kindof(each)},
                     {"location", locationjson(uri, ftext, wholeof(each), fencoding)}};
      if (const tentry* parent = parentof(each)) symbol["containerName"] = nameof(*parent);
      result.push_back(std::move(symbol));
    }
    return result;
  }

 private:
  static std::string nameof(const tentry& entry) { return utf8(entry.name); }

  const tentry* parentof(const tentry& entry) const {
    if (entry.kind == tentrykind::option) return entry.number > 0 ? groupof(entry.number) : nullptr;
    const auto target = ftargets.find(entry.line);
    return target == ftargets.end() ? nullptr : target->second;
  }

  const tentry* groupof(std::int32_t number) const {
    const auto found = fgroups.find(number);
    return found == fgroups.end() ? nullptr : found->second;
  }

  tspan wholeof(const tentry& entry) const {
    return {ftext.line(entry.line).begin, ftext.line(entry.lastline).end};
  }

  json symbols(const tentry* parent) {
    json result = json::array();
    for (const tentry* each : fchildren[parent]) {
      std::string detail(each->keyword);
      if (!each->text.empty()) detail.append(": ").append(utf8(each->text));
      json::object_t symbol;
      symbol.emplace("name", nameof(*each));
      symbol.emplace("detail", std::move(detail));
      symbol.emplace("kind", kindof(*each));
      symbol.emplace("range", rangejson(ftext, wholeof(*each), fencoding));
      symbol.emplace("selectionRange", rangejson(ftext, each->span, fencoding));
      if (fmarked.contains(each)) symbol.emplace("tags", json::array({tagdeprecated}));
      if (fchildren.contains(each)) symbol.emplace("children", symbols(each));
      result.emplace_back(std::move(symbol));
    }
    return result;
  }

  const tdefinitionindex& findex;
  const ttext& ftext;
  const tencoding fencoding;
  std::set<const tentry*> fmarked;
  std::map<std::int32_t, const tentry*> ftargets;  // of the synonyms, by their lines
  std::map<std::int32_t, const tentry*> fgroups;   // by their numbers
  std::map<const tentry*, std::vector<const tentry*>> fchildren;
};

}  // namespace

tanswer definitionsymbols(const trequest& request) {
  const ttext& text = *request.document()->text();
  const tdefinitionindex& index = *request.document()->index();
  toutline outline(index, text, request.encoding());
  const bool astree =
      request.workspace.client.can("textDocument", "documentSymbol", "hierarchicalDocumentSymbolSupport");
  return astree ? outline.tree() : outline.list(request.document()->uri());
}

}  // namespace tool::lsp
