// The input is a definition file, a parameter file and requests for help, one a line, with a line "%%"
// between these parts and two bytes of switches in front. Everything that the library can write of the store
// is written, and the documents of the tool.
#include "fuzz/support/html.h"
#include "fuzz/support/roundtrip.h"
#include "fuzz/support/state.h"
#include "fuzz/support/target.h"
#include "fuzz/support/texts.h"
#include "fuzz/tooldocuments.h"

#include "api/handle.h"
#include "output/vksoptionwriter.h"

namespace fuzzing {
namespace {

using wexcorin::tvksoptionwriter;

void checknothing(std::string_view) {}

// What is written can be read, whatever it says.
void checkdefinition(std::string_view bytes) {
  tfiles::get().write("written.def", bytes);
  tpair pair;
  FUZZ_CHECK(pair.readdefinition("written.def") == 0, "definition");
  checkstate(pair, tscope::everything);
}

// One row for each kind of document: how a store writes it, and what must hold of the bytes.
struct tdocument {
  std::int32_t (tvksoptionwriter::*write)(std::string_view filename) const;
  void (*check)(std::string_view bytes);
};
constexpr tdocument documents[] = {
    {&tvksoptionwriter::writedefinition, checkdefinition},
    {&tvksoptionwriter::writedelphiinc, checknothing},
    {&tvksoptionwriter::writeashtml, checkhtml},
};

void checkdocument(const tpair& pair, const tdocument& document) {
  std::string bytes[2];
  for (const int form : {0, 1}) {
    const tvksoptionwriter writer(*pair.handle(form));
    tfiles::get().allowopens();
    FUZZ_CHECK((writer.*document.write)("out") == 0, "out");
    bytes[form] = tfiles::get().read("out");
    FUZZ_CHECK((writer.*document.write)("out") == 0 && tfiles::get().read("out") == bytes[form], bytes[form]);
    FUZZ_CHECK((writer.*document.write)("absent/out") != 0 && (writer.*document.write)("full") != 0, "full");
  }
  FUZZ_CHECK(bytes[0] == bytes[1] && !bytes[0].empty(), bytes[0] + "\n" + bytes[1]);
  document.check(bytes[0]);
}

void checktooldocuments(const tpair& pair) {
  const std::vector<std::string> written = checkeddocuments(*pair.handle(0));
  FUZZ_CHECK(written == checkeddocuments(*pair.handle(1)), written.front());
}

void checkhelp(tpair& pair, std::string_view request) {
  pair.clearmessages();
  pair.call(optshowhelp, coptshowhelp, ttextin(request));
  checkmessages(pair);
}

}  // namespace
}  // namespace fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace fuzzing;
  const tinputscope scope;
  std::string_view input = asview(bytes, size);
  const tswitches switches(input);
  const auto [definition, rest] = split(input);
  auto [parameters, requests] = split(rest);
  tfiles::get().write("def", definition);
  tpair pair;
  pair.readdefinition("def");
  switches.apply(pair);
  switches.read(pair, parameters);
  for (const tdocument& document : documents) checkdocument(pair, document);
  checktooldocuments(pair);
  checkroundtrip(pair, switches.writeeolonly());
  for (const std::string_view request : {"", "11", "2"}) checkhelp(pair, request);
  for (int count = 0; count < 20 && !requests.empty(); ++count) checkhelp(pair, nextline(requests));
  return 0;
}
