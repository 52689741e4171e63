// The documents that `doc` writes from a definition for the reader of today, each as the text of the whole file,
// in UTF-8. Whatever a definition holds is escaped as the form needs it.
#pragma once

#include <string>

#include "tools/reference.h"

namespace tool {

std::string jsondocument(const treference& reference);

}  // namespace tool
