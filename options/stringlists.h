// The texts of string lists. Each function takes the option that was found by name; null if there is none.
#pragma once

#include <cstdint>

#include "base/textout.h"
#include "options/definition.h"

namespace optcore {

// The number of texts; -1 if the option is no string list, -2 if there is no option.
std::int32_t listcount(const toption* option);
// These get the text at an index, counted from 1, or remove the first text and get it. The result is 1, 0 if
// there is no such text, or -1 and -2 as above.
std::int32_t readfromlist(const toption* option, std::int32_t index, ttextout& text);
std::int32_t getfromlist(toption* option, ttextout& text);
// Removes the first text of the first list that has one and gets it: for a flag other than 0 from the lists
// whose names begin with two dashes, for 0 from the others. The name that is returned is that of the last list
// that was examined, whether it matched or not.
bool getfromanylist(tdefinition& definition, std::int32_t flag, ttextout& name, ttextout& text);

}  // namespace optcore
