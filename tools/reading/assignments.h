// What the library forgives silently and a user must know: an option that is set twice with different values.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "options/toption.h"
#include "tools/reading/findings.h"

namespace tool {

// Is given each value when it has been stored, and warns, with both places, when the option had received
// another one before. That is no mistake for
// - a strlist, which is meant to collect texts,
// - a dot option, whose values belong to different symbols,
// - a value that replaces one set by a macro: a macro is a preset, which lines of their own may refine. A
//   macro that replaces what was set before it is reported.
class tassignments {
 public:
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
