// The commands. Each prints its result on standard output and problems on standard error, and returns the
// exit code of the tool. The result of `check` is the list of the problems that it finds.
#pragma once

#include "tools/arguments.h"

namespace tool {

inline constexpr int exitclean = 0;
inline constexpr int exitproblems = 1;
inline constexpr int exitunusable = 2;  // wrong use, or a file that cannot be opened, read or written

int run(const tcheckarguments& arguments);
int run(const tshowarguments& arguments);
int run(const tgetarguments& arguments);
int run(const texplainarguments& arguments);
int run(const tfindarguments& arguments);
int run(const thelparguments& arguments);
int run(const tcompletearguments& arguments);
int run(const ttemplatearguments& arguments);
int run(const twritearguments& arguments);
int run(const tdiffarguments& arguments);
int run(const tdocarguments& arguments);
int run(const tlsparguments& arguments);

}  // namespace tool
