// Files in memory, and the function that the linker puts in the place of the system's open.
#include "fuzz/support/files.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>

#include "fuzz/support/check.h"

// The names that the linker's --wrap makes of "open".
extern "C" int __real_open(const char* name, int flags, ...);
extern "C" int __wrap_open(const char* name, int flags, ...);

extern "C" int __wrap_open(const char* name, int flags, ...) {
  if (fuzzing::tfiles::get().active()) return fuzzing::tfiles::get().open(name, flags);
  mode_t mode = 0;
  if ((flags & O_CREAT) != 0) {
    va_list arguments;
    va_start(arguments, flags);
    mode = va_arg(arguments, mode_t);
    va_end(arguments);
  }
  return __real_open(name, flags, mode);
}

namespace fuzzing {

tfiles& tfiles::get() {
  static tfiles files;
  return files;
}

const tfiles::tfile* tfiles::find(std::string_view name) const {
  for (const tfile& file : ffiles)
    if (file.exists && file.name == name) return &file;
  return nullptr;
}

// An empty file, in the place of one of that name.
const tfiles::tfile& tfiles::create(std::string_view name) {
  for (tfile& file : ffiles) {
    if (file.exists && file.name != name) continue;
    file.name = name;
    file.exists = true;
    FUZZ_CHECK(::ftruncate(file.descriptor, 0) == 0, file.name);
    return file;
  }
  const int descriptor = ::memfd_create("fuzz", MFD_CLOEXEC);
  FUZZ_CHECK(descriptor >= 0, "no file in memory: errno " + std::to_string(errno));
  return ffiles.emplace_back(tfile{std::string(name), descriptor, true});
}

void tfiles::clear() {
  for (tfile& file : ffiles) file.exists = false;
}

void tfiles::write(std::string_view name, std::string_view bytes) {
  const tfile& file = create(name);
  const ssize_t written = ::pwrite(file.descriptor, bytes.data(), bytes.size(), 0);
  FUZZ_CHECK(written == static_cast<ssize_t>(bytes.size()), file.name);
}

std::string tfiles::read(std::string_view name) const {
  const tfile* file = find(name);
  struct stat status {};
  if (file == nullptr || ::fstat(file->descriptor, &status) != 0) return {};
  std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
  FUZZ_CHECK(::pread(file->descriptor, bytes.data(), bytes.size(), 0) == status.st_size, file->name);
  return bytes;
}

int tfiles::open(const char* name, int flags) {
  const auto failed = [](int code) {
    errno = code;
    return -1;
  };
  if (fopens-- <= 0) return failed(EMFILE);
  const std::string_view wanted(name);
  const bool iswriting = (flags & O_ACCMODE) != O_RDONLY;
  if (wanted == "/") return __real_open(name, flags & ~O_CREAT);
  if (wanted == "full" && iswriting) return __real_open("/dev/full", O_WRONLY | O_CLOEXEC);
  const tfile* file = find(wanted);
  if (file == nullptr && iswriting && wanted.substr(0, 3) == "out") file = &create(wanted);
  if (file == nullptr) return failed(iswriting ? EACCES : ENOENT);
  return __real_open(("/proc/self/fd/" + std::to_string(file->descriptor)).c_str(), flags & ~O_CREAT);
}

tinputscope::tinputscope() {
  tfiles& files = tfiles::get();
  files.clear();
  static const bool issilent = [] {
    const int nowhere = __real_open("/dev/null", O_WRONLY | O_CLOEXEC);
    return nowhere >= 0 && ::dup2(nowhere, STDOUT_FILENO) >= 0 && ::close(nowhere) == 0;
  }();
  FUZZ_CHECK(issilent, "standard output");
  files.factive = true;
}

tinputscope::~tinputscope() { tfiles::get().factive = false; }

}  // namespace fuzzing
