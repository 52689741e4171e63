// The documents of a definition that the tool makes itself. Each function returns the text of the whole file,
// in UTF-8, with the texts of the definition escaped as the form requires. The doc command writes the files.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "tools/doc/reference.h"

namespace tool {

// Thrown if a document cannot be made from a definition. There is at least one reason.
class trefuseddocument : public std::runtime_error {
 public:
  explicit trefuseddocument(std::vector<std::string> reasons)
      : std::runtime_error(reasons.front()), freasons(std::move(reasons)) {}
  const std::vector<std::string>& reasons() const noexcept { return freasons; }

 private:
  std::vector<std::string> freasons;
};

std::string cdocument(const treference& reference);  // throws trefuseddocument if two names become one
std::string markdowndocument(const treference& reference);
std::string jsondocument(const treference& reference);
std::string pagedocument(const treference& reference);

}  // namespace tool
