// Holds back the signals that come with reading and writing.
#include "base/heldsignals.h"

#include <poll.h>
#include <pthread.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>

namespace optcore {

theldsignals::theldsignals() noexcept {
  sigset_t held;
  sigemptyset(&held);
  for (const int signal : {SIGPIPE, SIGXFSZ, SIGTTIN, SIGTTOU}) sigaddset(&held, signal);
  pthread_sigmask(SIG_BLOCK, &held, &fmask);
  sigpending(&fpending);
}

theldsignals::~theldsignals() { pthread_sigmask(SIG_SETMASK, &fmask, nullptr); }

void theldsignals::take(int error) const noexcept {
  const int signal = error == EPIPE ? SIGPIPE : error == EFBIG ? SIGXFSZ : 0;
  if (signal == 0 || sigismember(&fpending, signal) == 1) return;
  sigset_t taken;
  sigemptyset(&taken);
  sigaddset(&taken, signal);
  constexpr timespec atonce{};
  while (sigtimedwait(&taken, nullptr, &atonce) < 0 && errno == EINTR) {
  }
}

int writeall(int descriptor, std::string_view bytes, twaiting* waiting) noexcept {
  const theldsignals held;
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count == 0) return EIO;
    if (count > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (int error = errno; error != EINTR) {
      if (error == EAGAIN && waiting != nullptr) error = waiting->untilready(descriptor, POLLOUT);
      held.take(error);
      if (error != 0) return error;
    }
  }
  return 0;
}

}  // namespace optcore
