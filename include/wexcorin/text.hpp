// text.hpp: arguments and results of wexcorin.h as C++ values. Part of wexcorin.hpp.
#ifndef WEXCORIN_TEXT_HPP
#define WEXCORIN_TEXT_HPP

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

#include "wexcorin/wexcorin.h"

namespace wexcorin {

namespace detail {

// A text argument. The library takes 255 characters; a longer text is an error of the caller and is not cut.
class textin : private optshortstring {
 public:
  explicit textin(std::string_view argument) {
    if (argument.size() > sizeof text)
      throw std::length_error("wexcorin: a text has more than 255 characters");
    length = static_cast<unsigned char>(argument.size());
    if (!argument.empty()) std::memcpy(text, argument.data(), argument.size());
  }
  operator const optshortstring*() const noexcept { return this; }
};

// A buffer for a text output.
class textout : private optshortstring {
 public:
  textout() noexcept { length = 0; }
  operator optshortstring*() noexcept { return this; }
  std::string str() const { return std::string(text, length); }
};

// Integers and unscoped enumerators.
template <class tinteger>
using ifinteger = std::enable_if_t<(std::is_integral_v<tinteger> ||
                                    std::is_enum_v<tinteger>)&&std::is_convertible_v<tinteger, std::int64_t>>;

// The integer itself, or that for which an enumerator or bool stands.
template <class tinteger>
auto integral(tinteger value) noexcept {
  if constexpr (std::is_enum_v<tinteger>)
    return static_cast<std::int64_t>(value);
  else if constexpr (std::is_same_v<tinteger, bool>)
    return static_cast<std::int32_t>(value);
  else
    return value;
}

// ---- numbers, converted where nothing is lost; otherwise no value. No conversion rounds, so a host program
// that traps inexact results meets none here.

template <class tinteger>
std::optional<std::int32_t> exactint32(tinteger value) noexcept {
  if constexpr (std::is_floating_point_v<tinteger>) {
    // The first condition is false for NaN, which must not reach the others.
    if (std::trunc(value) != value || value < -2147483648.0 || value > 2147483647.0) return std::nullopt;
    return static_cast<std::int32_t>(value);
  } else {
    const auto result = static_cast<std::int32_t>(value);
    const bool same = static_cast<tinteger>(result) == value && (std::is_signed_v<tinteger> || result >= 0);
    return same ? std::optional(result) : std::nullopt;
  }
}

inline std::optional<double> exactdouble(double value) noexcept { return value; }

template <class tinteger, class = std::enable_if_t<std::is_integral_v<tinteger>>>
std::optional<double> exactdouble(tinteger value) noexcept {
  // 53 binary digits fit into a double; the zeros behind them do not count.
  auto digits = static_cast<std::uint64_t>(value);
  if (value < tinteger{0}) digits = 0 - digits;
  while (digits != 0 && digits % 2 == 0) digits /= 2;
  return digits < std::uint64_t{1} << 53 ? std::optional(static_cast<double>(value)) : std::nullopt;
}

// The number in decimal, with as many digits as it needs.
template <class tnumber>
std::string decimal(tnumber number) {
  char digits[32];
  return std::string(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

}  // namespace detail

}  // namespace wexcorin

#endif
