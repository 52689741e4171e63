// Arguments of the command line that look swapped.
#pragma once

#include <string>
#include <vector>

#include "tools/arguments.h"

namespace tool {

// What looks wrong with the order; empty if nothing does. `command` is the command's name.
std::string swappedfiles(const std::string& command, const tinputs& inputs);
// The same for a command with a definition and a word that names no file: `get`, `find` and `help`. The word
// stands before the definition if `wordfirst`.
std::string swappedword(const std::string& command, const std::string& definition, const std::string& word,
                        bool wordfirst);
// The same for `diff` without a definition for option files.
std::string optionfilesalone(const std::vector<std::string>& files);
// The same for the word in the place of the form of `doc`.
std::string swappedform(const std::string& word);

}  // namespace tool
