// The input is a definition file. Whatever it defines is asked for, each option is set to the value that it
// has, and the settings are written and read again.
#include "fuzz/support/roundtrip.h"
#include "fuzz/support/state.h"
#include "fuzz/support/target.h"

namespace fuzzing {
namespace {

void setall(tpair& pair) {
  ttextresult text;
  tintresult defined, recent, refnr, datatype, opttype, subtype;
  for (std::int32_t i = pair.callone(optcount); i > 0; --i) {
    pair.callone(optgetinfonr, i, defined, recent, refnr, datatype, opttype, subtype);
    // one that hands its text on is given one for several options
    const bool handson = opttype.value() == optTypeMultiList || opttype.value() == optTypeMacro;
    pair.call(optgetstrnr, coptgetstrnr, i, text);
    pair.call(optsetstrnr, coptsetstrnr, i, ttextin(handson ? "1:2:3" : text.text()));
    pair.call(optsetstr2nr, coptsetstr2nr, i, ttextin("1"));
  }
}

}  // namespace
}  // namespace fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace fuzzing;
  const tinputscope scope;
  const std::string_view input = asview(bytes, size);
  tfiles::get().write("def", input);
  tpair pair;
  FUZZ_CHECK(pair.readdefinition("def") == 0, "definition");
  checkstate(pair, tscope::everything);
  pair.clearmessages();
  setall(pair);
  checkmessages(pair);
  for (const bool eolonly : {false, true}) checkroundtrip(pair, eolonly);
  return 0;
}
