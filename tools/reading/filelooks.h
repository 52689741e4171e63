// What a file seems to be, judged by its first lines: whoever names files may mix them up.
#pragma once

#include <string>
#include <vector>

namespace tool {

enum class tlooks {
  unclear,  // also a file that cannot be read, or only once
  definition,
  options
};

// A file looks like a definition if one of its first lines has a name and the keyword of a definition after it,
// as in "threads integer". Otherwise it looks like an option file if it has any line that is no comment.
tlooks looksof(const std::string& filename);
tlooks looksoftext(const std::string& text);

// The first lines of a regular file; empty if it cannot be read.
std::vector<std::string> firstlines(const std::string& filename);

}  // namespace tool
