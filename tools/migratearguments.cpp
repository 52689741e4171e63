// The command line of migrate.
#include <algorithm>

#include "tools/commandline.h"

namespace tool {

namespace {

const std::map<std::string, toptionsyntax>& syntaxwords() {
  static const std::map<std::string, toptionsyntax> words = {{"wexcorin", toptionsyntax::wexcorin},
                                                             {"assignments", toptionsyntax::assignments}};
  return words;
}

constexpr const char* migratenotes =
    "Included files are migrated, too; with --in-place, those outside of the folder of FILE only if\n"
    "they are named as well. A definition named - is standard input.\n"
    "Exit codes: 0 nothing is left to decide; 1 something is; 2 wrong use, a file that cannot be\n"
    "opened, read or written, or a definition with errors: then nothing was written.";

void adddestinations(CLI::App& command, tmigratearguments& arguments) {
  command.add_option("-o,--output", arguments.output, "Write the files into this folder")
      ->type_name("FOLDER")
      ->check(checkfilename);
  command.add_flag("--in-place", arguments.inplace, "Replace the files; FILE~ keeps what was there");
  command.add_flag("--no-backup", arguments.nobackup, "With --in-place, keep no FILE~");
  command.add_flag("--dry-run", arguments.dryrun, "Write nothing, print the changes as a unified diff");
}

}  // namespace

const CLI::App& addmigrate(CLI::App& app, tmigratearguments& arguments) {
  CLI::App& command = addcommand(app, "migrate", "Bring option files of an older definition up to date");
  command.add_option("FILE", arguments.files, "Option files of the older definition")
      ->required()
      ->type_name("")
      ->check(checkfilename);
  command.add_option("--from", arguments.from, "The older definition")
      ->type_name("DEF")
      ->check(checkfilename);
  command.add_option("--to", arguments.to, "The newer definition")
      ->required()
      ->type_name("DEF")
      ->check(checkfilename);
  adddestinations(command, arguments);
  command.add_flag("--clamp", arguments.clamp, "Move values that are out of the new bounds to the bound");
  command.add_flag("--pin", arguments.pin,
                   "Where a file relies on a default that has changed, write the old one");
  command
      .add_option_function<std::string>(
          "--syntax", [&arguments](const std::string& word) { arguments.syntax = syntaxwords().at(word); },
          "The syntax of the files: wexcorin, or assignments (name = value  # comment)")
      ->type_name("NAME")
      ->check([](const std::string& word) { return checkword(word, keysof(syntaxwords())); });
  command.add_flag("--json", arguments.json, "Print the report as JSON, with --dry-run also the diff");
  command.footer(migratenotes);
  return command;
}

std::string misuse(const tmigratearguments& arguments) {
  const bool imports = arguments.syntax != toptionsyntax::wexcorin;
  const int destinations = static_cast<int>(!arguments.output.empty()) + static_cast<int>(arguments.inplace) +
                           static_cast<int>(arguments.dryrun);
  if (destinations != 1) return "one of --output, --in-place and --dry-run is needed";
  if (arguments.nobackup && !arguments.inplace) return "--no-backup is for --in-place";
  if (!imports && arguments.from.empty()) return "--from is required";
  if (imports && !arguments.from.empty()) return "--syntax assignments takes no --from";
  if (imports && arguments.pin) return "--pin needs --from";
  if (std::ranges::count(arguments.files, "-") != 0) return "standard input has no place to write to";
  return arguments.from == "-" && arguments.to == "-" ? "standard input can be read only once" : "";
}

}  // namespace tool
