// Converts values to text and JSON.
#include "tools/doc/shownvalue.h"

#include "base/numtext.h"
#include "output/parameterwriter.h"
#include "tools/jsontext.h"
#include "tools/text.h"

namespace tool {

namespace {

using namespace optcore;

std::string doubletext(double value) {
  if (value == maxdouble || value == mindouble) return std::string(dbltostrex(value));
  return std::string(value == 0 ? dbltostr(value) : dbltostrexact(value));
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
