// The state of the unit, for its two sources alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/shortstring.h"

namespace optcore {

struct tauditstate {
  shortstring systemname, reldat, hdr, cpr, rel, vid, sysver, registration;
  shortstring auditline, auditlinelib;
  std::int32_t jul = 0, today = 0;
};
tauditstate& zqaauditstate();

inline constexpr std::size_t zqasystemnamelength = 16;

// What lies between the first six and the last six characters, padded with blanks or cut to 78.
shortstring zqabetweenmarks(std::string_view text);

}  // namespace optcore
