// Decides which assignments get a warning.
#include "tools/reading/assignments.h"

#include <cmath>
#include <optional>
#include <utility>

#include "base/numtext.h"
#include "options/vksoptions.h"
#include "output/parameterwriter.h"

namespace tool {

using namespace optcore;

namespace {

// Whether the key that is being read is a macro, which sets the option as one of its members.
bool bymacro(const toption& option) {
  const tvksoptions& store = option.owner();
  const std::string_view key = store.messages().curoptname();
  if (key == option.name()) return false;
  const toption* named = store.optionasobj(key);
  return named != nullptr && named->opttype() == topttype::macro;
}

twhich whichof(std::int32_t bits) { return bits == secondvaluebit ? twhich::second : twhich::first; }

std::string subjectatstart(const toption& option, twhich which) {
  const bool twovalues = option.subtype() == tsubtype::twovalues;
  const char* head = !twovalues                ? "Option "
                     : which == twhich::second ? "Second value of option "
                                               : "First value of option ";
  return head + inquotes(option.getname());
}

using tvalue = tassignments::tvalue;

// The value of an option that is neither a list nor a macro.
tvalue valueof(const toption& option, twhich which) {
  if (const auto* number = ifis<tdbloption>(&option)) return number->value(which);
  if (const std::optional<std::int32_t> number = option.getasinteger12(which)) return *number;
  return std::string(option.getasstring12(which).view());
}

std::string textof(const tvalue& value) {
  if (const auto* number = std::get_if<std::int32_t>(&value)) return std::string(inttostr(*number).view());
  if (const auto* number = std::get_if<double>(&value)) return std::string(dbltostr(*number).view());
  const auto* text = std::get_if<std::string>(&value);
  return text != nullptr ? *text : std::string();
}

// Numbers that differ only in digits that are not shown count as the same. Texts are made only of numbers that
// are that near to each other.
bool issame(const tvalue& a, const tvalue& b) {
  const auto* one = std::get_if<double>(&a);
  const auto* other = std::get_if<double>(&b);
  if (one == nullptr || other == nullptr || *one == *other) return a == b;
  constexpr double near = 1e-13;
  return std::abs(*one - *other) <= near * std::abs(*one) && textof(a) == textof(b);
}

}  // namespace

const std::string* tassignments::stored(std::string_view file) {
  if (ffile == nullptr || *ffile != file) ffile = &*ffiles.emplace(file).first;
  return ffile;
}

const tassignments::tearlier* tassignments::replaced(const toption& option, std::int32_t bits,
                                                     std::string_view file, std::int32_t line) {
  if (option.opttype() == topttype::strlist || option.name().starts_with('.')) return nullptr;
  const twhich which = whichof(bits);
  tassignment& assignment = fassignments[&option][ordinal(which)];
  tearlier current = {valueof(option, which), stored(file), line};
  const bool isset = assignment.last.value.index() != 0;
  const bool macro = bymacro(option);
  const bool refinespreset = std::exchange(assignment.bymacro, macro) && !macro;
  const bool follows = assignment.last.file == current.file && assignment.last.line <= line;
  const bool changes = isset && follows && !refinespreset && !issame(assignment.last.value, current.value);
  freplaced = std::exchange(assignment.last, std::move(current));
  return changes && !isreported(option, which, assignment.last.file, line) ? &freplaced : nullptr;
}

// A line that changes both values of an option is reported once.
bool tassignments::isreported(const toption& option, twhich which, const std::string* file,
                              std::int32_t line) {
  if (option.subtype() != tsubtype::twovalues) return false;
  if (which == twhich::second && freported == &option && freportedline == line && freportedfile == file)
    return true;
  freported = &option;
  freportedfile = file;
  freportedline = line;
  return false;
}

tfinding replacedfinding(const toption& option, std::int32_t bits, const tassignments::tearlier& earlier,
                         const tplace& place) {
  const twhich which = whichof(bits);
  return {.place = place,
          .severity = tseverity::warning,
          .rule = replacedrule,
          .text = subjectatstart(option, which) + " is set to " +
                  strexternal(option.getasstring12(which).view()) + ", but was set to " +
                  strexternal(textof(earlier.value)) + " at " + placetext({*earlier.file, earlier.line})};
}

}  // namespace tool
