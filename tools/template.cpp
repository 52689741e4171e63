// The template command: writes an option file in which every option is described and can be switched on.
#include <algorithm>
#include <iostream>
#include <set>

#include "tools/commands.h"
#include "tools/doc/templatedocument.h"
#include "tools/reading/nearnames.h"
#include "tools/reading/reading.h"
#include "tools/writing/deliver.h"

namespace tool {

namespace {

// Keeps only the options of these groups listed. Returns false, with a message, for an unknown group.
bool selectgroups(treference& reference, const std::vector<std::string>& names) {
  if (names.empty()) return true;
  std::set<std::int32_t> numbers;
  for (const std::string& name : names) {
    const auto named = [&](const tgroupreference& group) {
      return folded(group.name) == folded(utf8(name)) || folded(group.title) == folded(utf8(name));
    };
    const auto group = std::ranges::find_if(reference.groups, named);
    if (group == reference.groups.end()) {
      std::vector<std::string> known;
      known.reserve(reference.groups.size());
      for (const tgroupreference& each : reference.groups) known.push_back(each.name);
      const std::string suggestion = suggestiontext(tnearnames(known).nearest(name, tmatch::nearorlonger));
      std::cerr << "wexcorin: there is no group " << printable(inquotes(name))
                << (suggestion.empty() ? "" : "; " + printable(suggestion)) << '\n';
      return false;
    }
    numbers.insert(group->number);
  }
  for (toptionreference& option : reference.options)
    option.listed = option.listed && numbers.contains(option.group);
  return true;
}

}  // namespace

int run(const ttemplatearguments& arguments) {
  const toutputfile output(arguments.output);
  treading reading;
  reading.keepdefinition();
  if (!sparesfiles(output, filesof({arguments.definition, {}, {}}), reading) ||
      !reading.readdefinition(arguments.definition))
    return reportproblems(reading.findings());
  treference reference = describe(reading.store(), reading.definition());
  const bool selected = selectgroups(reference, arguments.groups);
  optcore::tvksoptions trial;
  if (selected && reading.readdefinitionagain(trial)) {
    tsettinglines lines(trial);
    deliver(output, templatedocument(reference, lines), reading);
  }
  const int code = reportproblems(reading.findings());
  return selected ? code : std::max(code, exitproblems);
}

}  // namespace tool
