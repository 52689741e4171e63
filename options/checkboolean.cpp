// The words that parameter text accepts as true and false.
#include "options/checkboolean.h"

#include <algorithm>
#include <array>

#include "base/textcase.h"

namespace optcore {

tbooleanword checkboolean(std::string_view text) noexcept {
  static constexpr std::array<std::string_view, 6> truewords = {"1", "Y", "YES", "ON", "TRUE", "T"};
  static constexpr std::array<std::string_view, 6> falsewords = {"0", "N", "NO", "OFF", "FALSE", "F"};
  const auto isthetext = [text](std::string_view word) { return struequal(word, text); };
  if (std::any_of(truewords.begin(), truewords.end(), isthetext)) return tbooleanword::yes;
  if (std::any_of(falsewords.begin(), falsewords.end(), isthetext)) return tbooleanword::no;
  return tbooleanword::neither;
}

}  // namespace optcore
