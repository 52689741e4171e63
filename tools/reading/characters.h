// The kinds of characters that matter in lines of definitions and option files.
#pragma once

#include "base/textcase.h"

namespace tool {

inline bool isblank(char character) { return character == ' ' || character == '\t'; }

inline bool isnamecharacter(char character) {
  return optcore::isletter(character) || optcore::isdigit(character) || character == '_';
}

}  // namespace tool
