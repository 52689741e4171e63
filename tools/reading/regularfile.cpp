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

// Returns -1 if the path does not lead to a regular file that can be opened. To open a device may do something
// already, so the name is looked at first. What was opened counts, because the name may have become that of
// another file.
int openregular(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return -1;
  const int opened = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (opened < 0 || (fstat(opened, &status) == 0 && S_ISREG(status.st_mode))) return opened;
  close(opened);
  return -1;
}

}  // namespace

tregularfile::tregularfile(const std::string& path) : fpath(path), fdescriptor(openregular(path)) {
  struct stat status {};
  if (isopen() && fstat(fdescriptor.get(), &status) == 0) fsize = static_cast<std::uint64_t>(status.st_size);
}

std::string_view tregularfile::next() {
  if (!isopen() || ffailed) return {};
  fblock.resize(blocksize);
  ssize_t count;
  do count = read(fdescriptor.get(), fblock.data(), std::min<std::uint64_t>(blocksize, fleft));
  while (count < 0 && errno == EINTR);
  ffailed = count < 0;
  if (count <= 0) return {};
  fleft -= static_cast<std::uint64_t>(count);
  return {fblock.data(), static_cast<std::size_t>(count)};
}

std::optional<std::string> tregularfile::contents(std::uint64_t most) {
  if (!isopen() || fsize > most) return std::nullopt;
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
