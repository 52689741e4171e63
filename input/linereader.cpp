// Reads a text file in blocks and returns it line by line.
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
  struct stat status {};  // stays zero if fstat fails
  ::fstat(descriptor, &status);
  return status.st_mode;
}

// Waits until data can be read or the other end is closed. Returns false if neither happens in time.
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
  if (name.find('\0') != std::string::npos) return ENOENT;  // the system would ignore the rest
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

// Reads the first block. The file was opened without blocking, because an ordinary open of a FIFO waits for a
// program that writes to it, for ever if none comes. Here that program has a limited time.
void tlinereader::begin() noexcept {
  const mode_t kind = kindoffile(fdescriptor);
  if (S_ISFIFO(kind) && !becomesready(fdescriptor) && !readmore()) {
    if (freaderror == 0) freaderror = ETIMEDOUT;  // no program has it open for writing
    if (freaderror != EAGAIN) return;
    freaderror = 0;  // one has, but has not written yet
    fatend = false;
  }
  if (!S_ISREG(kind)) ::fcntl(fdescriptor, F_SETFL, 0);  // from here on, reading blocks
  if (unread() == 0) readmore();
}

void tlinereader::close() noexcept {
  if (fdescriptor >= 0) ::close(fdescriptor);
  fdescriptor = -1;
  fatend = true;
}

// Reads more data into the block, at fend. Returns false at the end of the file and after an error.
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

// Returns the next line when the block does not contain its end.
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

// Drops the rest of a line that fills the whole block. Its beginning, which is returned, stays in the block.
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
