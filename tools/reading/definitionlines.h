// The lines on which the entries of a definition begin.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "options/definition.h"
#include "options/observer.h"

namespace tool {

class tdefinitionlines {
 public:
  void add(const optcore::tentry& entry);

  // The lines of entries, given by their positions in the definition. 0 for the option that every definition
  // has. To be called after reading, or when the last entry that was told of is in the definition.
  std::int32_t ofoption(const optcore::tdefinition& definition, std::int32_t index);
  std::int32_t ofvalue(const optcore::tdefinition& definition, std::int32_t index, std::int32_t value);
  std::int32_t ofsynonym(std::int32_t position) const { return at(fsynonyms, position); }
  std::int32_t ofgroup(std::int32_t position) const { return at(fgroups, position); }
  // The line of the option that is being read.
  std::int32_t last() const { return foptions.empty() ? 0 : foptions.back().line; }

 private:
  using tlines = std::vector<std::int32_t>;
  struct toptionlines {
    std::string name;
    std::int32_t line = 0;
    tlines values{};
  };
  static std::int32_t at(const tlines& lines, std::int32_t position) {
    return static_cast<std::size_t>(position) < lines.size() ? lines[static_cast<std::size_t>(position)] : 0;
  }
  const toptionlines* find(const optcore::tdefinition& definition, std::int32_t index);

  std::vector<toptionlines> foptions;  // all that were told of
  std::vector<std::size_t>
      fmatching{};        // for each option of the definition but the first, its position there
  std::size_t fnext = 0;  // from here on they are not yet matched
  tlines fsynonyms, fgroups;
};

}  // namespace tool
