// Finding an option by name in the three lookup modes, and that among many names the first that fits is found.
#include <strings.h>

#include <algorithm>
#include <memory>
#include <random>
#include <regex>

#include "support/handle.h"

namespace testsupport {
namespace {

// The mode, the names of options 2 and on, what is looked up, and what is found.
TEST(lookup, bymode) {
  foreachrow(R"(
    Normal => alpha Beta beta => BETA => Beta
    Normal => alpha => alph => none
    // Of each word three characters have to agree before the first that does not.
    Path => convergence_tolerance => con_tol => convergence_tolerance
    path => convergence_tolerance => CONxx_tolyyyyyyyyyy => convergence_tolerance
    Path => convergence_tolerance => co_tol => none
    Path => convergence_tolerance => con_to => none
    Path => convergence_tolerance => coxv_tol => none
    Path => convergence_tolerance => con_txlerance => none
    Path => convergence_tolerance => con => none
    Path => convergence => con_tol => none
    Path => con_tol => convergence_tol_x => none
    Path => con_tolerance_of => con_tol_off => none
    Path => con_tolerance_off => con_tol_offer => con_tolerance_off
    Path => xy abc => xy => none
    Path => con_t => con_t => none
    // Of the first word three characters count, of each further one four.
    Minos => major_iterations_limit => majxxx_iter_limi => major_iterations_limit
    Minos => major_iterations_limit => MAJ_ITERx_limiyy => major_iterations_limit
    Minos => major_iterations_limit => major_iterations => none
    Minos => major_iterations_limit => maj_ite_limi => none
    Minos => major_iterations_limit => maj_iterations_lim => none
    Minos => major_iter => majx_iter_limi => none
    Minos => major_ite => maj_iter => none
    minos => ma_x => ma_x => ma_x
    Minos => ma_x => mx_x => none
  )",
             [](thandle& h, const tcolumns& row) {
               const std::string line = " integer 1 1 0 9 1 1\n";
               const std::string options = std::regex_replace(row[1] + ' ', std::regex(" "), line);
               h.definition(options + row[0] + " lookup\n");  // last, to play no part in reading the names
               std::string name = "none", help;
               const int number = h.number(row[2]);
               h.gethelpnr(number, name, help);
               EXPECT_EQ(number == -1 ? "none" : name, row[3]);
               EXPECT_EQ(h.lookup(row[2]), number == -1 ? -1 : number - 1);
             });
}

// Where names consist of words, they are handed out with blanks; help and writing by the raw name keep
// underscores.
TEST(lookup, namesofmodeminoshaveblanks) {
  inbothforms([](thandle& h) {
    h.definition("major_iterations_limit integer 1 1 0 9 1 1\nMinos lookup\n");
    std::string name, other, third, raw, text;
    std::int32_t i = 0, j = 0;
    double d = 0;
    h.getnamenr(2, name);
    h.getopthelpnr(2, other, i, j);
    h.getvaluesnr(2, third, i, d, text);
    EXPECT_EQ((tlines{name, other, third}), tlines(3, "major iterations limit"));
    h.gethelpnr(2, raw, text);
    EXPECT_EQ(raw, "major_iterations_limit");
    EXPECT_EQ(h.number("major iterations limit"), -1);
  });
}

// Words of few different letters and lengths around the significant ones, so that near misses are frequent.
std::string generatedname(std::mt19937& random) {
  const auto pick = [&random](std::size_t below) { return random() % below; };
  std::string name(1, "ab"[pick(2)]);
  for (std::size_t length = pick(7), words = pick(4);; length = pick(7), --words) {
    for (; length > 0; --length) name += "aaaAAbB"[pick(7)];
    if (words == 0) return name;
    name += '_';
  }
}

// Of many options and synonyms the first is found that a definition of its name alone finds; a synonym fits by its
// whole name, and only where no option does.
TEST(lookup, thefirstthatfits) {
  std::mt19937 random(20240607);
  for (const std::string mode : {"Normal", "Path", "Minos"})
    for (const int count : {12, 12, 12, 12, 200}) {
      tlines names;
      std::vector<std::unique_ptr<thandle>> alone;
      std::string options, synonyms;
      for (int nr = 0; nr < count; ++nr) {
        names.push_back(generatedname(random));
        options += names.back() + " integer 1 1 0 9 1 1\n";
        alone.push_back(std::make_unique<thandle>());
        alone.back()->definition(names.back() + " integer 1 1 0 9 1 1\n" + mode + " lookup\n");
        synonyms += "x" + names.back() + " synonym " + names.back() + '\n';
      }
      thandle h;
      h.definition(options + synonyms + mode + " lookup\n");
      int found = 0, missed = 0;
      for (int query = 0; query < 80; ++query) {
        std::string asked = query % 2 == 0 ? generatedname(random) : names[random() % names.size()];
        if (query % 3 == 0) asked.insert(asked.size() / 2, 1, 'A');
        int first = 0;
        while (first < count && alone[static_cast<std::size_t>(first)]->lookup(asked) < 0) ++first;
        ASSERT_EQ(h.lookup(asked), first < count ? first + 1 : -1) << '"' << asked << "\" in " << mode << '\n'
                                                                   << options;
        ++(first < count ? found : missed);
        const std::string target = names[random() % names.size()];
        if (h.lookup('X' + target) >= 0) continue;
        const auto same = [&](const std::string& name) {
          return strcasecmp(name.c_str(), target.c_str()) == 0;
        };
        ASSERT_EQ(h.number('X' + target), std::find_if(names.begin(), names.end(), same) - names.begin() + 2);
      }
      EXPECT_GT(std::min(found, missed), 10);
    }
}

}  // namespace
}  // namespace testsupport
