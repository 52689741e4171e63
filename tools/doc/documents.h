// The documents of a definition that the tool makes itself. Each function returns the text of the whole file,
// in UTF-8, with the texts of the definition escaped as the form requires. The doc command writes the files.
#pragma once

#include <string>
#include <vector>

#include "options/definition.h"
#include "tools/doc/reference.h"

namespace tool {

std::string cdocument(const treference& reference);
std::string markdowndocument(const treference& reference);
std::string jsondocument(const treference& reference);
std::string pagedocument(const treference& reference);

// Return the reasons why the file does not compile; none if it does.
std::vector<std::string> cproblems(const treference& reference);
std::vector<std::string> pascalproblems(const optcore::tdefinition& definition);

}  // namespace tool
