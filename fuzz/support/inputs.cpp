// The definition that has everything, and splitting an input into its parts.
#include <algorithm>

#include "fuzz/support/target.h"

namespace fuzzing {

std::string richdefinition(int mode) {
  constexpr std::string_view modes[] = {"Normal", "Path", "Minos"};
  return std::string(modes[mode]) + " lookup\n" + everytype + R"(comment eolcomm !#;
general group 1 1 General
hidden group 2 0 Not listed
feasible_tol double 201 1e-6 eps 0.1 1 1 Tolerance
 Counts both phases.
opt_tol double.OPT 203 0.5 0 1 1 2 Another
warm boolean.OPT 403 0 1 1 Warm
both_ways boolean.TWO 404 0 1 1 Two switches
emphasis enumstr.OPT 503 Best 1 1 Emphasis
 best 1 Best
 "a,b" 0 Hidden
 * 1 Star
gears enumint.TWO 602 1 1 1 Gears
 1 1 Low
 -7 1 Minus seven
nested multilist 702 1 1 A list of lists
 words nested method
 span
every macro 1 1 A macro of macros
 all
 all
 flag
.scale double 902 1 1e-3 1e3 1 1 Scale
.lazy boolean 903 0 1 1 Lazy
.word string 905 x 1 1 A word
.half integer.TWO 906 0 0 9 1 1 Two
eolonly immediate EolFlag 1 1 One statement a line
include immediate ReadFile 1 1 Another file
remark immediate Message 1 1 A message
describe immediate Help 1 1 Help
iterlim synonym maxit
tol synonym feasible_tol
oldflag synonym flag
everything synonym every
gone integer 951 1 0 5 1 1 Gone
nearly double 952 1 0 5 1 1 Nearly gone
fin synonym gone
marks deprecated
 nearly use "span"
 oldflag use "flag"
marks obsolete
 gone without a successor
)";
}

tswitches::tswitches(std::string_view& input) {
  for (unsigned* const bits : {&fbits, &fmore}) {
    *bits = input.empty() ? 0 : static_cast<unsigned char>(input.front());
    input.remove_prefix(input.empty() ? 0 : 1);
  }
}

void tswitches::read(tpair& pair, std::string_view text) const {
  pair.one(opteolonlyset, (fbits & 4) == 0 ? 1 : 0);
  pair.one(optechoset, (fbits & 8) != 0 ? 1 : 0);
  pair.one(optnoboundsset, (fbits & 16) != 0 ? 1 : 0);
  pair.one(optrecentenabledset, (fmore & 8) == 0 ? 1 : 0);
  writefile("opt", text);
  switch (fmore % 4) {
    case 0: pair.one(optreadfrompchar, std::string(text).c_str()); break;
    case 1:
      while (!text.empty()) pair.call(BOTH(readfromstr), ttext(nextline(text)));
      break;
    default: pair.call(BOTH(readparameterfile), ttext("opt")); break;
  }
}

std::pair<std::string_view, std::string_view> split(std::string_view text) {
  constexpr std::string_view separator = "\n%%\n";
  const std::size_t position = text.find(separator);
  if (position == std::string_view::npos) return {text, {}};
  return {text.substr(0, position + 1), text.substr(position + separator.size())};
}

std::string_view nextline(std::string_view& text) {
  const std::size_t length = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, length);
  text.remove_prefix(std::min(length + 1, text.size()));
  return line;
}

}  // namespace fuzzing
