// Follows the writer of option files.
#include "tools/reading/symboltexts.h"

namespace tool {

std::string elementstext(const optcore::tpackedtexts& elements) {
  std::string result;
  for (std::int32_t i = 0; i < elements.count(); ++i)
    result.append(i == 0 ? "(" : ",").append(elements.get(i));
  return result.empty() ? result : result + ")";
}

std::string keytext(const optcore::tvksoptions& store, const optcore::tdotobj& entry) {
  return std::string(entry.name()).append(store.definition().getstrings(entry.optionindex())) +
         elementstext(entry.indices());
}

}  // namespace tool
