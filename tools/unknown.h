// Options that a command line names.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "options/vksoptions.h"

namespace tool {

// The index, from 0, of the option that has this name or synonym; blanks may stand for underscores. Below 0 if
// there is none.
std::int32_t optionnamed(const optcore::tvksoptions& store, std::string name);

// Prints on standard error that there is no such option, and which ones have similar names. Without any, it
// prints how to search the texts of the definition.
void reportunknown(const optcore::tvksoptions& store, const std::string& name);
// The same for a text that no option contains.
void reportnotfound(const optcore::tvksoptions& store, const std::string& text);
// The same for a name that neither an option nor one of the groups has. Returns false if it had nothing to suggest.
bool reportunknown(const optcore::tvksoptions& store, const std::string& name,
                   const std::vector<std::string>& groups);
// The same for the name of a group. `known` tells which groups there are.
void reportunknowngroup(const std::string& name, const std::vector<std::string>& groups,
                        const std::string& known);

}  // namespace tool
