// Finds the definition of an option file that is named without one.
#pragma once

#include <optional>
#include <string>

#include "tools/reading/findings.h"
#include "tools/reading/textsource.h"

namespace tool {

inline constexpr std::size_t maxfilename = 254;  // the longest that the library accepts

// Whether the file is one whose definition has to be found: its name ends in .opt, or it looks like an option
// file and its name does not end in .def.
bool isoptionfile(const std::string& filename);

struct tfounddefinition {
  std::string path;                 // empty if there is none
  std::string how;                  // "named in main.opt:1"
  std::optional<tfinding> problem;  // why there is none
};

// Looks for the definition in this order, and takes the first that it finds:
// - a comment "* definition: PATH" in the first ten lines; the path is relative to the option file,
// - the first entry that matches in the nearest wexcorin.json, in the folder of the file or above it,
// - a file beside it with the same name but .def at the end, or the only one there whose name ends in .def.
// Comment and wexcorin.json are read where the source has their texts.
tfounddefinition finddefinition(const std::string& optionfile, ttextsource& source);
inline tfounddefinition finddefinition(const std::string& optionfile) {
  ttextsource files;
  return finddefinition(optionfile, files);
}

}  // namespace tool
