// Reads a text file in blocks and hands it out line by line. Only the beginning of a very long line is kept.
#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

namespace optcore {

class tlinereader {
 public:
  static constexpr std::size_t maxline = 1020;  // what follows in a line is dropped

  tlinereader() = default;
  tlinereader(const tlinereader&) = delete;
  tlinereader& operator=(const tlinereader&) = delete;
  ~tlinereader() { close(); }

  // Opens the file and reads its first block. Returns 0, or the system's code when one of the two fails, as
  // for a directory, or for a FIFO that no program opens for writing within some seconds (ETIMEDOUT).
  int open(std::string_view filename);
  void close() noexcept;

  // Characters that may be changed, and with them the one behind, until the next line is asked for.
  struct tline {
    char* text = nullptr;
    std::size_t length = 0;
  };

  // The next line; at the end of the file one without text. A line ends at a line feed; one carriage return
  // directly before it, or at the very end of the file, is not part of the line.
  tline next() {
    char* const feed = findfeed(0);
    return feed != nullptr ? takeline(feed) : nextbyreading();
  }

  // The system's code of a read that failed after the file was opened, else 0. The file ends there.
  int readerror() const noexcept { return freaderror; }

 private:
  static constexpr std::size_t blocksize = 64 * 1024;
  // A file ends with the error EFBIG behind this: some devices never end. Lines can be counted in 32 bits.
  static constexpr std::ptrdiff_t maxfile = 0x7FFFFFFF;

  void begin() noexcept;
  bool readmore() noexcept;
  bool fill() noexcept;
  tline nextbyreading();
  void skiprestofline() noexcept;

  std::size_t unread() const noexcept { return static_cast<std::size_t>(fend - fbegin); }
  // The first line feed of the unread part behind so many characters that hold none.
  char* findfeed(std::size_t searched) const noexcept {
    return static_cast<char*>(std::memchr(fbegin + searched, '\n', unread() - searched));
  }
  static tline trimmed(char* line, std::size_t length) noexcept {
    if (length > 0 && line[length - 1] == '\r') --length;
    return {line, std::min(length, maxline)};
  }
  // The line up to the feed, which is in the block.
  tline takeline(char* feed) noexcept {
    assert(feed >= fbegin && feed < fend);
    char* const line = fbegin;
    fbegin = feed + 1;
    return trimmed(line, static_cast<std::size_t>(feed - line));
  }

  int fdescriptor = -1;
  int freaderror = 0;
  bool fatend = false;
  std::ptrdiff_t funread = 0;  // how much may still come
  std::unique_ptr<char[]> fblock;
  char* fbegin = nullptr;  // the unread part of the block
  char* fend = nullptr;
};

}  // namespace optcore
