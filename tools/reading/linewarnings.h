// Warnings about the bytes of a file: what can be seen of a line without knowing what it means.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "tools/reading/findings.h"

namespace tool {

enum class tfilekind { definition, options };

// Reads the file at `path`, which findings call `name`, up to the line `last`, or whole if that is 0. Only
// regular files are read, because others may give their contents once, and no more than the library reads.
void warnoflines(const std::string& path, const std::string& name, tfilekind kind, std::int32_t last,
                 const std::function<void(tfinding)>& add);

}  // namespace tool
