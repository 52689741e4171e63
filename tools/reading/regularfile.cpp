// Reads a regular file in blocks.
#include "tools/reading/regularfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "tools/outofmemory.h"

namespace tool {

namespace {

constexpr std::size_t blocksize = 64 * 1024;

}  // namespace

// To open a device may do something already, so the name is looked at first. What was opened counts, because
// the name may have become that of another file.
tregularfile::tregularfile(const std::string& path) : fpath(path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return;
  fdescriptor = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (fdescriptor < 0) return;
  if (fstat(fdescriptor, &status) == 0 && S_ISREG(status.st_mode)) {
    fsize = static_cast<std::uint64_t>(status.st_size);
  } else {
    close(fdescriptor);
    fdescriptor = -1;
  }
}

tregularfile::~tregularfile() {
  if (fdescriptor >= 0) close(fdescriptor);
}

std::string_view tregularfile::next() {
  if (fdescriptor < 0 || ffailed) return {};
  fblock.resize(blocksize);
  ssize_t count;
  do count = read(fdescriptor, fblock.data(), std::min<std::uint64_t>(blocksize, fleft));
  while (count < 0 && errno == EINTR);
  ffailed = count < 0;
  if (count <= 0) return {};
  fleft -= static_cast<std::uint64_t>(count);
  return {fblock.data(), static_cast<std::size_t>(count)};
}

std::optional<std::string> tregularfile::contents(std::uint64_t most) {
  if (fdescriptor < 0 || fsize > most) return std::nullopt;
  return namingfile(fpath, [&]() -> std::optional<std::string> {
    std::string result;
    result.reserve(fsize);
    for (auto part = next(); !part.empty(); part = next()) {
      if (part.size() > most - result.size()) return std::nullopt;
      result.append(part);
    }
    if (ffailed) return std::nullopt;
    return result;
  });
}

}  // namespace tool
