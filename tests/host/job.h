// The work of a client from its first call to its last, as one text of all that it was told: it must be the
// same to the byte in whatever process it is done.
#pragma once

#include "wexcorin/wexcorin.hpp"

namespace host {

// Reads the examples, and a file that includes itself; asks, sets, writes the file of that name and reads it
// again.
std::string dojob(const std::string& written);

// The parts of it, for those who do something in between.
wexcorin::options begin();
std::string finish(wexcorin::options& options, const std::string& written);

}  // namespace host
