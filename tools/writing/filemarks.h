// Which files a command reads, so that it does not write over one of them.
#pragma once

#include <sys/stat.h>

#include <set>
#include <string>
#include <utility>

namespace tool {

// Regular files, known by device and number: a file is the same by whatever path and link it is named.
class tfilemarks {
 public:
  // Do nothing if it is no regular file.
  void add(const std::string& path);
  void addstandardinput();
  void add(const tfilemarks& others) { fmarks.insert(others.fmarks.begin(), others.fmarks.end()); }
  bool contains(const struct stat& file) const;

 private:
  void add(const struct stat& file);

  std::set<std::pair<dev_t, ino_t>> fmarks;
};

}  // namespace tool
