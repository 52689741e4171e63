// Chooses values: all of a choice, otherwise the default and the bounds.
#include <algorithm>
#include <filesystem>
#include <system_error>

#include "tools/doc/reference.h"
#include "tools/lsp/candidates.h"
#include "tools/lsp/optiontexts.h"

namespace tool::lsp {

namespace {

using namespace optcore;

void addplain(tcandidates& result, const std::string& text, const std::string& detail) {
  if (text.empty() || text == "\"\"") return;
  const auto known = std::ranges::find(result.all, text, &tcandidate::text);
  if (known != result.all.end())
    known->detail += ", " + detail;
  else
    result.all.push_back({.text = text, .kind = tcandidatekind::value, .detail = detail});
}

void addyesno(tcandidates& result, const std::string& defaultvalue) {
  for (const bool yes : {true, false})
    result.all.push_back({.text = yes ? "yes" : "no",
                          .kind = tcandidatekind::word,
                          .detail = defaultvalue == (yes ? "1" : "0") ? "default" : ""});
}

tcandidates typedvalues(const tvksoptions& store, const toption& option) {
  const toptionreference reference = describeoption(store, indexof(store, option));
  const std::string& defaultvalue = reference.defaultvalue.text;
  tcandidates result;
  for (const tvaluereference& value : reference.values) {
    if (!value.listed) continue;
    const bool isdefault = value.value.text == defaultvalue;
    result.all.push_back({.text = value.value.text,
                          .kind = tcandidatekind::word,
                          .detail = value.help + (!isdefault           ? ""
                                                  : value.help.empty() ? "default"
                                                                       : " (default)")});
  }
  if (reference.type == topttype::boolean) addyesno(result, defaultvalue);
  if (!result.all.empty()) return result;
  addplain(result, defaultvalue, "default");
  addplain(result, reference.low.text, "lowest");
  addplain(result, reference.high.text, "highest");
  return result;
}

tcandidates immediatevalues(const timmediateoption& option) {
  tcandidates result;
  if (option.immkind() == timmkind::eolflag || option.immkind() == timmkind::nobounds) addyesno(result, {});
  return result;
}

// What stands before the last colon is for other members.
tcandidates listvalues(const tvksoptions& store, const tmultilistoption& option, ttyped typed) {
  const auto position = static_cast<std::int32_t>(std::ranges::count(typed.beginning, ':'));
  const std::size_t begin = typed.beginning.rfind(':') + 1;
  typed.span.begin += begin;
  typed.beginning.erase(0, begin);
  typed.option = position < option.items().count()
                     ? store.definition().getobjects(option.items().get(position))
                     : nullptr;
  const bool haslist = typed.option != nullptr && typed.option->opttype() == topttype::multilist;
  return typed.option == nullptr || haslist ? tcandidates{} : valuesfor(store, typed);
}

// The values of its first member; the other ones take the same text.
tcandidates macrovalues(const tvksoptions& store, const tmacrooption& option, ttyped typed, int depth) {
  constexpr int deepest = 8;
  if (option.items().count() == 0 || depth == deepest) return {};
  typed.option = option.items().get(0);
  if (const auto* macro = ifis<tmacrooption>(typed.option))
    return macrovalues(store, *macro, typed, depth + 1);
  return typed.option->opttype() == topttype::multilist ? tcandidates{} : valuesfor(store, typed);
}

}  // namespace

tcandidates valuesfor(const tvksoptions& store, const ttyped& typed) {
  const toption& option = *typed.option;
  tcandidates result;
  if (const auto* immediate = ifis<timmediateoption>(&option)) {
    if (immediate->immkind() == timmkind::readfile) return filesfor(typed);
    result = immediatevalues(*immediate);
  } else if (const auto* list = ifis<tmultilistoption>(&option)) {
    return listvalues(store, *list, typed);
  } else if (const auto* macro = ifis<tmacrooption>(&option)) {
    return macrovalues(store, *macro, typed, 0);
  } else {
    result = typedvalues(store, option);
  }
  result.span = typed.span;
  if (typed.beginning.starts_with('"'))
    for (tcandidate& each : result.all)
      if (!each.text.starts_with('"')) each.text = '"' + each.text + '"';
  return result;
}

// The double quotes stay where they are.
tcandidates filesfor(const ttyped& typed) {
  constexpr std::size_t mostfiles = 1000;
  const std::size_t quote = typed.beginning.starts_with('"') ? 1 : 0;
  const std::size_t begin = std::max(typed.beginning.rfind('/') + 1, quote);
  const std::string folder = typed.beginning.substr(quote, begin - quote);
  tcandidates result;
  result.span = {typed.span.begin + begin, typed.span.end - (typed.isclosed ? 1 : 0)};
  std::error_code problem;
  std::filesystem::directory_iterator each(folder.empty() ? "." : folder, problem);
  for (; !problem && each != std::filesystem::directory_iterator(); each.increment(problem)) {
    if (result.all.size() == mostfiles) break;
    std::error_code unknown;
    const bool isfolder = each->is_directory(unknown);
    const std::string name = each->path().filename().string();
    const bool needsquotes = name.find_first_of(" \t,") != std::string::npos;
    if (name.starts_with('.') || name.find('"') != std::string::npos || (needsquotes && quote == 0)) continue;
    if (!isfolder && !each->is_regular_file(unknown)) continue;
    result.all.push_back({.text = utf8(name) + (isfolder ? "/" : ""),
                          .kind = isfolder ? tcandidatekind::folder : tcandidatekind::file});
  }
  const auto order = [](const tcandidate& candidate) {
    return std::pair(!candidate.text.ends_with(".opt"), candidate.text);
  };
  std::ranges::sort(result.all, {}, order);
  result.iscomplete = result.all.size() < mostfiles;
  return result;
}

}  // namespace tool::lsp
