// Whether what one option takes is taken by another one, too.
#pragma once

#include "options/toption.h"

namespace tool {

bool isdotoption(const optcore::toption& option);

// Every text that the older option takes as its value is taken by the newer one. A text reaches an option
// also through a macro, a multilist or a dot line.
bool takestexts(const optcore::toption& older, const optcore::toption& newer);

// Whatever follows its name on a line, the option takes it.
bool takesanytext(const optcore::toption& option);

// Every line that sets the older option without a message, but no dot line, would set the newer one without a
// message, if it named that one. `manyonline` says that a line may set several options.
bool takeslines(const optcore::toption& older, const optcore::toption& newer, bool manyonline);

// Each line with one value for the option means the same if the option takes two values.
bool takestwovalues(const optcore::toption& older, bool manyonline);

}  // namespace tool
