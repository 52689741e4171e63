// A value as the tool shows it: as text, written as in definition and option files, and as JSON. Both are
// UTF-8.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "options/toption.h"

namespace tool {

struct tshownvalue {
  std::string text;             // empty if there is no value
  nlohmann::ordered_json json;  // null if there is no value
};

// The largest and smallest numbers are words such as maxint in the text. Doubles have all their digits.
tshownvalue shown(std::int32_t value);
tshownvalue shown(double value);
tshownvalue shown(std::string_view value);
// For a boolean option: the text is the number, the JSON true or false.
tshownvalue shownboolean(std::int32_t value);
// For an enumint option: the number, without words for the largest and smallest.
tshownvalue shownnumber(std::int32_t value);

// The current value of the option: the value that was set, otherwise the default. A strlist shows all its
// texts; multilists, macros and immediate options have no value.
tshownvalue currentvalue(const optcore::toption& option, optcore::twhich which);

}  // namespace tool
