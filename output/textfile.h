// A text file that is written from beginning to end. Errors do not stop the writing; the first one is kept
// and told at the end, when the data is with the system.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace optcore {

class ttextfile {
 public:
  ttextfile() = default;
  ttextfile(const ttextfile&) = delete;
  ttextfile& operator=(const ttextfile&) = delete;
  ~ttextfile() { close(); }

  // Creates or truncates the file. Returns 0 or the system's code; without an open file writing does nothing.
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
  // Writes what is left and closes. Returns 0 or the code of the first error, that of opening included.
  std::int32_t close() noexcept;

 private:
  static constexpr std::size_t blocksize = 64 * 1024;

  void put(std::string_view text) noexcept {
    if (text.size() >= static_cast<std::size_t>(fend - fnext)) return putinparts(text);
    fnext = std::copy(text.begin(), text.end(), fnext);
  }
  void putinparts(std::string_view text) noexcept;
  void flush() noexcept;

  int fdescriptor = -1;
  std::int32_t ferror = 0;
  std::unique_ptr<char[]> fblock;
  char* fnext = nullptr;  // the room that is left in the block; none unless a file is open
  char* fend = nullptr;
};

}  // namespace optcore
