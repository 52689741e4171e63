// Opening files and waiting for them, for a limited time.
#include "base/waiting.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <time.h>

#include <algorithm>
#include <cerrno>

namespace optcore {

namespace {

// Nanoseconds on a clock that nobody sets.
std::int64_t now() noexcept {
  timespec time{};
  ::clock_gettime(CLOCK_MONOTONIC, &time);
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

bool isfifo(const char* name) noexcept {
  struct stat status {};
  return ::stat(name, &status) == 0 && S_ISFIFO(status.st_mode);
}

}  // namespace

int twaiting::open(const char* name, int flags) noexcept {
  for (;;) {
    // a terminal must not become the one that controls the process, which dies when it is closed
    const int descriptor = ::open(name, flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666);
    if (descriptor >= 0) return descriptor;
    if (errno == EINTR) continue;
    const bool hasnoreader = errno == ENXIO && isfifo(name);
    // another program has a lease on the file, and is asked to give it up
    const bool isleased = errno == EWOULDBLOCK;
    if (!hasnoreader && !isleased) return -1;
    errno = forotherend(-1, 0);
    if (errno != EAGAIN) return -1;
  }
}

int twaiting::untilready(int descriptor, short events, bool again) noexcept {
  if (again) wait(-1, 0, moment);
  return again && ftimeleft <= 0 ? ETIMEDOUT : wait(descriptor, events, ftimeleft);
}

int twaiting::forotherend(int descriptor, short events) noexcept {
  const std::int64_t before = ftimeleft;
  const int code = wait(descriptor, events, std::min(ftimeforotherends, moment));
  ftimeforotherends -= before - ftimeleft;
  return code == ETIMEDOUT && ftimeforotherends > 0 && ftimeleft > 0 ? EAGAIN : code;
}

// Signals interrupt the waiting but do not extend it. Without time left, what is ready is still taken.
int twaiting::wait(int descriptor, short events, std::int64_t atmost) noexcept {
  pollfd request = {descriptor, events, 0};
  const std::int64_t begin = now();
  const std::int64_t end = begin + std::clamp<std::int64_t>(atmost, 0, std::max<std::int64_t>(ftimeleft, 0));
  int result;
  do {
    const std::int64_t left = std::max<std::int64_t>(end - now(), 0);
    result = ::poll(&request, 1, static_cast<int>((left + millisecond - 1) / millisecond));
  } while (result < 0 && errno == EINTR && now() < end);
  const int code = result > 0 ? 0 : result == 0 || errno == EINTR ? ETIMEDOUT : errno;
  ftimeleft -= now() - begin;
  return code;
}

}  // namespace optcore
