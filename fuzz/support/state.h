// Asks a pair of handles everything that the interface answers, and checks that the answers fit together:
// counts with what can be fetched, names with numbers, values with values.
#pragma once

#include "fuzz/support/pair.h"

namespace fuzzing {

// The first messages, for what an assertion has to say.
std::string messages(tpair& pair);

void checkmessages(tpair& pair);
void checkoption(tpair& pair, std::int32_t number);
// All of it; of options that hold nothing of their own only where the definition is part of the input.
enum class tscope { everything, whatisset };
void checkstate(tpair& pair, tscope scope);

}  // namespace fuzzing
