// What the targets share about their inputs: the definition that has everything, the switches that the first
// bytes of an input choose, and the parts of a text.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "fuzz/support/pair.h"

namespace fuzzing {

// A definition with every type and sub-type, lists, macros, synonyms, groups, marks, dot options, immediate
// options of each kind, an indicator keyword and comment characters, for lookup mode `mode` (0, 1, 2).
std::string richdefinition(int mode);

// The bits of one or two bytes; a printable byte serves, so that inputs can be written by hand.
class tswitches {
 public:
  // Takes them from the front of the input.
  explicit tswitches(std::string_view& input);
  int lookupmode() const noexcept { return static_cast<int>(fbits % 4 % 3); }
  bool eolonly() const noexcept { return (fbits & 4) == 0; }
  bool echo() const noexcept { return (fbits & 8) != 0; }
  bool nobounds() const noexcept { return (fbits & 16) != 0; }
  bool writeeolonly() const noexcept { return (fmore & 4) == 0; }
  bool recent() const noexcept { return (fmore & 8) == 0; }

  // Sets the pair's flags.
  void apply(tpair& pair) const;
  // Reads the text: as a file, as one text, or line by line as texts of up to 255 characters.
  void read(tpair& pair, std::string_view text) const;

 private:
  static unsigned next(std::string_view& input);
  unsigned fbits;
  unsigned fmore;
};

// What stands before and behind the first line "%%"; all of it stands before where there is none.
std::pair<std::string_view, std::string_view> split(std::string_view text);
// The next line, without its end.
std::string_view nextline(std::string_view& text);

}  // namespace fuzzing
