// Creates and fills temporary files, and reads standard input.
#include "tools/reading/temporaryfile.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

#include "input/linereader.h"
#include "output/textfile.h"
#include "tools/outofmemory.h"
#include "tools/reading/regularfile.h"

namespace tool {

namespace {

[[noreturn]] void fail(const std::string& what, int code = errno) {
  throw std::system_error(code, std::generic_category(), what);
}

// Reads up to the end of the file. `what` names it in the error.
std::string readall(int descriptor, const char* what, std::uint64_t most = tregularfile::mostbytes) {
  std::string result;
  std::array<char, 65536> block;
  for (;;) {
    const ssize_t count = read(descriptor, block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) fail(std::string("cannot read ") + what);
    if (count == 0) return result;
    result.append(block.data(), static_cast<std::size_t>(count));
    if (result.size() > most) fail(std::string("cannot read ") + what, EFBIG);
  }
}

}  // namespace

// The path leads to the descriptor of this process.
ttemporaryfile::ttemporaryfile() : fdescriptor(memfd_create("wexcorin", MFD_CLOEXEC)) {
  if (fdescriptor.get() < 0) fail("cannot create a temporary file");
  fpath = "/proc/self/fd/" + std::to_string(fdescriptor.get());
  if (access(fpath.c_str(), F_OK) != 0)
    fail("cannot use a temporary file without /proc, which has to be mounted");
}

void ttemporaryfile::write(std::string_view bytes) const {
  optcore::ttextfile file;
  file.open(fpath);
  file.write(bytes);
  if (const int code = file.close(); code != 0) fail("cannot write a temporary file", code);
}

// The line reader of the library knows how long to wait for a pipe, and where to stop if a device never ends.
// Each line ends with CR LF, because with LF alone a CR at the end of its text would count as part of the
// line end.
bool ttemporaryfile::copylines(const std::string& filename) const {
  optcore::twaiting waiting;
  optcore::tlinereader source;
  if (source.open(filename, waiting) != 0) return false;
  optcore::ttextfile copy;
  copy.open(fpath);
  for (auto line = source.next(); line.text != nullptr; line = source.next())
    copy.write(std::string_view(line.text, line.length), "\r\n");
  if (const int code = source.readerror(); code != 0) fail("cannot read " + filename, code);
  if (const int code = copy.close(); code != 0) fail("cannot write a temporary file", code);
  return true;
}

std::string ttemporaryfile::contents() const {
  if (lseek(fdescriptor.get(), 0, SEEK_SET) < 0) fail("cannot read a temporary file");
  return readall(fdescriptor.get(), "a temporary file");
}

// As the library reads a file of that kind: a device may never end.
std::string readstandardinput() {
  constexpr std::uint64_t mostofdevice = 16 * 1024 * 1024;
  struct stat status {};
  const bool isdevice = fstat(STDIN_FILENO, &status) == 0 && S_ISCHR(status.st_mode);
  return namingfile("standard input", [&] {
    return readall(STDIN_FILENO, "standard input", isdevice ? mostofdevice : tregularfile::mostbytes);
  });
}

}  // namespace tool
