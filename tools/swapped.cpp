// Looks at the files that the arguments name.
#include "tools/swapped.h"

#include <algorithm>
#include <filesystem>

#include "tools/reading/filelooks.h"
#include "tools/text.h"

namespace tool {

namespace {

bool isfile(const std::string& name) {
  std::error_code problem;
  return std::filesystem::is_regular_file(name, problem);
}

bool exists(const std::string& name) {
  std::error_code problem;
  return name == "-" || std::filesystem::exists(name, problem);
}

// The words of the command before its definition.
std::string beginningof(const std::string& command) {
  return "wexcorin " + command + (command == "get" || command == "explain" ? " NAME " : " ");
}

// What is said about an option file in the place of the definition. Only `check` finds the definition itself.
std::string withoutdefinition(const std::string& command, const std::string& name) {
  if (command == "check" || std::filesystem::path(name).extension() != ".opt") return {};
  return inquotes(name) + " looks like an option file; the definition comes before it, as in '" +
         beginningof(command) + "DEF " + name + "'";
}

}  // namespace

std::string swappedfiles(const std::string& command, const tinputs& inputs) {
  if (looksof(inputs.definition) != tlooks::options) return {};
  const auto definition = std::ranges::find_if(
      inputs.optionfiles, [](const std::string& file) { return looksof(file) == tlooks::definition; });
  if (definition == inputs.optionfiles.end()) return withoutdefinition(command, inputs.definition);
  std::string meant = beginningof(command) + *definition + " " + inputs.definition;
  for (const std::string& file : inputs.optionfiles)
    if (&file != &*definition) meant += " " + file;
  return inquotes(inputs.definition) + " looks like an option file and " + inquotes(*definition) +
         " like a definition; the definition comes first, as in '" + meant + "'";
}

std::string swappedword(const std::string& command, const std::string& definition, const std::string& word,
                        bool wordfirst) {
  if (exists(definition) || !isfile(word)) return {};
  return "there is no file " + inquotes(definition) + ", but a file " + inquotes(word) +
         "; did you mean 'wexcorin " + command + " " +
         (wordfirst ? definition + " " + word : word + " " + definition) + "'?";
}

std::string optionfilesalone(const std::vector<std::string>& files) {
  if (!std::ranges::all_of(files, [](const std::string& file) { return looksof(file) == tlooks::options; }))
    return {};
  return "the files look like option files; their definition is missing: --definition DEF";
}

std::string swappedform(const std::string& word) {
  if (!isfile(word)) return {};
  return "; the form comes before the definition, as in 'wexcorin doc page " + word + "'";
}

}  // namespace tool
