// The input is a definition file and, behind a line "%%", a parameter file, with two bytes of switches in
// front.
#include "fuzz/support/roundtrip.h"
#include "fuzz/support/state.h"
#include "fuzz/support/target.h"
#include "fuzz/support/texts.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace fuzzing;
  const tinputscope scope;
  std::string_view input = asview(bytes, size);
  const tswitches switches(input);
  const auto [definition, parameters] = split(input);
  tfiles::get().write("def", definition);
  tpair pair;
  pair.readdefinition("def");
  checkmessages(pair);
  pair.clearmessages();
  switches.apply(pair);
  switches.read(pair, parameters);
  checkstate(pair, tscope::everything);
  checkroundtrip(pair, switches.writeeolonly());
  return 0;
}
