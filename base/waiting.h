// The time that one call may spend waiting for files: for a FIFO that no program has open at its other end, a
// pipe that nobody writes to or reads, a terminal at which nobody types. Files are opened without blocking,
// and all waiting of a call is counted together, so a call ends however many files it opens.
#pragma once

#include <cstdint>

namespace optcore {

class twaiting {
 public:
  // Opens a file without blocking; a FIFO that is opened for writing gets some time until a program reads it.
  // Returns the descriptor, or -1 with the system's error code in errno.
  int open(const char* name, int flags) noexcept;

  // The functions below return 0 when the descriptor is ready for the events of poll, or its other end is
  // closed. Otherwise the result is the system's error code, ETIMEDOUT when no time is left.

  // `again`: it was ready before, but the read or write after that gave nothing. Some devices always say that
  // they are ready. So a moment passes between two tries, and the result is ETIMEDOUT when no time is left.
  int untilready(int descriptor, short events, bool again) noexcept;
  // Waits a moment for a program that opens the other end of a FIFO. The result is EAGAIN when the moment is
  // over and there is time for another one.
  int forotherend(int descriptor, short events) noexcept;

 private:
  static constexpr std::int64_t millisecond = 1'000'000;  // in nanoseconds, like all times here
  static constexpr std::int64_t moment = 20 * millisecond;

  int wait(int descriptor, short events, std::int64_t atmost) noexcept;

  std::int64_t ftimeleft = 60'000 * millisecond;
  std::int64_t ftimeforotherends = 5'000 * millisecond;  // part of the time above
};

}  // namespace optcore
