// The input is two bytes of switches and a parameter file, which is read with a definition that has
// everything. The switches choose the lookup mode, the way of reading and the flags of the handles.
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
