// The round trip of a parameter file, and what a pair keeps for it.
#include "api/handle.h"
#include "fuzz/support/target.h"
#include "tools/inexpressible.h"

namespace fuzzing {

std::int32_t tpair::readdefinition(std::string_view filename) {
  const bool isfirst = one(optcount) == 0;
  const std::string bytes = readfile(filename);
  const std::int32_t code = call(BOTH(readdefinition), ttext(filename));
  if (code == 0) fdefinitions += isfirst ? 1 : 2;
  if (code == 0 && isfirst) fdefinition = bytes;
  return code;
}

void tpair::clearmessages() {
  fwasfull = wasfull();
  one(optclearmessages);
}

bool tpair::wasfull() const { return fwasfull || handle(0)->messagesfull(); }

namespace {

// The file that both handles write, which says nothing else about it.
std::string written(tpair& pair, const std::string& filename) {
  const std::int32_t before = pair.one(optmessagecount);
  std::array<std::string, 2> bytes;
  ttext name(filename);
  name.prepare(true);
  for (const std::size_t form : {0U, 1U}) {
    writefile(filename, "what was there before");
    beforecall();
    HOLDS((form == 0 ? optwriteparameterfile(pair.handle(0), name.pass<const optshortstring*>(0))
                     : coptwriteparameterfile(pair.handle(1), filename.c_str())) == 0,
          filename);
    bytes[form] = readfile(filename);
  }
  HOLDS(bytes[0] == bytes[1], bytes[0], bytes[1]);
  HOLDS(pair.one(optmessagecount) == before, "a message about writing");
  return bytes[0];
}

}  // namespace

void checkroundtrip(tpair& pair, bool eolonly) {
  written(pair, "out1");
  bool survives = true;
  for (const auto& [option, text] : tool::inexpressible(*pair.handle(0), eolonly)) {
    if (option > 0) pair.one(optresetnr, option);
    survives &= option > 0;
  }
  const std::string first = written(pair, "out1");
  if (pair.definition() == nullptr) return;
  tpair again;
  writefile("round.def", *pair.definition());
  HOLDS(again.readdefinition("round.def") == 0, "definition");
  again.clearmessages();
  again.one(opteolonlyset, eolonly ? 1 : 0);
  HOLDS(again.call(BOTH(readparameterfile), ttext("out1")) == 0, "what was written");
  const std::string second = written(again, "out2");
  if (pair.wasfull() || !survives) return;
  std::int32_t errors{}, warnings{};
  again.one(opterrorcount, errors, warnings);
  HOLDS(errors == 0, first, messages(again));
  HOLDS(first == second, first, second);
}

}  // namespace fuzzing
