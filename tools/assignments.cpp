// The tool's own warnings. They need what no function of the C interface tells: where the reading of a
// definition ended, and each assignment while it happens.
#include "tools/assignments.h"

#include <utility>

#include "api/handle.h"

namespace tool {

void addearlyend(treading& reading) {
  const std::int32_t end = reading.handle().get()->definition().earlyend();
  if (end != 0)
    reading.add({{reading.definition(), end},
                 tseverity::warning,
                 "The definition ends here, because no definition can begin like this line; "
                 "this line and all that follow are not read"});
}

tassignmentwatch::tassignmentwatch(treading& reading) : freading(reading), fstore(*reading.handle().get()) {
  fstore.setobserver(this);
}

tassignmentwatch::~tassignmentwatch() { fstore.setobserver(nullptr); }

void tassignmentwatch::assigned(const optcore::toption& option, std::int32_t bits) {
  if (option.opttype() == optcore::topttype::strlist || option.name().starts_with('.')) return;
  const bool second = bits == optcore::secondvaluebit;
  tassignment now = {std::string((second ? option.getasstring2() : option.getasstring()).view()), here(),
                     bymacro(option)};
  std::optional<tassignment>& before = flast[&option][second ? 1 : 0];
  const bool refinespreset = before && before->bymacro && !now.bymacro;
  if (before && before->value != now.value && !refinespreset) report(option, second, *before, now);
  before = std::move(now);
}

tplace tassignmentwatch::here() const {
  const optcore::tlinesource* source = fstore.activesource();
  if (source == nullptr || source->linenr() == 0) return {freading.source(), 0};
  return {freading.filename(source->sourcename()), source->linenr()};
}

// Whether the key being read names a macro, which then sets the option as one of its members.
bool tassignmentwatch::bymacro(const optcore::toption& option) const {
  const std::string key(fstore.curoptname());
  if (key == option.name()) return false;
  const optcore::toption* named = fstore.optionasobj(key);
  return named != nullptr && named->opttype() == optcore::topttype::macro;
}

// A line that changes both values of an option is reported once.
void tassignmentwatch::report(const optcore::toption& option, bool second, const tassignment& before,
                              const tassignment& now) {
  if (second && freported == &option && freportedplace == now.place) return;
  freported = &option;
  freportedplace = now.place;
  const bool twovalues = option.subtype() == optcore::tsubtype::twovalues;
  const std::string subject = !twovalues ? "Option "
                              : second   ? "Second value of option "
                                         : "First value of option ";
  freading.add({now.place,
                tseverity::warning,
                subject + inquotes(option.getname()) + " is set to " + external(now.value) +
                    ", but was set to " + external(before.value) + " at " + placetext(before.place),
                {},
                {}});
}

}  // namespace tool
