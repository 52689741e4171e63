// The entry point of the command-line tool: runs the command that the command line names. An exception and a
// write error on standard output become a message and an exit code here. arguments.cpp parses the command
// line; each command has a file of its own.
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <exception>
#include <iostream>
#include <type_traits>
#include <variant>

#include "tools/arguments.h"
#include "tools/commands.h"
#include "tools/outofmemory.h"
#include "tools/terminal.h"
#include "tools/text.h"

namespace {

// Only commands whose output may be long have this argument.
template <class T>
bool wantspager(const T& command) {
  if constexpr (requires { command.pager; }) return command.pager;
  return false;
}

int runcommand(const tool::targuments& arguments) {
  return std::visit(
      [](const auto& command) {
        if constexpr (std::is_same_v<decltype(command), const int&>)
          return command;
        else {
          const tool::tpager pager(wantspager(command));
          return tool::run(command);
        }
      },
      arguments);
}

// Occupies the standard streams that are closed, so that no file gets their numbers. Reading and writing fail
// as before.
void occupystandardstreams() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    if (fcntl(descriptor, F_GETFD) < 0) open("/dev/null", O_PATH);
}

}  // namespace

int main(int argc, char** argv) {
  occupystandardstreams();
  signal(SIGXFSZ, SIG_IGN);  // a file that grows too large is an error like any other
  try {
    const int code = runcommand(tool::parsearguments(argc, argv));
    if (std::cout.flush()) return code;
    std::cerr << "wexcorin: cannot write to standard output\n";
  } catch (const std::exception& error) {
    std::cerr << "wexcorin: " << tool::printable(tool::problemtext(error)) << '\n';
  }
  return tool::exitunusable;
}
