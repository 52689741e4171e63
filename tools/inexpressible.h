// Settings that an option file cannot express: what the library writes for them would be read as something
// else, or refused.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "options/vksoptions.h"

namespace tool {

struct tinexpressible {
  std::int32_t option;  // from 1; 0: a dot line, an indicator, or what concerns all lines
  std::string text;     // what it is, and why
};

// Values are read to the end of the line, or else word by word. What is not named comes back as it is.
std::vector<tinexpressible> inexpressible(optcore::tvksoptions& store, bool eolonly);

}  // namespace tool
