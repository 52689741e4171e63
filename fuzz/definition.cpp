// The input is a definition file. Everything that it defines is queried, each option is set to the value that
// it has, and the settings are written and read back.
#include "fuzz/support/target.h"

void fuzzing::run(std::string_view input) {
  writefile("def", input);
  tpair pair;
  HOLDS(pair.readdefinition("def") == 0, "definition");
  checkstate(pair, tscope::everything);
  pair.clearmessages();
  ttext text;
  std::int32_t defined{}, recent{}, refnr{}, datatype{}, opttype{}, subtype{};
  for (std::int32_t i = pair.one(optcount); i > 0; --i) {
    pair.one(optgetinfonr, i, defined, recent, refnr, datatype, opttype, subtype);
    // an option that passes its text on gets words for several members
    const bool handson = opttype == optTypeMultiList || opttype == optTypeMacro;
    pair.call(BOTH(getstrnr), i, text);
    pair.call(BOTH(setstrnr), i, ttext(handson ? "1:2:3" : text.text()));
    pair.call(BOTH(setstr2nr), i, ttext("1"));
  }
  checkmessages(pair);
  for (const bool eolonly : {false, true}) checkroundtrip(pair, eolonly);
}
