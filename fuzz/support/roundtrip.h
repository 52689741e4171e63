// What was set is written as a parameter file, read into a fresh store of the same definition, and written
// again: the bytes must be the same and nothing may be refused on the way.
//
// Not all settings can be expressed in a parameter file. The exceptions are named in roundtrip.cpp, where
// each one is decided on; options with such a value are reset before.
#pragma once

#include "fuzz/support/pair.h"

namespace fuzzing {

// With the file read to the end of the line or word by word.
void checkroundtrip(tpair& pair, bool eolonly);

}  // namespace fuzzing
