// Finding an option by name in the three lookup modes, and that among many names the first that fits is
// found.
#include <regex>

#include "support/handle.h"

namespace testsupport {
namespace {

// The mode, the names of options 2 and on, what is looked up, and what is found.
TEST(lookup, bymode) {
  constexpr const char* rows = R"(
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
  )";
  foreachrow(rows, [](thandle& h, const tcolumns& row) {
    const std::string line = " integer 1 1 0 9 1 1\n";
    const std::string options = std::regex_replace(row[1] + ' ', std::regex(" "), line);
    h.definition(options + row[0] + " lookup\n");  // last, to play no part in reading the names
    std::string name = "none", help;
    const int number = h.number(row[2]);
    h.call(BOTH(gethelpnr), number, name, help);
    EXPECT_EQ(number == -1 ? "none" : name, row[3]);
    EXPECT_EQ(h.call(BOTH(lookup), row[2]), number == -1 ? -1 : number - 1);
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
    h.call(BOTH(getnamenr), 2, name);
    h.call(BOTH(getopthelpnr), 2, other, i, j);
    h.call(BOTH(getvaluesnr), 2, third, i, d, text);
    EXPECT_EQ((tlines{name, other, third}), tlines(3, "major iterations limit"));
    h.call(BOTH(gethelpnr), 2, raw, text);
    EXPECT_EQ(raw, "major_iterations_limit");
    EXPECT_EQ(h.number("major iterations limit"), -1);
  });
}

// Among many options that fit, behind many that do not.
TEST(lookup, thefirstthatfits) {
  constexpr const char* rows = R"(
    Normal => convergence_tolerance => CONVERGENCE_tolerance
    Path => convergence_tolerance# => con_tol
    Minos => convergence_tole# => conv_tole
  )";
  foreachrow(rows, [](thandle& h, const tcolumns& row) {
    std::string definition;
    for (const std::string name : {"covert_tolerance#", "conv_totals#", "con_to#", row[1].c_str(), "conv#"})
      for (int nr = 100; nr < 300; ++nr)
        definition +=
            std::regex_replace(name, std::regex("#"), std::to_string(nr)) + " integer 1 1 0 9 1 1\n";
    h.definition(definition + row[0] + " lookup\n");
    EXPECT_EQ(h.call(BOTH(lookup), row[2]), 601);
  });
}

}  // namespace
}  // namespace testsupport
