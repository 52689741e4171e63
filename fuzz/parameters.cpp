// The input is a parameter file, read against a definition that has everything. Its first two bytes choose
// the lookup mode, the way of reading and the switches.
#include "fuzz/support/roundtrip.h"
#include "fuzz/support/state.h"
#include "fuzz/support/target.h"
#include "fuzz/support/texts.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace fuzzing;
  const tinputscope scope;
  std::string_view input = asview(bytes, size);
  const tswitches switches(input);
  tfiles::get().write("def", richdefinition(switches.lookupmode()));
  tpair pair;
  pair.readdefinition("def");
  FUZZ_CHECK(pair.callone(optmessagecount) == 0, messages(pair));
  switches.apply(pair);
  switches.read(pair, input);
  checkstate(pair, tscope::whatisset);
  checkroundtrip(pair, switches.writeeolonly());
  return 0;
}
