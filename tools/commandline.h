// What the parts of the command line share: how a command and its usual options are declared and checked.
#pragma once

#include <CLI/CLI.hpp>
#include <map>
#include <string>
#include <vector>

#include "tools/arguments.h"

namespace tool {

CLI::App& addcommand(CLI::App& app, const char* name, const char* description);
void addpager(CLI::App& command, bool& pager);

void adddefinition(CLI::App& command, std::string& definition, bool required = true);
void addoutput(CLI::App& command, std::string& output);

// What is wrong with the name of a file; empty if nothing is.
std::string checkfilename(const std::string& name);
// The same for a word that must be one of these.
std::string checkword(const std::string& word, const std::vector<std::string>& known);

template <class T>
std::vector<std::string> keysof(const std::map<std::string, T>& words) {
  std::vector<std::string> result;
  result.reserve(words.size());
  for (const auto& [name, meaning] : words) result.push_back(name);
  return result;
}

// The command doc, and the options that its form does not have; empty if there are none.
const CLI::App& adddoc(CLI::App& app, tdocarguments& arguments);
std::string strayflag(const tdocarguments& arguments);

// The command diff.
const CLI::App& adddiff(CLI::App& app, tdiffarguments& arguments);
// What is wrong with its files and options; empty if nothing is.
std::string misuse(const tdiffarguments& arguments);

// The command migrate.
const CLI::App& addmigrate(CLI::App& app, tmigratearguments& arguments);
std::string misuse(const tmigratearguments& arguments);

}  // namespace tool
