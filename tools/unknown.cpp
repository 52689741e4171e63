// Looks up options that a command line names, and reports those that do not exist.
#include "tools/unknown.h"

#include <algorithm>
#include <iostream>

#include "tools/reading/findings.h"
#include "tools/reading/suggest.h"
#include "tools/text.h"

namespace tool {

std::int32_t optionnamed(const optcore::tvksoptions& store, std::string name) {
  std::ranges::replace(name, ' ', '_');
  return store.definition().indexof(name);
}

namespace {

// The names that may have been meant: dot options for a name with a period, which may have a symbol behind
// it.
std::vector<std::string> likelynames(const optcore::tvksoptions& store, const std::string& name) {
  if (!name.starts_with('.')) return keynames(store);
  std::vector<std::string> result;
  for (std::int32_t i = 0; i < store.getcount(); ++i)
    if (store.definition().getstrings(i).starts_with('.'))
      result.emplace_back(store.definition().getstrings(i));
  return result;
}

void report(const optcore::tvksoptions& store, const char* problem, const std::string& name,
            const char* hint) {
  const std::string typed = name.starts_with('.') ? name.substr(0, name.find(' ')) : name;
  const std::string suggestion =
      suggestiontext(tnearnames(likelynames(store, name)).nearest(typed, tmatch::nearorlonger));
  std::cerr << "wexcorin: " << problem << ' ' << printable(inquotes(name))
            << (suggestion.empty() ? hint : "; " + printable(suggestion)) << '\n';
}

}  // namespace

void reportunknown(const optcore::tvksoptions& store, const std::string& name) {
  report(store, "there is no option", name, "; 'wexcorin find' searches the texts of the options");
}

void reportnotfound(const optcore::tvksoptions& store, const std::string& text) {
  report(store, "no option has the text", text, "");
}

}  // namespace tool
