// Getting the value of an option as text, and setting its value to the default: one switch over the type for
// each. Values as integers are in toption.h, the setters in setters.cpp.
#include "base/floatscope.h"
#include "options/toption.h"

namespace optcore {

namespace {

// Queries of text are frequent, so the floating-point settings are those of the library for doubles alone.
tnumbertext textof(double value) {
  const tfloatscope settings;
  return dbltostr(value);
}

}  // namespace

tvaluetext toption::getasstring12(twhich which) const {
  switch (fopttype) {
    case topttype::integer: return inttostr(as<tintoption>(*this).value(which));
    case topttype::dbl: return textof(as<tdbloption>(*this).value(which));
    case topttype::string: return as<tstringoption>(*this).value(which);
    case topttype::boolean: return inttostr(as<tbooleanoption>(*this).value(which));
    case topttype::enumstr: return as<tenumstroption>(*this).value(which);
    case topttype::enumint: return inttostr(as<tenumintoption>(*this).value(which));
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return {};
}

void toption::usedefined() {
  switch (fopttype) {
    case topttype::integer: as<tintoption>(*this).storedefault(); break;
    case topttype::dbl: as<tdbloption>(*this).storedefault(); break;
    case topttype::string: as<tstringoption>(*this).storedefault(); break;
    case topttype::boolean: as<tbooleanoption>(*this).storedefault(); break;
    case topttype::enumstr: as<tenumstroption>(*this).storedefault(); break;
    case topttype::enumint: as<tenumintoption>(*this).storedefault(); break;
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: return;
  }
  setdefined(firstvaluebit);
}

}  // namespace optcore
