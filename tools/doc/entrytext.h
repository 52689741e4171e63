// Indicators and the values of entries as texts; dot entries are in symboltexts.h.
#pragma once

#include <string>

#include "options/indicators.h"
#include "options/vksoptions.h"
#include "tools/reading/symboltexts.h"

namespace tool {

// What an indicator is for, as option files have it: "indic e('1')$b".
std::string keytext(const optcore::tvksoptions& store, const optcore::tindicatoritem& item);

// With all its digits, the negative zero as "-0".
std::string numbertext(double value);

}  // namespace tool
