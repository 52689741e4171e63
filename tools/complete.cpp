// The complete command, which the help does not list: prints for the completions of the shells what may be typed
// for an option, one word on each line. Words that a shell would split or change are left out.
#include <algorithm>
#include <iostream>

#include "base/textcase.h"
#include "tools/commands.h"
#include "tools/groups.h"
#include "tools/unknown.h"

namespace tool {

namespace {

bool isplain(std::string_view word) {
  return std::ranges::all_of(word, [](char c) {
    return optcore::isletter(c) || optcore::isdigit(c) ||
           std::string_view("_.-+").find(c) != std::string::npos;
  });
}

void print(std::string_view word) {
  if (isplain(word)) std::cout << word << '\n';
}

void printnames(const treference& reference) {
  for (const toptionreference& option : reference.options) {
    print(option.name);
    for (const std::string& synonym : option.synonyms) print(synonym);
  }
}

void printvalues(const toptionreference& option) {
  if (option.type == optcore::topttype::boolean) std::cout << "yes\nno\n";
  for (const tvaluereference& value : option.values) print(value.value.text);
}

}  // namespace

int run(const tcompletearguments& arguments) {
  treading reading;
  if (!reading.readdefinition(arguments.definition)) return exitunusable;
  if (arguments.groups) {
    for (const std::string& name : namesof(listedgroups(describe(reading.store(), reading.definition()))))
      print(name);
  } else if (arguments.name.empty()) {
    printnames(describe(reading.store(), reading.definition()));
  } else if (const std::int32_t index = optionnamed(reading.store(), arguments.name); index >= 0) {
    printvalues(describeoption(reading.store(), index));
  }
  return exitclean;
}

}  // namespace tool
