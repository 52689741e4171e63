// Decides which assignments get a warning.
#include "tools/reading/assignments.h"

#include <utility>

#include "options/vksoptions.h"
#include "output/parameterwriter.h"

namespace tool {

namespace {

// Whether the key that is being read is a macro, which sets the option as one of its members.
bool bymacro(const optcore::toption& option) {
  const optcore::tvksoptions& store = option.owner();
  const std::string_view key = store.messages().curoptname();
  if (key == option.name()) return false;
  const optcore::toption* named = store.optionasobj(key);
  return named != nullptr && named->opttype() == optcore::topttype::macro;
}

std::string subjectof(const optcore::toption& option, optcore::twhich which) {
  const bool twovalues = option.subtype() == optcore::tsubtype::twovalues;
  const char* head = !twovalues                         ? "Option "
                     : which == optcore::twhich::second ? "Second value of option "
                                                        : "First value of option ";
  return head + inquotes(option.getname());
}

}  // namespace

std::optional<tfinding> tassignments::warning(const optcore::toption& option, std::int32_t bits,
                                              const tplace& place) {
  if (option.opttype() == optcore::topttype::strlist || option.name().starts_with('.')) return std::nullopt;
  const auto which = bits == optcore::secondvaluebit ? optcore::twhich::second : optcore::twhich::first;
  tassignment now = {std::string(option.getasstring12(which).view()), place, bymacro(option)};
  const std::optional<tassignment> before = std::exchange(flast[&option][optcore::ordinal(which)], now);
  const bool refinespreset = before && before->bymacro && !now.bymacro;
  if (!before || before->value == now.value || refinespreset || isreported(option, which, place))
    return std::nullopt;
  return tfinding{.place = place,
                  .severity = tseverity::warning,
                  .text = subjectof(option, which) + " is set to " + optcore::strexternal(now.value) +
                          ", but was set to " + optcore::strexternal(before->value) + " at " +
                          placetext(before->place)};
}

// A line that changes both values of an option is reported once.
bool tassignments::isreported(const optcore::toption& option, optcore::twhich which, const tplace& place) {
  if (which == optcore::twhich::second && freported == &option && freportedplace == place) return true;
  freported = &option;
  freportedplace = place;
  return false;
}

}  // namespace tool
