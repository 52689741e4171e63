// Compares types, modifiers, bounds and permitted values.
#include "tools/tracing/acceptance.h"

#include <algorithm>

#include "base/numtext.h"

namespace tool {

using namespace optcore;

namespace {

template <class tbounded>
bool iswithin(const tbounded& older, const tbounded& newer) {
  return newer.lo() <= older.lo() && older.hi() <= newer.hi();
}

bool hasvalues(const tenumstroption& older, const tenumstroption& newer) {
  for (std::int32_t i = 0; i < older.items().count(); ++i)
    if (newer.items().indexof(older.items().getname(i)) < 0) return false;
  return true;
}

template <class ttakes>
bool eachvalue(const tenumintoption& older, ttakes takes) {
  for (std::int32_t i = 0; i < older.items().count(); ++i)
    if (!takes(older.items().get(i)->enumvalue())) return false;
  return true;
}

bool sametypetakes(const toption& older, const toption& newer) {
  switch (older.opttype()) {
    case topttype::integer: return iswithin(as<tintoption>(older), as<tintoption>(newer));
    case topttype::dbl: return iswithin(as<tdbloption>(older), as<tdbloption>(newer));
    case topttype::enumstr: return hasvalues(as<tenumstroption>(older), as<tenumstroption>(newer));
    case topttype::enumint:
      return eachvalue(as<tenumintoption>(older),
                       [&](std::int32_t value) { return as<tenumintoption>(newer).hasitem(value); });
    case topttype::string:
    case topttype::boolean:
    case topttype::strlist: return true;
    case topttype::multilist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return false;
}

// Whether a number is taken that is an integer in an older file. The words for the largest and smallest integer
// are no doubles.
bool takesinteger(const toption& newer, std::int32_t value) {
  if (const auto* integer = ifis<tintoption>(&newer)) return integer->lo() <= value && value <= integer->hi();
  const auto* dbl = ifis<tdbloption>(&newer);
  return dbl != nullptr && value > minint && value < maxint && dbl->lo() <= value && value <= dbl->hi();
}

// A value of several words is one word for an option with two values, for which "*" is no value.
bool isoneword(const toption& option) {
  const auto* choice = ifis<tenumstroption>(&option);
  for (std::int32_t i = 0; choice != nullptr && i < choice->items().count(); ++i) {
    const std::string_view word = choice->items().getname(i);
    if (word == "*" || word.find_first_of(" \t,") != std::string_view::npos) return false;
  }
  return true;
}

}  // namespace

bool isdotoption(const toption& option) { return option.name().starts_with('.'); }

bool takesanytext(const toption& option) {
  return option.subtype() == tsubtype::novalue || option.opttype() == topttype::string ||
         option.opttype() == topttype::strlist;
}

bool takestexts(const toption& older, const toption& newer) {
  if (newer.subtype() == tsubtype::novalue) return true;  // any text is ignored
  if (older.subtype() == tsubtype::novalue) return false;
  if (older.opttype() == newer.opttype()) return sametypetakes(older, newer);
  if (takesanytext(newer)) return older.opttype() != topttype::immediate;
  if (const auto* integer = ifis<tintoption>(&older))
    return takesinteger(newer, integer->lo()) && takesinteger(newer, integer->hi());
  const auto* choice = ifis<tenumintoption>(&older);
  return choice != nullptr &&
         eachvalue(*choice, [&](std::int32_t value) { return takesinteger(newer, value); });
}

bool takestwovalues(const toption& older, bool manyonline) { return !manyonline && isoneword(older); }

bool takeslines(const toption& older, const toption& newer, bool manyonline) {
  const tsubtype before = older.subtype(), after = newer.subtype();
  if (before == tsubtype::novalue) return after == tsubtype::novalue || after == tsubtype::optional;
  if (!takestexts(older, newer)) return false;
  if (before == after) return true;
  const bool isrequired = before == tsubtype::required;
  return isrequired &&
         (after == tsubtype::optional || (after == tsubtype::twovalues && takestwovalues(older, manyonline)));
}

}  // namespace tool
