// Finds out what the name of an output file stands for, and writes to it.
#include "tools/writing/outputfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <iostream>

#include "base/numtext.h"
#include "tools/text.h"
#include "tools/writing/replacement.h"

namespace tool {

namespace {

using tpath = std::filesystem::path;

constexpr int mostlinks = 40;  // as for the system

// The descriptor of this process that the path stands for: /proc/self/fd/1 is the file that is open as 1, and
// to open that path would begin at its start and not where it is.
std::optional<int> owndescriptor(const tpath& path) {
  std::error_code unknown;
  const tpath folder = std::filesystem::canonical(path.parent_path(), unknown);
  std::int32_t number = 0;
  if (folder.empty() || folder != std::filesystem::canonical("/proc/self/fd", unknown) ||
      !optcore::strasintex(path.filename().string(), number))
    return std::nullopt;
  return number;
}

// Where the link leads, one step.
tpath follow(const tpath& link, std::error_code& problem) {
  const tpath target = std::filesystem::read_symlink(link, problem);
  return target.is_absolute() ? target : link.parent_path() / target;
}

std::int32_t writeto(int descriptor, std::string_view contents) {
  const std::string shown = isatty(descriptor) == 1 ? printabletext(contents) : std::string();
  return writeall(descriptor, shown.empty() ? contents : shown);
}

// Writes to what is no regular file, such as a device or a FIFO.
std::int32_t writedirectly(const std::string& path, std::string_view contents) {
  const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
  if (descriptor < 0) return errno;
  const std::int32_t code = writeto(descriptor, contents);
  return close(descriptor) != 0 && code == 0 ? errno : code;
}

}  // namespace

toutputfile::toutputfile(const std::string& name) : fname(name), fpath(name) {
  if (name == "-") fdescriptor = STDOUT_FILENO;
  struct stat file {};
  if (stat(name.c_str(), &file) != 0 && errno != ENOENT) return;  // the system does not follow this link
  for (int links = 0; links < mostlinks && !fdescriptor; ++links) {
    fdescriptor = owndescriptor(fpath);
    std::error_code problem;
    const tpath target = follow(fpath, problem);
    if (problem) return;  // it is no link
    if (!fdescriptor) fpath = target.string();
  }
}

bool toutputfile::isoneof(const tfilemarks& files) const {
  struct stat file {};
  const int result = fdescriptor ? fstat(*fdescriptor, &file) : stat(fpath.c_str(), &file);
  return result == 0 && files.contains(file);
}

std::int32_t toutputfile::write(std::string_view contents, const std::string& model) const {
  if (fdescriptor) {
    std::cout.flush();
    return writeto(*fdescriptor, contents);
  }
  struct stat file {};
  if (stat(fpath.c_str(), &file) != 0) return errno == ENOENT ? replacefile(fpath, contents, model) : errno;
  if (S_ISDIR(file.st_mode)) return EISDIR;
  return S_ISREG(file.st_mode) ? replacefile(fpath, contents, model) : writedirectly(fpath, contents);
}

}  // namespace tool
