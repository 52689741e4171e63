// From the library's messages to findings: what a user is told, with file and line. The file is the one whose
// reading the message fell in, nested files included; the line is taken from the front of the message.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "tools/handle.h"
#include "tools/text.h"

namespace tool {

struct tplace {
  std::string file;
  std::int32_t line = 0;  // from 1; 0: nowhere in particular
  bool operator==(const tplace&) const = default;
};

// "file:line", or "file"
std::string placetext(const tplace& place);

enum class tseverity {
  error,
  warning,
  plain  // a line of help that a file asked for: shown as it is, no finding
};

struct tfinding {
  tplace place;
  tseverity severity;
  std::string text;
  std::vector<std::string> details{};      // the library's further messages on the same matter
  std::vector<std::string> suggestions{};  // names that may have been meant, nearest first
  bool unopened = false;                   // a file named by the caller could not be opened
};

using tfindings = std::vector<tfinding>;

// A finding of the tool's own; it stands in front of message number `before`.
struct tinsertion {
  std::int32_t before;
  tfinding finding;
};

// What the messages say that the reading of one source has left; of equal findings that follow each other,
// one. `numbered` is false for a source without lines.
tfindings collectfindings(const thandle& handle, const std::string& source, bool numbered,
                          const std::vector<tinsertion>& insertions);

std::size_t countof(const tfindings& findings, tseverity severity);

// One line for the finding and one for each of its details.
void writefinding(std::ostream& stream, const tfinding& finding, const tpalette& palette);

// 'did you mean "a", "b" or "c"?'; empty without suggestions.
std::string suggestiontext(const std::vector<std::string>& suggestions);

}  // namespace tool
