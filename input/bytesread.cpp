// Counts what one call reads.
#include "input/bytesread.h"

#include <algorithm>

namespace optcore {

// A size counts as input when the file is opened for the first time. Devices and the system's own files have
// the size 0: they do not count, because nobody had to write their bytes.
bool tbytesread::admits(const tfilestatus& file) {
  if (fhasrefused || file.isfifo) return !fhasrefused;
  const auto [known, isnew] = ffiles.try_emplace({file.device, file.number}, 0);
  const std::int64_t before = known->second;
  const std::int64_t grown = std::max<std::int64_t>(file.size - before, 0);
  fhasrefused = !isnew && fagain + before > std::max(freebytes, mosttimes * (fdistinct + grown));
  if (fhasrefused) return false;
  fdistinct += grown;
  fagain += before;
  known->second = before + grown;
  return true;
}

// What a FIFO gave cannot be read again.
void tbytesread::wasread(const tfilestatus& file, std::int64_t bytes) {
  if (file.isfifo) {
    fdistinct += bytes;
    return;
  }
  std::int64_t& size = ffiles[{file.device, file.number}];
  size = std::max(size, bytes);
}

}  // namespace optcore
