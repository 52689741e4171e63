// Reads a text file in blocks and hands it out line by line.
#include "input/linereader.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

namespace wexcorin {

namespace {

constexpr int waitforwriter = 5000;  // milliseconds

mode_t kindoffile(int descriptor) noexcept {
  struct stat status {};
  return ::fstat(descriptor, &status) == 0 ? status.st_mode : 0;
}

// Waits until there is something to read or the other end is closed. False when the time is over.
bool becomesready(int descriptor) noexcept {
  pollfd request = {descriptor, POLLIN, 0};
  int result;
  do result = ::poll(&request, 1, waitforwriter);
  while (result < 0 && errno == EINTR);
  return result != 0;
}

}  // namespace

int tlinereader::open(std::string_view filename) {
  close();
  if (fblock == nullptr) fblock = std::make_unique_for_overwrite<char[]>(blocksize + 1);
  const std::string name(filename);
  if (name.find('\0') != std::string::npos) return ENOENT;  // the system would open what comes before it
  do fdescriptor = ::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  while (fdescriptor < 0 && errno == EINTR);
  if (fdescriptor < 0) return errno;
  freaderror = 0;
  fatend = false;
  funread = maxfile;
  fbegin = 0;
  fend = 0;
  begin();
  if (freaderror != 0) close();
  return freaderror;
}

// Reads the first block. To open a FIFO in the ordinary way would wait for a program that writes into it, for
// ever if none comes; here it is given some time.
void tlinereader::begin() noexcept {
  const mode_t kind = kindoffile(fdescriptor);
  if (S_ISFIFO(kind) && !becomesready(fdescriptor) && !readmore()) {
    if (freaderror == 0) freaderror = ETIMEDOUT;  // nobody writes
    if (freaderror != EAGAIN) return;
    freaderror = 0;  // somebody does, but slowly
    fatend = false;
  }
  if (!S_ISREG(kind)) ::fcntl(fdescriptor, F_SETFL, 0);  // from here on reading waits
  if (fend == 0) readmore();
}

void tlinereader::close() noexcept {
  if (fdescriptor >= 0) ::close(fdescriptor);
  fdescriptor = -1;
  fatend = true;
}

// Reads behind what the block holds up to fend. False at the end of the file.
bool tlinereader::readmore() noexcept {
  if (fatend) return false;
  ssize_t count;
  do count = ::read(fdescriptor, fblock.get() + fend, blocksize - fend);
  while (count < 0 && errno == EINTR);
  if (count < 0) freaderror = errno;
  if (count > funread) freaderror = EFBIG;
  if (count <= 0 || freaderror != 0) {
    fatend = true;
    return false;
  }
  funread -= count;
  fend += static_cast<std::size_t>(count);
  return true;
}

// Moves the unread part to the front of the block and reads behind it.
bool tlinereader::fill() noexcept {
  if (fbegin != 0) std::memmove(fblock.get(), fblock.get() + fbegin, fend - fbegin);
  fend -= fbegin;
  fbegin = 0;
  return readmore();
}

bool tlinereader::next(char*& line, std::size_t& length) {
  const void* feed = findfeed(0);
  if (feed == nullptr) return nextbyreading(line, length);
  takeline(feed, line, length);
  return true;
}

// The line up to the feed, which is in the block.
void tlinereader::takeline(const void* feed, char*& line, std::size_t& length) noexcept {
  line = fblock.get() + fbegin;
  length = static_cast<std::size_t>(static_cast<const char*>(feed) - line);
  fbegin += length + 1;
  trimline(line, length);
}

void tlinereader::trimline(const char* line, std::size_t& length) noexcept {
  if (length > 0 && line[length - 1] == '\r') --length;
  length = std::min(length, maxline);
}

// The next line where the block does not hold its end.
bool tlinereader::nextbyreading(char*& line, std::size_t& length) {
  const void* feed = nullptr;
  for (std::size_t unread = fend - fbegin; feed == nullptr && unread < blocksize; unread = fend - fbegin) {
    if (!fill()) break;
    feed = findfeed(unread);
  }
  if (feed != nullptr) {
    takeline(feed, line, length);
    return true;
  }
  line = fblock.get() + fbegin;
  length = fend - fbegin;
  if (length == 0) return false;
  fbegin = fend;
  if (fatend) {
    trimline(line, length);
  } else {
    skiprestofline();
    length = maxline;
  }
  return true;
}

// The first line feed of the unread part behind so many characters that hold none.
const void* tlinereader::findfeed(std::size_t searched) const noexcept {
  const std::size_t begin = fbegin + searched;
  return begin == fend ? nullptr : std::memchr(fblock.get() + begin, '\n', fend - begin);
}

// Drops what is left of a line that fills the whole block, keeping its beginning, which is handed out.
void tlinereader::skiprestofline() noexcept {
  for (;;) {
    fbegin = maxline;
    fend = maxline;
    if (!readmore()) return;
    if (const void* feed = std::memchr(fblock.get() + fbegin, '\n', fend - fbegin)) {
      fbegin = static_cast<std::size_t>(static_cast<const char*>(feed) - fblock.get()) + 1;
      return;
    }
  }
}

}  // namespace wexcorin
