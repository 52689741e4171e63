// Dot option lines: the value of a dot option for a name and its indices, brackets, what is rejected and
// counted, the limits of 20 indices and 63 characters, and where the line goes on after each error.
#include "interface/optiontext.h"

namespace testsupport {
namespace {

constexpr const char* options =
    "a integer 1 0 -100 100 1 1\n.prior double 2 1 0 100 1 1\n.level integer 3 1 0 9 1 1\n"
    ".keep boolean 4 0 1 1\n.kind enumint 5 1 1 1\n 1 1\n 5 1\n.note string 6 none 1 1\n"
    ".mark boolean.NV 7 1 1 1\nFree immediate NoBounds 0 0\nmarks eolcomm !\n";

// "name.option(index,...)=value" for each entry, then " rejected n" where lines were rejected.
std::string entries(thandle& h) {
  std::string result;
  std::int32_t rejected = -1;
  const int count = optdotoptcount(h.get(), &rejected);
  for (int nr = 1; nr <= count; ++nr) {
    std::string name, dotname, help;
    std::int32_t optnr = 0, dimensions = -1;
    double value = -1;
    EXPECT_EQ(h.getdotoptnr(nr, name, optnr, dimensions, value), 1);
    EXPECT_EQ(h.gethelpnr(optnr, dotname, help), 1);
    result += (nr > 1 ? " " : "") + name + dotname;
    for (int dim = 1; dim <= dimensions; ++dim) {
      std::string index;
      EXPECT_EQ(h.getdotoptuel(nr, dim, index), 1);
      result += (dim > 1 ? "," : "(") + index + (dim == dimensions ? ")" : "");
    }
    std::string index = "old";
    for (const int dim : {-1, 0, dimensions + 1}) {
      EXPECT_EQ(h.getdotoptuel(nr, dim, index), 0);
      EXPECT_EQ(index, "");
    }
    EXPECT_EQ(value, static_cast<int>(value));
    result += '=' + std::to_string(static_cast<int>(value));
  }
  return result + (rejected == 0 ? "" : " rejected " + std::to_string(rejected));
}

struct trow {
  int where;
  std::string text;
  std::string entries;
  std::string problems;
  std::string settings;
};

TEST(dotoptions, lines) {
  const std::string n63(63, 'n');
  const std::string n64(64, 'n');
  const std::string i254(254, 'i');
  std::string list20 = "'1'";
  std::string uels20 = "1";
  for (int i = 2; i <= 20; ++i) {
    list20 += ",'" + std::to_string(i) + '\'';
    uels20 += ',' + std::to_string(i);
  }
  const trow rows[] = {
      {__LINE__, "X.PRIOR=10 y.level := 5, x.keep yes\na 1", "X.prior=10 y.level=5 x.keep=1", "",
       "a=1 .prior=10 .level=5 .keep=1"},
      {__LINE__, "x.kind 5 x.note hi x.mark no x.mark", "x.kind=5 x.note=0 x.mark=0 rejected 1",
       R"(E1 Value expected for .option "x")", ".kind=5 .note=hi .mark=0"},
      {__LINE__, "x.prior('a','b') 2 x.prior[*] 3 x.prior {\"c d\" , 'e '} = 4 ! 5",
       "x.prior(a,b)=2 x.prior(*)=3 x.prior(c d,e)=4", "", ".prior=4"},
      {__LINE__, R"~(x.prior("it's",'',"'") 2)~", "x.prior(it's,,')=2", "", ".prior=2"},
      {__LINE__, "x. 5 a 1\nx. a 1", "",
       R"(E1 .suffix expected for key "x" | E1 Option keyword expected, saw "5" | E2 .suffix expected for key "x")",
       "a=1"},
      {__LINE__, "x.foo a 5\nx.foo 5 a 1", "",
       R"(E1 E2 unknown .suffix ".foo" for key "x" | E2 Option keyword expected, saw "5")", "a=5"},
      {__LINE__, "x.prior\nx.prior = ! 5\nx.prior \"5", " rejected 3",
       R"(E1 E2 E3 Value expected for .option "x")", ""},
      {__LINE__, "x.prior 5 6 a 1", "x.prior=5", R"(E1 Option keyword expected, saw "6")", ".prior=5"},
      {__LINE__, "x.prior('a',) 2\nx.prior(", " rejected 2",
       R"~(E1 Element expected for .option "x" | E1 Option keyword expected, saw ")" | E2 Element expected for .option "x")~",
       ""},
      {__LINE__, "x.prior(i) 1\nx.prior('a',i, a 1", " rejected 2",
       R"~(E1 Set name not allowed .option "x" | E1 Option keyword expected, saw ")" | E2 Set name not allowed .option "x")~",
       "a=1"},
      {__LINE__, "x.prior('a' 2 a 1\nx.prior('a) 3", " rejected 2",
       R"~(E1 E2 Closing bracket ")" expected for .option "x" | E2 Value expected for .option "x")~",
       "a=1 .prior=2"},
      {__LINE__, "x.prior['a') 1", " rejected 1",
       R"~(E1 Closing bracket "]" expected for .option "x" | V1 Double expected for option ".prior" saw ")" | )~"
       R"(E1 Option keyword expected, saw "1")",
       ""},
      {__LINE__, "x.prior{'a' 2", " rejected 1", R"(E1 Closing bracket "}" expected for .option "x")",
       ".prior=2"},
      // The value is one of the dot option itself, with its type and bounds.
      {__LINE__, "x.prior 101 a 1\nx.level 2.5\nx.prior 5", "x.prior=5 rejected 2",
       R"(V1 Double out of range for option ".prior" saw "101" | V1    Valid range is 0 to 100 | )"
       R"(V2 Integer expected, for option ".level" saw "2.5")",
       "a=1 .prior=5"},
      {__LINE__, "free 1 x.prior 101", "x.prior=101",
       R"(W1 Double out of range for option ".prior" saw "101" | W1    Valid range is 0 to 100)",
       ".prior=101"},
      {__LINE__, "x.prior , a 1", " rejected 1", R"(V1 Double expected for option ".prior" saw "")", "a=1"},
      // Limits. What is over them is stored all the same before the entry goes.
      {__LINE__, n63 + ".prior 5\n" + n64 + ".prior 6 a 1", n63 + ".prior=5 rejected 1",
       "E2 .Option ID too long \"" + n64 + '"', "a=1 .prior=6"},
      {__LINE__, "x.prior('" + i254 + "jk', 'l') 5", "x.prior(" + i254.substr(1) + ",l)=5", "", ".prior=5"},
      {__LINE__, "x.prior(" + list20 + ") 5", "x.prior(" + uels20 + ")=5", "", ".prior=5"},
      {__LINE__, "x.prior(" + list20 + ",*,'22') 5 a 1", " rejected 1",
       R"~(E1 E1 Too many dimensions for .option "x")~", "a=1 .prior=5"},
      // A dash makes the period the first character of a value.
      {__LINE__, "-a.5", "", R"~(V1 Integer expected, for option "a" saw ".5")~", ""},
  };
  for (const bool eolonly : {true, false}) {  // these lines are the same in both reading modes
    SCOPED_TRACE(eolonly ? "end-of-line reading" : "normal reading");
    foreachrow(__FILE__, rows, [&](thandle& h, const trow& row) {
      h.definition(options);
      EXPECT_EQ(joined(h.messages()), "");
      opteolonlyset(h.get(), eolonly ? 1 : 0);
      h.parameters(row.text);
      EXPECT_EQ(problems(h), row.problems);
      EXPECT_EQ(settings(h), row.settings);
      EXPECT_EQ(entries(h), row.entries);
    });
  }
}

// A hundred thousand lines; the entries stay through a reset and later readings.
TEST(dotoptions, many) {
  thandle h;
  h.definition(options);
  h.string("first.prior 1");
  optresetall(h.get());
  std::string text;
  for (int i = 0; i < 50000; ++i) text += "x.prior('a') 5\ny.prior 500\n";
  h.parameters(text);
  std::int32_t rejected = 0;
  const int kept = optdotoptcount(h.get(), &rejected);
  // Two messages for a rejected value, until the list of messages is full; from then on nothing counts as an
  // error.
  EXPECT_EQ(optmessagecount(h.get()), 5001);
  EXPECT_EQ(rejected, 2500);
  EXPECT_EQ(kept, 97501);
}

}  // namespace
}  // namespace testsupport
