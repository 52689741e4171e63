// What the fuzz targets share: assertions, files in memory, handles in both text forms, the parts of inputs,
// and the checks of all that the interface answers.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "wexcorin/wexcorin.h"

// The fuzzer calls this for each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

// A condition that does not hold ends the process, with the place and what was seen, so that the fuzzer keeps
// the input.
#define HOLDS(condition, ...) \
  ((condition) ? static_cast<void>(0) : ::fuzzing::fail(__FILE__, __LINE__, #condition, {__VA_ARGS__}))
// A function's name in both text forms.
#define BOTH(name) opt##name, copt##name

namespace fuzzing {

// What a target does with an input; each target has one.
void run(std::string_view input);

struct tseen {
  template <class tvalue>
  tseen(const tvalue& value) {
    if constexpr (std::is_convertible_v<tvalue, std::string_view>)
      text = value;
    else
      text = std::to_string(value);
  }
  std::string text;
};
[[noreturn]] void fail(const char* file, int line, const char* condition, std::initializer_list<tseen> seen);

// ---- files: bytes in memory under names that the target chooses. The library's calls of the system's open
// end there (the linker redirects them), so that no input reaches the file system, whatever names it makes
// up.
//
// Besides the files there is "/", the directory that no read gets anything from, and "full", which takes no
// byte. Files can be created under names that begin with "out". Any other name does not exist.

void writefile(std::string_view name, std::string_view bytes);
std::string readfile(std::string_view name);  // empty for a file that does not exist
// Before each call of the library: so many files may be opened, then there are "too many open files". Files
// that include themselves take a bounded time.
void allowopens();

// ---- calls: each is made in both text forms, on two handles in the same state; results, numbers and texts
// that come out must agree

// A text in both forms. One with a zero byte and one of 255 characters have no zero-terminated form: the call
// is then made in the short form twice. A longer text arrives as the interface says. Buffers of results lie
// between guard bytes, and what lies behind a text must stay as it was; those of arguments are of exactly
// their length, so that reading on is noticed.
class ttext {
 public:
  ttext() : ftakesresult(true) {}
  explicit ttext(std::nullptr_t) : fisnull(true) {}
  // An argument, or argument and result in one buffer.
  explicit ttext(std::string_view text, bool takesresult = false);

  bool hasboth() const;
  void prepare(bool both);
  void finish(bool both);
  template <class tpointer>
  tpointer pass(int form) {
    return fisnull ? nullptr
                   : reinterpret_cast<tpointer>(fbuffers[static_cast<std::size_t>(form)].data() + guards);
  }
  // After a call: the text; empty when the call left the buffer untouched.
  const std::string& text() const { return ftext; }

 private:
  static constexpr int guards = 8;
  bool fisnull = false, fhasinitial = false, ftakesresult = false;
  std::string finitial, ftext;
  std::array<std::vector<unsigned char>, 2> fbuffers, fbefore;  // a buffer for each form
};

// An argument in both forms: a text, a number that comes out, or what is the same in both, but for the handles.
struct tslot {
  bool hasboth() const { return true; }
  void prepare(bool) const {}
  void finish(bool) const {}
};
inline constexpr int untouched = -77777;
template <class tnumber>
struct tresultslot : tslot {
  tnumber& value;
  std::array<tnumber, 2> values = {untouched, untouched};
  void finish(bool) {
    using tbits = std::conditional_t<sizeof(tnumber) == 8, std::uint64_t, std::uint32_t>;
    HOLDS(std::bit_cast<tbits>(values[0]) == std::bit_cast<tbits>(values[1]), values[0], values[1]);
    value = values[0];
  }
  template <class>
  tnumber* pass(int form) {
    return &values[static_cast<std::size_t>(form)];
  }
};
template <class tvalue>
struct tvalueslot : tslot {
  const tvalue& value;
  template <class tparameter>
  tparameter pass(int form) const {
    if constexpr (std::is_same_v<tvalue, std::array<tvksoptions*, 2>>)
      return value[static_cast<std::size_t>(form)];
    else
      return value;
  }
};
template <class tparameter, class targument>
decltype(auto) slot(targument& argument) {
  if constexpr (std::is_same_v<targument, ttext>)
    return (argument);
  else if constexpr (std::is_same_v<tparameter, targument*>)
    return tresultslot<targument>{{}, argument};
  else
    return tvalueslot<targument>{{}, argument};
}

// The result of both; 0 when they have none.
template <class tfirst, class tsecond>
std::int32_t agreed(tfirst first, tsecond second) {
  const auto made = [](auto call) -> std::int32_t {
    allowopens();
    if constexpr (!std::is_void_v<decltype(call())>) return call();
    call();
    return 0;
  };
  const std::int32_t result = made(first), other = made(second);
  HOLDS(result == other, result, other);
  return result;
}

// A function without handle, in both forms.
template <class tresult, class... tfirst, class... tsecond, class... targuments>
std::int32_t call(tresult (*first)(tfirst...), tresult (*second)(tsecond...), targuments&&... arguments) {
  const auto made = [&](auto&&... slots) {
    const bool both = (slots.hasboth() && ...);
    (slots.prepare(both), ...);
    const std::int32_t result = agreed([&] { return first(slots.template pass<tfirst>(0)...); },
                                       [&] {
                                         return both ? second(slots.template pass<tsecond>(1)...)
                                                     : first(slots.template pass<tfirst>(1)...);
                                       });
    (slots.finish(both), ...);
    return result;
  };
  return made(slot<tfirst>(arguments)...);
}

class tpair {
 public:
  tpair();
  tpair(const tpair&) = delete;
  tpair& operator=(const tpair&) = delete;
  ~tpair();
  tvksoptions* handle(int form) const { return fhandles[static_cast<std::size_t>(form)]; }

  // A function in both forms, or one that has only one, on both handles.
  template <class tfirst, class tsecond, class... targuments>
  std::int32_t call(tfirst first, tsecond second, targuments&&... arguments) {
    return fuzzing::call(first, second, fhandles, arguments...);
  }
  template <class tcall, class... targuments>
  std::int32_t one(tcall only, targuments&&... arguments) {
    return fuzzing::call(only, only, fhandles, arguments...);
  }

  std::int32_t readdefinition(std::string_view filename);
  void clearmessages();
  // The bytes of the one definition file that was read when there was no option yet; null when it was none or
  // not the only one.
  const std::string* definition() const { return fdefinitions == 1 ? &fdefinition : nullptr; }
  // When the list of messages is full, entries that have errors can no longer be told from good ones.
  bool wasfull() const;

 private:
  std::array<tvksoptions*, 2> fhandles{};
  std::string fdefinition;
  int fdefinitions = 0;
  bool fwasfull = false;
};

// ---- the parts of inputs

// A definition with every type and sub-type, lists, macros, synonyms, groups, marks, dot options, immediate
// options of each kind, an indicator keyword and comment characters, for lookup mode `mode` (0, 1, 2).
std::string richdefinition(int mode);

// The bits of one or two bytes; a printable byte serves, so that inputs can be written by hand.
class tswitches {
 public:
  explicit tswitches(std::string_view& input);  // takes them from its front
  int lookupmode() const { return static_cast<int>(fbits % 4 % 3); }
  bool writeeolonly() const { return (fmore & 4) == 0; }
  // Sets the pair's flags and reads the text: as a file, as one text, or line by line as texts of up to 255
  // characters.
  void read(tpair& pair, std::string_view text) const;

 private:
  unsigned fbits, fmore;
};

// What stands before and behind the first line "%%"; all of it stands before where there is none.
std::pair<std::string_view, std::string_view> split(std::string_view text);
// The next line, without its end.
std::string_view nextline(std::string_view& text);

// ---- checks: counts must fit what can be fetched, names numbers, and values values

// The first messages, for what an assertion has to say.
std::string messages(tpair& pair);
void checkmessages(tpair& pair);
// All of it; of options that hold nothing of their own only where the definition is part of the input.
enum class tscope { everything, whatisset };
void checkstate(tpair& pair, tscope scope);

// What was set is written as a parameter file, read into a fresh store of the same definition, to the end of
// the line or word by word, and written again: the bytes must be the same and nothing may be refused on the
// way.
//
// Options with a value that a parameter file cannot express, as the tool says, are reset before; other such
// settings end the comparison.
void checkroundtrip(tpair& pair, bool eolonly);

}  // namespace fuzzing
