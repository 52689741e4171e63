// Writes the changes of each class under a heading of its own.
#include "tools/tracing/changereport.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>

#include "tools/doc/markdowntext.h"
#include "tools/jsontext.h"
#include "tools/text.h"

namespace tool {

namespace {

using nlohmann::ordered_json;

constexpr auto impacts = std::to_array<timpact>({timpact::breaking, timpact::silent, timpact::compatible});
constexpr auto meanings = std::to_array<const char*>(
    {"option files stay clean and mean the same", "an option file stays clean, but may mean something else",
     "an option file that was clean may be refused"});

std::size_t indexof(timpact impact) { return static_cast<std::size_t>(impact); }

std::vector<const tchange*> changesof(const std::vector<tchange>& changes, timpact impact) {
  std::vector<const tchange*> result;
  for (const tchange& change : changes)
    if (change.impact == impact) result.push_back(&change);
  return result;
}

tcolour colourof(timpact impact) {
  if (impact == timpact::compatible) return tcolour::cyan;
  return impact == timpact::breaking ? tcolour::red : tcolour::yellow;
}

std::string summary(const std::vector<tchange>& changes) {
  std::string result;
  for (const timpact impact : impacts)
    result.append(result.empty() ? "" : ", ")
        .append(std::to_string(changesof(changes, impact).size()))
        .append(" ")
        .append(impactnames[indexof(impact)]);
  return counted(changes.size(), "change") + ": " + result;
}

std::string heading(timpact impact) {
  return std::string(impactnames[indexof(impact)]) + ": " + meanings[indexof(impact)];
}

}  // namespace

void printchanges(const std::vector<tchange>& changes) {
  const tpalette palette(STDOUT_FILENO);
  for (const timpact impact : impacts) {
    const std::vector<const tchange*> those = changesof(changes, impact);
    if (those.empty()) continue;
    std::cout << palette.paint(colourof(impact), heading(impact)) << '\n';
    for (const tchange* change : those)
      std::cout << "  "
                << (change->name.empty() ? "" : palette.paint(tcolour::bold, printable(change->name)) + ": ")
                << printable(change->text) << '\n';
  }
  std::cout << (changes.empty() ? "no changes" : summary(changes)) << '\n';
}

void printchangesjson(const std::string& older, const std::string& newer,
                      const std::vector<tchange>& changes) {
  ordered_json list = ordered_json::array();
  for (const tchange& change : changes)
    list.push_back({{"class", impactnames[indexof(change.impact)]},
                    {"kind", change.kind},
                    {"name", change.name},
                    {"before", change.before},
                    {"after", change.after},
                    {"text", change.text}});
  ordered_json document = {{"older", jsontext(older)}, {"newer", jsontext(newer)}};
  for (const timpact impact : impacts)
    document[std::string(impactnames[indexof(impact)])] = changesof(changes, impact).size();
  document["changes"] = std::move(list);
  std::cout << jsondocumenttext(document);
}

void printchangesmarkdown(const std::vector<tchange>& changes) {
  for (const timpact impact : impacts) {
    const std::vector<const tchange*> those = changesof(changes, impact);
    if (those.empty()) continue;
    std::string title = heading(impact);
    title.front() = static_cast<char>(title.front() - 'a' + 'A');
    std::cout << "### " << title << "\n\n";
    for (const tchange* change : those)
      std::cout << "- " << (change->name.empty() ? "" : markdowncode(change->name) + ": ")
                << markdownprose(change->text) << '\n';
    std::cout << '\n';
  }
  if (changes.empty()) std::cout << "No changes.\n";
}

}  // namespace tool
