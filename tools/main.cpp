// The entry point of the command-line tool: runs the command that the command line names. An exception and a
// write error on standard output become a message and an exit code here. arguments.cpp parses the command
// line; each command has a file of its own.
#include <exception>
#include <iostream>
#include <type_traits>
#include <variant>

#include "tools/arguments.h"
#include "tools/commands.h"

namespace {

int runcommand(const tool::targuments& arguments) {
  return std::visit(
      [](const auto& command) {
        if constexpr (std::is_same_v<decltype(command), const int&>)
          return command;
        else
          return tool::run(command);
      },
      arguments);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const int code = runcommand(tool::parsearguments(argc, argv));
    if (std::cout.flush()) return code;
    std::cerr << "wexcorin: cannot write to standard output\n";
  } catch (const std::exception& error) {
    std::cerr << "wexcorin: " << error.what() << '\n';
  }
  return tool::exitunusable;
}
