// Counts what one call reads, and how much of it again. Files that name each other can be read many times.
// Without a bound, a small file would take any amount of memory and time.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <utility>

namespace optcore {

// What the system says about an open file.
struct tfilestatus {
  dev_t device = 0;
  ino_t number = 0;       // names the file on its device, whatever its path is
  std::int64_t size = 0;  // of an ordinary file
  bool isordinary = false;
  bool isfifo = false;
};

class tbytesread {
 public:
  // Counts a text that the call was given.
  void addtext(std::size_t bytes) noexcept { fdistinct += static_cast<std::int64_t>(bytes); }
  // Whether the bound lets a file be read, which it does until the first refusal. Counts its bytes if so.
  bool admits(const tfilestatus& file);
  bool hasrefused() const noexcept { return fhasrefused; }
  // Counts what was read of a file that was admitted.
  void wasread(const tfilestatus& file, std::int64_t bytes);

 private:
  // As many bytes may always be read again.
  static constexpr std::int64_t freebytes = 32 * 1024;
  // How often all bytes may be read again on average.
  static constexpr std::int64_t mosttimes = 2;

  std::map<std::pair<dev_t, ino_t>, std::int64_t> ffiles;  // with their sizes
  std::int64_t fdistinct = 0;  // bytes of texts, files and FIFOs, each counted once
  std::int64_t fagain = 0;     // bytes of files that were read before
  bool fhasrefused = false;
};

}  // namespace optcore
