// A value as the tool shows it: as text for people, in the form that definition and option files have, and as
// JSON.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

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

}  // namespace tool
