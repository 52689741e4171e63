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

optcore::twhich whichof(std::int32_t bits) {
  return bits == optcore::secondvaluebit ? optcore::twhich::second : optcore::twhich::first;
}

std::string subjectof(const optcore::toption& option, optcore::twhich which) {
  const bool twovalues = option.subtype() == optcore::tsubtype::twovalues;
  const char* head = !twovalues                         ? "Option "
                     : which == optcore::twhich::second ? "Second value of option "
                                                        : "First value of option ";
  return head + inquotes(option.getname());
}

}  // namespace

const tassignments::tearlier* tassignments::replaced(const optcore::toption& option, std::int32_t bits,
                                                     std::string_view file, std::int32_t line) {
  if (option.opttype() == optcore::topttype::strlist || option.name().starts_with('.')) return nullptr;
  const optcore::twhich which = whichof(bits);
  const optcore::tvaluetext value = option.getasstring12(which);
  tassignment& assignment = fassignments[&option][optcore::ordinal(which)];
  const bool macro = bymacro(option);
  const bool refinespreset = assignment.bymacro && !macro;
  const bool changes = assignment.isset && assignment.last.file == file && assignment.last.line <= line &&
                       assignment.last.value != value.view() && !refinespreset;
  if (changes) std::swap(freplaced, assignment.last);
  assignment.isset = true;
  assignment.bymacro = macro;
  assignment.last.value.assign(value.view());
  if (assignment.last.file != file) assignment.last.file.assign(file);
  assignment.last.line = line;
  return changes && !isreported(option, which, file, line) ? &freplaced : nullptr;
}

// A line that changes both values of an option is reported once.
bool tassignments::isreported(const optcore::toption& option, optcore::twhich which, std::string_view file,
                              std::int32_t line) {
  if (option.subtype() != optcore::tsubtype::twovalues) return false;
  if (which == optcore::twhich::second && freported == &option && freportedline == line &&
      freportedfile == file)
    return true;
  freported = &option;
  freportedfile.assign(file);
  freportedline = line;
  return false;
}

tfinding replacedfinding(const optcore::toption& option, std::int32_t bits,
                         const tassignments::tearlier& earlier, const tplace& place) {
  const optcore::twhich which = whichof(bits);
  return {.place = place,
          .severity = tseverity::warning,
          .rule = replacedrule,
          .text = subjectof(option, which) + " is set to " +
                  optcore::strexternal(option.getasstring12(which).view()) + ", but was set to " +
                  optcore::strexternal(earlier.value) + " at " + placetext({earlier.file, earlier.line})};
}

}  // namespace tool
