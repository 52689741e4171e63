// Reads a text file in blocks and hands it out line by line.
#include "input/linereader.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

namespace wexcorin {

int tlinereader::open(std::string_view filename) {
  close();
  if (fblock == nullptr) fblock = std::make_unique_for_overwrite<char[]>(blocksize);
  const std::string name(filename);
  if (name.find('\0') != std::string::npos) return ENOENT;  // the system would open what comes before it
  do fdescriptor = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
  while (fdescriptor < 0 && errno == EINTR);
  if (fdescriptor < 0) return errno;
  freaderror = 0;
  fatend = false;
  fbegin = 0;
  fend = 0;
  fill();
  if (freaderror != 0) close();
  return freaderror;
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
  if (count <= 0) {
    fatend = true;
    return false;
  }
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
  std::size_t searched = 0;  // characters of the unread part that hold no line feed
  for (;;) {
    char* begin = fblock.get() + fbegin;
    const std::size_t unread = fend - fbegin;
    const auto* feed = static_cast<char*>(
        unread == searched ? nullptr : std::memchr(begin + searched, '\n', unread - searched));
    if (feed == nullptr && unread < blocksize && fill()) {
      searched = unread;
      continue;
    }
    if (feed == nullptr && unread == 0) return false;
    line = begin;
    length = feed != nullptr ? static_cast<std::size_t>(feed - begin) : unread;
    fbegin += feed != nullptr ? length + 1 : length;
    const bool isbroken = feed == nullptr && !fatend;  // longer than a block
    if (isbroken) skiprestofline();
    if (!isbroken && length > 0 && begin[length - 1] == '\r') --length;
    length = std::min(length, maxline);
    return true;
  }
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
