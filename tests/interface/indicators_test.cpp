// Indicator lines: an equation, a variable and a boolean word, with elements in brackets; what is rejected and counted,
// the limits of 20 elements and 63 characters, and what becomes of the rest of the line.
#include "interface/optiontext.h"

namespace testsupport {
namespace {

constexpr const char* options = R"(a integer 1 0 -100 100 1 1
.prior double 2 1 0 100 1 1
Ind indicator
marks eolcomm !
)";

// "equation(elements)$variable(elements)=value" for each item, then " rejected n" where lines were rejected.
std::string items(thandle& h) {
  std::string result;
  std::int32_t rejected = -1;
  const int count = optindicatorcount(h.get(), &rejected);
  for (int nr = 1; nr <= count; ++nr) {
    std::string equ, var, element;
    std::int32_t equdims = -1, vardims = -1, value = -1;
    EXPECT_EQ(h.getindicatornr(nr, equ, var, equdims, vardims, value), 1);
    result += (nr > 1 ? " " : "") + equ;
    for (int dim = 1; dim <= equdims; ++dim) {
      EXPECT_EQ(h.getequindicatornr(nr, dim, element), 1);
      result += (dim > 1 ? "," : "(") + element + (dim == equdims ? ")" : "");
    }
    result += '$' + var;
    for (int dim = 1; dim <= vardims; ++dim) {
      EXPECT_EQ(h.getvarindicatornr(nr, dim, element), 1);
      result += (dim > 1 ? "," : "(") + element + (dim == vardims ? ")" : "");
    }
    result += '=' + std::to_string(value);
    for (const int dim : {-1, 0, 21}) {
      EXPECT_EQ(h.getequindicatornr(nr, dim, element) + h.getvarindicatornr(nr, dim, element), 0);
      EXPECT_EQ(element, "");
    }
  }
  return result + (rejected == 0 ? "" : " rejected " + std::to_string(rejected));
}

struct trow {
  int where;
  std::string text;
  std::string items;
  std::string problems;
  std::string settings;
};

TEST(indicators, lines) {
  const std::string n63(63, 'n');
  const std::string n64(64, 'n');
  const std::string v64(64, 'v');
  std::string list20 = "i1";
  for (int i = 2; i <= 20; ++i) list20 += ",i" + std::to_string(i);
  const trow rows[] = {
      {__LINE__, "ind e$v 1", "e$v=1", "", ""},
      {__LINE__, "IND Equ $ Var = off, a 1", "Equ$Var=0", "", "a=1"},
      {__LINE__, "ind e('i',\"j k\")$v[\"j k\"] := T ind\t f {i , j} $w ( j ) N ! 1",
       "e('i',\"j k\")$v(\"j k\")=1 f(i,j)$w(j)=0", "", ""},
      {__LINE__, "ind e$v 1 a 5", "e$v=1", "", "a=5"},
      {__LINE__, "ind\nind 5 a 1\nind=e$v 1\nind ('i')$v 1", "",
       R"~(*** Error line 1: Equation ID expected for indicator
*** Error line 2: Equation ID expected for indicator
*** Error line 3: Equation ID expected for indicator
*** Error line 4: Equation ID expected for indicator)~",
       ""},
      {__LINE__, "ind e v 1\nind e('i')\nind e 1 a 1\nind e", " rejected 4",
       R"~(*** Error line 1: $ expected after equation identifier "e"
*** Error line 2: $ expected after equation identifier "e"
*** Error line 3: $ expected after equation identifier "e"
*** Error line 4: $ expected after equation identifier "e")~",
       ""},
      {__LINE__, "ind e$ 1 a 1\nind e$", " rejected 2",
       R"~(*** Error line 1: Equation ID expected for indicator
*** Error line 2: Equation ID expected for indicator)~",
       ""},
      {__LINE__, "ind e$v\nind e$v = \nind e$v maybe a 1\nind e$v , a 1\nind e$v \"1", " rejected 5",
       R"~(*** Error line 1: Boolean value expected for equation indicator "e"
*** Error line 2: Boolean value expected for equation indicator "e"
*** Error line 3: Boolean value expected for equation indicator "e", Saw "maybe"
*** Error line 4: Boolean value expected for equation indicator "e", Saw ""
*** Error line 5: Boolean value expected for equation indicator "e")~",
       ""},
      // An error among the elements ends that name; the line goes on with its next part.
      {__LINE__, "ind e()$v 1\nind e('i',)$v 1\nind e(5)$v 1\nind e($v 1 a 1", " rejected 4",
       R"~(*** Error line 1: Unique element expected for indicator id "e"
*** Error line 1: $ expected after equation identifier "e"
*** Error line 2: Unique element expected for indicator id "e"
*** Error line 2: $ expected after equation identifier "e"
*** Error line 3: Unique element expected for indicator id "e"
*** Error line 3: $ expected after equation identifier "e"
*** Error line 4: Unique element expected for indicator id "e")~",
       "a=1"},
      {__LINE__, "ind e(*)$v 1\nind e(*$v 1 a 1\nind e(i)$v(* 1 a 2", " rejected 3",
       R"~(*** Error line 1: Universe not allowed for indicator id "e"
*** Error line 1: $ expected after equation identifier "e"
*** Error line 2: Universe not allowed for indicator id "e"
*** Error line 3: Universe not allowed for indicator id "v")~",
       "a=2"},
      {__LINE__, "ind e(i]$v 1\nind e[i $v 1 a 1\nind e{'i'}$v{'i' 1 a 2\nind e$v(", " rejected 4",
       R"~(*** Error line 1: Closing bracket ")" expected for id "e"
*** Error line 1: $ expected after equation identifier "e"
*** Error line 2: Closing bracket "]" expected for id "e"
*** Error line 3: Closing bracket "}" expected for id "v"
*** Error line 4: Unique element expected for indicator id "v"
*** Error line 4: Boolean value expected for equation indicator "e")~",
       "a=2"},
      // A variable's names of sets must be among the equation's; quoted elements need not.
      {__LINE__, "ind e(i,'j')$v(i,'k') 1", "e(i,'j')$v(i,'k')=1", "", ""},
      {__LINE__, "ind e(i,'j')$v(j,k) 1 a 1\nind e(i)$v(I) 1", " rejected 2",
       R"~(*** Error line 1: Index "j" not controled for variable "v"
*** Error line 1: Index "k" not controled for variable "v"
*** Error line 2: Index "I" not controled for variable "v")~",
       "a=1"},
      // Limits.
      {__LINE__, "ind e(" + list20 + ")$v(" + list20 + ") 1", "e(" + list20 + ")$v(" + list20 + ")=1", "",
       ""},
      {__LINE__, "ind e(" + list20 + ",j,k)$v(i1) 1 a 1", " rejected 1",
       R"~(*** Error line 1: Too many dimensions for equation "e"
*** Error line 1: Too many dimensions for equation "e")~",
       "a=1"},
      {__LINE__, "ind e(" + list20 + ")$v(" + list20 + ",'j') 1", " rejected 1",
       R"~(*** Error line 1: Too many dimensions for variable "v")~", ""},
      {__LINE__, "ind " + n63 + '$' + n63 + " 1", n63 + '$' + n63 + "=1", "", ""},
      {__LINE__, "ind " + n64 + "$v 1\nind e$" + v64 + " 1 a 1", " rejected 2",
       "*** Error line 1: Not a good equation identifier \"" + n64 + "\"\n*** Error line 2: Variable \"" +
           v64 + "\" is not a good identifier",
       "a=1"},
      {__LINE__, "ind e(" + n63 + ",'" + n63 + "')$v(" + n63 + ",'" + v64.substr(1) + "') 1",
       "e(" + n63 + ",'" + n63 + "')$v(" + n63 + ",'" + v64.substr(1) + "')=1", "", ""},
      {__LINE__, "ind e(" + n64 + ",'" + n64 + "')$v(" + n64 + ",'" + v64 + "') 1", " rejected 1",
       R"~(*** Error line 1: Bad Equation index = "e"
*** Error line 1: Bad Equation index = "e"
*** Error line 1: Bad variable index = "v"
*** Error line 1: Bad variable index = "v")~",
       ""},
      // Not indicator lines.
      {__LINE__, "-ind 1 a 5\nind.prior 7", "", R"~(*** Error line 1: Unknown option "ind")~",
       "a=5 .prior=7"},
  };
  foreachrow(__FILE__, rows, [](thandle& h, const trow& row) {
    h.definition(options);
    EXPECT_EQ(joined(h.messages()), "");
    opteolonlyset(h.get(), 0);
    h.parameters(row.text);
    EXPECT_EQ(problems(h), row.problems);
    EXPECT_EQ(settings(h), row.settings);
    EXPECT_EQ(items(h), row.items);
  });
}

// After a good line the statement is over in both reading modes; a comment or a rejected line leaves nothing over.
TEST(indicators, endoflinereading) {
  inbothforms([](thandle& h) {
    h.definition(options);
    h.parameters("ind e$v 1 a 5\nind e$v 0 ind f$w yes 1\nind e v a 6\nind e$v no ! a 7\n");
    EXPECT_EQ(problems(h), R"(*** Error line 2: Option keyword expected, saw "1"
*** Error line 3: $ expected after equation identifier "e")");
    EXPECT_EQ(settings(h), "a=5");
    EXPECT_EQ(items(h), "e$v=1 e$v=0 f$w=1 e$v=0 rejected 1");
  });
}

// Without a keyword there are no indicator lines; of several keywords the last counts.
TEST(indicators, keywords) {
  inbothforms([](thandle& h) {
    h.definition("a integer 1 0 0 9 1 1\n");
    h.string("ind e$v 1");
    EXPECT_EQ(items(h), "");
    h.definition("ind indicator\nwhen indicator\n");
    EXPECT_EQ(h.takemessages().size(), 4u);
    h.string("when e$v 1");
    h.string("ind e$v 0");
    EXPECT_EQ(problems(h), R"(*** Error Unknown option "ind")");
    EXPECT_EQ(items(h), "e$v=1");
  });
}

}  // namespace
}  // namespace testsupport
