// Files in memory, the function that the linker puts in place of the system's open, and the entry point that
// the fuzzer calls.
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "fuzz/support/target.h"

// The names that the linker option --wrap derives from "open". If the caller passes no mode, the mode is not
// used.
extern "C" int __real_open(const char* name, int flags, mode_t mode);
extern "C" int __wrap_open(const char* name, int flags, mode_t mode);

namespace fuzzing {

namespace {

std::map<std::string, int, std::less<>> files;  // the descriptor of each file
int opens = 0;
bool isrunning = false;
bool opensdescriptors = false;

// Creates a file, or empties the existing one. Returns its descriptor.
int created(std::string_view name) {
  int& file = files.try_emplace(std::string(name), -1).first->second;
  if (file < 0) file = ::memfd_create("fuzz", MFD_CLOEXEC);
  HOLDS(file >= 0 && ::ftruncate(file, 0) == 0, name, errno);
  return file;
}

int open(std::string_view name, int flags) {
  const auto failed = [](int code) { return errno = code, -1; };
  if (opensdescriptors && name.starts_with("/proc/self/fd/"))
    return __real_open(std::string(name).c_str(), flags & ~O_CREAT, 0);
  if (opens-- <= 0) return failed(EMFILE);
  const bool iswriting = (flags & O_ACCMODE) != O_RDONLY;
  if (name == "/") return __real_open("/", flags & ~O_CREAT, 0);
  if (name == "full" && iswriting) return __real_open("/dev/full", O_WRONLY | O_CLOEXEC, 0);
  if (!files.contains(name) && iswriting && name.starts_with("out")) created(name);
  const auto file = files.find(name);
  if (file == files.end()) return failed(iswriting ? EACCES : ENOENT);
  return __real_open(("/proc/self/fd/" + std::to_string(file->second)).c_str(), flags & ~O_CREAT, 0);
}

}  // namespace

void opendescriptors() { opensdescriptors = true; }

void writefile(std::string_view name, std::string_view bytes) {
  const ssize_t written = ::pwrite(created(name), bytes.data(), bytes.size(), 0);
  HOLDS(written == static_cast<ssize_t>(bytes.size()), name);
}

std::string readfile(std::string_view name) {
  const auto file = files.find(name);
  struct stat status {};
  if (file == files.end() || ::fstat(file->second, &status) != 0) return {};
  std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
  HOLDS(::pread(file->second, bytes.data(), bytes.size(), 0) == status.st_size, name);
  return bytes;
}

int filedescriptor(std::string_view name) {
  const auto file = files.find(name);
  return file != files.end() ? file->second : created(name);
}

}  // namespace fuzzing

void bothforms::fail(const char* file, int line, const char* condition, std::initializer_list<tseen> seen) {
  std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, condition);
  for (const tseen& each : seen) std::fprintf(stderr, "%s\n", each.text.c_str());
  std::fflush(stderr);
  std::abort();
}

void bothforms::beforecall() { fuzzing::opens = 48; }

int __wrap_open(const char* name, int flags, mode_t mode) {
  return fuzzing::isrunning ? fuzzing::open(name, flags) : __real_open(name, flags, mode);
}

// Every input begins without files. Output to the standard output is discarded.
int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace fuzzing;
  static const int nowhere = ::dup2(__real_open("/dev/null", O_WRONLY | O_CLOEXEC, 0), STDOUT_FILENO);
  HOLDS(nowhere == STDOUT_FILENO, "standard output");
  isrunning = true;
  run({reinterpret_cast<const char*>(bytes), size});
  isrunning = false;
  for (const auto& [name, file] : files) ::close(file);
  files.clear();
  return 0;
}
