// Holds back the signals that come with reading and writing.
#include "base/heldsignals.h"

#include <poll.h>
#include <pthread.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <utility>

namespace optcore {

namespace {

// Takes a pending and blocked signal, if there is one; one for this thread before one for the process.
bool takesignal(int signal, siginfo_t& info) noexcept {
  sigset_t taken;
  sigemptyset(&taken);
  sigaddset(&taken, signal);
  constexpr timespec atonce{};
  int result;
  do result = sigtimedwait(&taken, &info, &atonce);
  while (result < 0 && errno == EINTR);
  return result == signal;
}

// Takes the signal if it is pending for this thread. One that is pending for the process stays, although the
// system has no call for that: the thread sends itself the signal with a mark. The system keeps only the first
// one, so the mark comes back exactly when none was pending.
bool takeforthread(int signal, siginfo_t& info) noexcept {
  const sigval mark = {.sival_ptr = &info};
  if (pthread_sigqueue(pthread_self(), signal, mark) != 0 || !takesignal(signal, info)) return false;
  return info.si_code != SI_QUEUE || info.si_value.sival_ptr != mark.sival_ptr;
}

// Whether a signal is pending for this thread. It is put back as it was.
bool isforthread(int signal) noexcept {
  siginfo_t info;
  const bool istaken = takeforthread(signal, info);
  if (istaken) ::syscall(SYS_rt_tgsigqueueinfo, ::getpid(), ::gettid(), signal, &info);
  return istaken;
}

}  // namespace

theldsignals::theldsignals() noexcept {
  sigset_t held;
  sigemptyset(&held);
  for (const int signal : {SIGPIPE, SIGXFSZ, SIGTTIN, SIGTTOU}) sigaddset(&held, signal);
  pthread_sigmask(SIG_BLOCK, &held, &fmask);
  sigpending(&fpending);
  sigemptyset(&fforthread);
  for (const int signal : {SIGPIPE, SIGXFSZ})
    if (sigismember(&fpending, signal) == 1 && isforthread(signal)) sigaddset(&fforthread, signal);
}

theldsignals::~theldsignals() { pthread_sigmask(SIG_SETMASK, &fmask, nullptr); }

void theldsignals::take(int error) const noexcept {
  const int signal = error == EPIPE ? SIGPIPE : error == EFBIG ? SIGXFSZ : 0;
  if (signal == 0 || sigismember(&fforthread, signal) == 1) return;
  siginfo_t info;
  if (sigismember(&fpending, signal) == 1)
    takeforthread(signal, info);
  else
    takesignal(signal, info);
}

int writeall(int descriptor, std::string_view bytes, twaiting* waiting) noexcept {
  const theldsignals held;
  bool again = false;
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count == 0) return EIO;
    if (count > 0) {
      again = false;
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (int error = errno; error != EINTR) {
      if (error == EAGAIN && waiting != nullptr)
        error = waiting->untilready(descriptor, POLLOUT, std::exchange(again, true));
      held.take(error);
      if (error != 0) return error;
    }
  }
  return 0;
}

}  // namespace optcore
