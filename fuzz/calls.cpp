// The input is a sequence of calls on several handles. One byte chooses the handle and one the call; the
// arguments of the call follow. Every exported function is among the calls, most queries as part of checkstate.
#include <optional>

#include "base/textcase.h"
#include "fuzz/support/target.h"

namespace fuzzing {
namespace {

// Decodes an input into numbers and texts, from front to back. When nothing is left, numbers are decoded from
// bytes 0, and texts are empty.
struct tdecoder {
  explicit tdecoder(std::string_view input) : finput(input) {}

  bool atend() const { return finput.empty(); }
  unsigned byte() {
    if (finput.empty()) return 0;
    const auto value = static_cast<unsigned char>(finput.front());
    finput.remove_prefix(1);
    return value;
  }
  // A number from 0 to `highest`.
  std::int32_t pick(std::int32_t highest) { return static_cast<std::int32_t>(byte()) % (highest + 1); }
  // Usually a number from 0 to count + 1, where 1 to count exist; sometimes any integer.
  std::int32_t number(std::int32_t count) {
    const unsigned choice = byte();
    return choice == 255 ? integer() : static_cast<std::int32_t>(choice) % (count + 2);
  }
  std::int32_t integer() {
    const unsigned choice = byte();
    if (choice < 128) return static_cast<std::int32_t>(choice) - 16;
    std::uint32_t value = choice % 4 == 0 ? 0x7fffffff : 0;
    for (int i = 0; i < 4; ++i) value = (value << 8) ^ byte();
    return static_cast<std::int32_t>(value);
  }
  double dbl() {
    const unsigned choice = byte();
    if (choice < 128) return (static_cast<double>(choice) - 16) / 8;
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) bits = (bits << 8) | byte();
    return std::bit_cast<double>(bits);
  }
  // Up to 255 characters of the input. From length 250 on, a few characters are appended, so that texts that
  // are too long occur, too.
  std::string text() {
    const std::size_t length = byte();
    return std::string(taken(length)).append(length >= 250 ? length - 246 : 0, 'x');
  }
  // Up to 64 KiB.
  std::string_view longtext() {
    const std::size_t length = byte() * 256;
    return taken(length + byte());
  }

 private:
  std::string_view taken(std::size_t length) {
    const std::string_view value = finput.substr(0, length);
    finput.remove_prefix(value.size());
    return value;
  }
  std::string_view finput;
};

// What the calls use: the chosen pair of handles, arguments from the input, and variables for the results.
// The pair compares the results of its handles; checkstate checks the state that the calls leave.
struct tcontext : tdecoder {
  using tdecoder::tdecoder;
  tpair* pair = nullptr;
  ttext text1, text2;
  std::int32_t int1{}, int2{};

  std::int32_t option() { return number(pair->one(optcount)); }
  // The name of an option or synonym, sometimes with the case of letters changed, or any text.
  std::string name() {
    const std::int32_t choice = pick(3);
    if (choice == 0) return text();
    if (choice == 1)
      pair->call(BOTH(getsynonym), number(pair->one(optsynonymcount)), text1, text2);
    else
      pair->call(BOTH(gethelpnr), option(), text1, text2);
    std::string name = text1.text();
    if (choice == 2)
      for (char& letter : name) letter = optcore::upchar(letter);
    return name;
  }
  // A text argument; seldom a null pointer.
  ttext argument() {
    const std::string argument = text();
    return argument == "\x01" ? ttext(nullptr) : ttext(argument);
  }
  // Calls a function with the name and the text result in one buffer.
  template <class tfirst, class tsecond>
  void callshared(tfirst first, tsecond second) {
    ttext shared(name(), true);
    pair->call(first, second, shared, shared);
  }
  std::string filename() {
    constexpr std::array<const char*, 8> names = {"0", "1", "2", "3", "out", "full", "/", "absent"};
    const auto choice = static_cast<std::size_t>(pick(8));
    return choice == 8 ? text() : names[choice];
  }
};

// A call whose arguments are written in braces, which are evaluated in order. So they are taken from the
// input in order.
struct tcalled {
  template <class... targuments>
  explicit tcalled(tcontext& context, targuments&&... arguments) {
    context.pair->call(arguments...);
  }
};
#define CALL(...) [](tcontext& c) { tcalled{c, __VA_ARGS__}; }
#define ONE(function) function, function

using tcall = void (*)(tcontext&);

constexpr tcall calls[] = {
    // ---- reading and writing
    [](tcontext& c) { c.pair->readdefinition(c.filename()); },
    CALL(BOTH(readparameterfile), ttext(c.filename())), CALL(BOTH(readfromstr), c.argument()),
    [](tcontext& c) {
      const std::string text(c.longtext());
      c.pair->one(optreadfrompchar, text == "\x01" ? nullptr : text.c_str());
    },
    CALL(BOTH(writeparameterfile), ttext(c.filename())), CALL(BOTH(showhelp), c.argument()),
    CALL(BOTH(showhelp), ttext(c.name())),
    // ---- messages
    CALL(BOTH(addmessage), c.argument()),
    [](tcontext& c) {
      for (std::int32_t count = c.integer(); count > 0 && count < 300; --count)
        c.pair->call(BOTH(addmessage), ttext("one of many"));
    },
    [](tcontext& c) { c.pair->clearmessages(); },
    // ---- resetting
    CALL(ONE(optresetall)), CALL(ONE(optresetallrecent)), CALL(ONE(optresetrecentchanges)),
    CALL(ONE(optresetnr), c.option()),
    // ---- lookup
    CALL(BOTH(findstr), ttext(c.name()), c.int1, c.int2), CALL(BOTH(lookup), c.argument()),
    [](tcontext& c) { c.callshared(BOTH(getvalstr)); }, [](tcontext& c) { c.callshared(BOTH(getval2str)); },
    // ---- values
    CALL(BOTH(setvaluesnr), c.option(), c.integer(), c.dbl(), c.argument()),
    CALL(BOTH(setvalues2nr), c.option(), c.integer(), c.dbl(), c.argument()),
    CALL(ONE(optsetintnr), c.option(), c.integer()), CALL(ONE(optsetint2nr), c.option(), c.integer()),
    CALL(ONE(optsetdblnr), c.option(), c.dbl()), CALL(ONE(optsetdbl2nr), c.option(), c.dbl()),
    CALL(BOTH(setstrnr), c.option(), c.argument()), CALL(BOTH(setstr2nr), c.option(), c.argument()),
    // ---- what checkstate does not ask for
    CALL(BOTH(gettypename), c.integer(), c.text1),
    CALL(BOTH(getconstname), c.number(4), c.integer(), c.text1), CALL(BOTH(version), c.text1),
    // ---- string lists
    CALL(BOTH(listcountstr), c.argument()), [](tcontext& c) { c.callshared(BOTH(getfromliststr)); },
    CALL(BOTH(getfromanystrlist), c.pick(2), c.text1, c.text2),
    // ---- flags
    CALL(ONE(optechoset), c.integer()), CALL(ONE(optnoboundsset), c.integer()),
    CALL(ONE(opteolonlyset), c.integer()), CALL(ONE(optrecentenabledset), c.integer()),
    // ---- reference numbers
    CALL(ONE(optsetrefnr), c.option(), c.integer()), CALL(BOTH(setrefnrstr), ttext(c.name()), c.integer()),
    // ---- without a handle
    [](tcontext& c) {
      call(BOTH(setloadpath), c.argument());
      call(BOTH(getloadpath), c.text1);
    },
    [](tcontext& c) { call(xapiversion, cxapiversion, c.integer(), c.text1, c.int1); },
    [](tcontext& c) {
      // exactly as many codes as the count says
      const std::int32_t count = c.number(8);
      std::vector<std::int32_t> codes(count >= 0 && count < 100 ? static_cast<std::size_t>(count) + 1 : 0);
      for (std::int32_t& code : codes) code = c.pick(14);
      constexpr std::array<const char*, 4> names = {"optGetNameNr", "optFindStr", "optGetInfoNr",
                                                    "optResetAll"};
      const std::size_t choice = c.byte() % 5;
      call(xcheck, cxcheck, ttext(choice == 4 ? c.text() : names[choice]), count, codes.data(), c.text1);
    },
    // ---- files, and checks of everything
    [](tcontext& c) {
      const std::string name = std::to_string(c.pick(3));
      writefile(name, c.longtext());
    },
    [](tcontext& c) { checkstate(*c.pair, tscope::whatisset); },
    [](tcontext& c) { checkroundtrip(*c.pair, c.pick(1) != 0); }};

}  // namespace
}  // namespace fuzzing

void fuzzing::run(std::string_view input) {
  tcontext context(input);
  std::array<std::optional<tpair>, 3> pairs;
  optsetloadpath(nullptr);
  for (const int mode : {0, 1, 2}) writefile(std::to_string(mode), richdefinition(mode));
  for (int count = 0; !context.atend() && count < 1000; ++count) {
    // Three bytes in four choose the first pair of handles. Bytes above 250 free the chosen pair first, and a
    // new one takes its place.
    const unsigned choice = context.byte();
    std::optional<tpair>& pair = pairs[choice < 192 ? 0 : choice % 3];
    if (choice > 250) pair.reset();
    if (!pair.has_value()) pair.emplace();
    context.pair = &*pair;
    calls[context.byte() % std::size(calls)](context);
  }
  for (auto& pair : pairs) {
    if (!pair.has_value()) continue;
    checkstate(*pair, tscope::whatisset);
    checkroundtrip(*pair, true);
  }
}
