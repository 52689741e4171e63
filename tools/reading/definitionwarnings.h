// Warnings about a definition that has been read: what the library accepts, but is likely to be a mistake.
#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "tools/reading/definitionlines.h"
#include "tools/reading/findings.h"

namespace tool {

// What is told of a line to which a finding is related.
inline constexpr std::string_view definedhere = "is defined here";

struct tholder {
  std::string text;  // which option or synonym has a name, and where
  std::int32_t line = 0;
};
// Which option or synonym of the definition has this name; empty if none has.
tholder holderof(std::string_view name, const optcore::tdefinition& definition, tdefinitionlines& lines);

// The warnings in the order of their lines. `reported` are the lines whose names are known to be duplicates.
tfindings definitionwarnings(const optcore::tdefinition& definition, tdefinitionlines& lines,
                             const std::string& file, const std::set<std::int32_t>& reported);

}  // namespace tool
