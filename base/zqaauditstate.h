// The global state of the release data unit, for zqaaudit.cpp and zqaauditmore.cpp alone.
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

// The text without its first six and its last six characters, padded with blanks or cut to 78 characters.
shortstring zqabetweenmarks(std::string_view text);

}  // namespace optcore
