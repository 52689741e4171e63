// Which options of a definition users are told of.
#pragma once

#include "options/definition.h"

namespace tool {

// Whether the help lists the option: it has a help flag above 0 and a group above 0, and no line hides this
// group. Other options are for the developers of the solver; users can name them, but are not shown them.
bool islisted(const optcore::tdefinition& definition, const optcore::toption& option);

}  // namespace tool
