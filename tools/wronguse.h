// What is said about a command line that cannot be parsed.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

// The problem as one line, and where help is.
std::string failuretext(const CLI::App* app, const CLI::Error& error);

// What is wrong with the name of a command in the place of the definition of `help`; empty if nothing is.
std::string commandfordefinition(const CLI::App& app, const std::string& definition);

// What the user may have meant instead of the word: "; did you mean ...", or nothing.
std::string suggestionfor(std::string_view word, const std::vector<std::string>& known);

}  // namespace tool
