// A value as the tool shows it: as text for people, in the form that definition and option files have, and as
// JSON. Both are UTF-8.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "options/toption.h"

namespace tool {

struct tshownvalue {
  std::string text;             // empty where there is none
  nlohmann::ordered_json json;  // null where there is none
};

// With words for the limits of their range, and doubles with all digits.
tshownvalue shown(std::int32_t value);
tshownvalue shown(double value);
tshownvalue shown(std::string_view value);
// A boolean option's; the text is the number.
tshownvalue shownboolean(std::int32_t value);
// An enumint option's: a plain number.
tshownvalue shownnumber(std::int32_t value);

// What an option has now: what was set, or else its default. A list has all its texts; multilists, macros and
// immediate options have nothing.
tshownvalue currentvalue(const optcore::toption& option, optcore::twhich which);

}  // namespace tool
