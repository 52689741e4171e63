// The help command: prints the library's help for a request. For a request that names no option it prints the
// nearest names.
#include <iostream>

#include "base/numtext.h"
#include "base/textcase.h"
#include "tools/commands.h"
#include "tools/reading/reading.h"
#include "tools/unknown.h"

namespace tool {

namespace {

// False if the request names no option; the library would then print the summary and file no message. A word
// for a number, such as maxint, counts as a name here.
bool isanswerable(const optcore::tvksoptions& store, const std::string& request) {
  std::int32_t number = 0;
  return request.empty() || (!optcore::isletter(request[0]) && optcore::strasintex(request, number)) ||
         optionnamed(store, request) >= 0;
}

}  // namespace

int run(const thelparguments& arguments) {
  treading reading;
  const bool opened = reading.readdefinition(arguments.definition);
  const bool answered = isanswerable(reading.store(), arguments.request);
  if (opened && answered) reading.showhelp(arguments.request);
  tfindings problems;
  for (const tfinding& finding : reading.findings().kept())
    if (finding.severity == tseverity::plain)
      std::cout << printable(finding.text) << '\n';
    else
      problems.push_back(finding);
  const int code = reportproblems(problems, reading.findings().unlisted());
  if (code == exitunusable || answered) return code;
  reportunknown(reading.store(), arguments.request);
  return exitproblems;
}

}  // namespace tool
