// Getting and setting values by option number.
#include "options/vksoptions.h"

namespace optcore {

// Makes the option's name the one that messages quote; "?" for a bad number.
bool tvksoptions::checkoptnr(std::int32_t nr) noexcept {
  const toption* option = optionat(nr);
  setcuroptname(option != nullptr ? option->name() : "?");
  return option != nullptr;
}

// Only an option of two values has a usable second one.
const toption* tvksoptions::twovalueoption(std::int32_t nr) const noexcept {
  const toption* option = optionat(nr);
  return option != nullptr && option->subtype() == tsubtype::twovalues ? option : nullptr;
}

// ---- getting

bool tvksoptions::optgetvaluesnr(std::int32_t nr, ttextout& name, std::int32_t& ival, double& dval,
                                 ttextout& sval) const {
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
    case topttype::integer:
    case topttype::boolean:
    case topttype::enumint: ival = option->getasinteger(); return true;
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

bool tvksoptions::optgetintnr(std::int32_t nr, std::int32_t& ival) const {
  const toption* option = optionat(nr);
  if (option == nullptr || !option->holdsinteger()) return false;
  ival = option->getasinteger();
  return true;
}

bool tvksoptions::optgetint2nr(std::int32_t nr, std::int32_t& ival) const {
  const toption* option = twovalueoption(nr);
  if (option == nullptr || !option->holdsinteger()) return false;
  ival = option->getasinteger2();
  return true;
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

bool tvksoptions::optgetstrnr(std::int32_t nr, ttextout& sval) const {
  const toption* option = optionat(nr);
  sval.set(option != nullptr ? option->getasstring() : tvaluetext());
  return option != nullptr;
}

bool tvksoptions::optgetstr2nr(std::int32_t nr, ttextout& sval) const {
  const toption* option = twovalueoption(nr);
  sval.set(option != nullptr ? option->getasstring2() : tvaluetext());
  return option != nullptr;
}

// ---- setting

// Runs the assignment, which answers false for an option that does not take it. True exactly when it took
// place without a new error message.
template <class tassign>
bool tvksoptions::assignednew(std::int32_t nr, bool second, tassign assign) {
  if (!checkoptnr(nr)) return false;
  toption& option = *optionat(nr);
  if (second && option.subtype() != tsubtype::twovalues) return false;
  const std::int32_t errorsbefore = errorcount();
  return assign(option) && errorcount() == errorsbefore;
}

namespace {

bool assigninteger(toption& option, bool second, std::int32_t ival) {
  switch (option.opttype()) {
    case topttype::integer: as<tintoption>(option).setasinteger12(second, ival); return true;
    case topttype::boolean: as<tbooleanoption>(option).setasinteger12(second, ival); return true;
    case topttype::enumint: as<tenumintoption>(option).setasinteger12(second, ival); return true;
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

bool assigndouble(toption& option, bool second, double dval) {
  auto* target = ifis<tdbloption>(&option);
  if (target != nullptr) target->setasdouble12(second, dval);
  return target != nullptr;
}

// For types whose value is a text; a client's text may hold any character, double quotes too.
bool assigntext(toption& option, bool second, std::string_view sval) {
  if (auto* string = ifis<tstringoption>(&option))
    string->setasstring12(second, sval);
  else if (auto* enumstr = ifis<tenumstroption>(&option))
    enumstr->setasstring12(second, sval);
  else
    return false;
  return true;
}

}  // namespace

bool tvksoptions::optsetintnr(std::int32_t nr, std::int32_t ival) {
  return assignednew(nr, false, [&](toption& option) { return assigninteger(option, false, ival); });
}

bool tvksoptions::optsetint2nr(std::int32_t nr, std::int32_t ival) {
  return assignednew(nr, true, [&](toption& option) { return assigninteger(option, true, ival); });
}

bool tvksoptions::optsetdblnr(std::int32_t nr, double dval) {
  return assignednew(nr, false, [&](toption& option) { return assigndouble(option, false, dval); });
}

bool tvksoptions::optsetdbl2nr(std::int32_t nr, double dval) {
  return assignednew(nr, true, [&](toption& option) { return assigndouble(option, true, dval); });
}

bool tvksoptions::optsetstrnr(std::int32_t nr, std::string_view sval) {
  return assignednew(nr, false, [&](toption& option) {
    option.setasstring(sval);
    return true;
  });
}

bool tvksoptions::optsetstr2nr(std::int32_t nr, std::string_view sval) {
  return assignednew(nr, true, [&](toption& option) {
    option.setasstring2(sval);
    return true;
  });
}

bool tvksoptions::setvalues(std::int32_t nr, bool second, std::int32_t ival, double dval,
                            std::string_view sval) {
  return assignednew(nr, second, [&](toption& option) {
    return assigninteger(option, second, ival) || assigndouble(option, second, dval) ||
           assigntext(option, second, sval);
  });
}

bool tvksoptions::optsetvaluesnr(std::int32_t nr, std::int32_t ival, double dval, std::string_view sval) {
  return setvalues(nr, false, ival, dval, sval);
}

bool tvksoptions::optsetvalues2nr(std::int32_t nr, std::int32_t ival, double dval, std::string_view sval) {
  return setvalues(nr, true, ival, dval, sval);
}

}  // namespace optcore
