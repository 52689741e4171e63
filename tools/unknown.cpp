// Looks up options that a command line names, and reports those that do not exist.
#include "tools/unknown.h"

#include <algorithm>
#include <iostream>

#include "base/strutilx.h"
#include "tools/reading/findings.h"
#include "tools/reading/suggest.h"
#include "tools/text.h"

namespace tool {

namespace {

constexpr const char* search = "'wexcorin find' searches the texts of the options";

// Returns false if no name is similar.
bool report(const std::string& problem, const std::string& name, const std::vector<std::string>& known,
            const std::string& hint) {
  // behind a dot option there may be a symbol
  const std::string typed = name.starts_with('.') ? name.substr(0, name.find(' ')) : name;
  const std::string suggestion = suggestiontext(tnearnames(known).nearest(typed, tmatch::nearorlonger));
  const std::string& more = suggestion.empty() ? hint : suggestion;
  std::cerr << "wexcorin: " << problem << ' ' << printable(inquotes(name)) << (more.empty() ? "" : "; ")
            << printable(more) << '\n';
  return !suggestion.empty();
}

// What may have been meant by a name: dot options only by one with a dot.
std::vector<std::string> namesfor(const optcore::tvksoptions& store, const std::string& name) {
  return name.starts_with('.') ? dotnames(store) : keynames(store);
}

}  // namespace

std::int32_t optionnamed(const optcore::tvksoptions& store, std::string name) {
  std::ranges::replace(name, ' ', '_');
  return store.definition().indexof(name);
}

void reportunknown(const optcore::tvksoptions& store, const std::string& name) {
  const std::string_view indicator = store.definition().dotname();
  const bool isindicator = !indicator.empty() && optcore::struequal(name, indicator);
  report("there is no option", name, namesfor(store, name),
         isindicator ? "the word begins the lines of indicators, which have no value of their own" : search);
}

void reportnotfound(const optcore::tvksoptions& store, const std::string& text) {
  report("no option has the text", text, namesfor(store, text), "");
}

bool reportunknown(const optcore::tvksoptions& store, const std::string& name,
                   const std::vector<std::string>& groups) {
  std::vector<std::string> known = namesfor(store, name);
  known.insert(known.end(), groups.begin(), groups.end());
  return report("there is no option or group", name, known, search);
}

void reportunknowngroup(const std::string& name, const std::vector<std::string>& groups,
                        const std::string& known) {
  report("there is no group", name, groups, known);
}

}  // namespace tool
