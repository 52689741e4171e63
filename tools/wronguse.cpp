// Finds out what was meant by a command line that cannot be parsed.
#include "tools/wronguse.h"

#include <algorithm>
#include <filesystem>

#include "tools/reading/findings.h"
#include "tools/reading/nearnames.h"
#include "tools/text.h"

namespace tool {

std::string suggestionfor(std::string_view word, const std::vector<std::string>& known) {
  const std::string text = suggestiontext(tnearnames(known).nearest(word, tmatch::nearorlonger));
  return text.empty() ? text : "; " + text;
}

namespace {

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

// What is wrong with the first argument that looks like a flag and is none; empty if there is none.
std::string unknownflag(const CLI::App& app, const CLI::App& command) {
  for (const std::string& word : app.remaining(true)) {
    if (!word.starts_with("-")) continue;
    const std::string flag = word.substr(0, word.find('='));
    const std::vector<std::string> known = flagsof(command);
    if (std::ranges::find(known, flag) == known.end())
      return "there is no flag " + inquotes(flag) + suggestionfor(flag, known);
    return "the flag " + inquotes(flag) + " stands behind the command";
  }
  return {};
}

// A flag that needs a text and is the last word.
std::string withouttext(const CLI::Error& error) {
  std::string problem = error.what();
  const std::string needed = ": 1 required ";
  const std::size_t at = problem.find(needed);
  if (error.get_name() != "ArgumentMismatch" || at == std::string::npos) return problem;
  const std::size_t begin = at + needed.size();
  return problem.substr(0, at) + " needs " + problem.substr(begin, problem.find(' ', begin) - begin);
}

}  // namespace

std::string failuretext(const CLI::App* app, const CLI::Error& error) {
  const std::vector<CLI::App*> commands = app->get_subcommands();
  const CLI::App& command = commands.empty() ? *app : *commands.front();
  const std::string name = app->get_name() + (commands.empty() ? "" : " " + command.get_name());
  const std::vector<std::string> rest = app->remaining(true);
  std::string problem = withouttext(error);
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError) && commands.empty())
    problem = "a command is required";
  else if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError))
    problem = "the argument " + inquotes(rest.front()) + " is one too many";
  if (commands.empty() && !rest.empty() && !rest.front().starts_with("-"))
    problem = "there is no command " + inquotes(rest.front()) + suggestionfor(rest.front(), commandsof(*app));
  else if (const std::string flag = unknownflag(*app, command); !flag.empty())
    problem = flag;
  return name + ": " + printable(problem) + "\nTry '" + name + " --help'.\n";
}

std::string commandfordefinition(const CLI::App& app, const std::string& definition) {
  std::error_code unknown;
  const std::vector<std::string> commands = commandsof(app);
  if (std::ranges::find(commands, definition) == commands.end() ||
      std::filesystem::exists(definition, unknown))
    return {};
  return "there is no file " + inquotes(definition) + "; the help of the command is 'wexcorin " + definition +
         " --help'";
}

}  // namespace tool
