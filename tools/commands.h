// The commands. Each prints its result on standard output, what stands in its way on standard error, and
// returns the tool's exit code.
#pragma once

#include "tools/arguments.h"

namespace tool {

inline constexpr int exitclean = 0;
inline constexpr int exitproblems = 1;
inline constexpr int exitunusable = 2;  // wrong use, or a file that cannot be opened

int run(const tcheckarguments& arguments);
int run(const tshowarguments& arguments);
int run(const thelparguments& arguments);
int run(const twritearguments& arguments);
int run(const tdocarguments& arguments);

}  // namespace tool
