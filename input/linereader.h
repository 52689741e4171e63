// Reads a text file in blocks and returns it line by line, without copying the lines. Only the beginning of a
// very long line is kept, so memory does not depend on the input. What the lines mean is left to the scanner.
#pragma once

#include <sys/types.h>

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

#include "base/waiting.h"
#include "input/blockscan.h"
#include "input/bytesread.h"

namespace optcore {

class tlinereader {
 public:
  static constexpr std::size_t maxline = 1020;  // characters; the rest of a longer line is dropped

  tlinereader() = default;
  tlinereader(const tlinereader&) = delete;
  tlinereader& operator=(const tlinereader&) = delete;
  ~tlinereader() { close(); }

  // Opens the file and reads its first block. Returns 0, or the system's error code if either fails.
  // Directories fail, and so do FIFOs that no program opens for writing or writes to in time (ETIMEDOUT).
  // `waiting` must outlive the reading.
  int open(std::string_view filename, twaiting& waiting);
  void close() noexcept;
  // The system's error code for the name of a file that is not to be opened; 0 if it names a file that may be
  // read.
  static int openerror(std::string_view filename);

  // A line in the block. Its characters and the one behind them may be changed; `blockpadding` more bytes may
  // be read. Valid until the next call of next.
  struct tline {
    char* text = nullptr;
    std::size_t length = 0;
  };

  // Returns the next line; at the end of the file, a line whose text is null. A line ends at a line feed. One
  // carriage return directly before it, or at the very end of the file, is not part of the line.
  tline next() {
    assert(fbegin != nullptr);  // a file was opened
    char* const feed = findfeed(0);
    return feed != nullptr ? takeline(feed) : nextbyreading();
  }

  const tfilestatus& status() const noexcept { return fstatus; }
  std::int64_t bytesread() const noexcept { return maxbytes() - funread; }
  // The system's error code if reading failed after the system had opened the file, otherwise 0. The lines end
  // at the failure.
  int readerror() const noexcept { return freaderror; }

 private:
  static constexpr std::size_t largestblock = 64 * 1024;
  static constexpr std::size_t smallestblock = 4 * 1024;
  // The largest number of bytes in a file; a longer one ends with the error EFBIG. The number of a line must
  // fit 32 bits. Devices have a lower limit, because some never end.
  static constexpr std::ptrdiff_t maxfile = 0x7FFFFFFF;
  static constexpr std::ptrdiff_t maxdevice = 16 * 1024 * 1024;

  std::ptrdiff_t maxbytes() const noexcept {
    return fstatus.isordinary || fstatus.isfifo ? maxfile : maxdevice;
  }
  void askstatus() noexcept;
  void makeblock();
  int waitforwriter() noexcept;
  bool readmore() noexcept;
  ssize_t readonce() noexcept;
  bool fill() noexcept;
  tline nextbyreading();
  void skiprestofline() noexcept;

  std::size_t unread() const noexcept { return static_cast<std::size_t>(fend - fbegin); }
  // The first line feed of the unread part, or null. The first `searched` characters are known to contain
  // none.
  char* findfeed(std::size_t searched) const noexcept {
    return static_cast<char*>(std::memchr(fbegin + searched, '\n', unread() - searched));
  }
  static tline trimmed(char* line, std::size_t length) noexcept {
    if (length > 0 && line[length - 1] == '\r') --length;
    return {line, std::min(length, maxline)};
  }
  // Takes the line up to `feed`, which must be in the unread part.
  tline takeline(char* feed) noexcept {
    assert(feed >= fbegin && feed < fend);
    char* const line = fbegin;
    fbegin = feed + 1;
    return trimmed(line, static_cast<std::size_t>(feed - line));
  }

  int fdescriptor = -1;
  tfilestatus fstatus;
  twaiting* fwaiting = nullptr;
  int freaderror = 0;
  bool fatend = true;
  std::ptrdiff_t funread = 0;  // how many bytes may still be read
  std::size_t fblocksize = 0;  // enough for a small file: nine files may be open at once
  std::unique_ptr<char[]> fblock;
  char* fbegin = nullptr;  // the unread part of the block
  char* fend = nullptr;
};

}  // namespace optcore
