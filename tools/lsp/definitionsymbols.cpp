// The outline of a definition: its groups with their options, and below each option its synonyms.
#include <map>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "tools/lsp/features.h"
#include "tools/lsp/locations.h"
#include "tools/lsp/symbolkinds.h"

namespace tool::lsp {

namespace {

using tentry = tdefinitionindex::tentry;
using tentrykind = tdefinitionindex::tkind;

class toutline {
 public:
  toutline(const tdefinitionindex& index, const ttext& text, const tclient& client)
      : findex(index), ftext(text), fclient(client) {
    for (const tdefinitionindex::treference& each : index.references())
      if (each.keyword == "deprecated" || each.keyword == "obsolete") fmarked.insert(index.target(each));
    for (const tentry& each : index.entries())
      if (each.kind == tentrykind::group) fgroups.try_emplace(each.number, &each);
    for (const tdefinitionindex::treference& each : index.references())
      if (each.keyword == "synonym") ftargets[each.line] = index.target(each);
  }

  // As it is sent, because there may be very many.
  std::string tree() {
    for (const tentry& each : findex.entries()) fchildren[parentof(each)].push_back(&each);
    addsymbols(nullptr);
    return std::move(fwritten);
  }

  json list(const std::string& uri) const {
    json result = json::array();
    for (const tentry& each : findex.entries()) {
      json symbol = {{"name", nameof(each)},
                     {"kind", fclient.symbolkind(kindof(each))},
                     {"location", locationjson(uri, ftext, wholeof(each), fclient.encoding)}};
      if (const tentry* parent = parentof(each)) symbol["containerName"] = nameof(*parent);
      result.push_back(std::move(symbol));
    }
    return result;
  }

 private:
  static std::string nameof(const tentry& entry) { return printable(entry.name); }

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

  void addsymbols(const tentry* parent) {
    fwritten += '[';
    for (const tentry* each : fchildren[parent]) {
      if (fwritten.back() != '[') fwritten += ',';
      addsymbol(*each);
    }
    fwritten += ']';
  }

  void addsymbol(const tentry& entry) {
    fwritten += "{\"name\":";
    appendtext(fwritten, nameof(entry));
    std::string detail(entry.keyword);
    if (!entry.text.empty()) detail.append(": ").append(printable(entry.text));
    fwritten += ",\"detail\":";
    appendtext(fwritten, detail);
    fwritten.append(",\"kind\":")
        .append(std::to_string(fclient.symbolkind(kindof(entry))))
        .append(",\"range\":");
    appendrange(fwritten, ftext, wholeof(entry), fclient.encoding);
    fwritten += ",\"selectionRange\":";
    appendrange(fwritten, ftext, entry.span, fclient.encoding);
    if (fmarked.contains(&entry))
      fwritten.append(",\"tags\":[").append(std::to_string(tagdeprecated)).append("]");
    if (fchildren.contains(&entry)) {
      fwritten += ",\"children\":";
      addsymbols(&entry);
    }
    fwritten += '}';
  }

  const tdefinitionindex& findex;
  const ttext& ftext;
  const tclient& fclient;
  std::unordered_set<const tentry*> fmarked;
  std::map<std::int32_t, const tentry*> ftargets;  // of the synonyms, by their lines
  std::map<std::int32_t, const tentry*> fgroups;   // by their numbers
  std::unordered_map<const tentry*, std::vector<const tentry*>> fchildren;
  std::string fwritten;
};

}  // namespace

tanswer definitionsymbols(const trequest& request) {
  const ttext& text = *request.document()->text();
  const tdefinitionindex& index = *request.document()->index();
  toutline outline(index, text, request.workspace.client);
  const bool astree =
      request.workspace.client.can("textDocument", "documentSymbol", "hierarchicalDocumentSymbolSupport");
  if (!astree) return outline.list(request.document()->uri());
  return twritten{outline.tree()};
}

}  // namespace tool::lsp
