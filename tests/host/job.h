// All the work of a client. Its result is one text with everything that the library returned, which must have
// the same bytes in every process.
#pragma once

#include "wexcorin/wexcorin.hpp"

namespace host {

// Reads the examples, and a file that includes itself. Queries and sets options, writes the file `written`
// and reads it again.
std::string dojob(const std::string& written);

// The two parts of dojob, for tests that do something in between.
wexcorin::options begin();
std::string finish(wexcorin::options& options, const std::string& written);

}  // namespace host
