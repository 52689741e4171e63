// The input is a parameter file, read against a definition that has everything. Its first two bytes choose
// the lookup mode, the way of reading and the switches.
#include "fuzz/support/target.h"

void fuzzing::run(std::string_view input) {
  const tswitches switches(input);
  writefile("def", richdefinition(switches.lookupmode()));
  tpair pair;
  pair.readdefinition("def");
  HOLDS(pair.one(optmessagecount) == 0, messages(pair));
  switches.read(pair, input);
  checkstate(pair, tscope::whatisset);
  checkroundtrip(pair, switches.writeeolonly());
}
