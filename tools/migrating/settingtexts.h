// Writes what was set as settings of the newer definition.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/migrating/outcome.h"

namespace tool {

// The value as it stands in a line, in double quotes if it needs them.
std::string writtenvalue(const optcore::tdefinition& definition, const std::string& text);

// A setting for each option and list, to be read in this mode; nothing if one of them cannot be written. Dot
// entries and indicators are not written.
std::optional<std::vector<std::string>> settingtexts(const optcore::tdefinition& definition,
                                                     const toutcome& outcome, bool eolonly);

// Moves the numbers that are out of the bounds of their options to the nearest bound. Returns what was moved,
// as texts.
std::vector<std::string> clamp(toutcome& outcome);

}  // namespace tool
