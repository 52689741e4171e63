// The documents that `doc` writes from a definition for the reader of today, each as the text of the whole
// file, in UTF-8. Whatever a definition holds is escaped as the form needs it.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "tools/doc/reference.h"

namespace tool {

// A definition cannot have the document; the reasons are what is wrong with it.
class trefuseddocument : public std::runtime_error {
 public:
  explicit trefuseddocument(std::vector<std::string> reasons)
      : std::runtime_error(reasons.front()), freasons(std::move(reasons)) {}
  const std::vector<std::string>& reasons() const noexcept { return freasons; }

 private:
  std::vector<std::string> freasons;
};

std::string cdocument(const treference& reference);  // trefuseddocument when two names become one
std::string markdowndocument(const treference& reference);
std::string jsondocument(const treference& reference);
std::string pagedocument(const treference& reference);

}  // namespace tool
