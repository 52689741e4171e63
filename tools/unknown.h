// Options that a command line names.
#pragma once

#include <cstdint>
#include <string>

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

}  // namespace tool
