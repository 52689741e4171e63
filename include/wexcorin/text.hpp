// text.hpp: arguments and results of wexcorin.h as C++ values. Part of wexcorin.hpp.
#ifndef WEXCORIN_TEXT_HPP
#define WEXCORIN_TEXT_HPP

#include <cfenv>
#include <charconv>
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

// ---- numbers, converted where nothing is lost; otherwise no value. A program may round differently, treat
// subnormal numbers as 0 or trap floating-point exceptions. So nothing here computes with doubles.

template <class tinteger, class = std::enable_if_t<std::is_integral_v<tinteger>>>
std::optional<std::int32_t> exactint32(tinteger value) noexcept {
  const auto result = static_cast<std::int32_t>(value);
  const bool same = static_cast<tinteger>(result) == value && (std::is_signed_v<tinteger> || result >= 0);
  return same ? std::optional(result) : std::nullopt;
}

inline std::optional<std::int32_t> exactint32(double value) noexcept {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  if (bits << 1 == 0) return 0;
  const int exponent = static_cast<int>(bits >> 52 & 0x7FF) - 1023;
  if (exponent < 0 || exponent > 31) return std::nullopt;
  const std::uint64_t one = std::uint64_t{1} << (52 - exponent);  // the bit that stands for 1
  const std::uint64_t digits = (bits & ((std::uint64_t{1} << 52) - 1)) | std::uint64_t{1} << 52;
  if (digits % one != 0) return std::nullopt;
  const auto magnitude = static_cast<std::int64_t>(digits / one);
  return exactint32(bits >> 63 != 0 ? -magnitude : magnitude);
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

// The usual floating-point settings, while it lives.
class usualsettings {
 public:
  usualsettings() noexcept {
    std::fegetenv(&fbefore);
    std::fesetenv(FE_DFL_ENV);
  }
  ~usualsettings() { std::fesetenv(&fbefore); }
  usualsettings(const usualsettings&) = delete;
  usualsettings& operator=(const usualsettings&) = delete;

 private:
  std::fenv_t fbefore{};
};

// The number in decimal, with as many digits as it needs.
template <class tnumber>
std::string decimal(tnumber number) {
  const usualsettings settings;
  char digits[32];
  return std::string(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

}  // namespace detail

}  // namespace wexcorin

#endif
