// The help command: prints the library's help for a request, and reports a request that names no option.
#include <algorithm>
#include <iostream>

#include "base/numtext.h"
#include "base/textcase.h"
#include "tools/commands.h"
#include "tools/reading/reading.h"
#include "tools/reading/suggest.h"

namespace tool {

namespace {

// False if the request names no option; the library then prints the summary and files no message. A word for
// a number, such as maxint, counts as a name here.
bool isanswerable(const optcore::tvksoptions& store, std::string request) {
  std::ranges::replace(request, ' ', '_');
  std::int32_t number = 0;
  return request.empty() || (!optcore::isletter(request[0]) && optcore::strasintex(request, number)) ||
         store.optionasobj(request) != nullptr;
}

void reportunknown(const optcore::tvksoptions& store, const std::string& request) {
  const std::string suggestion =
      suggestiontext(tnearnames(keynames(store)).nearest(request, tmatch::nearorlonger));
  std::cerr << "wexcorin: there is no option " << printable(inquotes(request))
            << (suggestion.empty() ? "" : "; " + printable(suggestion)) << '\n';
}

}  // namespace

int run(const thelparguments& arguments) {
  treading reading;
  if (reading.readdefinition(arguments.definition)) reading.showhelp(arguments.request);
  const bool answered = isanswerable(reading.store(), arguments.request);
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
