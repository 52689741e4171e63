// Finds groups by what users know of them.
#include "tools/groups.h"

#include <algorithm>
#include <iterator>

#include "tools/reading/nearnames.h"
#include "tools/text.h"

namespace tool {

std::vector<tgroupreference> listedgroups(const treference& reference) {
  std::vector<tgroupreference> result;
  std::ranges::copy_if(reference.groups, std::back_inserter(result), &tgroupreference::listed);
  return result;
}

std::optional<std::size_t> groupnamed(const std::vector<tgroupreference>& groups, const std::string& name) {
  const std::string key = folded(utf8(name));
  for (const auto text : {&tgroupreference::name, &tgroupreference::title})
    for (std::size_t i = 0; i < groups.size(); ++i)
      if (folded(groups[i].*text) == key) return i;
  return std::nullopt;
}

std::vector<std::string> namesof(const std::vector<tgroupreference>& groups) {
  std::vector<std::string> result;
  result.reserve(groups.size());
  for (const tgroupreference& group : groups) result.push_back(group.name);
  return result;
}

std::string groupstext(const std::vector<tgroupreference>& groups) {
  if (groups.empty()) return "there are no groups";
  if (groups.size() == 1) return "the only group is " + groups.front().name;
  std::string result = "the groups are ";
  for (std::size_t i = 0; i < groups.size(); ++i)
    result += (i == 0 ? "" : i + 1 < groups.size() ? ", " : " and ") + groups[i].name;
  return result;
}

void warnifnoneislisted(const treference& reference, treading& reading) {
  if (std::ranges::any_of(reference.options, &toptionreference::listed)) return;
  reading.add({.place = {reading.definition()},
               .severity = tseverity::warning,
               .rule = "document",
               .text = "No option is listed: that takes a help flag above 0 and a group above 0"});
}

}  // namespace tool
