// A line of an option file that a user can copy.
#pragma once

#include <string>

#include "tools/doc/reference.h"

namespace tool {

// The line that sets an option to a value; without a value, the key alone. A dot option is set for the symbol
// "symbol".
std::string lineof(const toptionreference& option, const std::string& value, const treference& reference);

// The line that sets an option to its default. Empty if there is no such line that is read without a message:
// for names that are deprecated or obsolete or cannot be typed, and where the members of a macro have different defaults.
std::string readyline(const toptionreference& option, const treference& reference);

}  // namespace tool
