// Where migrated files are written.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "tools/migrating/migration.h"

namespace tool {

// A file to be written.
struct tdestination {
  const tmigratedfile* file;
  std::string path;
  bool isbackup = false;   // of the file as it was
  bool isinplace = false;  // the file itself: if it is a link, then what the link leads to
};

struct tdestinations {
  std::vector<tdestination> files;    // backups come before what they save
  std::vector<std::string> problems;  // nothing may be written if there are any
};

// In a folder, each file has the place that it has in the folder of the file on the command line through which
// it was reached. Nothing may be written outside of it, nor through a link, nor twice, nor over a file that is
// read.
tdestinations destinationsin(const std::string& folder, std::deque<tmigratedfile>& files,
                             const tfilemarks& read);
// The files themselves, if they have changed. What is outside of the folder of the file on the command line must
// be named there itself, and no backup may replace a link.
tdestinations destinationsinplace(const std::deque<tmigratedfile>& files, const tfilemarks& definitions,
                                  bool backups);

// Writes each of the files as a whole. Returns false, with a finding, at the first one that cannot be written.
bool deliver(const tdestinations& destinations, tfindinglist& findings);

}  // namespace tool
