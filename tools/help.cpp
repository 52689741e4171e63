// The help command: prints the library's help for a request. A group is a part of the summary. For a request that
// names nothing it prints the nearest names, or the groups.
#include <algorithm>
#include <iostream>
#include <iterator>
#include <optional>

#include "base/numtext.h"
#include "base/textcase.h"
#include "tools/commands.h"
#include "tools/groups.h"
#include "tools/reading/nearnames.h"
#include "tools/unknown.h"

namespace tool {

namespace {

constexpr std::int32_t allbits = 15;  // 4 prints the names alone
constexpr std::int32_t marks = 8;     // alone they are a summary with marks

// A word for a number, such as maxint, counts as a name.
std::optional<std::int32_t> numberof(const std::string& request) {
  std::int32_t number = 0;
  const bool isnumber = !optcore::isletter(request[0]) && optcore::strasintex(request, number);
  return isnumber ? std::optional(number) : std::nullopt;
}

// What the library is asked for, and the part of its answer that is printed: all, or one group of the summary.
struct tquestion {
  std::string request;
  std::optional<std::size_t> group;
  bool isoption = false;
};

std::optional<tquestion> questionfor(const optcore::tvksoptions& store, const std::string& request,
                                     const std::vector<tgroupreference>& groups) {
  if (request.empty()) return tquestion{};
  if (const auto number = numberof(request)) {
    // the library takes any sum of parts; only those that mean something are accepted
    if (*number < 1 || *number > allbits) return std::nullopt;
    return tquestion{std::to_string(*number == marks ? marks + 1 : *number), {}};
  }
  if (const std::int32_t index = optionnamed(store, request); index >= 0) {
    const std::string name(store.definition().option(index).getname());
    return tquestion{folded(request) == folded(name) ? name : request, {}, true};  // blanks make no synonym
  }
  if (const auto group = groupnamed(groups, request)) return tquestion{"1", group};
  return std::nullopt;
}

// Prints the answer. In the summary, an empty line stands before its title and before each group.
void print(const tfindings& findings, std::optional<std::size_t> group) {
  std::size_t emptylines = 0;
  for (const tfinding& finding : findings) {
    if (finding.severity != tseverity::plain) continue;
    if (finding.text.empty()) ++emptylines;
    if (!group || (emptylines == *group + 2 && !finding.text.empty()))
      std::cout << printable(finding.text) << '\n';
  }
}

int reportproblemsof(const treading& reading) {
  tfindings problems;
  std::ranges::copy_if(reading.findings().kept(), std::back_inserter(problems),
                       [](const tfinding& each) { return each.severity != tseverity::plain; });
  return reportproblems(problems, reading.findings().unlisted());
}

// Reports a request that names nothing. Returns the exit code.
int refuse(const optcore::tvksoptions& store, const std::string& request,
           const std::vector<tgroupreference>& groups) {
  const bool number = numberof(request).has_value();
  if (number)
    std::cerr << "wexcorin: there is no help " << inquotes(request)
              << "; a request is an option, a group, or a sum of 1, 2 and 8\n";
  if (number || !reportunknown(store, request, namesof(groups)))
    std::cerr << "wexcorin: " << printable(groupstext(groups)) << '\n';
  return number ? exitunusable : exitproblems;
}

}  // namespace

int run(const thelparguments& arguments) {
  treading reading;
  if (!reading.readdefinition(arguments.definition)) return reportproblemsof(reading);
  const treference reference = describe(reading.store(), reading.definition());
  const std::vector<tgroupreference> groups = listedgroups(reference);
  const std::optional<tquestion> question = questionfor(reading.store(), arguments.request, groups);
  if (question) {
    if (!question->isoption) warnifnoneislisted(reference, reading);
    reading.showhelp(question->request);
    print(reading.findings().kept(), question->group);
  }
  const int code = reportproblemsof(reading);
  return question ? code : std::max(code, refuse(reading.store(), arguments.request, groups));
}

}  // namespace tool
