// The terminal behind the standard streams, and the pager between them.
#pragma once

#include <sys/types.h>

#include <cstddef>

namespace tool {

// Whether what is written to standard output or standard error is shown on a terminal, also if a pager shows
// it.
bool isshown(int descriptor);

// The columns of the terminal that shows standard output; 0 if none does.
std::size_t terminalwidth();

// Sends standard output, and standard error if it is shown as well, through $PAGER, as long as this object
// lives. Does nothing if it is not wanted, if standard output is not a terminal, or if PAGER is empty or "cat".
// Without PAGER, less is used if it is installed. The pager then ends by itself if everything fits on a screen.
class tpager {
 public:
  explicit tpager(bool wanted);
  ~tpager();  // waits until the pager ends
  tpager(const tpager&) = delete;
  tpager& operator=(const tpager&) = delete;

 private:
  pid_t fprocess = -1;
  int foutput = -1, ferrors = -1;  // the streams before
};

}  // namespace tool
