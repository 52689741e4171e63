// The layout of option files: which blanks a line has. It changes nothing that is read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "options/definition.h"
#include "tools/reading/linespans.h"

namespace tool::lsp {

// A line of an option file without its end.
struct tlaidline {
  std::string_view text;
  bool eolonly;  // whether end-of-line mode is on when its reading begins
};

// The lines with other blanks: none at either end of a line, and in lines that follow each other, and have one
// setting each, the values in one column and the comments in another one. What is quoted, comments, and lines
// that are not understood stay as they are.
std::vector<std::string> aligned(const optcore::tdefinition& definition, const std::vector<tlaidline>& lines);

}  // namespace tool::lsp
