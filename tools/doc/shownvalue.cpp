// Converts values to text and JSON.
#include "tools/doc/shownvalue.h"

#include <array>
#include <charconv>
#include <cmath>

#include "base/numtext.h"
#include "output/parameterwriter.h"
#include "tools/jsontext.h"
#include "tools/text.h"

namespace tool {

namespace {

using namespace optcore;

// Like the library, but with all digits: fixed-point for numbers that are neither very large nor very small,
// otherwise with an exponent without plus sign and leading zeros.
std::string doubletext(double value) {
  if (value == maxdouble || value == mindouble) return std::string(dbltostrex(value));
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

tshownvalue shown(std::int32_t value) { return {std::string(inttostrex(value)), value}; }
tshownvalue shown(double value) { return {doubletext(value), value}; }
tshownvalue shown(std::string_view value) { return {utf8(strexternal(value)), jsontext(value)}; }
tshownvalue shownboolean(std::int32_t value) { return {std::to_string(value), value != 0}; }
tshownvalue shownnumber(std::int32_t value) { return {std::to_string(value), value}; }

namespace {

tshownvalue shownlist(const tstrlistoption& option) {
  tshownvalue result = {{}, nlohmann::ordered_json::array()};
  for (std::int32_t i = 0; i < option.itemcount(); ++i) {
    const tshownvalue item = shown(option.item(i));
    result.text += (i == 0 ? "" : ", ") + item.text;
    result.json.push_back(item.json);
  }
  return result;
}

}  // namespace

tshownvalue currentvalue(const toption& option, twhich which) {
  switch (option.opttype()) {
    case topttype::integer: return shown(as<tintoption>(option).value(which));
    case topttype::dbl: return shown(as<tdbloption>(option).value(which));
    case topttype::string: return shown(as<tstringoption>(option).value(which));
    case topttype::boolean: return shownboolean(as<tbooleanoption>(option).value(which));
    case topttype::enumstr: return shown(as<tenumstroption>(option).value(which));
    case topttype::enumint: return shownnumber(as<tenumintoption>(option).value(which));
    case topttype::strlist: return shownlist(as<tstrlistoption>(option));
    case topttype::multilist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return {};
}

}  // namespace tool
