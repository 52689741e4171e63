// Escapes texts for Markdown.
#include "tools/doc/markdowntext.h"

#include <algorithm>

#include "base/textcase.h"
#include "tools/text.h"

namespace tool {

std::string markdownprose(std::string_view text) {
  static constexpr std::string_view special = "\\`*_[]<>|&~$";
  std::string result;
  for (const char c : printableprose(text)) {
    if (special.find(c) != std::string_view::npos) result.push_back('\\');
    result.push_back(c);
  }
  result.erase(0, result.find_first_not_of(" \t"));
  const auto digits =
      static_cast<std::size_t>(std::ranges::find_if_not(result, optcore::isdigit) - result.begin());
  if (digits < result.size() &&
      std::string_view(digits == 0 ? "#+-=" : ".)").find(result[digits]) != std::string::npos)
    result.insert(digits, 1, '\\');
  return result;
}

std::string markdowncode(std::string_view text) {
  const std::string shown = printable(text);
  if (shown.find('|') != std::string::npos || shown.empty()) return markdownprose(shown);
  std::size_t longest = 0;
  std::size_t row = 0;
  for (const char c : shown) longest = std::max(longest, row = c == '`' ? row + 1 : 0);
  const std::string fence(longest + 1, '`');
  const std::string blank = longest == 0 ? "" : " ";
  return fence + blank + shown + blank + fence;
}

}  // namespace tool
