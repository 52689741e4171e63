// Reports what was migrated.
#include "tools/migrating/migrationreport.h"

#include <unistd.h>

#include <iostream>
#include <sstream>

#include "tools/jsontext.h"
#include "tools/migrating/unifieddiff.h"
#include "tools/terminal.h"

namespace tool {

using nlohmann::ordered_json;

tmigrationtotals totalsof(const std::deque<tmigratedfile>& files) {
  tmigrationtotals result;
  for (const tmigratedfile& file : files) {
    result.changes += file.replaced.size();
    result.decisions += file.notes.decisions();
  }
  return result;
}

namespace {

std::string notetext(const tnote& note) {
  std::string result(nameof(note.action));
  if (!note.name.empty()) result += " " + printable(note.name);
  return result + ": " + printable(note.text);
}

}  // namespace

void printmigration(std::ostream& stream, int descriptor, const std::deque<tmigratedfile>& files) {
  const tpalette palette(descriptor);
  for (const tmigratedfile& file : files) {
    for (const tlinenote& each : file.notes.kept()) {
      const std::string place = printable(placetext({file.name, each.line}));
      const tcolour colour = each.note.decide ? tcolour::red : tcolour::none;
      stream << palette.paint(tcolour::bold, place + ":") << ' '
             << palette.paint(colour, each.note.decide ? "decide: " : "")
             << palette.paint(colour, notetext(each.note)) << '\n';
    }
    if (file.notes.unlisted() != 0)
      stream << printable(file.name) << ": " << counted(file.notes.unlisted(), "further note")
             << " not listed\n";
  }
  const tmigrationtotals totals = totalsof(files);
  stream << counted(files.size(), "file") << ", " << counted(totals.changes, "change") << ", "
         << totals.decisions << " to decide\n";
}

void printmigrationjson(const std::string& from, const std::string& to,
                        const std::deque<tmigratedfile>& files, bool withdiff) {
  const tmigrationtotals totals = totalsof(files);
  ordered_json document = {{"from", jsontext(from)},
                           {"to", jsontext(to)},
                           {"changes", totals.changes},
                           {"decisions", totals.decisions},
                           {"files", ordered_json::array()}};
  for (const tmigratedfile& file : files) {
    ordered_json notes = ordered_json::array();
    for (const tlinenote& each : file.notes.kept())
      notes.push_back({{"line", each.line},
                       {"action", nameof(each.note.action)},
                       {"name", jsontext(each.note.name)},
                       {"text", jsontext(each.note.text)},
                       {"decide", each.note.decide}});
    ordered_json entry = {{"file", jsontext(file.name)},
                          {"changes", file.replaced.size()},
                          {"decisions", file.notes.decisions()},
                          {"unlisted", file.notes.unlisted()},
                          {"notes", std::move(notes)}};
    if (withdiff) {
      std::ostringstream diff;
      setcolours(tcolours::never);
      printdiff(diff, file.name, file.before, file.after, file.replaced, tpalette(STDOUT_FILENO), false);
      entry["diff"] = jsontext(diff.str());
    }
    document["files"].push_back(std::move(entry));
  }
  std::cout << jsondocumenttext(document);
}

void printmigrationdiff(const std::deque<tmigratedfile>& files) {
  const tpalette palette(STDOUT_FILENO);
  for (const tmigratedfile& file : files)
    printdiff(std::cout, file.name, file.before, file.after, file.replaced, palette, isshown(STDOUT_FILENO));
}

}  // namespace tool
