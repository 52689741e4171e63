// Turns a definition back into text for those who maintain a solver's options: the definition file, a
// Pascal include file with enumerations and maps of the options, and an HTML table.
#pragma once

#include <cstdint>
#include <string_view>

#include "options/definition.h"

namespace optcore {

class tvksoptionwriter {
 public:
  // The definition must outlive the writer.
  explicit tvksoptionwriter(const tdefinition& definition) noexcept : fdefinition(definition) {}

  // Each creates or truncates the file, writes it and returns 0, or the system's code of the first thing that
  // went wrong: opening, writing or closing.

  // A definition file that the definition reader takes back. String lists and groups are not written.
  std::int32_t writedefinition(std::string_view filename) const;
  // Pascal: for each kind of value an enumeration of the options and a map to their numbers.
  std::int32_t writedelphiinc(std::string_view filename) const;
  // A table of all options and synonyms.
  std::int32_t writeashtml(std::string_view filename) const;

 private:
  const tdefinition& fdefinition;
};

}  // namespace optcore
