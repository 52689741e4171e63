// Writes dot entries and indicators as option files have them.
#include "tools/doc/entrytext.h"

#include <cmath>

#include "tools/doc/shownvalue.h"

namespace tool {

using namespace optcore;

std::string elementstext(const tpackedtexts& elements) {
  std::string result;
  for (std::int32_t i = 0; i < elements.count(); ++i)
    result.append(i == 0 ? "(" : ",").append(elements.get(i));
  return result.empty() ? result : result + ")";
}

std::string keytext(const tvksoptions& store, const tdotobj& entry) {
  return std::string(entry.name()).append(store.definition().getstrings(entry.optionindex())) +
         elementstext(entry.indices());
}

std::string keytext(const tvksoptions& store, const tindicatoritem& item) {
  return std::string(store.definition().dotname()) + " " + std::string(item.equation().name()) +
         elementstext(item.equation().elements()) + "$" + std::string(item.variable().name()) +
         elementstext(item.variable().elements());
}

std::string numbertext(double value) { return value == 0 && std::signbit(value) ? "-0" : shown(value).text; }

}  // namespace tool
