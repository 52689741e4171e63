// Findings: the errors and warnings that a command reports, each with the file and line that it is about.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "tools/text.h"

namespace tool {

struct tplace {
  std::string file;
  std::int32_t line = 0;  // from 1; 0 for no particular line
  bool operator==(const tplace&) const = default;
};

// "file:line", or "file"
std::string placetext(const tplace& place);

enum class tseverity {
  error,
  warning,
  plain  // no problem, but a line of help or echoed input, printed without place and label
};

struct tfinding {
  tplace place;
  tseverity severity;
  std::string text;
  std::vector<std::string> details{};      // explanations, printed as notes
  std::vector<std::string> suggestions{};  // names that may have been meant, nearest first
  bool unusable = false;                   // a file could not be opened, read or written
};

using tfindings = std::vector<tfinding>;

std::size_t countof(const tfindings& findings, tseverity severity);

// Writes one line for the finding and one for each of its details.
void writefinding(std::ostream& stream, const tfinding& finding, const tpalette& palette);

// Returns 'did you mean "a", "b" or "c"?', or an empty text if there are no suggestions.
std::string suggestiontext(const std::vector<std::string>& suggestions);

}  // namespace tool
