// Where the text of a file is read: usually in the file itself. An editor holds newer texts in memory.
#pragma once

#include <string>

namespace tool {

class ttextsource {
 public:
  virtual ~ttextsource() = default;
  // The path under which the text of the file can be read, as often as it is needed.
  virtual std::string pathof(const std::string& filename) { return filename; }
};

}  // namespace tool
