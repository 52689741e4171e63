// Reading and writing that end or stop no process. With a write that fails because the reader of a pipe has
// left, or because a file would grow beyond the limit of the process, the system also sends a signal, which
// ends a process that is not prepared for it. A process in the background that reads its terminal, or writes
// to it, is stopped by a signal. A program that calls the library need not be prepared for any of these.
#pragma once

#include <csignal>
#include <string_view>

#include "base/waiting.h"

namespace optcore {

// While this object exists, the calling thread does not receive SIGPIPE, SIGXFSZ, SIGTTIN and SIGTTOU. The
// program's own handlers, signal masks and pending signals are left as they are. Without the last two signals
// the system lets a process in the background write to its terminal; reading it is the error EIO.
class theldsignals {
 public:
  theldsignals() noexcept;
  ~theldsignals();
  theldsignals(const theldsignals&) = delete;
  theldsignals& operator=(const theldsignals&) = delete;

  // Takes the signal that came with the error of a write, if one did. To be called for each write that
  // failed. A signal that was pending before stays pending, for the thread as well as for the process.
  void take(int error) const noexcept;

 private:
  sigset_t fmask;       // the thread's own
  sigset_t fpending;    // those that were pending before
  sigset_t fforthread;  // of these, those that were pending for the thread
};

// Writes all bytes to the descriptor, with the signals held back. A descriptor that does not block is waited
// for, unless `waiting` is null. Returns 0 or the system's error code.
int writeall(int descriptor, std::string_view bytes, twaiting* waiting) noexcept;

}  // namespace optcore
