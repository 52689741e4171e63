// A text file that is written from beginning to end, through a buffer. Errors do not stop the caller: the
// first one is kept and returned by close.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "base/waiting.h"

namespace optcore {

class ttextfile {
 public:
  ttextfile() = default;
  ttextfile(const ttextfile&) = delete;
  ttextfile& operator=(const ttextfile&) = delete;
  ~ttextfile() { close(); }

  // Creates or truncates the file. Returns 0 or the system's error code, ETIMEDOUT for a FIFO that no program
  // opens for reading in time. Without an open file, writing does nothing.
  std::int32_t open(std::string_view filename);
  // Writes the texts one after the other.
  template <class... ttexts>
  void write(const ttexts&... texts) {
    (put(texts), ...);
  }
  template <class... ttexts>
  void writeline(const ttexts&... texts) {
    write(texts...);
    put("\n");
  }
  // Writes the rest of the buffer and closes the file. Returns 0 or the code of the first error, including an
  // error of open.
  std::int32_t close() noexcept;

 private:
  static constexpr std::size_t blocksize = 64 * 1024;

  void put(std::string_view text) noexcept {
    if (text.size() >= static_cast<std::size_t>(fend - fnext)) return putinparts(text);
    fnext = std::copy(text.begin(), text.end(), fnext);
  }
  void putinparts(std::string_view text) noexcept;
  void flush() noexcept;

  twaiting fwaiting;
  int fdescriptor = -1;
  std::int32_t ferror = 0;
  std::unique_ptr<char[]> fblock;
  char* fnext = nullptr;  // the free part of the block, up to fend; empty unless a file is open
  char* fend = nullptr;
};

}  // namespace optcore
