// The work of a client from its first call to its last, as one text of all that it was told: it must be the
// same to the byte in whatever process it is done.
#pragma once

#include <string>

#include "wexcorin/wexcorin.h"

namespace host {

// Reads the examples, and a file that includes itself; asks, sets, writes the file of that name and reads it
// again.
std::string dojob(const std::string& written);

// The parts of it, for those who do something in between.
tvksoptions* begin();
std::string finish(tvksoptions* handle, const std::string& written);

}  // namespace host
