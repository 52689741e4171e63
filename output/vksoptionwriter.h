// Writers for those who maintain the options of a solver. They write a definition as a definition file, as a
// Pascal include file with enumerations and maps of the options, and as an HTML table. Each form has a source
// file of its own.
#pragma once

#include <cstdint>
#include <string_view>

#include "options/definition.h"

namespace optcore {

class tvksoptionwriter {
 public:
  // The definition must outlive the writer.
  explicit tvksoptionwriter(const tdefinition& definition) noexcept : fdefinition(definition) {}

  // Each creates or truncates the file and writes it. The result is 0, or the system's code of the first
  // error in opening, writing or closing.

  // A definition file that the definition reader can read back. String lists and groups are not written.
  std::int32_t writedefinition(std::string_view filename) const;
  // Pascal: for each kind of value an enumeration of the options and a map to their numbers.
  std::int32_t writedelphiinc(std::string_view filename) const;
  // A table of all options and synonyms.
  std::int32_t writeashtml(std::string_view filename) const;

 private:
  const tdefinition& fdefinition;
};

}  // namespace optcore
