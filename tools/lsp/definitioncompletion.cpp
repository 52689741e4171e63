// Offers what may stand at a place of a definition: keywords, modifiers, fields and names.
#include <algorithm>
#include <set>

#include "options/codes.h"
#include "tools/lsp/candidates.h"
#include "tools/lsp/features.h"
#include "tools/lsp/newentry.h"
#include "tools/lsp/symbolkinds.h"
#include "tools/reading/fieldnotes.h"
#include "tools/reading/nearnames.h"

namespace tool::lsp {

namespace {

using tspankind = tdefinitionspans::tkind;
constexpr int kindkeyword = 14, kindsnippet = 15, kindvalue = 12, kindreference = 18;

class tcompletion {
 public:
  explicit tcompletion(const trequest& request)
      : fdocument(*request.document()),
        fclient(request.workspace.client),
        findex(*fdocument.index()),
        fline(definitionlineat(*fdocument.text(), request.offset())),
        fcolumn(request.offset() - fline.span.begin) {}

  json run() {
    const tdefinitionspans& parts = fline.parts;
    if (fline.text.empty() || fline.text.front() != ' ')
      entry();
    else if (namesoptions())
      names();
    else if (const tfieldspan* field = parts.kind == tspankind::value ? parts.fieldat(fcolumn) : nullptr)
      fieldvalues(*field);
    return {{"isIncomplete", fincomplete}, {"items", std::move(fitems)}};
  }

 private:
  // ---- where the cursor is

  bool namesoptions() const {
    const std::string_view keyword = fline.parts.keyword;
    const bool ismark = keyword == "deprecated" || keyword == "obsolete";
    if (!ismark && keyword != "multilist" && keyword != "macro") return false;
    const auto& names = fline.parts.references;
    return fcolumn > 0 && (keyword == "multilist" || names.empty() || fcolumn <= names.front().end);
  }

  void entry() {
    const tdefinitionspans& parts = fline.parts;
    if (fline.text.starts_with('*') || parts.kind == tspankind::unread) return;
    if (parts.keyword == "lookup" && fcolumn <= parts.name.end) return modes();
    if (parts.name.empty() || (fcolumn <= parts.name.end && parts.type.empty())) return newentries();
    if (fcolumn <= parts.name.end) return;
    if (parts.ismodified && fcolumn > parts.type.end && fcolumn <= parts.modifier.end) return modifiers();
    if (parts.type.empty() || fcolumn <= parts.type.end) return types();
    if (parts.keyword == "synonym" && (parts.references.empty() || fcolumn <= parts.references[0].end))
      return names();
    if (const tfieldspan* field = parts.fieldat(fcolumn)) fieldvalues(*field);
  }

  // The word under the cursor, up to where it ends.
  tspan word() const {
    const auto isblank = [this](std::size_t at) { return fline.text[at] == ' ' || fline.text[at] == '\t'; };
    tspan result = {std::min(fcolumn, fline.text.size()), std::min(fcolumn, fline.text.size())};
    while (result.begin > 0 && !isblank(result.begin - 1)) --result.begin;
    while (result.end < fline.text.size() && !isblank(result.end)) ++result.end;
    return result;
  }
  std::string typed() const {
    const tspan whole = word();
    return std::string(fline.text.substr(whole.begin, fcolumn - whole.begin));
  }

  // ---- what is offered

  json& add(const std::string& label, int kind, const std::string& detail, tspan replaced,
            const std::string& text) {
    json item = {{"label", label}, {"kind", kind}, {"sortText", sorttext(fitems.size())}};
    if (!detail.empty()) item["detail"] = printable(detail);
    item["textEdit"] = {{"range", rangejson(*fdocument.text(), fline.intext(replaced), fclient.encoding)},
                        {"newText", text}};
    fitems.push_back(std::move(item));
    return fitems.back();
  }
  json& add(const std::string& label, int kind, std::string_view detail) {
    return add(label, kind, std::string(detail), word(), label);
  }
  void explain(json& item, std::string_view text) { item["documentation"] = utf8(text); }

  void modes() {
    for (const std::string_view mode : optcore::lookupmodenames) add(std::string(mode), kindkeyword, "");
  }

  // The group of the option above is likely to be that of a new one.
  std::string groupabove() const {
    std::int32_t result = 0;
    for (const tdefinitionindex::tentry& each : findex.entries())
      if (each.line < fline.number && each.kind != tdefinitionindex::tkind::synonym) result = each.number;
    return std::to_string(result);
  }

  void newentries() {
    for (const std::string_view keyword : keywords()) {
      const tnewentry entry = {keyword, groupabove(), fclient.snippets()};
      const tspan whole = {0, fline.text.size()};
      json& item = add("new " + std::string(keyword), kindsnippet, std::string(meaningof(keyword)), whole,
                       entry.line());
      item["filterText"] = std::string(keyword);
      if (fclient.snippets()) item["insertTextFormat"] = snippetformat;
      explain(item, fieldsof(keyword));
    }
  }

  void types() {
    const tspan replaced = fline.parts.type.empty() ? word() : fline.parts.type;
    const bool isatend =
        fline.parts.text.empty() && !fline.parts.ismodified && word().end == fline.text.size();
    for (const std::string_view keyword : keywords()) {
      const bool withfields = isatend && fclient.snippets() && !fieldsbetween(keyword).empty();
      const tnewentry entry = {keyword, groupabove(), true};
      json& item = add(std::string(keyword), kindkeyword, std::string(meaningof(keyword)), replaced,
                       withfields ? entry.afternames() : std::string(keyword));
      if (withfields) item["insertTextFormat"] = snippetformat;
      explain(item, fieldsof(keyword));
    }
  }

  void modifiers() {
    if (!takesmodifier(fline.parts.keyword)) return;
    for (const std::string_view each : optcore::subtypemodifiers)
      if (!each.empty())
        add(std::string(each), kindkeyword, std::string(meaningofmodifier(each)), fline.parts.modifier,
            std::string(each));
  }

  void fieldvalues(const tfieldspan& field) {
    switch (field.field->form) {
      case tform::word: return;
      case tform::immediatekind:
        for (const std::string_view kind : optcore::immkindnames) add(std::string(kind), kindkeyword, "");
        return;
      case tform::groupnumber: return groups();
      case tform::helpflag: return addlast({{"1", "help lists it"}, {"0", "help does not list it"}});
      case tform::zeroorone: return addlast({{"1", "yes"}, {"0", "no"}});
      case tform::integer: return addlast({{"maxint", "2147483647"}, {"minint", "-2147483648"}});
      case tform::number: return addlast({{"maxdouble", "1e299"}, {"mindouble", "-1e299"}, {"eps", "1e-20"}});
    }
  }
  void addlast(std::initializer_list<std::pair<const char*, const char*>> values) {
    for (const auto& [value, meaning] : values) add(value, kindvalue, meaning);
  }

  void groups() {
    for (const tdefinitionindex::tentry& each : findex.entries())
      if (each.kind == tdefinitionindex::tkind::group)
        add(std::to_string(each.number), kindreference, each.text);
    add("0", kindvalue, "no group: help does not list the option");
  }

  // ---- names of options that stand above; marks may name synonyms, too

  void names() {
    constexpr std::size_t most = 200;
    const std::string beginning = folded(typed());
    std::vector<const tdefinitionindex::tentry*> first, later;
    for (const tdefinitionindex::tentry* each : known()) {
      const std::size_t at = folded(each->name).find(beginning);
      if (at != std::string::npos) (at == 0 ? first : later).push_back(each);
    }
    first.insert(first.end(), later.begin(), later.end());
    if (first.empty()) return nearnames();
    fincomplete = first.size() > most;
    first.resize(std::min(first.size(), most));
    for (const tdefinitionindex::tentry* each : first) addname(*each);
  }

  std::vector<const tdefinitionindex::tentry*> known() const {
    const std::string_view keyword = fline.parts.keyword;
    const bool ismark = keyword == "deprecated" || keyword == "obsolete";
    const bool ismember = keyword == "multilist" || keyword == "macro";
    const auto& entries = findex.entries();
    auto behind = std::ranges::lower_bound(entries, fline.number, {}, &tdefinitionindex::tentry::line);
    if (ismember && behind != entries.begin()) --behind;  // none is a member of itself
    std::vector<const tdefinitionindex::tentry*> result;
    for (auto each = entries.begin(); each != behind; ++each)
      if (each->kind == tdefinitionindex::tkind::option ||
          (ismark && each->kind == tdefinitionindex::tkind::synonym))
        result.push_back(&*each);
    return result;
  }

  void nearnames() {
    std::vector<std::string> all;
    for (const tdefinitionindex::tentry* each : known()) all.emplace_back(each->name);
    for (const std::string& name : tnearnames(all).nearest(typed(), tmatch::near))
      for (const tdefinitionindex::tentry* each : known())
        if (each->name == name) addname(*each)["filterText"] = utf8(typed());
    fincomplete = true;
  }

  json& addname(const tdefinitionindex::tentry& entry) {
    json& item = add(utf8(entry.name), kindreference,
                     std::string(entry.keyword) + (entry.text.empty() ? "" : ": " + std::string(entry.text)),
                     word(), std::string(entry.name));
    const optcore::tvksoptions* store = fdocument.store();
    const std::int32_t position = store == nullptr ? -1 : store->definition().indexof(entry.name);
    if (position >= 0) item["data"] = {{"uri", fdocument.uri()}, {"option", position}};
    return item;
  }

  static constexpr int snippetformat = 2;
  const tdocument& fdocument;
  const tclient& fclient;
  const tdefinitionindex& findex;
  const tdefinitionline fline;
  const std::size_t fcolumn;
  json fitems = json::array();
  bool fincomplete = false;
};

}  // namespace

tanswer definitioncompletion(const trequest& request) { return tcompletion(request).run(); }

}  // namespace tool::lsp
