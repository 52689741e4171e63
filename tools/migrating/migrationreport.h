// What was migrated, as text and as JSON, and as a unified diff.
#pragma once

#include <deque>
#include <iosfwd>
#include <string>

#include "tools/migrating/migration.h"

namespace tool {

struct tmigrationtotals {
  std::size_t changes = 0, decisions = 0;
};
tmigrationtotals totalsof(const std::deque<tmigratedfile>& files);

// A line for each note, then a summary.
void printmigration(std::ostream& stream, int descriptor, const std::deque<tmigratedfile>& files);
void printmigrationjson(const std::string& from, const std::string& to,
                        const std::deque<tmigratedfile>& files, bool withdiff);
// Unified diffs on standard output.
void printmigrationdiff(const std::deque<tmigratedfile>& files);

}  // namespace tool
