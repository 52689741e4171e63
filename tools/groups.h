// Groups of options that a command line names.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "tools/doc/reference.h"
#include "tools/reading/reading.h"

namespace tool {

// The groups that the help lists, in the order of the definition.
std::vector<tgroupreference> listedgroups(const treference& reference);

// The position in `groups`, from 0, of the group with this name or title, whatever the case; blanks may stand for
// underscores.
std::optional<std::size_t> groupnamed(const std::vector<tgroupreference>& groups, const std::string& name);

// The names of the groups, as suggestions and for completions.
std::vector<std::string> namesof(const std::vector<tgroupreference>& groups);

// For example "the groups are general, limits and tolerances".
std::string groupstext(const std::vector<tgroupreference>& groups);

// Warns if none of the options is listed.
void warnifnoneislisted(const treference& reference, treading& reading);

}  // namespace tool
