// Getting, setting and resetting the values of an option.
#include "options/values.h"

#include "options/vksoptions.h"

namespace optcore {

// ---- getting

bool getvalues(const toption* option, ttextout& name, std::int32_t& integer, double& dbl, ttextout& text) {
  integer = 0;
  dbl = 0.0;
  if (option == nullptr) {
    name.clear();
    text.clear();
    return false;
  }
  name.set(option->getname());
  text.set(option->getasstring());
  switch (option->opttype()) {
    case topttype::integer: integer = as<tintoption>(*option).value(twhich::first); return true;
    case topttype::boolean: integer = as<tbooleanoption>(*option).value(twhich::first); return true;
    case topttype::enumint: integer = as<tenumintoption>(*option).value(twhich::first); return true;
    case topttype::dbl: dbl = as<tdbloption>(*option).getasdouble(); return true;
    case topttype::string:
    case topttype::enumstr: return true;
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return false;
}

// ---- setting

namespace {

// Runs the assignment, which returns false for an option of another type. The result is true exactly when the
// assignment took place and filed no error.
template <class tassign>
bool assigned(toption* option, twhich which, tassign assign) {
  if (!hasvalue(option, which)) return false;
  const tmessagelist& messages = option->owner().messages();
  const std::int32_t errorsbefore = messages.errorcount();
  return assign(*option) && messages.errorcount() == errorsbefore;
}

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

bool setinteger(toption* option, twhich which, std::int32_t value) {
  return assigned(option, which, [&](toption& target) { return assigninteger(target, which, value); });
}

bool setdouble(toption* option, twhich which, double value) {
  return assigned(option, which, [&](toption& target) { return assigndouble(target, which, value); });
}

bool settext(toption* option, twhich which, std::string_view text) {
  return assigned(option, which, [&](toption& target) {
    const tcurrentname current(target.owner().messages(), target.name());  // for members, too
    if (which == twhich::first)
      target.setasstring(text);
    else
      target.setasstring2(text);
    return true;
  });
}

bool setvalues(toption* option, twhich which, std::int32_t integer, double dbl, std::string_view text) {
  return assigned(option, which, [&](toption& target) {
    return assigninteger(target, which, integer) || assigndouble(target, which, dbl) ||
           assigntext(target, which, text);
  });
}

void setnamed(toption* option, std::string_view name, std::string_view text) {
  if (option == nullptr) return;
  const tcurrentname current(option->owner().messages(), name);
  option->setasstring(text);
}

bool reset(toption* option) {
  if (option != nullptr) option->reset();
  return option != nullptr;
}

}  // namespace optcore
