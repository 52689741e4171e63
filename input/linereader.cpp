// Reads a text file in blocks and returns it line by line.
#include "input/linereader.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstring>
#include <optional>
#include <string>

#include "base/heldsignals.h"

namespace optcore {

int tlinereader::open(std::string_view filename, twaiting& waiting) {
  assert(fdescriptor < 0);  // a reader reads one file
  const std::string name(filename);
  if (name.find('\0') != std::string::npos) return ENOENT;  // the system would ignore the rest
  fwaiting = &waiting;
  fdescriptor = waiting.open(name.c_str(), O_RDONLY);
  if (fdescriptor < 0) return errno;
  fatend = false;
  askstatus();
  funread = maxbytes();
  makeblock();
  freaderror = fstatus.isfifo ? waitforwriter() : 0;
  if (freaderror == 0 && unread() == 0) readmore();
  if (freaderror != 0) close();
  return freaderror;
}

int tlinereader::openerror(std::string_view filename) {
  const std::string name(filename);
  if (name.find('\0') != std::string::npos) return ENOENT;
  struct stat status {};
  if (::stat(name.c_str(), &status) != 0) return errno;
  if (S_ISDIR(status.st_mode)) return EISDIR;
  return ::faccessat(AT_FDCWD, name.c_str(), R_OK, AT_EACCESS) == 0 ? 0 : errno;
}

void tlinereader::askstatus() noexcept {
  struct stat status {};  // stays zero if fstat fails
  ::fstat(fdescriptor, &status);
  fstatus = {status.st_dev, status.st_ino, 0, S_ISREG(status.st_mode), S_ISFIFO(status.st_mode)};
  if (fstatus.isordinary) fstatus.size = std::min<std::int64_t>(status.st_size, maxfile);
}

// One byte more than the file has is needed to see its end.
void tlinereader::makeblock() {
  fblocksize = largestblock;
  if (fstatus.isordinary)
    fblocksize = std::clamp(static_cast<std::size_t>(fstatus.size) + 1, smallestblock, largestblock);
  fblock = std::make_unique_for_overwrite<char[]>(fblocksize + 1 + blockpadding);
  fbegin = fend = fblock.get();
}

// A FIFO that no program has open for writing looks as if it were at its end. Waits until one has. Returns 0
// or the system's error code.
int tlinereader::waitforwriter() noexcept {
  for (;;) {
    const int code = fwaiting->forotherend(fdescriptor, POLLIN);
    if (code == 0) return 0;
    const ssize_t count = readonce();
    if (count > 0 || (count < 0 && errno == EAGAIN)) return 0;  // a program has, even if it is silent
    if (count < 0) return errno;
    if (code != EAGAIN) return code;
  }
}

void tlinereader::close() noexcept {
  if (fdescriptor >= 0) ::close(fdescriptor);
  fdescriptor = -1;
  fatend = true;
}

// Reads more data into the block, at fend, and waits for it if need be. Returns false at the end of the file
// and after an error.
bool tlinereader::readmore() noexcept {
  if (fatend) return false;
  ssize_t count = readonce();
  for (bool again = false; count < 0 && errno == EAGAIN; again = true) {
    errno = fwaiting->untilready(fdescriptor, POLLIN, again);
    if (errno == 0) count = readonce();
  }
  if (count < 0) freaderror = errno;
  fatend = count <= 0;
  return count > 0;
}

// Reads what is there. Returns the number of bytes, 0 at the end, -1 with the error code in errno.
ssize_t tlinereader::readonce() noexcept {
  std::optional<theldsignals> held;
  if (!fstatus.isordinary) held.emplace();
  ssize_t count;
  do count = ::read(fdescriptor, fend, static_cast<std::size_t>(fblock.get() + fblocksize - fend));
  while (count < 0 && errno == EINTR);
  if (count > funread) {
    errno = EFBIG;
    return -1;
  }
  if (count > 0) {
    funread -= count;
    fend += count;
    std::memset(fend, 0, 1 + blockpadding);
  }
  return count;
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
  for (std::size_t searched = unread(); searched < fblocksize && fill(); searched = unread())
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
