// Which assignments are worth a warning.
#include "tools/reading/assignments.h"

#include <utility>

#include "options/vksoptions.h"
#include "output/parameterwriter.h"

namespace tool {

namespace {

// Whether the key being read names a macro, which then sets the option as one of its members.
bool bymacro(const optcore::toption& option) {
  const optcore::tvksoptions& store = option.owner();
  if (store.curoptname() == option.name()) return false;
  const optcore::toption* named = store.optionasobj(store.curoptname());
  return named != nullptr && named->opttype() == optcore::topttype::macro;
}

std::string subjectof(const optcore::toption& option, bool second) {
  const bool twovalues = option.subtype() == optcore::tsubtype::twovalues;
  const char* which = !twovalues ? "Option " : second ? "Second value of option " : "First value of option ";
  return which + inquotes(option.getname());
}

}  // namespace

std::optional<tfinding> tassignments::warning(const optcore::toption& option, std::int32_t bits,
                                              const tplace& place) {
  if (option.opttype() == optcore::topttype::strlist || option.name().starts_with('.')) return std::nullopt;
  const bool second = bits == optcore::secondvaluebit;
  tassignment now = {std::string((second ? option.getasstring2() : option.getasstring()).view()), place,
                     bymacro(option)};
  const std::optional<tassignment> before = std::exchange(flast[&option][second ? 1 : 0], now);
  const bool refinespreset = before && before->bymacro && !now.bymacro;
  if (!before || before->value == now.value || refinespreset || isreported(option, second, place))
    return std::nullopt;
  return tfinding{.place = place,
                  .severity = tseverity::warning,
                  .text = subjectof(option, second) + " is set to " + optcore::strexternal(now.value) +
                          ", but was set to " + optcore::strexternal(before->value) + " at " +
                          placetext(before->place)};
}

// A line that changes both values of an option is reported once.
bool tassignments::isreported(const optcore::toption& option, bool second, const tplace& place) {
  if (second && freported == &option && freportedplace == place) return true;
  freported = &option;
  freportedplace = place;
  return false;
}

}  // namespace tool
