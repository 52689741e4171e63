// Reading values: the value that was set, else the default, as a number or as text.
#include "options/toption.h"

namespace wexcorin {

tvaluetext toption::valuetext(bool second) const {
  switch (fopttype) {
    case topttype::integer:
    case topttype::boolean:
    case topttype::enumint: return inttostr(integervalue(second));
    case topttype::dbl: return dbltostr(as<tdbloption>(*this).value(second));
    case topttype::string: return as<tstringoption>(*this).value(second);
    case topttype::enumstr: return as<tenumstroption>(*this).value(second);
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return {};
}

std::int32_t toption::integervalue(bool second) const {
  if (const auto* integer = ifis<tintoption>(this)) return integer->value(second);
  if (const auto* boolean = ifis<tbooleanoption>(this)) return boolean->value(second);
  return as<tenumintoption>(*this).value(second);
}

namespace {

template <class tvalue>
void storedefault(tnumbervalues<tvalue>& values) {
  values.fvalue = values.fdefault;
}
void storedefault(ttextvalues& values) { strassign(values.fvalue, values.fdefault.view()); }

}  // namespace

void toption::usedefined() {
  switch (fopttype) {
    case topttype::integer: storedefault(as<tintoption>(*this).fvalues); break;
    case topttype::dbl: storedefault(as<tdbloption>(*this).fvalues); break;
    case topttype::string: storedefault(as<tstringoption>(*this).fvalues); break;
    case topttype::boolean: storedefault(as<tbooleanoption>(*this).fvalues); break;
    case topttype::enumstr: storedefault(as<tenumstroption>(*this).fvalues); break;
    case topttype::enumint: storedefault(as<tenumintoption>(*this).fvalues); break;
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: return;
  }
  setdefined(firstvaluebit);
}

}  // namespace wexcorin
