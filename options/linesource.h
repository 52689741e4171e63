// The interface through which the message list sees the scanner: the source that is read and the current
// line. The scanner, tminiparser in input/, implements it.
#pragma once

#include <cstdint>
#include <string_view>

namespace optcore {

class tactivesource;

enum class tsourcekind : std::uint8_t { file, string, pchar };

class tlinesource {
 public:
  virtual ~tlinesource() = default;
  // The line being read, counted from 1; 0 before the first line and for sources without lines.
  virtual std::int32_t linenr() const = 0;
  virtual tsourcekind sourcekind() const = 0;
  // The file's name, or the word string or pchar for a text in memory.
  virtual std::string_view sourcename() const = 0;
  // The line being read, of at most 1,020 characters; empty when there is none. A value of more than 255
  // characters may have been shortened in it already.
  virtual std::string_view linetext() const = 0;

  // The source that includes this one, at its current line; null if there is none. Set by tactivesource.
  const tlinesource* includer() const noexcept { return fincluder; }

 private:
  friend class tactivesource;
  const tlinesource* fincluder = nullptr;
};

}  // namespace optcore
