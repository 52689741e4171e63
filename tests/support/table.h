// Tables in one text. A row is a line, together with the lines below it that begin with "=>", "|" or "\n".
// "=>" separates its columns; columns at the end may be missing. "\n", "\t", "\r", "\xHH" and the like mean
// the same as in a literal, "\e" is nothing, "<3ab>" is "ababab". Lines that begin with "//" are comments.
#pragma once

#include <array>
#include <concepts>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace testsupport {

// A text and its place in the sources, so that a failure is reported at its row. A text of several lines is
// given as {__LINE__, R"(...)"}: compilers disagree on the line number of a call that spans several lines.
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

std::vector<ttable> rowsof(const ttable& table);
std::string literal(const std::string& text);

using tcolumns = std::array<std::string, 7>;
tcolumns columnsof(const std::string& row);
// Calls the body for the columns of each row. A failure in it is reported with the line of the row.
void eachrow(const ttable& table, const std::function<void(const tcolumns&)>& body);

// Registers a test for each comment in a table. The comment says what must hold and is the name of the test.
// The body gets the lines below the comment.
struct ttests {
  ttests(const char* suite, const ttable& table, const std::function<void(const ttable&)>& body);
};

}  // namespace testsupport
