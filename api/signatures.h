// The signature of an exported function, as codes of its result and its arguments. The compiler derives the
// codes from the function's own type, so they cannot differ from the code. The table of all signatures is in
// signatures.cpp; exports_check.cpp compares it with a client's declarations.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string_view>

#include "base/textcase.h"
#include "wexcorin/wexcorin.h"

namespace optcore {

// The code of a result or argument type. A signature with a type that has no code does not compile.
template <class ttype>
struct tsignaturecode;
template <std::int32_t number>
struct tcode {
  static constexpr std::int32_t value = number;
};
template <>
struct tsignaturecode<void> : tcode<0> {};
template <>
struct tsignaturecode<std::int32_t> : tcode<3> {};
template <>
struct tsignaturecode<std::int32_t*> : tcode<4> {};
template <>
struct tsignaturecode<const char*> : tcode<10> {};
template <>
struct tsignaturecode<const optshortstring*> : tcode<11> {};
template <>
struct tsignaturecode<optshortstring*> : tcode<12> {};
template <>
struct tsignaturecode<double> : tcode<13> {};
template <>
struct tsignaturecode<double*> : tcode<14> {};

class tsignature {
 public:
  static constexpr std::size_t maxarguments = 7;

  // `name` and `symbol` must be equal regardless of case; otherwise the table does not compile.
  template <class tresult, class... targuments>
  constexpr tsignature(std::string_view name, std::string_view symbol,
                       tresult (*)(::tvksoptions*, targuments...))
      : fname(name),
        fcount(sizeof...(targuments)),
        fcodes{tsignaturecode<tresult>::value, tsignaturecode<targuments>::value...} {
    static_assert(sizeof...(targuments) <= maxarguments);
    if (!std::ranges::equal(name, symbol, {}, lowchar)) throw std::logic_error("another function's name");
  }

  // The name in mixed case, which clients pass to the check.
  constexpr std::string_view name() const noexcept { return fname; }
  // The number of arguments after the handle.
  constexpr std::int32_t count() const noexcept { return fcount; }
  // The code of the result, then one code for each argument after the handle.
  constexpr std::span<const std::int32_t> codes() const noexcept {
    return std::span(fcodes).first(static_cast<std::size_t>(fcount) + 1);
  }

 private:
  std::string_view fname;
  std::int32_t fcount;
  std::array<std::int32_t, maxarguments + 1> fcodes;
};

// The signatures of all functions that a client can check.
std::span<const tsignature> signatures() noexcept;

}  // namespace optcore
