// Number parsing and formatting on top of from_chars and to_chars.
#include "base/numtext.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

#include "base/textcase.h"

namespace optcore {

void tnumbertext::append(std::string_view text) noexcept {
  const std::size_t length = std::min(text.size(), capacity - flength);
  std::copy_n(text.data(), length, ftext + flength);
  flength = static_cast<unsigned char>(flength + length);
}

void tnumbertext::append(std::size_t count, char character) noexcept {
  while (count-- != 0) append({&character, 1});
}

void tnumbertext::append(std::int64_t number) noexcept {
  const std::to_chars_result result = std::to_chars(ftext + flength, std::end(ftext), number);
  if (result.ec == std::errc()) flength = static_cast<unsigned char>(result.ptr - ftext);
}

namespace {

// Removes a leading plus sign, which from_chars does not accept. A text that begins with "+-" keeps it and is
// therefore refused.
std::string_view withoutplus(std::string_view text) noexcept {
  return text.size() > 1 && text[0] == '+' && text[1] != '-' ? text.substr(1) : text;
}

}  // namespace

// ---- integers to text

tnumbertext inttostr(std::int64_t number) noexcept {
  tnumbertext text;
  text.append(number);
  return text;
}

tnumbertext inttostrex(std::int32_t number) noexcept {
  if (number == maxint) return std::string_view("maxint");
  if (number == minint) return std::string_view("minint");
  return inttostr(number);
}

// ---- doubles to text

namespace {

constexpr int significantdigits = 15;
constexpr int mostdigits = 17;  // of the shortest text that reads back as the same number

// A finite number other than 0: its sign, its significant digits without trailing zeros, and the decimal
// exponent of the first digit.
struct tdecimal {
  bool negative;
  char digits[mostdigits];
  std::size_t count;
  int exponent;
};

// Rounds the number to 15 significant digits if that is wanted. The shortest text that reads back as the same
// number is faster to compute. If it has at most 15 digits, they are the digits of the rounded number. That
// does not hold for subnormal numbers.
tdecimal todecimal(double number, bool rounded) noexcept {
  constexpr std::size_t longest = significantdigits + 1;  // the digits and the point
  char text[32];                                          // d.ddddddddddddddE+ddd
  const auto written = [&](const std::to_chars_result& result) {
    return std::string_view(text, static_cast<std::size_t>(result.ptr - text));
  };
  const double magnitude = std::fabs(number);
  constexpr auto format = std::chars_format::scientific;
  std::string_view scientific = written(std::to_chars(std::begin(text), std::end(text), magnitude, format));
  if (rounded && (scientific.find('e') > longest || !std::isnormal(number)))
    scientific =
        written(std::to_chars(std::begin(text), std::end(text), magnitude, format, significantdigits - 1));
  const std::size_t mark = scientific.find('e');
  tdecimal decimal{};
  decimal.negative = number < 0;
  decimal.digits[0] = text[0];
  decimal.count = 1;
  if (mark > 2) decimal.count += scientific.copy(decimal.digits + 1, mark - 2, 2);
  while (decimal.count > 1 && decimal.digits[decimal.count - 1] == '0') --decimal.count;
  const std::string_view exponent = withoutplus(scientific.substr(mark + 1));
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.exponent);
  return decimal;
}

void appendfraction(tnumbertext& target, std::string_view digits) noexcept {
  if (digits.empty()) return;
  target.append(".");
  target.append(digits);
}

void appendfixed(tnumbertext& target, std::string_view digits, int exponent) noexcept {
  if (exponent < 0) {
    target.append("0.");
    target.append(static_cast<std::size_t>(-exponent - 1), '0');
    target.append(digits);
    return;
  }
  const std::size_t whole = static_cast<std::size_t>(exponent) + 1;
  target.append(digits.substr(0, whole));
  if (digits.size() < whole) target.append(whole - digits.size(), '0');
  appendfraction(target, digits.substr(std::min(whole, digits.size())));
}

void appendscientific(tnumbertext& target, std::string_view digits, int exponent) noexcept {
  target.append(digits.substr(0, 1));
  appendfraction(target, digits.substr(1));
  target.append("E");
  target.append(std::int64_t{exponent});
}

}  // namespace

namespace {

// The text of a number other than 0.
tnumbertext numbertext(double number, bool rounded) noexcept {
  if (std::isnan(number)) return std::string_view("NAN");
  if (std::isinf(number)) return std::string_view(number > 0 ? "INF" : "-INF");
  const tdecimal decimal = todecimal(number, rounded);
  const std::string_view digits(decimal.digits, decimal.count);
  const double magnitude = std::fabs(number);
  tnumbertext result;
  if (decimal.negative) result.append("-");
  if (magnitude >= 0.0001 && magnitude < 1e15)
    appendfixed(result, digits, decimal.exponent);
  else
    appendscientific(result, digits, decimal.exponent);
  return result;
}

}  // namespace

tnumbertext dbltostr(double number) noexcept {
  return number == 0.0 ? tnumbertext(std::string_view("0")) : numbertext(number, true);
}

tnumbertext dbltostrexact(double number) noexcept {
  if (number == 0.0) return std::string_view(std::signbit(number) ? "-0" : "0");
  return numbertext(number, false);
}

tnumbertext dbltostrex(double number) noexcept {
  if (number == maxdouble) return std::string_view("maxdouble");
  if (number == mindouble) return std::string_view("mindouble");
  return dbltostr(number);
}

// ---- text to numbers

namespace {

// The fast path for most numbers, an optional minus sign and one to nine digits.
bool parseshortinteger(std::string_view text, std::int32_t& number) noexcept {
  constexpr std::size_t longest = 9;  // cannot overflow
  const bool negative = !text.empty() && text[0] == '-';
  if (negative) text.remove_prefix(1);
  if (text.empty() || text.size() > longest) return false;
  std::int32_t value = 0;
  for (const char character : text) {
    if (!isdigit(character)) return false;
    value = 10 * value + (character - '0');
  }
  number = negative ? -value : value;
  return true;
}

// The fast path for most numbers: an optional minus sign, then at most fifteen characters, which are digits
// and at most one point. Such digits and the power of ten are exact as doubles, so their quotient is rounded
// correctly.
bool parseshortdecimal(std::string_view text, double& number) noexcept {
  static constexpr double powersoften[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6, 1e7,
                                           1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14};
  const bool negative = !text.empty() && text[0] == '-';
  if (negative) text.remove_prefix(1);
  if (text.size() > std::size(powersoften)) return false;
  std::int64_t value = 0;
  const char* next = text.data();
  const char* const end = next + text.size();
  const auto takedigits = [&] {
    for (; next != end && isdigit(*next); ++next) value = 10 * value + (*next - '0');
    return next;
  };
  const char* fraction = takedigits();
  std::size_t most = 0;  // characters of a text without a digit
  if (next != end && *next == '.') {
    fraction = ++next;
    takedigits();
    most = 1;
  }
  if (next != end || text.size() == most) return false;
  const double magnitude = static_cast<double>(value) / powersoften[next - fraction];
  number = negative ? -magnitude : magnitude;
  return true;
}

// Whether a well-formed number outside the range of doubles is too large rather than too small. The decimal
// exponent of its first digit that is not zero decides.
bool istoolarge(std::string_view text) noexcept {
  std::int64_t position = 0;  // of the current digit, relative to the point
  std::int64_t first = 0;
  bool found = false;
  bool point = false;
  std::size_t i = 0;
  for (; i < text.size() && upchar(text[i]) != 'E'; ++i) {
    if (text[i] == '.') {
      point = true;
    } else if (isdigit(text[i])) {
      if (point) --position;
      if (!point && found) ++first;
      if (!found && text[i] != '0') {
        found = true;
        first = position;
      }
    }
  }
  if (i == text.size()) return first > 0;
  const std::string_view exponent = withoutplus(text.substr(i + 1));
  std::int64_t value = 0;
  const auto result = std::from_chars(exponent.data(), exponent.data() + exponent.size(), value);
  // more than the digits of any text: an exponent of this size decides alone, and the sum below cannot
  // overflow
  constexpr std::int64_t huge = 1000000;
  if (result.ec == std::errc::result_out_of_range) value = exponent[0] == '-' ? -huge : huge;
  return first + std::clamp(value, -huge, huge) > 0;
}

// Parses the whole text as a decimal number in C notation.
bool parsedecimal(std::string_view text, double& number) noexcept {
  text = withoutplus(text);
  const std::string_view unsignedtext = text.substr(!text.empty() && text[0] == '-' ? 1 : 0);
  // excludes the words for infinity and not-a-number, which from_chars accepts
  if (unsignedtext.empty() || !(isdigit(unsignedtext[0]) || unsignedtext[0] == '.')) return false;
  double value = 0.0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ptr != text.data() + text.size()) return false;
  if (result.ec == std::errc::result_out_of_range) {
    if (istoolarge(text)) return false;
    value = 0.0;
  }
  number = value;
  return true;
}

bool parsedoubleword(std::string_view text, double& number) noexcept {
  struct tword {
    std::string_view name;
    double value;
  };
  static constexpr tword words[] = {
      {"maxdouble", maxdouble}, {"mindouble", mindouble}, {"eps", epsdouble}, {"epsdouble", epsdouble}};
  for (const tword& word : words) {
    if (struequal(text, word.name)) {
      number = word.value;
      return true;
    }
  }
  return false;
}

// What the fast paths leave. These are functions of their own, so that most numbers need no room on the
// stack.
[[gnu::noinline]] bool parseinteger(std::string_view text, std::int32_t& number) noexcept {
  number = 0;
  const std::string_view digits = withoutplus(text);
  std::int32_t value = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (result.ec == std::errc() && result.ptr == digits.data() + digits.size()) {
    number = value;
    return true;
  }
  if (struequal(text, "maxint"))
    number = maxint;
  else if (struequal(text, "minint"))
    number = minint;
  else
    return false;
  return true;
}

[[gnu::noinline]] bool parsewholenumber(std::string_view text, std::int32_t& number) noexcept {
  if (parseinteger(text, number)) return true;
  double value = 0.0;
  if (!strasdoubleex(text, value)) return false;
  if (!(value >= minint && value <= maxint) || value != std::trunc(value)) return false;
  number = static_cast<std::int32_t>(value);
  return true;
}

[[gnu::noinline]] bool parsedouble(std::string_view text, double& number) noexcept {
  number = 0.0;
  if (parsedecimal(text, number) || parsedoubleword(text, number)) return true;
  shortstring withe;
  for (const char character : text) withe.append(1, upchar(character) == 'D' ? 'E' : character);
  return text.size() <= shortstring::capacity && withe.view() != text && parsedecimal(withe, number);
}

}  // namespace

bool strasintex(std::string_view text, std::int32_t& number) noexcept {
  return parseshortinteger(text, number) || parseinteger(text, number);
}

bool strasintex2(std::string_view text, std::int32_t& number) noexcept {
  return parseshortinteger(text, number) || parsewholenumber(text, number);
}

bool strasdoubleex(std::string_view text, double& number) noexcept {
  return parseshortdecimal(text, number) || parsedouble(text, number);
}

}  // namespace optcore
