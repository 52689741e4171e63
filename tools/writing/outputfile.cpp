// Finds out what the name of an output file stands for, and writes to it.
#include "tools/writing/outputfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <iostream>

#include "base/heldsignals.h"
#include "base/numtext.h"
#include "base/systemerror.h"
#include "base/waiting.h"
#include "tools/descriptor.h"
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

// What is written to the descriptor. On a terminal, whatever could control it is escaped; `escaped` then holds
// the text.
std::string_view shownon(int descriptor, std::string_view contents, std::string& escaped) {
  if (isatty(descriptor) != 1) return contents;
  escaped = printabletext(contents);
  return escaped;
}

// Writes to what is no regular file, such as a device or a FIFO. While it was opened, the path could have
// become that of another file, which is not touched.
std::int32_t writedirectly(const std::string& path, std::string_view contents) {
  optcore::twaiting waiting;
  const tdescriptor opened(waiting.open(path.c_str(), O_WRONLY | O_NOFOLLOW));
  std::int32_t code = opened.get() < 0 ? errno : 0;
  struct stat file {};
  if (code == 0 && fstat(opened.get(), &file) != 0) code = errno;
  if (code == 0 && S_ISREG(file.st_mode)) code = EBUSY;
  std::string escaped;
  if (code == 0) code = optcore::writeall(opened.get(), shownon(opened.get(), contents, escaped), &waiting);
  return code == ETIMEDOUT ? noreader : code;
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
    std::string escaped;
    return writeall(*fdescriptor, shownon(*fdescriptor, contents, escaped));
  }
  struct stat file {};
  if (stat(fpath.c_str(), &file) != 0) return errno == ENOENT ? replacefile(fpath, contents, model) : errno;
  if (S_ISDIR(file.st_mode)) return EISDIR;
  return S_ISREG(file.st_mode) ? replacefile(fpath, contents, model) : writedirectly(fpath, contents);
}

std::string_view writeproblem(std::int32_t code) {
  return code == noreader ? "No program reads from it" : optcore::systemerrortext(code);
}

}  // namespace tool
