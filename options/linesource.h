// What the store needs to know of a scanner that reads for it: where the reading stands, for messages, and
// the echo switch.
#pragma once

#include <cstdint>
#include <string_view>

namespace wexcorin {

class tlinesource {
 public:
  virtual ~tlinesource() = default;
  // The line being read, counted from 1; 0 for sources without lines.
  virtual std::int32_t linenr() const = 0;
  // The file's name, or the word string or pchar for a text in memory.
  virtual std::string_view sourcename() const = 0;
  virtual void setecho(bool echo) = 0;
};

}  // namespace wexcorin
