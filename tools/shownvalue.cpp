// Values as text and as JSON.
#include "tools/shownvalue.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "tools/jsontext.h"
#include "tools/text.h"

namespace tool {

namespace {

constexpr double maxdouble = 1e299;

std::string integertext(std::int32_t value) {
  if (value == std::numeric_limits<std::int32_t>::max()) return "maxint";
  if (value == std::numeric_limits<std::int32_t>::min()) return "minint";
  return std::to_string(value);
}

// In the library's form, though with all digits: fixed-point where that is short, else an exponent without
// plus sign and leading zeros.
std::string doubletext(double value) {
  if (value == maxdouble) return "maxdouble";
  if (value == -maxdouble) return "mindouble";
  if (value == 0) return "0";
  const double size = std::fabs(value);
  const bool fixed = size >= 1e-4 && size < 1e15;
  std::array<char, 64> buffer;
  const auto format = fixed ? std::chars_format::fixed : std::chars_format::scientific;
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format);
  const std::string_view text(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
  const std::size_t mark = text.find('e');
  if (mark == std::string_view::npos) return std::string(text);
  std::string_view exponent = text.substr(mark + 1);
  const std::string sign = exponent.front() == '-' ? "-" : "";
  exponent.remove_prefix(exponent.find_first_not_of("+-0"));
  return std::string(text.substr(0, mark)) + "E" + sign + std::string(exponent);
}

}  // namespace

tshownvalue shown(std::int32_t value) { return {integertext(value), value}; }
tshownvalue shown(double value) { return {doubletext(value), value}; }
tshownvalue shown(std::string_view value) { return {external(value), jsontext(value)}; }
tshownvalue shownboolean(std::int32_t value) { return {std::to_string(value), value != 0}; }
tshownvalue shownnumber(std::int32_t value) { return {std::to_string(value), value}; }

}  // namespace tool
