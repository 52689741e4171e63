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

namespace optcore {

namespace {

constexpr int waitforwriter = 5000;  // milliseconds

mode_t kindoffile(int descriptor) noexcept {
  struct stat status {};  // stays so when the system cannot tell
  ::fstat(descriptor, &status);
  return status.st_mode;
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
  fbegin = fend = fblock.get();
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
  if (unread() == 0) readmore();
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
  do count = ::read(fdescriptor, fend, static_cast<std::size_t>(fblock.get() + blocksize - fend));
  while (count < 0 && errno == EINTR);
  if (count < 0) freaderror = errno;
  if (count > funread) freaderror = EFBIG;
  if (count <= 0 || freaderror != 0) {
    fatend = true;
    return false;
  }
  funread -= count;
  fend += count;
  return true;
}

// Moves the unread part to the front of the block and reads behind it.
bool tlinereader::fill() noexcept {
  const std::size_t kept = unread();
  std::memmove(fblock.get(), fbegin, kept);
  fbegin = fblock.get();
  fend = fbegin + kept;
  return readmore();
}

// The next line where the block does not hold its end.
tlinereader::tline tlinereader::nextbyreading() {
  for (std::size_t searched = unread(); searched < blocksize && fill(); searched = unread())
    if (char* feed = findfeed(searched)) return takeline(feed);
  char* const line = fbegin;
  const std::size_t length = unread();
  if (length == 0) return {};
  fbegin = fend;
  if (fatend) return trimmed(line, length);
  skiprestofline();
  return {line, maxline};
}

// Drops what is left of a line that fills the whole block, keeping its beginning, which is handed out.
void tlinereader::skiprestofline() noexcept {
  for (;;) {
    fbegin = fend = fblock.get() + maxline;
    if (!readmore()) return;
    if (char* feed = findfeed(0)) {
      fbegin = feed + 1;
      return;
    }
  }
}

}  // namespace optcore
