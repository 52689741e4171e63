// Tables in one text. A row is a line, together with the lines below it that begin with "=>", "|" or "\n".
// Between its columns stands "=>"; those at the end may be missing. "\n", "\t", "\r", "\xHH" and the like are
// read as in a literal, "\e" is nothing, "<3ab>" is "ababab". Lines that begin with "//" are comments.
#pragma once

#include <array>
#include <concepts>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace testsupport {

// A text and where it stands in the sources, so that a row that fails is found. A text of several lines is
// given as {__LINE__, R"(...)"}: compilers disagree on the line of a call that spans several.
struct ttable {
  ttable(int begin, std::string_view lines, const char* source = __builtin_FILE())
      : text(lines), file(source), line(begin) {}
  template <std::convertible_to<std::string_view> ttext>
  ttable(const ttext& one, int begin = __builtin_LINE(), const char* source = __builtin_FILE())
      : ttable(begin, one, source) {
    if (text.find('\n') != text.npos) throw std::logic_error("__LINE__ is missing before the text: " + text);
  }
  std::string text;
  const char* file;
  int line;
};

inline std::vector<ttable> rowsof(const ttable& table) {
  std::vector<ttable> rows;
  std::istringstream lines(table.text);
  int nr = table.line;
  for (std::string line; std::getline(lines, line); ++nr) {
    line.erase(0, line.find_first_not_of(' '));
    if (line.empty() || line.starts_with("//")) continue;
    if (line.starts_with("\\n"))
      rows.back().text += line;
    else if (line.starts_with("=>") || line[0] == '|')
      rows.back().text += ' ' + line;
    else
      rows.emplace_back(nr, line, table.file);
  }
  return rows;
}

inline std::string literal(const std::string& text) {
  static const std::regex special(R"(\\x(..)|\\([^])|<(\d+)([^>]+)>)");
  std::string result;
  auto rest = text.begin();
  for (std::sregex_iterator at(text.begin(), text.end(), special), end; at != end; ++at) {
    const std::smatch& found = *at;
    result.append(rest, found[0].first);
    rest = found[0].second;
    if (found[1].matched) result += static_cast<char>(std::stoi(found[1], nullptr, 16));
    for (int count = found[3].matched ? std::stoi(found[3]) : 0; count > 0; --count) result += found[4];
    if (!found[2].matched || found[2] == "e") continue;
    const std::size_t control = std::string_view("ntr").find(*found[2].first);
    result += control < 3 ? "\n\t\r"[control] : *found[2].first;
  }
  return result.append(rest, text.end());
}

using tcolumns = std::array<std::string, 7>;

inline tcolumns columnsof(const std::string& row) {
  static const std::regex separator(" *=> *");
  tcolumns columns;
  std::size_t column = 0;
  for (std::sregex_token_iterator part(row.begin(), row.end(), separator, -1), end; part != end; ++part)
    columns.at(column++) = literal(*part);
  return columns;
}

}  // namespace testsupport
