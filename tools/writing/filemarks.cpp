// Compares files by device and number.
#include "tools/writing/filemarks.h"

#include <unistd.h>

namespace tool {

void tfilemarks::add(const std::string& path) {
  struct stat file {};
  if (stat(path.c_str(), &file) == 0) add(file);
}

void tfilemarks::addstandardinput() {
  struct stat file {};
  if (fstat(STDIN_FILENO, &file) == 0) add(file);
}

void tfilemarks::add(const struct stat& file) {
  if (S_ISREG(file.st_mode)) fmarks.emplace(file.st_dev, file.st_ino);
}

bool tfilemarks::contains(const struct stat& file) const {
  return S_ISREG(file.st_mode) && fmarks.contains({file.st_dev, file.st_ino});
}

}  // namespace tool
