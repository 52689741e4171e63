// The changes of a file as a unified diff.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "tools/text.h"

namespace tool {

// Lines of a file that were replaced: whole lines, in bytes of the file before and after.
struct treplacedlines {
  std::size_t before = 0, beforesize = 0;
  std::size_t after = 0, aftersize = 0;
};

// Prints a diff with three lines of context, or nothing if there are no replacements, which must be in the
// order of the file. Control characters are printed as they are if `printable` is not wanted, so that patch(1)
// can use the diff.
void printdiff(std::ostream& stream, const std::string& name, std::string_view before, std::string_view after,
               const std::vector<treplacedlines>& replaced, const tpalette& palette, bool isshown);

}  // namespace tool
