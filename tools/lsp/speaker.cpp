// Writes piece by piece, and only when the system takes a piece at once.
#include "tools/lsp/speaker.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>

#include "tools/lsp/frames.h"

namespace tool::lsp {

namespace {

// A pipe that is ready takes PIPE_BUF bytes without waiting. A socket has to be told not to wait.
ssize_t writepiece(int descriptor, std::string_view piece) {
  const ssize_t sent = send(descriptor, piece.data(), piece.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
  return sent < 0 && errno == ENOTSOCK ? write(descriptor, piece.data(), piece.size()) : sent;
}

}  // namespace

void tspeaker::say(std::string_view message) {
  if (!fbroken) fbroken = !write(framed(message));
}

// Waits until a piece can be written. Returns false if the client is gone.
bool tspeaker::wait() const {
  std::array<pollfd, 2> events = {{{fdescriptor, POLLOUT, 0}, {fgone, POLLIN, 0}}};
  while (poll(events.data(), events.size(), -1) < 0)
    if (errno != EINTR) return false;
  return events[1].revents == 0;
}

bool tspeaker::write(std::string_view bytes) {
  while (!bytes.empty()) {
    if (!wait()) return false;
    const ssize_t count = writepiece(fdescriptor, bytes.substr(0, PIPE_BUF));
    if (count >= 0)
      bytes.remove_prefix(static_cast<std::size_t>(count));
    else if (errno != EINTR && errno != EAGAIN)
      return false;
  }
  return true;
}

}  // namespace tool::lsp
