// Parses the command line. It holds all commands and flags with their help texts; the manual page and the shell
// completions repeat them.
#include "tools/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <iostream>
#include <map>

#include "base/strutilx.h"
#include "base/zqaaudit.h"
#include "release.h"
#include "tools/commandline.h"
#include "tools/commands.h"
#include "tools/reading/finddefinition.h"
#include "tools/reading/nearnames.h"
#include "tools/reading/rules.h"
#include "tools/swapped.h"
#include "tools/text.h"
#include "tools/wronguse.h"

namespace tool {

namespace {

constexpr const char* footnotes =
    "An input file named - is standard input, an output file named - standard output.\n"
    "Exit codes: 0 no errors; 1 errors in what was read, or no such option or group; 2 wrong use, or a file\n"
    "that cannot be opened, read or written.";

constexpr const char* losses =
    "Lost are comments, the division into files and lines that set nothing. The file is read back, and each\n"
    "setting that comes back as something else is warned of.\n";

std::string versiontext() {
  const std::string_view line = optcore::trimright(optcore::zqagetauditline());  // padded with blanks
  return "wexcorin " + std::string(optcore::release::version) + "\n" + std::string(line);
}

}  // namespace

std::string checkfilename(const std::string& name) {
  if (name.size() <= maxfilename) return {};
  return "file names may have at most " + std::to_string(maxfilename) + " characters";
}

void adddefinition(CLI::App& command, std::string& definition, bool required) {
  command.add_option("DEF", definition, "Definition file of the solver's options")
      ->required(required)
      ->type_name("")
      ->check(checkfilename);
}

namespace {

void addoptionfiles(CLI::App& command, tinputs& inputs, bool filesrequired) {
  command.add_option("OPTFILE", inputs.optionfiles, "Option files, read in this order")
      ->required(filesrequired)
      ->type_name("")
      ->check(checkfilename);
  command
      .add_option("--set", inputs.texts,
                  "Option text to read after the files, as in --set iterlim=5; repeatable")
      ->type_name("TEXT")
      ->allow_extra_args(false)
      ->check([](const std::string& text) {
        return text.find('\n') == std::string::npos ? "" : "a text is one line; use --set for each line";
      });
}

void addinputs(CLI::App& command, tinputs& inputs, bool filesrequired) {
  adddefinition(command, inputs.definition);
  addoptionfiles(command, inputs, filesrequired);
}

}  // namespace

std::string checkword(const std::string& word, const std::vector<std::string>& known) {
  if (std::ranges::find(known, word) != known.end()) return {};
  std::string result = inquotes(word) + " is none of";
  for (const std::string& each : known) result += (&each == &known.front() ? " " : ", ") + each;
  return result + suggestionfor(word, known);
}

// What is wrong with a count; empty if nothing is.
std::string checkcount(const std::string& text) {
  std::size_t count = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
  if (error == std::errc() && end == text.data() + text.size() && count > 0) return {};
  return inquotes(text) + " is not a whole number from 1";
}

namespace {

const std::map<std::string, tcolours>& colourwords() {
  static const std::map<std::string, tcolours> words = {
      {"auto", tcolours::automatic}, {"always", tcolours::always}, {"never", tcolours::never}};
  return words;
}

}  // namespace

CLI::App& addcommand(CLI::App& app, const char* name, const char* description) {
  CLI::App& command = *app.add_subcommand(name, description);
  command.group("Commands");
  command.get_help_ptr()->group("Flags");
  command
      .add_option_function<std::string>(
          "--color", [](const std::string& when) { setcolours(colourwords().at(when)); },
          "When to print colours: auto (on terminals), always or never")
      ->type_name("WHEN")
      ->check([](const std::string& when) { return checkword(when, keysof(colourwords())); });
  return command;
}

namespace {

std::string checkrule(const std::string& name) {
  const trule* rule = findrule(name);
  if (rule != nullptr && iswarning(*rule)) return {};
  if (rule != nullptr) return "the rule " + inquotes(name) + " is for errors, which cannot be left out";
  std::vector<std::string> names;
  names.reserve(checkrules().size());
  for (const trule& each : checkrules())
    if (iswarning(each)) names.emplace_back(each.name);
  const std::string suggestion = suggestiontext(tnearnames(names).nearest(name, tmatch::nearorlonger));
  return "there is no rule " + inquotes(name) + (suggestion.empty() ? "" : "; " + suggestion);
}

// The rules whose warnings can be left out.
std::string rulestext() {
  std::string result = "Rules:\n";
  for (const trule& rule : checkrules())
    if (iswarning(rule))
      result.append("  ")
          .append(rule.name)
          .append(18 - rule.name.size(), ' ')  // the longest has 16 characters
          .append(rule.meaning)
          .append("\n");
  return result + "\n";
}

}  // namespace

void addpager(CLI::App& command, bool& pager) {
  command.add_flag_callback(
      "--no-pager", [&pager] { pager = false; }, "Do not print through $PAGER on a terminal");
}

namespace {

const std::map<std::string, tcheckformat>& checkformats() {
  static const std::map<std::string, tcheckformat> formats = {{"text", tcheckformat::text},
                                                              {"json", tcheckformat::json},
                                                              {"sarif", tcheckformat::sarif},
                                                              {"github", tcheckformat::github}};
  return formats;
}

void addcheckformat(CLI::App& command, tcheckformat& format) {
  CLI::Option* json = command.add_flag_callback(
      "--json", [&format] { format = tcheckformat::json; }, "The same as --format json");
  json->option_text(" ");  // without "Excludes: --format"
  command
      .add_option_function<std::string>(
          "--format", [&format](const std::string& name) { format = checkformats().at(name); },
          "Print the findings as text, json, sarif (for code review) or github (commands of its\n"
          "workflows, which annotate the lines of a change)")
      ->excludes(json)
      ->option_text("FORMAT")
      ->check([](const std::string& name) { return checkword(name, keysof(checkformats())); });
}

// The definition may be named in three ways, or be found.
const CLI::App& addcheck(CLI::App& app, tcheckarguments& arguments) {
  CLI::App& command = addcommand(app, "check", "Report what is wrong in a definition and in option files");
  adddefinition(command, arguments.firstfile, false);
  addoptionfiles(command, arguments.inputs, false);
  command
      .add_option("--definition", arguments.inputs.definition,
                  "Definition file; all other files are then option files. Without it, and with an\n"
                  "option file in the place of DEF, the definition is found")
      ->type_name("FILE")
      ->check(checkfilename);
  command.add_flag("--separately", arguments.separately,
                   "Check each option file on its own, not on top of the one before");
  addcheckformat(command, arguments.format);
  command.add_flag("--warnings-as-errors", arguments.warningsaserrors,
                   "Let warnings count for the exit code");
  command.add_option("--limit", arguments.limit, "Print at most so many findings of one kind [1000]")
      ->type_name("N")
      ->check(checkcount);
  addpager(command, arguments.pager);
  command
      .add_option("--allow", arguments.allowed,
                  "Leave out the warnings of these rules, separated by commas; repeatable")
      ->type_name("RULE")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->check(checkrule);
  command.footer(rulestext() + footnotes);
  return command;
}

const CLI::App& addshow(CLI::App& app, tshowarguments& arguments) {
  CLI::App& command = addcommand(app, "show", "List the options with their values");
  addinputs(command, arguments.inputs, false);
  command.add_flag("--changed", arguments.changedonly, "List only options that were set");
  command.add_flag("--json", arguments.json, "Print the options as JSON");
  command
      .add_option("--columns", arguments.columns,
                  "Only these columns, separated by commas: number, name, type, set, value, origin,\n"
                  "default, range")
      ->type_name("NAME")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->check([](const std::string& name) {
        return checkword(name, {showcolumns.begin(), showcolumns.end()});
      });
  command.add_flag("--origin", arguments.origin, "Say where each value comes from");
  command.add_flag("--fingerprint", arguments.fingerprint,
                   "Print a text that is the same if all values are; with --json beside the options");
  command.add_flag("--wide", arguments.wide, "Do not fit the table to the width of the terminal");
  addpager(command, arguments.pager);
  return command;
}

const CLI::App& addget(CLI::App& app, tgetarguments& arguments) {
  CLI::App& command = addcommand(app, "get", "Print the value of one option");
  command.add_option("NAME", arguments.name, "Name or synonym of the option")->required()->type_name("");
  addinputs(command, arguments.inputs, false);
  command.add_flag("--default", arguments.wantsdefault, "Print the default, whatever was set");
  return command;
}

const CLI::App& addexplain(CLI::App& app, texplainarguments& arguments) {
  CLI::App& command = addcommand(app, "explain", "Show one option and all that lines did with it");
  command
      .add_option(
          "NAME", arguments.name,
          "Name or synonym of an option; a dot option and a symbol, as in \".prior x(1)\"; the keyword of\n"
          "indicators; or a symbol of dot lines and indicators")
      ->required()
      ->type_name("");
  addinputs(command, arguments.inputs, false);
  return command;
}

const CLI::App& addfind(CLI::App& app, tfindarguments& arguments) {
  CLI::App& command = addcommand(app, "find", "Search names, synonyms, values and help of the options");
  adddefinition(command, arguments.definition);
  command
      .add_option("TEXT", arguments.words, "Words to search for; options that have all of them are listed")
      ->required()
      ->type_name("");
  addpager(command, arguments.pager);
  return command;
}

const CLI::App& addhelp(CLI::App& app, thelparguments& arguments) {
  CLI::App& command = addcommand(app, "help", "Print the help that a definition holds");
  adddefinition(command, arguments.definition);
  command
      .add_option_function<std::vector<std::string>>(
          "REQUEST",
          [&arguments](const std::vector<std::string>& words) {
            for (const std::string& word : words)
              arguments.request += (arguments.request.empty() ? "" : " ") + word;
          },
          "The name of an option, the name or title of a group, or a sum of 1 (summary by group,\n"
          "the default), 2 (all in detail) and 8 (mark deprecated options in the summary)")
      ->type_name("");
  addpager(command, arguments.pager);
  return command;
}

}  // namespace

void addoutput(CLI::App& command, std::string& output) {
  const bool required = output.empty();
  command.add_option("-o,--output", output, required ? "File to write" : "File to write [standard output]")
      ->required(required)
      ->type_name("FILE")
      ->check(checkfilename);
}

namespace {

const CLI::App& addcomplete(CLI::App& app, tcompletearguments& arguments) {
  CLI::App& command = addcommand(app, "complete", "Print names or values for the completions of the shells");
  command.group("");  // not in the help
  adddefinition(command, arguments.definition);
  command.add_option("NAME", arguments.name, "The option whose values are wanted")->type_name("");
  command.add_flag("--groups", arguments.groups, "Print the names of the groups");
  return command;
}

const CLI::App& addtemplate(CLI::App& app, ttemplatearguments& arguments) {
  CLI::App& command = addcommand(app, "template", "Write an option file to start from");
  adddefinition(command, arguments.definition);
  addoutput(command, arguments.output);
  command.add_option("--group", arguments.groups, "Only the options of this group; repeatable")
      ->type_name("NAME")
      ->allow_extra_args(false);
  return command;
}

const CLI::App& addwrite(CLI::App& app, twritearguments& arguments) {
  CLI::App& command = addcommand(app, "write", "Write the settings of option files as one option file");
  addinputs(command, arguments.inputs, true);
  addoutput(command, arguments.output);
  command.add_flag("--exact", arguments.exact, "Write numbers with all their digits, not with 15");
  command.add_flag("--force", arguments.force, "Write even if there are errors in what was read");
  command.footer(std::string(losses) + footnotes);
  return command;
}

const CLI::App& addlsp(CLI::App& app) {
  CLI::App& command =
      addcommand(app, "lsp", "Serve an editor: the Language Server Protocol on standard input and output");
  command.add_flag_callback(
      "--stdio", [] {}, "Changes nothing; some editors add it");
  command.footer("Exit codes: 0 the client has shut the server down; 1 it has not; 2 wrong use.");
  return command;
}

void prepare(CLI::App& app) {
  app.footer(footnotes);                  // the commands inherit it, and the next line
  app.option_defaults()->group("Flags");  // "option" is what an option file sets
  app.get_help_ptr()->group("Flags");
  app.failure_message(failuretext);
  app.set_version_flag("--version", versiontext);
  app.require_subcommand(1);
  app.get_formatter()->label("OPTIONS", "FLAGS");
  app.get_formatter()->label("SUBCOMMAND", "COMMAND");
  app.get_formatter()->label("Positionals", "Arguments");
}

bool readsstandardinputtwice(const tinputs& inputs) {
  return std::ranges::count(inputs.optionfiles, "-") + (inputs.definition == "-" ? 1 : 0) > 1;
}

// Prints what is wrong with the use of a command.
int refused(const std::string& command, const std::string& problem) {
  std::cerr << "wexcorin " << command << ": " << printable(problem) << "\nTry 'wexcorin " << command
            << " --help'.\n";
  return exitunusable;
}

template <class T>
targuments accepted(const std::string& command, const T& arguments) {
  if (const std::string problem = swappedfiles(command, arguments.inputs); !problem.empty())
    return refused(command, problem);
  if (!readsstandardinputtwice(arguments.inputs)) return arguments;
  std::cerr << "wexcorin: standard input can be read only once\n";
  return exitunusable;
}

template <class T>
targuments withoutmisuse(const std::string& command, const T& arguments) {
  if (const std::string problem = misuse(arguments); !problem.empty()) return refused(command, problem);
  return arguments;
}

// A command with a word that is no file.
template <class T>
targuments accepted(const std::string& command, const T& arguments, const std::string& definition,
                    const std::string& word) {
  const bool wordfirst = command == "get" || command == "explain";
  const std::string problem = swappedword(command, definition, word, wordfirst);
  if (!problem.empty()) return refused(command, problem);
  return arguments;
}

// The first file is the definition, or one of the option files.
targuments accepted(tcheckarguments arguments) {
  tinputs& inputs = arguments.inputs;
  const bool isnamed = !inputs.definition.empty();
  if (arguments.firstfile.empty() && !isnamed) return refused("check", "DEF is required");
  if (!isnamed) inputs.definition = arguments.firstfile;
  if (isnamed && !arguments.firstfile.empty())
    inputs.optionfiles.insert(inputs.optionfiles.begin(), arguments.firstfile);
  targuments result = accepted("check", arguments);
  if (isnamed || std::holds_alternative<int>(result) || !isoptionfile(arguments.firstfile)) return result;
  inputs.definition.clear();
  inputs.optionfiles.insert(inputs.optionfiles.begin(), arguments.firstfile);
  return arguments;
}

targuments accepted(const tdocarguments& arguments) {
  const std::string flag = strayflag(arguments);
  if (flag.empty()) return arguments;
  return refused("doc", "this form does not take " + flag);
}

}  // namespace

targuments parsearguments(int argc, char** argv) {
  CLI::App app("Checks, shows, explains and writes the options of a solver.", "wexcorin");
  prepare(app);
  tcheckarguments check;
  tshowarguments show;
  tgetarguments get;
  texplainarguments explain;
  tfindarguments find;
  thelparguments help;
  tcompletearguments complete;
  ttemplatearguments templatefile;
  twritearguments write;
  tdiffarguments diff;
  tmigratearguments migrate;
  tdocarguments doc;
  const CLI::App& checkcommand = addcheck(app, check);
  const CLI::App& showcommand = addshow(app, show);
  const CLI::App& getcommand = addget(app, get);
  const CLI::App& explaincommand = addexplain(app, explain);
  const CLI::App& findcommand = addfind(app, find);
  const CLI::App& helpcommand = addhelp(app, help);
  const CLI::App& completecommand = addcomplete(app, complete);
  const CLI::App& templatecommand = addtemplate(app, templatefile);
  const CLI::App& writecommand = addwrite(app, write);
  const CLI::App& diffcommand = adddiff(app, diff);
  const CLI::App& migratecommand = addmigrate(app, migrate);
  adddoc(app, doc);
  const CLI::App& lspcommand = addlsp(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? exitclean : exitunusable;
  }
  if (checkcommand.parsed()) return accepted(check);
  if (showcommand.parsed()) return accepted("show", show);
  if (getcommand.parsed()) {
    targuments swapped = accepted("get", get, get.inputs.definition, get.name);
    return std::holds_alternative<int>(swapped) ? swapped : accepted("get", get);
  }
  if (explaincommand.parsed()) {
    targuments swapped = accepted("explain", explain, explain.inputs.definition, explain.name);
    return std::holds_alternative<int>(swapped) ? swapped : accepted("explain", explain);
  }
  if (findcommand.parsed()) return accepted("find", find, find.definition, find.words.front());
  if (helpcommand.parsed()) {
    if (const std::string problem = commandfordefinition(app, help.definition); !problem.empty())
      return refused("help", problem);
    return accepted("help", help, help.definition, help.request);
  }
  if (completecommand.parsed()) return complete;
  if (templatecommand.parsed()) return templatefile;
  if (writecommand.parsed()) return accepted("write", write);
  if (diffcommand.parsed()) return withoutmisuse("diff", diff);
  if (migratecommand.parsed()) return withoutmisuse("migrate", migrate);
  if (lspcommand.parsed()) return tlsparguments{};
  return accepted(doc);
}

}  // namespace tool
