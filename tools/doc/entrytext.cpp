// Writes indicators as option files have them.
#include "tools/doc/entrytext.h"

#include <cmath>

#include "tools/doc/shownvalue.h"

namespace tool {

using namespace optcore;

std::string keytext(const tvksoptions& store, const tindicatoritem& item) {
  return std::string(store.definition().dotname()) + " " + std::string(item.equation().name()) +
         elementstext(item.equation().elements()) + "$" + std::string(item.variable().name()) +
         elementstext(item.variable().elements());
}

std::string numbertext(double value) { return value == 0 && std::signbit(value) ? "-0" : shown(value).text; }

}  // namespace tool
