// Dot entries and indicators as texts.
#pragma once

#include <string>

#include "options/dotoptions.h"
#include "options/indicators.h"
#include "options/vksoptions.h"

namespace tool {

// The elements in brackets, as they were written; empty if there are none.
std::string elementstext(const optcore::tpackedtexts& elements);
// What an entry is for: "x.prior('1')" or "indic e('1')$b".
std::string keytext(const optcore::tvksoptions& store, const optcore::tdotobj& entry);
std::string keytext(const optcore::tvksoptions& store, const optcore::tindicatoritem& item);

// With all its digits, the negative zero as "-0".
std::string numbertext(double value);

}  // namespace tool
