// The input is a sequence of calls on several handles: a byte chooses the handle and one the call, its
// arguments follow. Every exported function is among them.
#include <array>
#include <optional>
#include <vector>

#include "base/textcase.h"
#include "fuzz/support/decoder.h"
#include "fuzz/support/roundtrip.h"
#include "fuzz/support/state.h"
#include "fuzz/support/target.h"
#include "fuzz/support/texts.h"

namespace fuzzing {
namespace {

// What a call is made with: the pair that was chosen, the rest of the input, and results to fill.
struct tcontext {
  tpair& pair;
  tdecoder& input;
  ttextresult text1, text2;
  tintresult int1, int2, int3, int4, int5, int6;
  tdblresult dbl1, dbl2, dbl3;

  std::int32_t option() { return input.number(pair.callone(optcount)); }
  // The name of an option or synonym, sometimes with the case of letters changed, or any text.
  std::string name() {
    const std::int32_t choice = input.pick(3);
    if (choice == 0) return input.text();
    if (choice == 1)
      pair.call(optgetsynonym, coptgetsynonym, input.number(pair.callone(optsynonymcount)), text1, text2);
    else
      pair.call(optgethelpnr, coptgethelpnr, option(), text1, text2);
    std::string name = text1.text();
    if (choice == 2)
      for (char& letter : name) letter = wexcorin::upchar(letter);
    return name;
  }
  // A text argument; seldom a null pointer.
  ttextin text() {
    std::string text = input.text();
    return text == "\x01" ? ttextin() : ttextin(text);
  }
  std::string filename() {
    constexpr std::array<std::string_view, 8> names = {"0", "1", "2", "3", "out", "full", "/", "absent"};
    const std::int32_t choice = input.pick(8);
    return choice == 8 ? input.text() : std::string(names[static_cast<std::size_t>(choice)]);
  }
};

using tcall = void (*)(tcontext&);

// Results that have been filled are compared by the pair; what the calls do is asked by checkstate.
constexpr tcall calls[] = {
    // ---- reading and writing
    [](tcontext& c) { c.pair.readdefinition(c.filename()); },
    [](tcontext& c) { c.pair.readparameters(c.filename()); },
    [](tcontext& c) { c.pair.call(optreadfromstr, coptreadfromstr, c.text()); },
    [](tcontext& c) {
      const std::string text(c.input.longtext());
      c.pair.callone(optreadfrompchar, text == "\x01" ? nullptr : text.c_str());
    },
    [](tcontext& c) {
      const std::string name = c.name();
      c.pair.call(optreadfromliststr, coptreadfromliststr, ttextin(name), c.input.number(2), c.text1);
    },
    [](tcontext& c) { c.pair.call(optwriteparameterfile, coptwriteparameterfile, ttextin(c.filename())); },
    [](tcontext& c) { c.pair.call(optshowhelp, coptshowhelp, c.text()); },
    [](tcontext& c) { c.pair.call(optshowhelp, coptshowhelp, ttextin(c.name())); },
    // ---- messages
    [](tcontext& c) { c.pair.call(optaddmessage, coptaddmessage, c.text()); },
    [](tcontext& c) {
      for (std::int32_t count = c.input.integer(); count > 0 && count < 300; --count)
        c.pair.call(optaddmessage, coptaddmessage, ttextin("one of many"));
    },
    [](tcontext& c) {
      c.pair.call(optgetmessage, coptgetmessage, c.input.number(c.pair.callone(optmessagecount)), c.text1,
                  c.int1);
    },
    [](tcontext& c) { c.pair.clearmessages(); },
    [](tcontext& c) { c.pair.callone(opterrorcount, c.int1, c.int2); },
    // ---- resetting
    [](tcontext& c) { c.pair.callone(optresetall); },
    [](tcontext& c) { c.pair.callone(optresetallrecent); },
    [](tcontext& c) { c.pair.callone(optresetrecentchanges); },
    [](tcontext& c) { c.pair.callone(optresetnr, c.option()); },
    // ---- lookup; text in and out may share a buffer
    [](tcontext& c) { c.pair.call(optfindstr, coptfindstr, ttextin(c.name()), c.int1, c.int2); },
    [](tcontext& c) { c.pair.call(optlookup, coptlookup, c.text()); },
    [](tcontext& c) {
      ttextresult shared(c.name());
      c.pair.call(optgetvalstr, coptgetvalstr, shared, shared);
    },
    [](tcontext& c) {
      ttextresult shared(c.name());
      c.pair.call(optgetval2str, coptgetval2str, shared, shared);
    },
    // ---- values
    [](tcontext& c) {
      c.pair.call(optgetvaluesnr, coptgetvaluesnr, c.option(), c.text1, c.int1, c.dbl1, c.text2);
    },
    [](tcontext& c) {
      const std::int32_t option = c.option(), integer = c.input.integer();
      const double dbl = c.input.dbl();
      c.pair.call(optsetvaluesnr, coptsetvaluesnr, option, integer, dbl, c.text());
    },
    [](tcontext& c) {
      const std::int32_t option = c.option(), integer = c.input.integer();
      const double dbl = c.input.dbl();
      c.pair.call(optsetvalues2nr, coptsetvalues2nr, option, integer, dbl, c.text());
    },
    [](tcontext& c) {
      const std::int32_t option = c.option();
      c.pair.callone(optsetintnr, option, c.input.integer());
    },
    [](tcontext& c) {
      const std::int32_t option = c.option();
      c.pair.callone(optsetint2nr, option, c.input.integer());
    },
    [](tcontext& c) {
      const std::int32_t option = c.option();
      c.pair.callone(optsetdblnr, option, c.input.dbl());
    },
    [](tcontext& c) {
      const std::int32_t option = c.option();
      c.pair.callone(optsetdbl2nr, option, c.input.dbl());
    },
    [](tcontext& c) {
      const std::int32_t option = c.option();
      c.pair.call(optsetstrnr, coptsetstrnr, option, c.text());
    },
    [](tcontext& c) {
      const std::int32_t option = c.option();
      c.pair.call(optsetstr2nr, coptsetstr2nr, option, c.text());
    },
    [](tcontext& c) { c.pair.callone(optgetintnr, c.option(), c.int1); },
    [](tcontext& c) { c.pair.callone(optgetint2nr, c.option(), c.int1); },
    [](tcontext& c) { c.pair.callone(optgetdblnr, c.option(), c.dbl1); },
    [](tcontext& c) { c.pair.callone(optgetdbl2nr, c.option(), c.dbl1); },
    [](tcontext& c) { c.pair.call(optgetstrnr, coptgetstrnr, c.option(), c.text1); },
    [](tcontext& c) { c.pair.call(optgetstr2nr, coptgetstr2nr, c.option(), c.text1); },
    // ---- information
    [](tcontext& c) {
      c.pair.callone(optgetinfonr, c.option(), c.int1, c.int2, c.int3, c.int4, c.int5, c.int6);
      c.pair.callone(optgetdefinednr, c.option(), c.int1);
      c.pair.call(optgetnamenr, coptgetnamenr, c.option(), c.text1);
      c.pair.call(optgethelpnr, coptgethelpnr, c.option(), c.text1, c.text2);
      c.pair.call(optgetopthelpnr, coptgetopthelpnr, c.option(), c.text1, c.int1, c.int2);
      c.pair.call(optgetdefaultstr, coptgetdefaultstr, c.option(), c.text1);
      c.pair.callone(optgetboundsint, c.option(), c.int1, c.int2, c.int3);
      c.pair.callone(optgetboundsdbl, c.option(), c.dbl1, c.dbl2, c.dbl3);
      c.pair.callone(optgetenumcount, c.option(), c.int1);
      c.pair.callone(optgetoptgroupnr, c.option());
    },
    [](tcontext& c) {
      const std::int32_t option = c.option(), item = c.input.number(4);
      c.pair.call(optgetenumhelp, coptgetenumhelp, option, item, c.int1, c.text1);
      c.pair.call(optgetenumvalue, coptgetenumvalue, option, item, c.int1, c.text1);
      c.pair.call(optgetenumstrnr, coptgetenumstrnr, option, c.text1, c.int1);
    },
    [](tcontext& c) {
      const std::int32_t number = c.input.integer();
      c.pair.call(optgetsynonym, coptgetsynonym, number, c.text1, c.text2);
      c.pair.call(optgetgroupnr, coptgetgroupnr, number, c.text1, c.int1, c.int2, c.text2);
      c.pair.callone(optgetgroupgrpnr, number);
      c.pair.call(optgettypename, coptgettypename, number, c.text1);
      c.pair.call(optgetconstname, coptgetconstname, c.input.number(4), number, c.text1);
    },
    [](tcontext& c) {
      c.pair.call(optdefinitionfile, coptdefinitionfile, c.text1);
      c.pair.call(optversion, coptversion, c.text1);
      FUZZ_CHECK(c.text1.text().size() == 78, c.text1.text());
      c.pair.callone(optgroupcount);
      c.pair.callone(optdotoptcount, c.int1);
      c.pair.callone(optindicatorcount, c.int1);
    },
    // ---- string lists
    [](tcontext& c) { c.pair.call(optlistcountstr, coptlistcountstr, c.text()); },
    [](tcontext& c) {
      ttextresult shared(c.name());
      c.pair.call(optgetfromliststr, coptgetfromliststr, shared, shared);
    },
    [](tcontext& c) {
      c.pair.call(optgetfromanystrlist, coptgetfromanystrlist, c.input.pick(2), c.text1, c.text2);
    },
    // ---- dot options and indicators
    [](tcontext& c) {
      const std::int32_t number = c.input.number(5), index = c.input.number(5);
      c.pair.call(optgetdotoptnr, coptgetdotoptnr, number, c.text1, c.int1, c.int2, c.dbl1);
      c.pair.call(optgetdotoptuel, coptgetdotoptuel, number, index, c.text1);
      c.pair.call(optgetindicatornr, coptgetindicatornr, number, c.text1, c.text2, c.int1, c.int2, c.int3);
      c.pair.call(optgetequindicatornr, coptgetequindicatornr, number, index, c.text1);
      c.pair.call(optgetvarindicatornr, coptgetvarindicatornr, number, index, c.text1);
    },
    // ---- flags
    [](tcontext& c) { c.pair.callone(optechoset, c.input.integer()); },
    [](tcontext& c) { c.pair.callone(optnoboundsset, c.input.integer()); },
    [](tcontext& c) { c.pair.callone(opteolonlyset, c.input.integer()); },
    [](tcontext& c) {
      const std::int32_t flag = c.input.integer();
      c.pair.callone(optrecentenabledset, flag);
      FUZZ_CHECK(c.pair.callone(optrecentenabled) == (flag != 0 ? 1 : 0), std::to_string(flag));
    },
    // ---- reference numbers
    [](tcontext& c) {
      const std::int32_t option = c.option();
      c.pair.callone(optsetrefnr, option, c.input.integer());
    },
    [](tcontext& c) {
      const std::string name = c.name();
      c.pair.call(optsetrefnrstr, coptsetrefnrstr, ttextin(name), c.input.integer());
    },
    // ---- without a handle
    [](tcontext& c) {
      const ttextin path = c.text();
      callfree(optsetloadpath, coptsetloadpath, path);
      callfree(optgetloadpath, coptgetloadpath, c.text1);
    },
    [](tcontext& c) { callfree(xapiversion, cxapiversion, c.input.integer(), c.text1, c.int1); },
    [](tcontext& c) {
      // as many codes as the count says, and no more
      const std::int32_t count = c.input.number(8);
      std::vector<std::int32_t> codes(count >= 0 && count < 100 ? static_cast<std::size_t>(count) + 1 : 0);
      for (std::int32_t& code : codes) code = c.input.pick(14);
      constexpr std::array<std::string_view, 4> names = {"optGetNameNr", "optFindStr", "optGetInfoNr",
                                                         "optResetAll"};
      const std::size_t choice = c.input.byte() % 5;
      const std::string name = choice == 4 ? c.input.text() : std::string(names[choice]);
      callfree(xcheck, cxcheck, ttextin(name), count, static_cast<const std::int32_t*>(codes.data()),
               c.text1);
    },
    // ---- files, and checks of everything
    [](tcontext& c) {
      const std::int32_t file = c.input.pick(3);
      tfiles::get().write(std::to_string(file), c.input.longtext());
    },
    [](tcontext& c) { checkstate(c.pair, tscope::whatisset); },
    [](tcontext& c) { checkroundtrip(c.pair, c.input.pick(1) != 0); },
};

void freenothing() {
  tvksoptions* nothing = nullptr;
  xfree(&nothing);
  FUZZ_CHECK(nothing == nullptr, "a handle out of nothing");
}

}  // namespace
}  // namespace fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace fuzzing;
  const tinputscope scope;
  tdecoder input(asview(bytes, size));
  std::array<std::optional<tpair>, 3> pairs;
  optsetloadpath(nullptr);
  for (const int mode : {0, 1, 2}) tfiles::get().write(std::to_string(mode), richdefinition(mode));
  for (int count = 0; !input.atend() && count < 1000; ++count) {
    // Three bytes in four go on with the first handle; some of the others end a handle, and its place gets a
    // new one.
    const unsigned choice = input.byte();
    std::optional<tpair>& pair = pairs[choice < 192 ? 0 : choice % 3];
    if (choice > 250) pair.reset();
    if (!pair.has_value()) pair.emplace();
    tcontext context{*pair, input, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}};
    calls[input.byte() % std::size(calls)](context);
  }
  for (auto& pair : pairs) {
    if (!pair.has_value()) continue;
    checkstate(*pair, tscope::whatisset);
    checkroundtrip(*pair, true);
  }
  freenothing();
  return 0;
}
