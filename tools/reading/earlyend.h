// Why the reading of a definition ended before its last line.
#pragma once

#include <cstdint>
#include <string>

namespace tool {

// The reason why no definition begins with this line of the file, as the end of a sentence. Empty if there is
// nothing to report: the file is saved as UTF-16, which is a warning of its own, or the line is the last one
// and holds nothing but the byte 26, which once marked the end of a file.
std::string reasonofearlyend(const std::string& path, std::int32_t line);

// Whether the file begins like one that is saved as UTF-16. Only regular files are read.
bool isutf16(const std::string& path);

}  // namespace tool
