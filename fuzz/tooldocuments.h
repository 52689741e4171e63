// The documents that the tool writes of a definition, and what must hold of each whatever the definition says.
#pragma once

#include <string>
#include <vector>

#include "options/vksoptions.h"

namespace fuzzing {

// All of them, or in its place why a definition cannot have one. Ends the process where a text of the
// definition gets out of the place that it was written to.
std::vector<std::string> checkeddocuments(const wexcorin::tvksoptions& store);

}  // namespace fuzzing
