// Dot lines and indicators as option files have them.
#pragma once

#include <string>

#include "options/vksoptions.h"

namespace tool {

// The indices or elements in brackets; empty if there are none.
std::string elementstext(const optcore::tpackedtexts& elements);

// For example "x.prio('i')".
std::string keytext(const optcore::tvksoptions& store, const optcore::tdotobj& entry);

}  // namespace tool
