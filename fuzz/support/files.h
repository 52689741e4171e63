// The files that the library finds while an input runs: bytes in memory under names that the target chooses.
// The library's calls of the system's open end here (the linker redirects them), so that no input reaches the
// file system, whatever names it makes up.
//
// Besides the files there is "/", the directory that no read gets anything from, and "full", which takes no
// byte. Files can be created under names that begin with "out". Any other name does not exist.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fuzzing {

class tfiles {
 public:
  // The one set of the process.
  static tfiles& get();

  void write(std::string_view name, std::string_view bytes);
  // Empty for a file that does not exist.
  std::string read(std::string_view name) const;

  // Before each call of the library: so many files may be opened, then there are "too many open files". Files
  // that include themselves take a bounded time.
  void allowopens() noexcept { fopens = 48; }

  // What the library gets for its call of open.
  int open(const char* name, int flags);
  bool active() const noexcept { return factive; }

 private:
  friend class tinputscope;
  struct tfile {
    std::string name;
    int descriptor;
    bool exists;
  };
  const tfile* find(std::string_view name) const;
  const tfile& create(std::string_view name);
  void clear();

  std::vector<tfile> ffiles;  // descriptors are kept from one input to the next
  int fopens = 0;
  bool factive = false;
};

// For as long as an input runs: begins without files, and what the library prints goes nowhere.
class tinputscope {
 public:
  tinputscope();
  tinputscope(const tinputscope&) = delete;
  tinputscope& operator=(const tinputscope&) = delete;
  ~tinputscope();
};

}  // namespace fuzzing
