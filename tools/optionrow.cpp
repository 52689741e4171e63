// Values of options by type.
#include "tools/optionrow.h"

#include "tools/jsontext.h"
#include "tools/text.h"

namespace tool {

namespace {

std::string joined(const std::vector<std::string>& texts) {
  std::string result;
  for (const std::string& text : texts) result += (result.empty() ? "" : ", ") + external(text);
  return result;
}

tshownvalue valueof(const thandle& handle, std::int32_t number, bool second) {
  switch (handle.info(number).type) {
    case optTypeInteger: return shown(handle.intvalue(number, second));
    case optTypeDouble: return shown(handle.doublevalue(number, second));
    case optTypeEnumInt: return shownnumber(handle.intvalue(number, second));
    case optTypeBoolean: return shownboolean(handle.intvalue(number, second));
    case optTypeString:
    case optTypeEnumStr:
      return shown(std::string_view(second ? handle.value2(number) : handle.value(number)));
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
    row.values = {shownboolean(0), shownboolean(1)};
  } else {
    for (const std::string& value : handle.enumvalues(row.number))
      row.values.push_back(type == optTypeEnumInt ? shownnumber(std::stoi(value))
                                                  : shown(std::string_view(value)));
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
