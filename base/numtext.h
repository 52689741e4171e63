// Conversion between numbers and text, in the forms that definition and parameter files use: decimal numbers,
// and the words maxint, minint, maxdouble, mindouble, eps and epsdouble regardless of case. The locale of the
// process has no effect.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/shortstring.h"

namespace optcore {

inline constexpr std::int32_t maxint = 2147483647;
inline constexpr std::int32_t minint = -2147483647 - 1;
inline constexpr double maxdouble = 1.0e299;
inline constexpr double mindouble = -1.0e299;
inline constexpr double epsdouble = 1.0e-20;

// The text of one number, stored without allocation. Text beyond the capacity is dropped, and so is a number
// that does not fit.
class tnumbertext {
 public:
  static constexpr std::size_t capacity = 39;

  // cppcheck-suppress uninitMemberVar ; only the first flength characters are read
  tnumbertext() noexcept = default;
  tnumbertext(std::string_view text) noexcept { append(text); }
  void append(std::string_view text) noexcept;
  void append(std::size_t count, char character) noexcept;
  void append(std::int64_t number) noexcept;
  std::string_view view() const noexcept { return {ftext, flength}; }
  operator std::string_view() const noexcept { return view(); }

 private:
  char ftext[capacity];
  unsigned char flength = 0;
};

// Plain decimal.
tnumbertext inttostr(std::int64_t number) noexcept;

// As inttostr, but the words maxint and minint for the two extreme values.
tnumbertext inttostrex(std::int32_t number) noexcept;

// At most 15 significant digits. Magnitudes from 0.0001 to below 1e15 are written in fixed-point notation,
// others with an exponent that has neither plus sign nor leading zeros. Trailing zeros of the fraction and a
// trailing point are dropped. Zero of either sign is 0; numbers that are not finite are NAN, INF and -INF.
tnumbertext dbltostr(double number) noexcept;

// As dbltostr, but with as many digits as it takes to read back the same number, and -0 for the negative zero.
tnumbertext dbltostrexact(double number) noexcept;

// As dbltostr, but the words maxdouble and mindouble for 1e299 and -1e299.
tnumbertext dbltostrex(double number) noexcept;

// Parses the whole text as an integer: an optional sign and decimal digits within 32 bits, or one of the
// words maxint and minint. On failure the result is false and the number 0.
bool strasintex(std::string_view text, std::int32_t& number) noexcept;

// As strasintex, but also accepts a floating-point text whose value is a whole number within 32 bits (1e3,
// 2.0).
bool strasintex2(std::string_view text, std::int32_t& number) noexcept;

// Parses the whole text as a decimal floating-point number, in which D and d may stand for E, or as one of
// the words maxdouble, mindouble, eps and epsdouble. A magnitude that is too small gives 0; one that is too
// large fails. On failure the result is false and the number 0.
bool strasdoubleex(std::string_view text, double& number) noexcept;

}  // namespace optcore
