// The input is two bytes of switches, a definition file and, after a line "%%", a parameter file. Both files
// are read, the state is checked, and the settings are written and read back.
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
