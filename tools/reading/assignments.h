// Warnings about an option that is set twice with different values, which the library accepts silently.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "options/toption.h"
#include "tools/reading/findings.h"

namespace tool {

// Remembers the last value of each option. There is no warning for
// - a strlist, because it collects texts,
// - a dot option, because its values belong to different symbols,
// - a value that replaces one set by a macro, because a macro is a preset that later lines may refine. A
//   macro that replaces an earlier value is reported.
class tassignments {
 public:
  // To be called after every assignment, with the place of the line that makes it. Returns a warning with
  // both places if the option had another value before. `bits` are those of tstoreobserver::assigned.
  std::optional<tfinding> warning(const optcore::toption& option, std::int32_t bits, const tplace& place);

 private:
  struct tassignment {
    std::string value;
    tplace place;
    bool bymacro;
  };

  bool isreported(const optcore::toption& option, optcore::twhich which, const tplace& place);

  std::unordered_map<const optcore::toption*, std::array<std::optional<tassignment>, 2>> flast;
  const optcore::toption* freported = nullptr;  // the option of the last warning
  tplace freportedplace;
};

}  // namespace tool
