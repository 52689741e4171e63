// Creates and fills temporary files, and reads standard input.
#include "tools/reading/temporaryfile.h"

#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "input/linereader.h"
#include "output/textfile.h"

namespace tool {

namespace {

[[noreturn]] void fail(const std::string& what, int code = errno) {
  throw std::system_error(code, std::generic_category(), what);
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
  if (const int code = copy.close(); code != 0) fail("cannot write " + fpath, code);
  return true;
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
