// A temporary file, which the destructor removes. The library reads and writes files by name only, so
// standard input, standard output and files that can be read only once go through such a file. The
// constructor, write and copylines throw std::system_error if they fail.
#pragma once

#include <string>
#include <string_view>

namespace tool {

class ttemporaryfile {
 public:
  ttemporaryfile();  // creates an empty file
  ~ttemporaryfile();
  ttemporaryfile(const ttemporaryfile&) = delete;
  ttemporaryfile& operator=(const ttemporaryfile&) = delete;

  const std::string& path() const { return fpath; }
  void write(std::string_view bytes) const;
  // Copies of each line what the library reads of it. Returns false if the file cannot be opened.
  bool copylines(const std::string& filename) const;
  std::string contents() const;

 private:
  std::string fpath;
};

// Returns all of standard input. Throws std::system_error if it cannot be read.
std::string readstandardinput();

}  // namespace tool
