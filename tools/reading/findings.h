// Findings: what a user is told, each with the file and line that it is about.
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
  std::vector<std::string> details{};      // further sentences on the same matter
  std::vector<std::string> suggestions{};  // names that may have been meant, nearest first
  bool unopened = false;                   // a file named by the caller could not be opened
};

using tfindings = std::vector<tfinding>;

std::size_t countof(const tfindings& findings, tseverity severity);

// One line for the finding and one for each of its details.
void writefinding(std::ostream& stream, const tfinding& finding, const tpalette& palette);

// 'did you mean "a", "b" or "c"?'; empty without suggestions.
std::string suggestiontext(const std::vector<std::string>& suggestions);

}  // namespace tool
