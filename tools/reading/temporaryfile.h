// A file that is removed with its object. The library reads and writes files by name only; standard input,
// standard output and what can be read only once go through such a file.
#pragma once

#include <string>
#include <string_view>

namespace tool {

class ttemporaryfile {
 public:
  ttemporaryfile();  // empty
  ~ttemporaryfile();
  ttemporaryfile(const ttemporaryfile&) = delete;
  ttemporaryfile& operator=(const ttemporaryfile&) = delete;

  const std::string& path() const { return fpath; }
  void write(std::string_view bytes) const;
  // Copies what the library would read of each line of the file. False when it cannot be opened.
  bool copylines(const std::string& filename) const;
  std::string contents() const;

 private:
  std::string fpath;
};

// All of standard input; std::system_error when it cannot be read.
std::string readstandardinput();

}  // namespace tool
