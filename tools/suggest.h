// "Did you mean": for an unknown name, the known ones that are written most like it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/findings.h"
#include "tools/handle.h"

namespace tool {

// The number of insertions, deletions, replacements and swaps of neighbours that lead from a to b; the
// letters A to Z are equal in both cases.
std::size_t editdistance(std::string_view a, std::string_view b);

enum class tmatch {
  near,         // written almost alike
  nearorlonger  // or beginning with what was typed
};

// At most three candidates that may be meant by `typed`, nearest first, otherwise in the given order.
std::vector<std::string> nearest(std::string_view typed, const std::vector<std::string>& candidates,
                                 tmatch match);

// The names and synonyms that can be typed as a key.
std::vector<std::string> keynames(const thandle& handle);

// Completes the findings that report an unknown option, dot option or enumerated value.
void addsuggestions(const thandle& handle, tfindings& findings);

}  // namespace tool
