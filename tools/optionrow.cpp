// Values of options by type.
#include "tools/optionrow.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

#include "tools/jsontext.h"
#include "tools/text.h"

namespace tool {

namespace {

using nlohmann::ordered_json;

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

tshownvalue shown(std::int32_t value) { return {integertext(value), value}; }
tshownvalue shown(double value) { return {doubletext(value), value}; }

std::string joined(const std::vector<std::string>& texts) {
  std::string result;
  for (const std::string& text : texts) result += (result.empty() ? "" : ", ") + external(text);
  return result;
}

tshownvalue valueof(const thandle& handle, std::int32_t number, bool second) {
  const std::string text = second ? handle.value2(number) : handle.value(number);
  switch (handle.info(number).type) {
    case optTypeInteger: return shown(handle.intvalue(number, second));
    case optTypeDouble: return shown(handle.doublevalue(number, second));
    case optTypeEnumInt: return {text, handle.intvalue(number, second)};
    case optTypeBoolean: return {text, handle.intvalue(number, second) != 0};
    case optTypeString:
    case optTypeEnumStr: return {external(text), jsontext(text)};
    case optTypeStrList: {
      const std::vector<std::string> strings = handle.liststrings(number);
      return {joined(strings), jsontexts(strings)};
    }
    default: return {};
  }
}

void addlegalvalues(const thandle& handle, std::int32_t type, toptionrow& row) {
  if (type == optTypeInteger) {
    const tbounds<std::int32_t> bounds = handle.intbounds(row.number);
    row.low = shown(bounds.low);
    row.high = shown(bounds.high);
  } else if (type == optTypeDouble) {
    const tbounds<double> bounds = handle.doublebounds(row.number);
    row.low = shown(bounds.low);
    row.high = shown(bounds.high);
  } else if (type == optTypeBoolean) {
    row.values = {{"0", false}, {"1", true}};
  } else {
    for (const std::string& value : handle.enumvalues(row.number))
      row.values.push_back(
          {external(value), type == optTypeEnumInt ? ordered_json(std::stoi(value)) : jsontext(value)});
  }
}

}  // namespace

std::vector<tshownvalue> firstvalues(const thandle& handle) {
  std::vector<tshownvalue> result;
  const std::int32_t count = handle.count();
  for (std::int32_t number = 1; number <= count; ++number) result.push_back(valueof(handle, number, false));
  return result;
}

toptionrow describeoption(const thandle& handle, std::int32_t number, const tshownvalue& defaultvalue) {
  const tinfo info = handle.info(number);
  toptionrow row = {.number = number,
                    .name = handle.name(number),
                    .type = handle.nameoftype(info.type),
                    .set = info.defined != 0,
                    .value = valueof(handle, number, false),
                    .value2 = {},
                    .defaultvalue = defaultvalue,
                    .low = {},
                    .high = {},
                    .values = {}};
  if (info.subtype == optsub2Values) row.value2 = valueof(handle, number, true);
  addlegalvalues(handle, info.type, row);
  return row;
}

}  // namespace tool
