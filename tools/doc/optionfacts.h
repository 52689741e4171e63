// What a definition says about one option, in the order in which it is shown to people.
#pragma once

#include <string>
#include <vector>

#include "tools/doc/reference.h"

namespace tool {

struct toptionfact {
  const char* title;
  std::string text;
};

// The option of this index, which `reference` describes. Facts that it does not have are left out.
std::vector<toptionfact> factsof(const optcore::tvksoptions& store, std::int32_t index,
                                 const toptionreference& reference);

// For example "deprecated; use threads"; empty for a name that is neither deprecated nor obsolete.
std::string standingtext(const tnamestanding& standing);

}  // namespace tool
