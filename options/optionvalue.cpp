// Reading values: the value that was set, else the default, as a number or as text.
#include "options/toption.h"

namespace optcore {

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

// Options of no other type can be named without a value.
void toption::usedefined() {
  if (auto* integer = ifis<tintoption>(this))
    storedefault(integer->fvalues);
  else if (auto* number = ifis<tdbloption>(this))
    storedefault(number->fvalues);
  else if (auto* boolean = ifis<tbooleanoption>(this))
    storedefault(boolean->fvalues);
  else if (auto* word = ifis<tenumstroption>(this))
    storedefault(word->fvalues);
  else
    storedefault(as<tenumintoption>(*this).fvalues);
  setdefined(firstvaluebit);
}

}  // namespace optcore
