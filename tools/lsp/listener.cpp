// Waits for input, the end of the client and the end of the server at once.
#include "tools/lsp/listener.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <system_error>
#include <utility>

namespace tool::lsp {

namespace {

int makeevent() {
  const int result = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (result < 0) throw std::system_error(errno, std::generic_category(), "cannot create an event");
  return result;
}

void set(int event) {
  const std::uint64_t one = 1;
  [[maybe_unused]] const ssize_t written = write(event, &one, sizeof one);
}

void clear(int event) {
  std::uint64_t count = 0;
  [[maybe_unused]] const ssize_t taken = read(event, &count, sizeof count);
}

tincoming problem(tcode code, const char* text) {
  tincoming result;
  result.problem = terror{code, text};
  return result;
}

}  // namespace

tlistener::tlistener(int descriptor, tinbox& inbox)
    : fdescriptor(descriptor), finbox(inbox), fwake(makeevent()), fgone(makeevent()), fthread([this] {
        run();
      }) {}

tlistener::~tlistener() {
  {
    const std::lock_guard lock(fmutex);
    fstopped = true;
  }
  set(fwake);
  fthread.join();
  if (fprocess >= 0) close(fprocess);
  close(fwake);
  close(fgone);
}

void tlistener::watch(pid_t process) {
  const int descriptor = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
  const bool isgone = descriptor == -1 && errno == ESRCH;
  {
    const std::lock_guard lock(fmutex);
    fprocess = descriptor;
  }
  if (isgone) {
    set(fgone);
    finbox.endatonce();
  }
  set(fwake);
}

void tlistener::run() {
  while (wait() && readsome()) {
  }
}

// Waits for input. Returns false if there is nothing more to read.
bool tlistener::wait() {
  for (;;) {
    std::array<pollfd, 3> events = {{{fdescriptor, POLLIN, 0}, {fwake, POLLIN, 0}, {-1, POLLIN, 0}}};
    {
      const std::lock_guard lock(fmutex);
      if (fstopped) return false;
      events[2].fd = fprocess;
    }
    if (poll(events.data(), events.size(), -1) < 0) {
      if (errno == EINTR) continue;
      finbox.endatonce();
      return false;
    }
    if (events[1].revents != 0) clear(fwake);
    if (events[2].revents != 0) {
      set(fgone);
      finbox.endatonce();
      return false;
    }
    if (events[0].revents != 0) return true;
  }
}

bool tlistener::readsome() {
  std::array<char, 64 * 1024> block;
  const ssize_t count = read(fdescriptor, block.data(), block.size());
  if (count < 0 && (errno == EINTR || errno == EAGAIN)) return true;
  if (count <= 0) {
    finbox.end();
    return false;
  }
  fframes.append({block.data(), static_cast<std::size_t>(count)});
  deliver();
  return true;
}

// Passes on the messages that are complete.
void tlistener::deliver() {
  for (;;) {
    const tframe frame = fframes.next();
    switch (frame.kind) {
      case tframe::tkind::incomplete: return;
      case tframe::tkind::message: put(parsemessage(frame.text), frame.text.size()); break;
      case tframe::tkind::toolong:
        put(problem(tcode::invalidrequest, "The message is longer than 64 MiB"), 0);
        break;
      case tframe::tkind::broken:
        put(problem(tcode::parseerror, "This is no header of a message; the next one is looked for"), 0);
        break;
    }
  }
}

void tlistener::put(tincoming message, std::size_t bytes) {
  if (message.kind == tincoming::tkind::notification && message.method == "$/cancelRequest")
    finbox.cancel(member(message.params, "id"));
  else
    finbox.put(std::move(message), bytes);
}

}  // namespace tool::lsp
