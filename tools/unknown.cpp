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

void report(const optcore::tvksoptions& store, const char* problem, const std::string& name,
            const char* hint) {
  const std::string suggestion =
      suggestiontext(tnearnames(keynames(store)).nearest(name, tmatch::nearorlonger));
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
