// What was set is written as a parameter file, read into a fresh store of the same definition, and written
// again: the bytes must be the same and nothing may be refused on the way, unless the format cannot express
// the settings.
#pragma once

#include "fuzz/support/pair.h"

namespace wexcorin {
class tvksoptions;
}

namespace fuzzing {

// Whether the settings of the store survive writing and reading, read to the end of the line or word by word.
// The exceptions are named in roundtrip.cpp, one function each.
bool isexpressible(wexcorin::tvksoptions& store, bool eolonly);

void checkroundtrip(tpair& pair, bool eolonly);

}  // namespace fuzzing
