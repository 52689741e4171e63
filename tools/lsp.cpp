// The lsp command: serves an editor over standard input and output.
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include "tools/commands.h"
#include "tools/lsp/server.h"

namespace tool {

namespace {

// Moves a standard stream away, so that nothing else reads or writes the protocol: not a file that an option
// file includes, nor anything that is printed.
int takestream(int descriptor) {
  const int taken = fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
  if (nothing >= 0) {
    dup2(nothing, descriptor);
    close(nothing);
  }
  return taken;
}

}  // namespace

int run(const tlsparguments& /*arguments*/) {
  signal(SIGPIPE, SIG_IGN);  // a client that is gone is noticed by the error
  const int in = takestream(STDIN_FILENO);
  const int out = takestream(STDOUT_FILENO);
  return lsp::serve({.in = in, .out = out});
}

}  // namespace tool
