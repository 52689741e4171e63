// Getting, setting and resetting the values of an option. An option can be found by number or by name; these
// functions take what was found, which is null if there is none. Values as they are read from parameter text
// are set by toption::setasstring.
//
// A query for a second value answers only for options with the sub-type for two values. The result of each
// function says whether the option has such a value; for a setter, also that no error was filed.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "base/textout.h"
#include "options/toption.h"

namespace optcore {

inline bool hasvalue(const toption* option, twhich which) noexcept {
  return option != nullptr && (which == twhich::first || option->subtype() == tsubtype::twovalues);
}

// ---- getting; getinteger and getdouble leave the value unchanged if there is none

// Inline, because clients query values often.
inline bool getinteger(const toption* option, twhich which, std::int32_t& value) {
  const auto integer = hasvalue(option, which) ? option->getasinteger12(which) : std::nullopt;
  if (integer) value = *integer;
  return integer.has_value();
}
inline bool getdouble(const toption* option, twhich which, double& value) {
  if (!hasvalue(option, which) || option->opttype() != topttype::dbl) return false;
  value = as<tdbloption>(*option).value(which);
  return true;
}
// The value of any type as text; empty if there is none.
inline tvaluetext textof(const toption* option, twhich which) {
  return hasvalue(option, which) ? option->getasstring12(which) : tvaluetext();
}
inline bool gettext(const toption* option, twhich which, ttextout& text) {
  if (!hasvalue(option, which)) {
    text.clear();
    return false;
  }
  option->gettext12(which, text);
  return true;
}
// The name and the first value in all forms: the integer and the double are 0 for other types.
bool getvalues(const toption* option, ttextout& name, std::int32_t& integer, double& dbl, ttextout& text);

// ---- setting; messages quote the option's own name, for setnamed the name that is given

// For the types whose value is an integer, and for doubles.
bool setinteger(toption* option, twhich which, std::int32_t value);
bool setdouble(toption* option, twhich which, double value);
// Any type, as parameter text does it.
bool settext(toption* option, twhich which, std::string_view text);
// Takes the value in the form of the option's type.
bool setvalues(toption* option, twhich which, std::int32_t integer, double dbl, std::string_view text);
void setnamed(toption* option, std::string_view name, std::string_view text);
bool reset(toption* option);

}  // namespace optcore
