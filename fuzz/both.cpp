// The input is a definition file and, behind a line "%%", a parameter file, with two bytes of switches in
// front.
#include "fuzz/support/target.h"

void fuzzing::run(std::string_view input) {
  const tswitches switches(input);
  const auto [definition, parameters] = split(input);
  writefile("def", definition);
  tpair pair;
  pair.readdefinition("def");
  checkmessages(pair);
  pair.clearmessages();
  switches.read(pair, parameters);
  checkstate(pair, tscope::everything);
  checkroundtrip(pair, switches.writeeolonly());
}
