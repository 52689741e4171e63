// Writes the new contents to a file without a name in the same folder, then gives it the name.
#include "tools/writing/replacement.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <optional>

#include "tools/descriptor.h"

namespace tool {

namespace {

// The name under which the system keeps the access list of a file.
constexpr const char* accesslist = "system.posix_acl_access";

// Thrown and caught in this file.
struct tfailure {
  int code;
};

// Throws the system's error code if a system call has failed.
int succeeded(int result) {
  if (result < 0) throw tfailure{errno};
  return result;
}

// Holds all signals back, so that none ends the program while a temporary name exists.
class tsignalsheld {
 public:
  tsignalsheld() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &fbefore);
  }
  ~tsignalsheld() { pthread_sigmask(SIG_SETMASK, &fbefore, nullptr); }
  tsignalsheld(const tsignalsheld&) = delete;
  tsignalsheld& operator=(const tsignalsheld&) = delete;

 private:
  sigset_t fbefore{};
};

void waitfor(int descriptor) {
  pollfd request = {descriptor, POLLOUT, 0};
  poll(&request, 1, -1);
}

std::string foldername(const std::string& path) {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  return folder.empty() ? "." : folder.string();
}

class treplacement {
 public:
  treplacement(const std::string& path, const std::string& model)
      : fmodel(model.empty() ? path : std::filesystem::canonical(model).string()),
        fname(std::filesystem::path(path).filename()),
        ffolder(succeeded(open(foldername(path).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC))) {
    lookatold();
    if (!model.empty()) lookatmodel();
  }
  ~treplacement() {
    if (!ftemporary.empty()) unlinkat(ffolder.get(), ftemporary.c_str(), 0);
  }
  treplacement(const treplacement&) = delete;
  treplacement& operator=(const treplacement&) = delete;

  // The file gets a name when it is complete. Where that is not possible, it is written with a temporary name.
  void run(std::string_view contents) {
    removeleftovers();
    const tdescriptor nameless(openat(ffolder.get(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode()));
    if (nameless.get() >= 0) {
      fill(nameless.get(), contents);
      if (!fexists && link(nameless.get(), fname)) return;
      if (linktemporary(nameless.get())) return rename();
    } else if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL) {
      throw tfailure{errno};
    }
    const tdescriptor named(createtemporary());
    fill(named.get(), contents);
    rename();
  }

 private:
  static constexpr int mosttemporaries = 10;  // as many programs may replace the same file at the same time

  // A file that may not be written is not replaced either.
  void lookatold() {
    struct stat old {};
    if (fstatat(ffolder.get(), fname.c_str(), &old, AT_SYMLINK_NOFOLLOW) != 0) {
      if (errno != ENOENT) throw tfailure{errno};
      return;
    }
    succeeded(faccessat(ffolder.get(), fname.c_str(), W_OK, AT_EACCESS));
    fexists = true;
    fkept = old;
  }

  void lookatmodel() {
    struct stat model {};
    succeeded(stat(fmodel.c_str(), &model));
    fkept = model;
  }

  std::string temporaryname(int number) const {
    constexpr std::size_t longest = 200;  // the system permits 255
    return "." + fname.substr(0, longest) + ".wexcorin-" + std::to_string(number);
  }

  // The contents of a protected file are protected from the beginning.
  mode_t mode() const { return fkept ? 0600 : 0666; }

  int createtemporary() {
    for (int number = 0; number < mosttemporaries; ++number) {
      const std::string name = temporaryname(number);
      const int file = openat(ffolder.get(), name.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode());
      if (file < 0 && errno == EEXIST) continue;
      succeeded(file);
      ftemporary = name;
      return file;
    }
    throw tfailure{EEXIST};
  }

  bool linktemporary(int file) {
    for (int number = 0; number < mosttemporaries && ftemporary.empty(); ++number)
      if (link(file, temporaryname(number))) ftemporary = temporaryname(number);
    return !ftemporary.empty();
  }

  bool link(int file, const std::string& name) const {
    const std::string path = "/proc/self/fd/" + std::to_string(file);
    return linkat(AT_FDCWD, path.c_str(), ffolder.get(), name.c_str(), AT_SYMLINK_FOLLOW) == 0;
  }

  void rename() {
    succeeded(renameat(ffolder.get(), ftemporary.c_str(), ffolder.get(), fname.c_str()));
    ftemporary.clear();
  }

  void fill(int file, std::string_view contents) const {
    flock(file, LOCK_EX | LOCK_NB);  // says that its temporary name is no leftover
    if (const int code = writeall(file, contents); code != 0) throw tfailure{code};
    if (fkept) keepattributes(file);
    // Some file systems report only here that the contents could not be written.
    if (fsync(file) != 0 && errno != EINVAL && errno != EROFS) throw tfailure{errno};
  }

  // Removes temporary names that are left of programs that were killed. The file of a program that still runs
  // is locked.
  void removeleftovers() const {
    for (int number = 0; number < mosttemporaries; ++number) {
      const std::string name = temporaryname(number);
      const tdescriptor file(
          openat(ffolder.get(), name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
      struct stat opened {
      }, named{};
      if (file.get() >= 0 && flock(file.get(), LOCK_EX | LOCK_NB) == 0 && fstat(file.get(), &opened) == 0 &&
          fstatat(ffolder.get(), name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(opened.st_mode) &&
          opened.st_dev == named.st_dev && opened.st_ino == named.st_ino)
        unlinkat(ffolder.get(), name.c_str(), 0);
    }
  }

  // Gives the file the owner, group, mode and access list of the old one or of the model, and no list that the
  // folder gives new files. Where the group cannot be kept, its members get no more than everybody has.
  void keepattributes(int file) const {
    mode_t mode = fkept->st_mode & 07777;
    const bool keepsgroup = fchown(file, static_cast<uid_t>(-1), fkept->st_gid) == 0;
    const bool keepsowner = fchown(file, fkept->st_uid, static_cast<gid_t>(-1)) == 0;
    if (!keepsgroup || !keepsowner) mode &= 0777;
    if (!keepsgroup) mode = (mode & 0707) | ((mode & 07) << 3);
    if (fgetxattr(file, accesslist, nullptr, 0) > 0) succeeded(fremovexattr(file, accesslist));
    succeeded(fchmod(file, mode));
    if (keepsgroup) keepaccesslist(file);
  }

  void keepaccesslist(int file) const {
    std::array<char, 65536> list;  // none is longer
    const ssize_t size = lgetxattr(fmodel.c_str(), accesslist, list.data(), list.size());
    if (size > 0) succeeded(fsetxattr(file, accesslist, list.data(), static_cast<std::size_t>(size), 0));
  }

  std::string fmodel, fname;  // the file whose permissions are kept; the name of the file that is written
  tdescriptor ffolder;
  bool fexists = false;              // the file that is written
  std::optional<struct stat> fkept;  // what is kept of the model; nothing if it does not exist
  std::string ftemporary;            // the temporary name of the new file; empty while it has none
};

}  // namespace

std::int32_t writeall(int descriptor, std::string_view contents) {
  while (!contents.empty()) {
    const ssize_t count = write(descriptor, contents.data(), contents.size());
    if (count > 0)
      contents.remove_prefix(static_cast<std::size_t>(count));
    else if (count == 0)
      return EIO;
    else if (errno == EAGAIN)  // a pipe that is full, and was opened not to be waited for
      waitfor(descriptor);
    else if (errno != EINTR)
      return errno;
  }
  return 0;
}

std::int32_t replacefile(const std::string& path, std::string_view contents, const std::string& model) {
  try {
    const tsignalsheld held;
    treplacement(path, model).run(contents);
    return 0;
  } catch (const tfailure& failure) {
    return failure.code;
  } catch (const std::filesystem::filesystem_error& failure) {
    return failure.code().value();
  }
}

}  // namespace tool
