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

// Calls take(text) with the value as text, which is a number's or a view of what the option owns.
template <class ttake>
void toption::taketext(twhich which, ttake take) const {
  switch (fopttype) {
    case topttype::integer:
    case topttype::boolean:
    case topttype::enumint: return take(inttostr(static_cast<const tintegervalued&>(*this).value(which)));
    case topttype::dbl: return take(textof(as<tdbloption>(*this).value(which)));
    case topttype::string: return take(as<tstringoption>(*this).value(which));
    case topttype::enumstr: return take(as<tenumstroption>(*this).value(which));
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  take(std::string_view());
}

tvaluetext toption::getasstring12(twhich which) const {
  tvaluetext result;
  taketext(which, [&](const auto& text) { result = text; });
  return result;
}

void toption::gettext12(twhich which, ttextout& result) const {
  taketext(which, [&](std::string_view text) { result.set(text); });
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
