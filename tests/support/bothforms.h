// Calls of the interface in both text forms, on two handles in the same state. Results and outputs must
// agree, and no byte beside a text may change.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "wexcorin/wexcorin.h"

#define HOLDS(condition, ...) \
  ((condition) ? static_cast<void>(0) : ::bothforms::fail(__FILE__, __LINE__, #condition, {__VA_ARGS__}))
// A function's name in both text forms.
#define BOTH(name) opt##name, copt##name

namespace bothforms {

// A definition with options of every type, two that switch the checking of bounds, dot options and a keyword
// of indicators.
extern const char* const everytype;

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

// Each program defines these: what happens when a condition does not hold, and what is done before each call
// of the library.
void fail(const char* file, int line, const char* condition, std::initializer_list<tseen> seen);
void beforecall();

// A text in both forms. A text with a zero byte or of 255 characters has no zero-terminated form; the call is
// then made twice in the short form. A longer text becomes what the interface makes of it. Buffers for
// results lie between guard bytes, and the bytes after a text must stay unchanged. Buffers of arguments are
// exactly as long as the text, so that sanitizers find reading past its end.
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
  // The text after a call. It is empty if the call did not change the buffer.
  const std::string& text() const { return ftext; }
  bool isuntouched() const { return fisuntouched; }

 private:
  static constexpr int guards = 8;
  bool fisnull = false, fhasinitial = false, ftakesresult = false, fisuntouched = false;
  std::string finitial, ftext;
  std::array<std::vector<unsigned char>, 2> fbuffers, fbefore;  // a buffer for each form
};

// An argument in both forms: a text, a number as output, or a value that is the same in both forms; handles
// differ. An output that a call does not set keeps its value.
struct tslot {
  bool hasboth() const { return true; }
  void prepare(bool) const {}
  void finish(bool) const {}
};
template <class tnumber>
struct tresultslot : tslot {
  tnumber& value;
  std::array<tnumber, 2> values = {value, value};
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
    if constexpr (std::is_same_v<std::remove_const_t<tvalue>, std::array<tvksoptions*, 2>>)
      return value[static_cast<std::size_t>(form)];
    else if constexpr (std::is_same_v<std::remove_const_t<tvalue>, std::string>)
      return value.c_str();
    else
      return value;
  }
};
// A text as output.
struct ttextslot : ttext {
  explicit ttextslot(std::string& value) : fvalue(value) {}
  void finish(bool both) {
    ttext::finish(both);
    if (!isuntouched()) fvalue = text();
  }
  std::string& fvalue;
};
template <class tparameter, class targument>
decltype(auto) slot(targument& argument) {
  constexpr bool istext =
      std::is_same_v<std::remove_const_t<std::remove_pointer_t<tparameter>>, optshortstring>;
  if constexpr (std::is_same_v<targument, ttext>)
    return (argument);
  else if constexpr (istext && !std::is_const_v<std::remove_pointer_t<tparameter>>)
    return ttextslot(argument);
  else if constexpr (istext)
    return ttext(argument);
  else if constexpr (std::is_same_v<tparameter, targument*>)
    return tresultslot<targument>{{}, argument};
  else
    return tvalueslot<targument>{{}, argument};
}

// Calls a function without handle in both forms. Returns 0 when it has no result.
template <class tresult, class... tfirst, class... tsecond, class... targuments>
std::int32_t call(tresult (*first)(tfirst...), tresult (*second)(tsecond...), targuments&&... arguments) {
  const auto result = [](auto function, auto... passed) -> std::int32_t {
    beforecall();
    if constexpr (!std::is_void_v<tresult>) return function(passed...);
    function(passed...);
    return 0;
  };
  const auto made = [&](auto&&... slots) {
    const bool both = (slots.hasboth() && ...);
    (slots.prepare(both), ...);
    const std::int32_t one = result(first, slots.template pass<tfirst>(0)...);
    const std::int32_t other = both ? result(second, slots.template pass<tsecond>(1)...)
                                    : result(first, slots.template pass<tfirst>(1)...);
    HOLDS(one == other, one, other);
    (slots.finish(both), ...);
    return one;
  };
  return made(slot<tfirst>(arguments)...);
}

// Two handles, one for each form.
class thandles {
 public:
  thandles();
  thandles(const thandles&) = delete;
  thandles& operator=(const thandles&) = delete;
  ~thandles();
  tvksoptions* handle(int form) const { return fhandles[static_cast<std::size_t>(form)]; }

  // Calls a function on both handles: `call` in its two forms, `one` if it has only one form.
  template <class tfirst, class tsecond, class... targuments>
  std::int32_t call(tfirst first, tsecond second, targuments&&... arguments) const {
    return bothforms::call(first, second, fhandles, arguments...);
  }
  template <class tcall, class... targuments>
  std::int32_t one(tcall only, targuments&&... arguments) const {
    return bothforms::call(only, only, fhandles, arguments...);
  }

 private:
  std::array<tvksoptions*, 2> fhandles{};
};

}  // namespace bothforms
