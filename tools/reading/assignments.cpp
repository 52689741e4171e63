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

std::string textof(const tvalue& value) {
  if (const auto* number = std::get_if<std::int32_t>(&value)) return std::string(inttostr(*number).view());
  if (const auto* number = std::get_if<double>(&value)) return std::string(dbltostr(*number).view());
  const auto* text = std::get_if<std::string>(&value);
  return text != nullptr ? *text : std::string();
}

bool issame(std::int32_t a, std::int32_t b) { return a == b; }
bool issame(std::string_view a, std::string_view b) { return a == b; }
// Numbers that differ only in digits that are not shown count as the same. Texts are made only of numbers that
// are that near to each other.
bool issame(double a, double b) {
  constexpr double near = 1e-13;
  return a == b || (std::abs(a - b) <= near * std::abs(a) && dbltostr(a).view() == dbltostr(b).view());
}

// Stores the new value in `last`, and the old one in `before` if there was one and it was another: then the
// result is true.
template <class tstored, class tnew>
bool replacewith(const tnew& value, tvalue& last, tvalue& before) {
  auto* const known = std::get_if<tstored>(&last);
  if (known == nullptr) {
    last = tstored(value);
    return false;
  }
  if (issame(*known, value)) return false;
  before = std::move(*known);
  *known = value;
  return true;
}

// The same with the value of an option that is neither a list nor a macro.
bool replacevalue(tvalue& last, const toption& option, twhich which, tvalue& before) {
  if (const auto* number = ifis<tdbloption>(&option))
    return replacewith<double>(number->value(which), last, before);
  if (const std::optional<std::int32_t> number = option.getasinteger12(which))
    return replacewith<std::int32_t>(*number, last, before);
  return replacewith<std::string>(option.getasstring12(which).view(), last, before);
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
  tearlier& last = assignment.last;
  const bool macro = bymacro(option);
  const bool refinespreset = std::exchange(assignment.bymacro, macro) && !macro;
  const std::string* const filename = stored(file);
  const bool follows = last.file == filename && last.line <= line;
  freplaced.file = std::exchange(last.file, filename);
  freplaced.line = std::exchange(last.line, line);
  const bool changes = replacevalue(last.value, option, which, freplaced.value);
  return changes && follows && !refinespreset && !isreported(option, which, filename, line) ? &freplaced
                                                                                            : nullptr;
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
                  strexternal(textof(earlier.value)) + " at " + placetext({*earlier.file, earlier.line}),
          .name = std::string(option.owner().messages().curoptname()),
          .related = {{{*earlier.file, earlier.line}, "was set here"}}};
}

}  // namespace tool
