// A temporary file in memory, which stands in no folder, so nothing of it is left whatever ends the program.
// The library reads and writes files by name only, so standard input, files that can be read only once and
// all that is written go through such a file. Its functions throw std::system_error if they fail.
#pragma once

#include <string>
#include <string_view>

#include "tools/descriptor.h"

namespace tool {

class ttemporaryfile {
 public:
  ttemporaryfile();  // creates an empty file

  // Leads to the file as long as this object exists.
  const std::string& path() const { return fpath; }
  void write(std::string_view bytes) const;
  // Copies of each line what the library reads of it. Returns false if the file cannot be opened.
  bool copylines(const std::string& filename) const;
  std::string contents() const;

 private:
  const tdescriptor fdescriptor;
  std::string fpath;
};

// Returns all of standard input. Throws std::system_error if it cannot be read.
std::string readstandardinput();

}  // namespace tool
