// A short text that is the same exactly if all values in force, dot entries and indicators are the same.
// docs/tracing.md says what it is made of.
#pragma once

#include <string>

#include "options/vksoptions.h"

namespace tool {

std::string fingerprint(const optcore::tvksoptions& store);

}  // namespace tool
