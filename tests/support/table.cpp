// Rows, columns and tests of tables.
#include "support/table.h"

#include <gtest/gtest.h>

#include <cctype>
#include <regex>
#include <set>
#include <sstream>

namespace testsupport {
namespace {

class ttabletest : public testing::Test {
 public:
  explicit ttabletest(std::function<void()> body) : fbody(std::move(body)) {}
  void TestBody() override { fbody(); }

 private:
  std::function<void()> fbody;
};

// What is no letter or digit becomes an underscore. Each process names all tests, so this is no regular expression.
std::string testname(const std::string& comment) {
  std::string name;
  for (const char character : comment)
    if (std::isalnum(static_cast<unsigned char>(character)) != 0)
      name += character;
    else if (!name.ends_with('_'))
      name += '_';
  return name;
}

void addtest(const char* suite, const ttable& comment, const std::function<void()>& body) {
  static std::set<std::string> names;
  const std::string name = testname(comment.text);
  if (!names.insert(std::string(suite) + '.' + name).second)
    throw std::logic_error("two comments are the same: " + comment.text);
  testing::RegisterTest(suite, name.c_str(), nullptr, nullptr, comment.file, comment.line,
                        [body]() -> testing::Test* { return new ttabletest(body); });
}

}  // namespace

std::vector<ttable> rowsof(const ttable& table) {
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

std::string literal(const std::string& text) {
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

tcolumns columnsof(const std::string& row) {
  static const std::regex separator(" *=> *");
  tcolumns columns;
  std::size_t column = 0;
  for (std::sregex_token_iterator part(row.begin(), row.end(), separator, -1), end; part != end; ++part)
    columns.at(column++) = literal(*part);
  return columns;
}

void eachrow(const ttable& table, const std::function<void(const tcolumns&)>& body) {
  for (const ttable& row : rowsof(table)) {
    const testing::ScopedTrace trace(row.file, row.line, row.text);
    body(columnsof(row.text));
  }
}

ttests::ttests(const char* suite, const ttable& table, const std::function<void(const ttable&)>& body) {
  std::vector<std::pair<ttable, ttable>> rules;  // a comment and the lines below it
  std::istringstream lines(table.text);
  int nr = table.line;
  for (std::string line; std::getline(lines, line); ++nr) {
    const std::size_t begin = std::min(line.find_first_not_of(' '), line.size());
    if (line.compare(begin, 3, "// ") == 0)
      rules.push_back({{nr, line.substr(begin + 3), table.file}, {nr + 1, "", table.file}});
    else if (!rules.empty())
      rules.back().second.text += line + '\n';
    else if (begin < line.size())
      throw std::logic_error("no comment above: " + line);
  }
  for (const auto& [comment, rows] : rules) {
    if (rowsof(rows).empty()) throw std::logic_error("no row below: " + comment.text);
    addtest(suite, comment, [body, rows = rows] { body(rows); });
  }
}

}  // namespace testsupport
