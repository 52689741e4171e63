// The check of an HTML page.
#include "fuzz/support/html.h"

#include <array>

#include "base/textcase.h"
#include "fuzz/support/check.h"

namespace fuzzing {

namespace {

class tpagecheck {
 public:
  explicit tpagecheck(std::string_view page) : frest(page) {}

  void run() {
    while (!frest.empty()) {
      const char next = frest.front();
      if (next == '<')
        tag();
      else if (next == '&')
        entity();
      else
        character(next);
    }
    FUZZ_CHECK(ftags == "(html(body(table)table)body)html", ftags);
  }

 private:
  std::string here() const { return std::string(frest.substr(0, 80)); }

  void tag() {
    constexpr std::array<std::string_view, 4> cellsandrows = {"<td>", "</td>", "<tr>", "</tr>"};
    for (const std::string_view known : cellsandrows) {
      if (frest.substr(0, known.size()) != known) continue;
      FUZZ_CHECK(fincell == (known == "</td>"), here());
      fincell = known == "<td>";
      return frest.remove_prefix(known.size());
    }
    constexpr std::array<std::string_view, 6> once = {"<html>",   "<body>",  "<table border>",
                                                      "</table>", "</body>", "</html>"};
    constexpr std::array<std::string_view, 6> marks = {"(html",  "(body", "(table",
                                                       ")table", ")body", ")html"};
    for (std::size_t i = 0; i < once.size(); ++i) {
      if (frest.substr(0, once[i].size()) != once[i]) continue;
      ftags += marks[i];
      return frest.remove_prefix(once[i].size());
    }
    FUZZ_CHECK(frest.empty(), here());  // any other tag
  }

  void entity() {
    std::size_t length = 1;
    while (length < frest.size() && (wexcorin::isletter(frest[length]) || wexcorin::isdigit(frest[length])))
      ++length;
    FUZZ_CHECK(fincell && length > 1 && length < frest.size() && frest[length] == ';', here());
    frest.remove_prefix(length + 1);
  }

  void character(char next) {
    FUZZ_CHECK(next != '>' && (fincell || next == ' ' || next == '\n'), here());
    frest.remove_prefix(1);
  }

  std::string_view frest;
  std::string ftags;
  bool fincell = false;
};

}  // namespace

void checkhtml(std::string_view page) { tpagecheck(page).run(); }

}  // namespace fuzzing
