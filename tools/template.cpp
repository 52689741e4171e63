// The template command: writes an option file in which every option is described and can be switched on.
#include <algorithm>
#include <set>

#include "tools/commands.h"
#include "tools/doc/templatedocument.h"
#include "tools/groups.h"
#include "tools/unknown.h"
#include "tools/writing/deliver.h"

namespace tool {

namespace {

// Keeps only the options of these groups listed. Returns false, with a message, for an unknown group.
bool selectgroups(treference& reference, const std::vector<std::string>& names) {
  if (names.empty()) return true;
  const std::vector<tgroupreference> groups = listedgroups(reference);
  std::set<std::int32_t> numbers;
  for (const std::string& name : names) {
    const auto group = groupnamed(groups, name);
    if (!group) {
      reportunknowngroup(name, namesof(groups), groupstext(groups));
      return false;
    }
    numbers.insert(groups[*group].number);
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
    warnifnoneislisted(reference, reading);
    tsettinglines lines(trial);
    deliver(output, templatedocument(reference, lines), reading);
  }
  const int code = reportproblems(reading.findings());
  return selected ? code : std::max(code, exitproblems);
}

}  // namespace tool
