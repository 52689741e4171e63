// Temporary files, and standard input read to its end.
#include "tools/temporaryfile.h"

#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace tool {

namespace {

[[noreturn]] void fail(const std::string& what) {
  throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

ttemporaryfile::ttemporaryfile()
    : fpath((std::filesystem::temp_directory_path() / "wexcorin-XXXXXX").string()) {
  const int descriptor = mkstemp(fpath.data());
  if (descriptor < 0) fail("cannot create " + fpath);
  close(descriptor);
}

ttemporaryfile::~ttemporaryfile() { unlink(fpath.c_str()); }

void ttemporaryfile::write(std::string_view bytes) const {
  std::ofstream file(fpath, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) fail("cannot write " + fpath);
}

std::string ttemporaryfile::contents() const {
  std::ifstream file(fpath, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string readstandardinput() {
  std::string result;
  std::array<char, 65536> block;
  for (;;) {
    const ssize_t count = read(STDIN_FILENO, block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) fail("cannot read standard input");
    if (count == 0) return result;
    result.append(block.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace tool
