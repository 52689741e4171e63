// Finds out about the terminal and runs the pager.
#include "tools/terminal.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <iostream>
#include <string>

namespace tool {

namespace {

// The streams as they were before a pager.
struct tstreams {
  bool output = isatty(STDOUT_FILENO) == 1, errors = isatty(STDERR_FILENO) == 1;
  std::size_t width = 0;

  tstreams() {
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0) width = size.ws_col;
  }
};

const tstreams& streams() {
  static const tstreams result;
  return result;
}

// The shell command of the pager; empty for none. What a pager that cannot be run does not show is printed as it is.
std::string pagercommand() {
  const char* pager = std::getenv("PAGER");  // NOLINT(concurrency-mt-unsafe): the tool has one thread
  if (pager == nullptr) return "command -v less >/dev/null || exec cat; exec less";
  const std::string command = pager;
  if (command.empty() || command == "cat") return {};
  return command + "\n[ $? != 127 ] || exec cat";
}

[[noreturn]] void runpager(const std::string& command, int input) {
  dup2(input, STDIN_FILENO);
  setenv("LESS", "FRX", 0);  // NOLINT(concurrency-mt-unsafe): colours; no screen of its own for a short text
  execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
  _exit(127);
}

}  // namespace

bool isshown(int descriptor) { return descriptor == STDOUT_FILENO ? streams().output : streams().errors; }

std::size_t terminalwidth() { return streams().width; }

tpager::tpager(bool wanted) {
  const std::string command = wanted && isshown(STDOUT_FILENO) ? pagercommand() : std::string();
  std::array<int, 2> ends{};
  if (command.empty() || pipe2(ends.data(), O_CLOEXEC) != 0) return;
  fprocess = fork();
  if (fprocess == 0) runpager(command, ends[0]);
  close(ends[0]);
  if (fprocess > 0) {
    signal(SIGINT, SIG_IGN);  // it is for the pager, which has to leave the terminal in order
    foutput = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
    dup2(ends[1], STDOUT_FILENO);
    if (isshown(STDERR_FILENO)) {
      ferrors = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3);
      dup2(ends[1], STDERR_FILENO);
    }
  }
  close(ends[1]);
}

tpager::~tpager() {
  if (fprocess <= 0) return;
  std::cout.flush();
  dup2(foutput, STDOUT_FILENO);
  close(foutput);
  if (ferrors >= 0) {
    dup2(ferrors, STDERR_FILENO);
    close(ferrors);
  }
  waitpid(fprocess, nullptr, 0);
}

}  // namespace tool
