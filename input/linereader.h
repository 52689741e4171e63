// Reads a text file in blocks and hands it out line by line. Only the beginning of a very long line is kept.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace wexcorin {

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

  // Finds the next line; false at the end of the file. A line ends at a line feed; one carriage return
  // directly before it, or at the very end of the file, is not part of the line. `line` and `length` describe
  // characters that the caller may change, and with them the one behind, valid until the next call.
  bool next(char*& line, std::size_t& length);

  // The system's code of a read that failed after the file was opened, else 0. The file ends there.
  int readerror() const noexcept { return freaderror; }

 private:
  static constexpr std::size_t blocksize = 64 * 1024;
  // A file ends with the error EFBIG behind this: some devices never end. Lines can be counted in 32 bits.
  static constexpr std::ptrdiff_t maxfile = 0x7FFFFFFF;

  void begin() noexcept;
  bool readmore() noexcept;
  bool fill() noexcept;
  bool nextbyreading(char*& line, std::size_t& length);
  void takeline(const void* feed, char*& line, std::size_t& length) noexcept;
  static void trimline(const char* line, std::size_t& length) noexcept;
  const void* findfeed(std::size_t searched) const noexcept;
  void skiprestofline() noexcept;

  int fdescriptor = -1;
  int freaderror = 0;
  bool fatend = false;
  std::ptrdiff_t funread = 0;  // how much may still come
  std::unique_ptr<char[]> fblock;
  std::size_t fbegin = 0;  // the unread part of the block
  std::size_t fend = 0;
};

}  // namespace wexcorin
