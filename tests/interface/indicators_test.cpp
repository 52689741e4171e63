// Indicator lines: an equation, a variable and a boolean word, with elements in brackets; what is rejected
// and counted, the limits of 20 elements and 63 characters, and what becomes of the rest of the line.
#include "interface/optiontext.h"

namespace testsupport {
namespace {

constexpr const char* options =
    "a integer 1 0 -100 100 1 1\n.prior double 2 1 0 100 1 1\nInd indicator\nmarks eolcomm !\n";

// "equation(elements)$variable(elements)=value" for each item, then " rejected n" where lines were rejected.
std::string items(thandle& h) {
  std::string result;
  std::int32_t rejected = -1;
  const int count = optindicatorcount(h.get(), &rejected);
  for (int nr = 1; nr <= count; ++nr) {
    std::string equ, var, element;
    std::int32_t equdims = -1, vardims = -1, value = -1;
    EXPECT_EQ(h.getindicatornr(nr, equ, var, equdims, vardims, value), 1);
    const auto add = [&](const std::string& name, int dims, auto get) {
      result += name;
      for (int dim = 1; dim <= dims; ++dim) {
        EXPECT_EQ(get(dim), 1);
        result += (dim > 1 ? "," : "(") + element + (dim == dims ? ")" : "");
      }
    };
    add((nr > 1 ? " " : "") + equ, equdims, [&](int dim) { return h.getequindicatornr(nr, dim, element); });
    add('$' + var, vardims, [&](int dim) { return h.getvarindicatornr(nr, dim, element); });
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
      {__LINE__, "IND Equ $ Var = off, a 1", "Equ$Var=0", "", "a=1"},
      {__LINE__, "ind e('i',\"j k\")$v[\"j k\"] := T ind\t f {i , j} $w ( j ) N ! 1",
       "e('i',\"j k\")$v(\"j k\")=1 f(i,j)$w(j)=0", "", ""},
      {__LINE__, "ind e$v 1 a 5", "e$v=1", "", "a=5"},
      {__LINE__, "ind\nind 5 a 1\nind=e$v 1", "", "E1 E2 E3 Equation ID expected for indicator", ""},
      {__LINE__, "ind e v 1\nind e('i')\nind e", " rejected 3",
       R"(E1 E2 E3 $ expected after equation identifier "e")", ""},
      {__LINE__, "ind e$ 1 a 1\nind e$", " rejected 2", "E1 E2 Equation ID expected for indicator", ""},
      {__LINE__, "ind e$v = \nind e$v \"1", " rejected 2",
       R"(E1 E2 Boolean value expected for equation indicator "e")", ""},
      {__LINE__, "ind e$v maybe a 1\nind e$v , a 1", " rejected 2",
       R"(E1 Boolean value expected for equation indicator "e", Saw "maybe" | )"
       R"(E2 Boolean value expected for equation indicator "e", Saw "")",
       ""},
      // An error among the elements ends that name; the line goes on with its next part.
      {__LINE__, "ind e('i',)$v 1\nind e($v 1 a 1", " rejected 2",
       R"(E1 Unique element expected for indicator id "e" | E1 $ expected after equation identifier "e" | )"
       R"(E2 Unique element expected for indicator id "e")",
       "a=1"},
      {__LINE__, "ind e(*$v 1 a 1\nind e(i)$v(* 1 a 2", " rejected 2",
       R"(E1 Universe not allowed for indicator id "e" | E2 Universe not allowed for indicator id "v")",
       "a=2"},
      {__LINE__, "ind e[i $v 1 a 1\nind e{'i'}$v{'i' 1 a 2\nind e(i$v(", " rejected 3",
       R"~(E1 Closing bracket "]" expected for id "e" | E2 Closing bracket "}" expected for id "v" | )~"
       R"~(E3 Closing bracket ")" expected for id "e" | E3 Unique element expected for indicator id "v" | )~"
       R"(E3 Boolean value expected for equation indicator "e")",
       "a=2"},
      // A variable's names of sets must be among the equation's; quoted elements need not.
      {__LINE__, "ind e(i,'j')$v(i,'k') 1", "e(i,'j')$v(i,'k')=1", "", ""},
      {__LINE__, "ind e(i,'j')$v(j,k) 1 a 1\nind e(i)$v(I) 1", " rejected 2",
       R"~(E1 Index "j" not controled for variable "v" | )~"
       R"~(E1 Index "k" not controled for variable "v" | E2 Index "I" not controled for variable "v")~",
       "a=1"},
      // Limits.
      {__LINE__, "ind e(" + list20 + ")$v(" + list20 + ") 1", "e(" + list20 + ")$v(" + list20 + ")=1", "",
       ""},
      {__LINE__, "ind e(" + list20 + ",j,k)$v(i1) 1 a 1", " rejected 1",
       R"~(E1 E1 Too many dimensions for equation "e")~", "a=1"},
      {__LINE__, "ind e(" + list20 + ")$v(" + list20 + ",'j') 1", " rejected 1",
       R"~(E1 Too many dimensions for variable "v")~", ""},
      {__LINE__, "ind " + n64 + "$v 1\nind e$" + v64 + " 1 a 1", " rejected 2",
       "E1 Not a good equation identifier \"" + n64 + "\" | E2 Variable \"" + v64 +
           "\" is not a good identifier",
       "a=1"},
      {__LINE__, "ind " + n63 + "('" + n63 + "')$" + n63 + "('" + n63 + "') 1",
       n63 + "('" + n63 + "')$" + n63 + "('" + n63 + "')=1", "", ""},
      {__LINE__, "ind e(" + n64 + ",'" + n64 + "')$v(" + n64 + ",'" + v64 + "') 1", " rejected 1",
       R"~(E1 E1 Bad Equation index = "e" | E1 E1 Bad variable index = "v")~", ""},
      // Not indicator lines.
      {__LINE__, "-ind 1 a 5\nind.prior 7", "", R"~(E1 Unknown option "ind")~", "a=5 .prior=7"},
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

// After a good line the statement is over in both reading modes; a comment or a rejected line leaves nothing
// over.
TEST(indicators, endoflinereading) {
  inbothforms([](thandle& h) {
    h.definition(options);
    h.parameters("ind e$v 1 a 5\nind e$v 0 ind f$w yes 1\nind e v a 6\nind e$v no ! a 7\n");
    EXPECT_EQ(problems(h),
              R"(E2 Option keyword expected, saw "1" | E3 $ expected after equation identifier "e")");
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
    EXPECT_EQ(problems(h), R"(E Unknown option "ind")");
    EXPECT_EQ(items(h), "e$v=1");
  });
}

}  // namespace
}  // namespace testsupport
