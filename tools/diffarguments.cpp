// The command line of diff.
#include <algorithm>

#include "tools/commandline.h"
#include "tools/swapped.h"

namespace tool {

namespace {

const std::map<std::string, tfailon>& failwords() {
  static const std::map<std::string, tfailon> words = {
      {"any", tfailon::any}, {"silent", tfailon::silent}, {"breaking", tfailon::breaking}};
  return words;
}

constexpr const char* diffnotes =
    "An input file named - is standard input.\n"
    "Exit codes: 0 the same; 1 different; 2 wrong use, a file that cannot be opened or read, or a\n"
    "definition with errors.";

}  // namespace

const CLI::App& adddiff(CLI::App& app, tdiffarguments& arguments) {
  CLI::App& command = addcommand(app, "diff", "Compare two definitions, or the values of option files");
  command
      .add_option("FILE", arguments.files,
                  "Two definition files, the older one first; with --definition two option files")
      ->required()
      ->type_name("")
      ->check(checkfilename);
  command.add_option("--definition", arguments.definition, "Compare option files of this definition")
      ->type_name("DEF")
      ->check(checkfilename);
  command.add_flag("--defaults", arguments.defaults, "Compare one option file with the defaults");
  command.add_flag("--matrix", arguments.matrix,
                   "Compare any number of option files; without --definition, the first FILE is it");
  command.add_flag("--json", arguments.json, "Print the differences as JSON");
  command.add_flag("--markdown", arguments.markdown, "Print the differences as Markdown");
  command
      .add_option_function<std::string>(
          "--fail-on", [&arguments](const std::string& word) { arguments.failon = failwords().at(word); },
          "Which changes of a definition give exit code 1: breaking, silent (and breaking) or any")
      ->type_name("CLASS")
      ->check([](const std::string& word) { return checkword(word, keysof(failwords())); });
  addpager(command, arguments.pager);
  command.footer(diffnotes);
  return command;
}

std::string misuse(const tdiffarguments& arguments) {
  const bool hasdefinition = !arguments.definition.empty();
  const std::size_t files = arguments.files.size();
  if (arguments.defaults && arguments.matrix) return "--defaults and --matrix exclude each other";
  if (arguments.json && arguments.markdown) return "--json and --markdown exclude each other";
  if (arguments.defaults && (!hasdefinition || files != 1))
    return "--defaults takes one option file and --definition";
  if (arguments.matrix && !hasdefinition && files < 2) return "--matrix takes a definition and option files";
  if (!arguments.matrix && !arguments.defaults && files != 2) return "two files are needed";
  const bool comparesdefinitions = !hasdefinition && !arguments.matrix;
  if (arguments.failon != tfailon::any && !comparesdefinitions) return "--fail-on is for definitions";
  const auto inputs = std::ranges::count(arguments.files, "-") + (arguments.definition == "-" ? 1 : 0);
  if (inputs > 1) return "standard input can be read only once";
  return comparesdefinitions ? optionfilesalone(arguments.files) : "";
}

}  // namespace tool
