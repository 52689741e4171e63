// Follows the help of the library.
#include "tools/reading/listedoptions.h"

namespace tool {

bool islisted(const optcore::tdefinition& definition, const optcore::toption& option) {
  if (!option.islisted() || option.groupnr() <= 0) return false;
  const std::int32_t group = definition.groupwithnumber(option.groupnr());
  return group < 0 || definition.groups().getobject(group)->islisted();
}

}  // namespace tool
