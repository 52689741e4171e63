// What lines did with an option, in words. The texts are not yet safe to print.
#pragma once

#include <string>
#include <vector>

#include "tools/tracing/touches.h"

namespace tool {

// For example "stored 8; overridden later".
std::string resulttext(const ttouches& touches, const ttouch& touch);

// The values in force with their origins, for example "8, from main.opt:9": one or two. Empty if there is none.
std::vector<std::string> forcetexts(const ttouches& touches);

}  // namespace tool
