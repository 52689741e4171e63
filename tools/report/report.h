// What check has found, and the forms in which it is printed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tools/reading/findings.h"

namespace tool {

struct treport {
  struct tdefinition {
    std::string path;
    std::string how;  // how it was found; empty if the command line names it
  };

  tfindinglist findings;
  std::vector<tdefinition> definitions;
  std::int32_t options = 0, set = 0;
  // The number of option files that were checked, each on its own; 0 if they were read together.
  std::size_t separate = 0;
};

// "2 errors, 1 warning; 12 options, 3 set"
std::string summarytext(const treport& report);
// Whether the finding is about a file on the command line that cannot be used. In one that another file
// includes it has a line.
inline bool ismistakeincall(const tfinding& finding) { return finding.unusable && finding.place.line == 0; }
// Whether the place is a file, not standard input or a text of the command line.
bool isinfile(const tplace& place);

// All print on standard output. Except for printtext, that is all findings and what the option files asked for.
void printtext(const treport& report);    // without mistakes in the call
void printjson(const treport& report);    // docs/check.schema.json describes it
void printsarif(const treport& report);   // the format of static analysis, version 2.1.0
void printgithub(const treport& report);  // commands that annotate the lines of a change

}  // namespace tool
