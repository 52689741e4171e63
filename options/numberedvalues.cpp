// Getting and setting values by option number.
#include <optional>

#include "options/vksoptions.h"

namespace optcore {

// The option if its sub-type has two values, otherwise null. The others have no second value to query.
const toption* tvksoptions::twovalueoption(std::int32_t nr) const noexcept {
  const toption* option = optionat(nr);
  return option != nullptr && option->subtype() == tsubtype::twovalues ? option : nullptr;
}

// ---- getting

bool tvksoptions::optgetvaluesnr(std::int32_t nr, ttextout name, std::int32_t& ival, double& dval,
                                 ttextout sval) const {
  ival = 0;
  dval = 0.0;
  const toption* option = optionat(nr);
  if (option == nullptr) {
    name.clear();
    sval.clear();
    return false;
  }
  name.set(option->getname());
  sval.set(option->getasstring());
  switch (option->opttype()) {
    case topttype::integer: ival = as<tintoption>(*option).value(twhich::first); return true;
    case topttype::boolean: ival = as<tbooleanoption>(*option).value(twhich::first); return true;
    case topttype::enumint: ival = as<tenumintoption>(*option).value(twhich::first); return true;
    case topttype::dbl: dval = as<tdbloption>(*option).getasdouble(); return true;
    case topttype::string:
    case topttype::enumstr: return true;
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return false;
}

namespace {

// Leaves the target unchanged if there is no value.
bool assignto(std::int32_t& target, std::optional<std::int32_t> value) {
  if (value) target = *value;
  return value.has_value();
}

}  // namespace

bool tvksoptions::optgetintnr(std::int32_t nr, std::int32_t& ival) const {
  const toption* option = optionat(nr);
  return option != nullptr && assignto(ival, option->getasinteger());
}

bool tvksoptions::optgetint2nr(std::int32_t nr, std::int32_t& ival) const {
  const toption* option = twovalueoption(nr);
  return option != nullptr && assignto(ival, option->getasinteger2());
}

bool tvksoptions::optgetdblnr(std::int32_t nr, double& dval) const {
  const auto* option = ifis<tdbloption>(optionat(nr));
  if (option == nullptr) return false;
  dval = option->getasdouble();
  return true;
}

bool tvksoptions::optgetdbl2nr(std::int32_t nr, double& dval) const {
  const auto* option = ifis<tdbloption>(twovalueoption(nr));
  if (option == nullptr) return false;
  dval = option->getasdouble2();
  return true;
}

bool tvksoptions::optgetstrnr(std::int32_t nr, ttextout sval) const {
  const toption* option = optionat(nr);
  sval.set(option != nullptr ? option->getasstring() : tvaluetext());
  return option != nullptr;
}

bool tvksoptions::optgetstr2nr(std::int32_t nr, ttextout sval) const {
  const toption* option = twovalueoption(nr);
  sval.set(option != nullptr ? option->getasstring2() : tvaluetext());
  return option != nullptr;
}

// ---- setting

// Runs the assignment, which returns false for an option of another type. The result is true exactly when the
// assignment took place and filed no error.
template <class tassign>
bool tvksoptions::assignednew(std::int32_t nr, twhich which, tassign assign) {
  toption* option = optionat(nr);
  if (option == nullptr || (which == twhich::second && option->subtype() != tsubtype::twovalues))
    return false;
  const tcurrentname current(fmessages, option->name());
  const std::int32_t errorsbefore = fmessages.errorcount();
  return assign(*option) && fmessages.errorcount() == errorsbefore;
}

namespace {

bool assigninteger(toption& option, twhich which, std::int32_t ival) {
  switch (option.opttype()) {
    case topttype::integer: as<tintoption>(option).setasinteger12(which, ival); return true;
    case topttype::boolean: as<tbooleanoption>(option).setasinteger12(which, ival); return true;
    case topttype::enumint: as<tenumintoption>(option).setasinteger12(which, ival); return true;
    case topttype::dbl:
    case topttype::string:
    case topttype::enumstr:
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return false;
}

bool assigndouble(toption& option, twhich which, double dval) {
  auto* target = ifis<tdbloption>(&option);
  if (target != nullptr) target->setasdouble12(which, dval);
  return target != nullptr;
}

// For types whose value is a text. Unlike toption::setasstring, this accepts double quotes: a client's text
// may contain any character.
bool assigntext(toption& option, twhich which, std::string_view sval) {
  switch (option.opttype()) {
    case topttype::string: as<tstringoption>(option).setasstring12(which, sval); return true;
    case topttype::enumstr: as<tenumstroption>(option).setasstring12(which, sval); return true;
    case topttype::integer:
    case topttype::dbl:
    case topttype::boolean:
    case topttype::enumint:
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return false;
}

}  // namespace

bool tvksoptions::optsetintnr(std::int32_t nr, std::int32_t ival) {
  return assignednew(nr, twhich::first,
                     [&](toption& option) { return assigninteger(option, twhich::first, ival); });
}

bool tvksoptions::optsetint2nr(std::int32_t nr, std::int32_t ival) {
  return assignednew(nr, twhich::second,
                     [&](toption& option) { return assigninteger(option, twhich::second, ival); });
}

bool tvksoptions::optsetdblnr(std::int32_t nr, double dval) {
  return assignednew(nr, twhich::first,
                     [&](toption& option) { return assigndouble(option, twhich::first, dval); });
}

bool tvksoptions::optsetdbl2nr(std::int32_t nr, double dval) {
  return assignednew(nr, twhich::second,
                     [&](toption& option) { return assigndouble(option, twhich::second, dval); });
}

bool tvksoptions::optsetstrnr(std::int32_t nr, std::string_view sval) {
  return assignednew(nr, twhich::first, [&](toption& option) {
    option.setasstring(sval);
    return true;
  });
}

bool tvksoptions::optsetstr2nr(std::int32_t nr, std::string_view sval) {
  return assignednew(nr, twhich::second, [&](toption& option) {
    option.setasstring2(sval);
    return true;
  });
}

bool tvksoptions::setvalues(std::int32_t nr, twhich which, std::int32_t ival, double dval,
                            std::string_view sval) {
  return assignednew(nr, which, [&](toption& option) {
    return assigninteger(option, which, ival) || assigndouble(option, which, dval) ||
           assigntext(option, which, sval);
  });
}

bool tvksoptions::optsetvaluesnr(std::int32_t nr, std::int32_t ival, double dval, std::string_view sval) {
  return setvalues(nr, twhich::first, ival, dval, sval);
}

bool tvksoptions::optsetvalues2nr(std::int32_t nr, std::int32_t ival, double dval, std::string_view sval) {
  return setvalues(nr, twhich::second, ival, dval, sval);
}

}  // namespace optcore
