// Parses the command line. It holds all commands and options with their help texts; the manual page and the
// shell completions repeat them.
#include "tools/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <map>

#include "base/strutilx.h"
#include "base/zqaaudit.h"
#include "release.h"
#include "tools/commands.h"
#include "tools/reading/nearnames.h"
#include "tools/reading/rules.h"
#include "tools/text.h"

namespace tool {

namespace {

constexpr std::size_t maxfilename = 254;  // the longest that the library accepts

constexpr const char* notes =
    "An input file named - is standard input, an output file named - standard output.\n"
    "Exit codes: 0 no problems; 1 problems in what was read; 2 wrong use, or a file that cannot be opened, "
    "read\n"
    "or written.";

constexpr const char* losses =
    "Lost are comments, the division into files and lines that set nothing. The file is read back, and each\n"
    "setting that comes back as something else is warned of.\n";

std::string versiontext() {
  const std::string_view line = optcore::trimright(optcore::zqagetauditline());  // padded with blanks
  return "wexcorin " + std::string(optcore::release::version) + "\n" + std::string(line);
}

std::string checkfilename(const std::string& name) {
  if (name.size() <= maxfilename) return {};
  return "file names may have at most " + std::to_string(maxfilename) + " characters";
}

std::vector<std::string> commandsof(const CLI::App& app) {
  std::vector<std::string> result;
  app.get_subcommands([&result](const CLI::App* command) {
    if (!command->get_group().empty()) result.push_back(command->get_name());
    return false;
  });
  return result;
}

std::vector<std::string> flagsof(const CLI::App& command) {
  std::vector<std::string> result;
  for (const CLI::Option* option : command.get_options())
    for (const std::string& name : option->get_lnames()) result.push_back("--" + name);
  return result;
}

// What the user may have meant instead of the word: "; did you mean ...", or nothing.
std::string suggestionfor(std::string_view word, const std::vector<std::string>& known) {
  const std::string text = suggestiontext(tnearnames(known).nearest(word, tmatch::nearorlonger));
  return text.empty() ? text : "; " + text;
}

void adddefinition(CLI::App& command, std::string& definition) {
  command.add_option("DEF", definition, "Definition file of the solver's options")
      ->required()
      ->type_name("")
      ->check(checkfilename);
}

void addinputs(CLI::App& command, tinputs& inputs, bool filesrequired) {
  adddefinition(command, inputs.definition);
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

template <class T>
std::vector<std::string> keysof(const std::map<std::string, T>& words) {
  std::vector<std::string> result;
  result.reserve(words.size());
  for (const auto& [name, meaning] : words) result.push_back(name);
  return result;
}

// What is wrong with a word that must be one of these; empty if nothing is.
std::string checkword(const std::string& word, const std::vector<std::string>& known, const char* what) {
  if (std::ranges::find(known, word) != known.end()) return {};
  return "there is no " + std::string(what) + " " + inquotes(word) + suggestionfor(word, known);
}

const std::map<std::string, tcolours>& colourwords() {
  static const std::map<std::string, tcolours> words = {
      {"auto", tcolours::automatic}, {"always", tcolours::always}, {"never", tcolours::never}};
  return words;
}

CLI::App& addcommand(CLI::App& app, const char* name, const char* description) {
  CLI::App& command = *app.add_subcommand(name, description);
  command.group("Commands");
  command
      .add_option_function<std::string>(
          "--color", [](const std::string& when) { setcolours(colourwords().at(when)); },
          "When to print colours: auto (on terminals), always or never")
      ->type_name("WHEN")
      ->check([](const std::string& when) { return checkword(when, keysof(colourwords()), "choice"); });
  return command;
}

std::string checkrule(const std::string& name) {
  const trule* rule = findrule(name);
  if (rule != nullptr && rule->filedby != tfiledby::library) return {};
  if (rule != nullptr) return "the rule " + inquotes(name) + " is for errors, which cannot be left out";
  std::vector<std::string> names;
  names.reserve(checkrules().size());
  for (const trule& each : checkrules())
    if (each.filedby != tfiledby::library) names.emplace_back(each.name);
  const std::string suggestion = suggestiontext(tnearnames(names).nearest(name, tmatch::nearorlonger));
  return "there is no rule " + inquotes(name) + (suggestion.empty() ? "" : "; " + suggestion);
}

// The rules whose warnings can be left out.
std::string rulestext() {
  std::string result = "Rules:\n";
  for (const trule& rule : checkrules())
    if (rule.filedby != tfiledby::library)
      result.append("  ")
          .append(rule.name)
          .append(std::max<std::size_t>(18, rule.name.size() + 1) - rule.name.size(), ' ')
          .append(rule.meaning)
          .append("\n");
  return result + "\n";
}

void addpager(CLI::App& command, bool& pager) {
  command.add_flag_callback(
      "--no-pager", [&pager] { pager = false; }, "Do not print through $PAGER on a terminal");
}

const CLI::App& addcheck(CLI::App& app, tcheckarguments& arguments) {
  CLI::App& command = addcommand(app, "check", "Report what is wrong in a definition and in option files");
  addinputs(command, arguments.inputs, false);
  command.add_flag("--json", arguments.json, "Print the findings as JSON");
  command.add_flag("--warnings-as-errors", arguments.warningsaserrors,
                   "Let warnings count for the exit code");
  command.add_option("--limit", arguments.limit, "Print at most so many findings of one kind [1000]")
      ->type_name("N")
      ->check(CLI::PositiveNumber);
  addpager(command, arguments.pager);
  command.add_option("--allow", arguments.allowed, "Leave out the warnings of a rule; repeatable")
      ->type_name("RULE")
      ->allow_extra_args(false)
      ->check(checkrule);
  command.footer(rulestext() + notes);
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
        return checkword(name, {showcolumns.begin(), showcolumns.end()}, "column");
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
      .add_option("REQUEST", arguments.request,
                  "An option's name, or a sum of 1 (summary by group, the default), 2 (all in detail) and\n"
                  "8 (mark deprecated options in the summary)")
      ->type_name("");
  addpager(command, arguments.pager);
  return command;
}

void addoutput(CLI::App& command, std::string& output) {
  const bool required = output.empty();
  command.add_option("-o,--output", output, required ? "File to write" : "File to write [standard output]")
      ->required(required)
      ->type_name("FILE")
      ->check(checkfilename);
}

const CLI::App& addcomplete(CLI::App& app, tcompletearguments& arguments) {
  CLI::App& command = addcommand(app, "complete", "Print names or values for the completions of the shells");
  command.group("");  // not in the help
  adddefinition(command, arguments.definition);
  command.add_option("NAME", arguments.name, "The option whose values are wanted")->type_name("");
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
  command.footer(std::string(losses) + notes);
  return command;
}

const std::map<std::string, tfailon>& failwords() {
  static const std::map<std::string, tfailon> words = {
      {"any", tfailon::any}, {"silent", tfailon::silent}, {"breaking", tfailon::breaking}};
  return words;
}

constexpr const char* diffnotes =
    "An input file named - is standard input.\n"
    "Exit codes: 0 the same; 1 different; 2 wrong use, a file that cannot be opened or read, or a "
    "definition\n"
    "with errors.";

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
      ->check([](const std::string& word) { return checkword(word, keysof(failwords()), "class"); });
  addpager(command, arguments.pager);
  command.footer(diffnotes);
  return command;
}

const std::map<std::string, tdocform>& docforms() {
  static const std::map<std::string, tdocform> forms = {
      {"definition", tdocform::definition},
      {"pascal", tdocform::pascal},
      {"html", tdocform::html},
      {"c", tdocform::c},
      {"markdown", tdocform::markdown},
      {"page", tdocform::page},
      {"json", tdocform::json},
  };
  return forms;
}

const CLI::App& adddoc(CLI::App& app, tdocarguments& arguments) {
  CLI::App& command = addcommand(app, "doc", "Write a definition in another form");
  command
      .add_option_function<std::string>(
          "FORM", [&arguments](const std::string& form) { arguments.form = docforms().at(form); },
          "definition (a definition file), pascal (an include file with the option numbers),\n"
          "html (a table), c (a header with the numbers of options and values), markdown (a reference),\n"
          "page (the reference as one HTML page that can be searched)\n"
          "or json (the whole definition, for programs)")
      ->required()
      ->type_name("")
      ->check([](const std::string& form) { return checkword(form, keysof(docforms()), "form"); });
  adddefinition(command, arguments.definition);
  addoutput(command, arguments.output);
  command.add_option("--title", arguments.title, "Title of the document (markdown and page only)")
      ->type_name("TEXT");
  command
      .add_option(
          "--release", arguments.release,
          "Version and date of the solver, as in --release \"4.2, May 2026\"\n(markdown and page only)")
      ->type_name("TEXT");
  command.add_flag("--force", arguments.force,
                   "Write a file that does not compile, with warnings (pascal and c only)");
  return command;
}

// The options of the command that the form does not have.
std::string strayoption(const tdocarguments& arguments) {
  const bool titled = arguments.form == tdocform::markdown || arguments.form == tdocform::page;
  const bool compiled = arguments.form == tdocform::pascal || arguments.form == tdocform::c;
  if (!titled && !arguments.title.empty()) return "--title";
  if (!titled && !arguments.release.empty()) return "--release";
  return !compiled && arguments.force ? "--force" : "";
}

// The first argument that looks like an option and is none.
std::string unknownflag(const CLI::App& app) {
  for (const std::string& word : app.remaining(true))
    if (word.starts_with("-")) return word.substr(0, word.find('='));
  return {};
}

std::string failuretext(const CLI::App* app, const CLI::Error& error) {
  const std::vector<CLI::App*> commands = app->get_subcommands();
  const CLI::App& command = commands.empty() ? *app : *commands.front();
  const std::string name = app->get_name() + (commands.empty() ? "" : " " + command.get_name());
  const std::vector<std::string> rest = app->remaining();
  std::string problem = error.what();
  if (commands.empty() && !rest.empty() && !rest.front().starts_with("-"))
    problem = "there is no command " + inquotes(rest.front()) + suggestionfor(rest.front(), commandsof(*app));
  else if (const std::string flag = unknownflag(*app); !flag.empty())
    problem = "there is no option " + inquotes(flag) + suggestionfor(flag, flagsof(command));
  return name + ": " + printable(problem) + "\nTry '" + name + " --help'.\n";
}

void prepare(CLI::App& app) {
  app.footer(notes);  // the commands inherit it
  app.failure_message(failuretext);
  app.set_version_flag("--version", versiontext);
  app.require_subcommand(1);
  app.get_formatter()->label("SUBCOMMAND", "COMMAND");
  app.get_formatter()->label("Positionals", "Arguments");
}

bool readsstandardinputtwice(const tinputs& inputs) {
  return std::ranges::count(inputs.optionfiles, "-") + (inputs.definition == "-" ? 1 : 0) > 1;
}

template <class T>
targuments accepted(const T& arguments) {
  if (!readsstandardinputtwice(arguments.inputs)) return arguments;
  std::cerr << "wexcorin: standard input can be read only once\n";
  return exitunusable;
}

// What is wrong with the files and options of diff; empty if nothing is.
std::string misuse(const tdiffarguments& arguments) {
  const bool hasdefinition = !arguments.definition.empty();
  const std::size_t files = arguments.files.size();
  if (arguments.defaults && arguments.matrix) return "--defaults and --matrix exclude each other";
  if (arguments.json && arguments.markdown) return "--json and --markdown exclude each other";
  if (arguments.defaults && (!hasdefinition || files != 1))
    return "--defaults takes one option file and --definition";
  if (arguments.matrix && files < (hasdefinition ? 1U : 2U))
    return "--matrix takes a definition and option files";
  if (!arguments.matrix && !arguments.defaults && files != 2) return "two files are needed";
  const bool comparesdefinitions = !hasdefinition && !arguments.matrix;
  if (arguments.failon != tfailon::any && !comparesdefinitions) return "--fail-on is for definitions";
  const auto inputs = std::ranges::count(arguments.files, "-") + (arguments.definition == "-" ? 1 : 0);
  return inputs > 1 ? "standard input can be read only once" : "";
}

targuments accepted(const tdiffarguments& arguments) {
  const std::string problem = misuse(arguments);
  if (problem.empty()) return arguments;
  std::cerr << "wexcorin diff: " << problem << "\nTry 'wexcorin diff --help'.\n";
  return exitunusable;
}

targuments accepted(const tdocarguments& arguments) {
  const std::string option = strayoption(arguments);
  if (option.empty()) return arguments;
  std::cerr << "wexcorin doc: this form does not take " << option << "\nTry 'wexcorin doc --help'.\n";
  return exitunusable;
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
  adddoc(app, doc);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? exitclean : exitunusable;
  }
  if (checkcommand.parsed()) return accepted(check);
  if (showcommand.parsed()) return accepted(show);
  if (getcommand.parsed()) return accepted(get);
  if (explaincommand.parsed()) return accepted(explain);
  if (findcommand.parsed()) return find;
  if (helpcommand.parsed()) return help;
  if (completecommand.parsed()) return complete;
  if (templatecommand.parsed()) return templatefile;
  if (writecommand.parsed()) return accepted(write);
  if (diffcommand.parsed()) return accepted(diff);
  return accepted(doc);
}

}  // namespace tool
