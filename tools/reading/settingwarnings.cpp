// Compares what was set with the line and with the names of the definition.
#include "tools/reading/settingwarnings.h"

#include <algorithm>

#include "base/textcase.h"
#include "tools/reading/suggest.h"

namespace tool {

using namespace optcore;

std::string_view typedname(const toption& list, std::string_view line) {
  const std::string_view stem = list.name().substr(2);
  const auto isdash = [](char c) { return c == '-' || c == '/'; };
  for (std::size_t at = 2; at + stem.size() <= line.size(); ++at)
    if (isdash(line[at - 2]) && isdash(line[at - 1]) && struequal(line.substr(at, stem.size()), stem))
      return line.substr(at - 2, stem.size() + 2);
  return list.name();
}

// The options that are set by the name of the list without its dashes, or by a similar one. Lists are left
// out: a text may well be meant for a second list.
const std::vector<std::string>& tsettingwarnings::meant(const toption& option) {
  const auto [at, isnew] = fmeant.try_emplace(&option);
  if (!isnew) return at->second;
  const std::string_view name = option.name().substr(2);
  if (!fkeys) fkeys.emplace(keynames(fstore));
  if (const toption* same = fstore.optionasobj(name)) {
    at->second = {std::string(same->getname())};
  } else {
    at->second = fkeys->nearest(name, tmatch::near);
  }
  std::erase_if(at->second, [&](const std::string& each) {
    const toption* found = fstore.optionasobj(each);
    return found == nullptr || found->opttype() == topttype::strlist;
  });
  return at->second;
}

std::optional<tfinding> tsettingwarnings::list(const toption& option, std::string_view line,
                                               const tplace& place) {
  if (!option.name().starts_with("--") || meant(option).empty()) return std::nullopt;
  return tfinding{
      .place = place,
      .severity = tseverity::warning,
      .rule = "dashed-list",
      .text = inquotes(typedname(option, line)) + " adds a text to a list of its own and sets no option",
      .suggestions = meant(option),
      .name = std::string(typedname(option, line))};
}

// The value of the line, if it ends where a comment begins without a blank before it.
std::optional<tfinding> tsettingwarnings::comment(const toption& option, std::string_view line,
                                                  const tplace& place) const {
  std::string value;
  if (const auto* text = ifis<tstringoption>(&option))
    value = text->value(twhich::first);
  else if (const auto* list = ifis<tstrlistoption>(&option);
           list != nullptr && list->itemcount() > 0 && !option.name().starts_with("--"))
    value = list->item(list->itemcount() - 1);
  if (value.empty()) return std::nullopt;
  const std::size_t key = line.find_first_of(" \t=");
  const std::size_t at = line.find(value, std::min(key, line.size()));
  if (at == std::string_view::npos || at + value.size() >= line.size() || line[at - 1] == '"')
    return std::nullopt;
  const char next = line[at + value.size()];
  if (!fstore.definition().eolcommset().test(static_cast<unsigned char>(next))) return std::nullopt;
  return tfinding{.place = place,
                  .severity = tseverity::warning,
                  .rule = "comment-cut",
                  .text = "The value of option " + inquotes(option.getname()) + " ends before the " +
                          inquotes({&next, 1}) +
                          ", which begins a comment; put the value in double quotes "
                          "to keep the rest",
                  .name = std::string(option.getname()),
                  .value = value};
}

}  // namespace tool
