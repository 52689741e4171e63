// help: the library's help listing for a request.
#include <algorithm>
#include <charconv>
#include <iostream>

#include "tools/commands.h"
#include "tools/reading.h"
#include "tools/suggest.h"

namespace tool {

namespace {

bool isnumber(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  std::int32_t number = 0;
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && rest == end;
}

// The library answers an unknown name with the summary, without a word.
bool isanswerable(const thandle& handle, std::string request) {
  std::ranges::replace(request, ' ', '_');
  return request.empty() || isnumber(request) || handle.find(request) != 0;
}

void reportunknown(const thandle& handle, const std::string& request) {
  const std::string suggestion = suggestiontext(nearest(request, keynames(handle), tmatch::nearorlonger));
  std::cerr << "wexcorin: there is no option " << printable(inquotes(request))
            << (suggestion.empty() ? "" : "; " + printable(suggestion)) << '\n';
}

}  // namespace

int run(const thelparguments& arguments) {
  treading reading;
  if (reading.readdefinition(arguments.definition)) reading.showhelp(arguments.request);
  const bool answered = isanswerable(reading.handle(), arguments.request);
  tfindings problems;
  for (const tfinding& finding : reading.finish())
    if (finding.severity == tseverity::plain)
      std::cout << printable(finding.text) << '\n';
    else
      problems.push_back(finding);
  const int code = reportproblems(problems);
  if (code == exitunusable || answered) return code;
  reportunknown(reading.handle(), arguments.request);
  return exitproblems;
}

}  // namespace tool
