// A text file that is written from beginning to end.
#include "output/textfile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

#include "base/heldsignals.h"

namespace optcore {

std::int32_t ttextfile::open(std::string_view filename) {
  close();
  fblock = std::make_unique_for_overwrite<char[]>(blocksize);
  const std::string name(filename);
  if (name.find('\0') != std::string::npos)
    return ferror = ENOENT;  // the system would ignore the rest of the name
  fdescriptor = fwaiting.open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC);
  ferror = fdescriptor < 0 ? errno : 0;
  if (ferror != 0) return ferror;
  fnext = fblock.get();
  fend = fnext + blocksize;
  return 0;
}

// Writes a text that fills the block or does not fit in it.
void ttextfile::putinparts(std::string_view text) noexcept {
  if (fdescriptor < 0) return;
  while (!text.empty()) {
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(fend - fnext));
    std::memcpy(fnext, text.data(), length);
    fnext += length;
    text.remove_prefix(length);
    if (fnext == fend) flush();
  }
}

void ttextfile::flush() noexcept {
  if (ferror == 0) ferror = writeall(fdescriptor, {fblock.get(), fnext}, &fwaiting);
  fnext = fblock.get();
}

std::int32_t ttextfile::close() noexcept {
  if (fdescriptor < 0) return ferror;
  flush();
  fnext = fend = nullptr;
  const int descriptor = fdescriptor;
  fdescriptor = -1;
  const int error = ::close(descriptor) == 0 || errno == EINTR ? 0 : errno;
  if (ferror == 0) ferror = error;
  return ferror;
}

}  // namespace optcore
