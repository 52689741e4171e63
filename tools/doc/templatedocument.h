// An option file to start from.
#pragma once

#include <string>

#include "tools/doc/reference.h"
#include "tools/doc/settinglines.h"

namespace tool {

// Describes the listed options in comments. Each has a line that sets it to its default, behind a comment
// sign. The text has the bytes of an option file: values in the bytes of the definition, everything else in
// UTF-8.
std::string templatedocument(const treference& reference, tsettinglines& lines);

}  // namespace tool
