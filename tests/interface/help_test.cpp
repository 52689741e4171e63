// The help listing, line by line: the summary by group with its column, the alphabetical listing, the
// description of one option by type, what a request selects, and the order of the names.
#include <gtest/gtest.h>

#include "support/handle.h"

namespace testsupport {
namespace {

struct trow {
  int where;
  const char* request;
  tlines lines;
};

void check(const char* definition, const std::vector<trow>& rows) {
  foreachrow(__FILE__, rows, [definition](thandle& h, const trow& row) {
    h.definition(definition);
    h.takemessages();
    EXPECT_EQ(joined(h.help(row.request)), joined(row.lines)) << '"' << row.request << '"';
  });
}

// Groups appear in the order of their lines. Not shown: a group with help flag 0 and its options, an option
// with help flag 0 or without group; the alphabetical listing asks only the option.
constexpr const char* groupsdefinition = R"(late group 2 1 Late options
hidden group 3 0 Hidden options
early group 1 1
empty group 4 1 Nothing here
iter10 integer 1 5 0 10 1 1 Tenth
 More about the tenth,
   in two lines
iter2 integer 2 5 minint maxint 1 1 Second
secret boolean 3 0 1 3 In a hidden group
silent boolean 4 0 0 1 Without help flag
stray boolean 5 0 1 0 Without group
plain string 6 "a b" 2 2
loop synonym iter2
ghost synonym nosuch
quietly synonym silent
marks deprecated
 iter10 use iter2
 loop use iter2
olds obsolete
 plain gone
)";

const tlines summary = {"",
                        "Options summary by group",
                        "",
                        "Late options",
                        "plain                 : ",
                        "",
                        "iter2                 : Second",
                        "iter10                : Tenth",
                        "loop (Synonym for iter2)",
                        "                      : Second",
                        "",
                        "Nothing here"};
const tlines alphabet = {"",
                         "Options in alphabetical order",
                         "",
                         "iter2: Second",
                         "                        integer,  range: minint to maxint default: 5",
                         "iter10: Tenth",
                         "                        integer,  range: 0 to 10 default: 5",
                         "                        More about the tenth,",
                         "                        in two lines",
                         "plain: ",
                         "                        string,  default: \"a b\"",
                         "secret: In a hidden group",
                         "                        boolean,  default: 0"};
const tlines both = [] {
  tlines lines = summary;
  lines.insert(lines.end(), alphabet.begin(), alphabet.end());
  return lines;
}();
const tlines secondblock = {"iter2: Second",
                            "                        integer,  range: minint to maxint default: 5"};
const tlines markedsummary = {"",
                              "Options summary by group",
                              "",
                              "Late options",
                              "plain (Obsolete)      : ",
                              "",
                              "iter2 (Deprecated)    : Second",
                              "iter10 (Deprecated)   : Tenth",
                              "loop (Synonym for iter2) (Deprecated)",
                              "                      : Second",
                              "",
                              "Nothing here"};

TEST(help, requests) {
  check(
      groupsdefinition,
      {
          {__LINE__, "1", summary},
          {__LINE__, "2", alphabet},
          {__LINE__, "3", both},
          {__LINE__, "+3", both},
          {__LINE__, "0", both},
          {__LINE__, "-5", both},
          {__LINE__, "8", {}},
          {__LINE__, "9", markedsummary},
          {__LINE__, "17", summary},
          {__LINE__, "ITER2", secondblock},
          {__LINE__, "silent", {"silent: Without help flag", "                        boolean,  default: 0"}},
          {__LINE__, "Loop", {"Loop is a synonym for iter2", secondblock[0], secondblock[1]}},
          // What is neither number nor name gives the summary.
          {__LINE__, "", summary},
          {__LINE__, "nosuch", summary},
          {__LINE__, "ghost", summary},
          {__LINE__, " 2", summary},
          {__LINE__, "2.0", summary},
          {__LINE__, "maxint", summary},
          {__LINE__, "99999999999", summary},
      });
}

TEST(help, throughparametertext) {
  inbothforms([](thandle& h) {
    h.definition("iter integer 1 5 0 10 1 1 Iterations\n");
    h.string("help iter");
    EXPECT_EQ(joined(h.takemessages()), joined({R"(Reading parameter(s) from "string")", "iter: Iterations",
                                                "                        integer,  range: 0 to 10 default: 5",
                                                R"(Finished reading from "string")"}));
    h.string("help");
    EXPECT_EQ(joined(h.messages()),
              joined({R"(Reading parameter(s) from "string")", "", R"(Finished reading from "string")"}));
  });
}

// The debugging list goes to standard output, and there alone.
TEST(help, debugginglist) {
  inbothforms([](thandle& h) {
    h.definition(groupsdefinition);
    h.takemessages();
    testing::internal::CaptureStdout();
    const tlines lines = h.help("6");
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "\niter2 \niter10 \nloop *****Nil = Syn\nplain \nsecret \n");
    EXPECT_EQ(joined(lines), joined(alphabet));
  });
}

// A title that no line follows is left out, unless the alphabetical listing ends its line.
TEST(help, withoutgroups) {
  check("lone integer 1 5 0 10 1 1 Lone\n",
        {{__LINE__, "1", {""}},
         {__LINE__,
          "2",
          {"", "Options in alphabetical order", "", "lone: Lone",
           "                        integer,  range: 0 to 10 default: 5"}},
         {__LINE__,
          "3",
          {"", "Options summary by group", "", "Options in alphabetical order", "", "lone: Lone",
           "                        integer,  range: 0 to 10 default: 5"}}});
}

// Names up to column 22, names of 22 and of 23 characters.
TEST(help, columnofthesummary) {
  check(
      "g group 1 1 G\na12345678901234567890x boolean 1 0 1 1 has 22\nb1234567890123456789x boolean 2 0 1 1 "
      "has 21\n"
      "c123456789012345678901x boolean 3 0 1 1 has 23\nd boolean 4 0 1 1\n"
      "e1234567890123456789012x boolean 5 0 1 1\n"
      "f12345 synonym d\nf123456 synonym d\nold deprecated\n d\n",
      {{__LINE__,
        "1",
        {"", "Options summary by group", "", "G", "a12345678901234567890x: has 22",
         "b1234567890123456789x : has 21", "c123456789012345678901x", "                      : has 23",
         "d                     : ", "e1234567890123456789012x", "                      : ",
         "f12345 (Synonym for d): ", "f123456 (Synonym for d)", "                      : "}},
       {__LINE__,
        "9",
        {"", "Options summary by group", "", "G", "a12345678901234567890x: has 22",
         "b1234567890123456789x : has 21", "c123456789012345678901x", "                      : has 23",
         "d (Deprecated)        : ", "e1234567890123456789012x", "                      : ",
         "f12345 (Synonym for d) (Deprecated)", "                      : ",
         "f123456 (Synonym for d) (Deprecated)", "                      : "}}});
}

TEST(help, descriptionbytype) {
  check(R"(gap double 1 0.1 0 maxdouble 1 1 Gap
 Relative gap
any double 2 1.5e-7 mindouble 1e20 1 1
iter integer.two 3 minint -5 maxint 1 1 Two
flag boolean.nv 4 1 1 1 Flag
 About the flag

  closing words
note string 5 "" 1 1 Note
method enumstr 6 auto 1 1 Method
 auto 1 Automatic choice
 Primal 0
 "two words" 1 Two
level enumint 7 -1 1 1 Level
 -1 1 Lowest
 99 1 Highest
code enumint 8 minint 1 1
 minint 1 Least
 100 1 Most
 7 1
bare enumint 9 7 1 1 No items
words multilist 10 1 1 Words
names strlist 11 1 1 Names
all macro 1 1 All
 iter
act immediate Message 1 1 Act
)",
        {
            {__LINE__,
             "gap",
             {"gap: Gap", "                        double,  range: 0 to maxdouble default: 0.1",
              "                        Relative gap"}},
            {__LINE__,
             "any",
             {"any: ", "                        double,  range: mindouble to 1E20 default: 1.5E-7"}},
            {__LINE__,
             "iter",
             {"iter: Two", "                        integer,  range: -5 to maxint default: minint"}},
            {__LINE__,
             "flag",
             {"flag: Flag", "                        boolean,  default: 1",
              "                        About the flag", "                        closing words"}},
            {__LINE__, "note", {"note: Note", "                        string,  default: \"\""}},
            {__LINE__,
             "method",
             {"method: Method", "                        enumstr,  default: \"auto\"",
              "                           auto       Automatic choice",
              "                           Primal     ", "                           two words  Two"}},
            {__LINE__,
             "level",
             {"level: Level", "                        enumint,  default: -1",
              "                            -1 Lowest", "                            99 Highest"}},
            {__LINE__,
             "code",
             {"code: ", "                        enumint,  default: minint",
              "                            -2147483648 Least", "                            100 Most",
              "                              7 "}},
            {__LINE__, "bare", {"bare: No items", "                        enumint,  default: 7"}},
            {__LINE__, "words", {"words: Words", "                        multilist, "}},
            {__LINE__, "names", {"names: Names", "                        strlist, "}},
            {__LINE__, "all", {"all: All", "                        macro, "}},
            {__LINE__, "act", {"act: Act", "                        immediate, "}},
            {__LINE__, "help", {"Help: ", "                        immediate, "}},
        });
}

// A prefix without regard to case, then the number at the end. Names that are equal in both fall as the sort
// swaps them: options as defined, then synonyms, is where it starts.
TEST(help, orderofnames) {
  const auto order = [](const std::vector<const char*>& names) {
    std::string definition = "g group 1 1 G\n";
    for (const char* name : names) definition += name + std::string(" string 1 x 1 1\n");
    thandle h;
    h.definition(definition);
    h.takemessages();
    std::string result;
    for (const std::string& line : h.help("1"))
      if (line.ends_with(" : ")) result += line.substr(0, line.find(' ')) + ' ';
    return result;
  };
  EXPECT_EQ(order({"b", "A", "c", "aa", "B_"}), "A aa b B_ c ");
  EXPECT_EQ(order({"x10y", "x9y", "x2", "X10", "x1", "x"}), "x x1 x2 X10 x10y x9y ");
  EXPECT_EQ(order({"iter10", "Iter2", "iter2a", "x", "ITER02", "iter", "a2", "iter002"}),
            "a2 iter ITER02 iter002 Iter2 iter10 iter2a x ");
  EXPECT_EQ(order({"eq1", "eq01", "eq001", "eq0001", "eq00001", "eq000001", "eq0000001"}),
            "eq00001 eq000001 eq0000001 eq0001 eq1 eq01 eq001 ");
  EXPECT_EQ(order({"eq1", "b", "eq01", "a", "eq001", "eq0001", "c", "eq00001"}),
            "a b c eq0001 eq00001 eq01 eq1 eq001 ");
  thandle h;
  h.definition(
      "g group 1 1 G\neq01 string 1 x 1 1\neq1 string 1 x 1 1\neq001 synonym eq1\neq0001 synonym eq01\n");
  EXPECT_EQ(joined(h.help("1")),
            joined({"", "Options summary by group", "", "G", "eq001 (Synonym for eq1)",
                    "                      : ", "eq0001 (Synonym for eq01)", "                      : ",
                    "eq01                  : ", "eq1                   : "}));
  // A number of any length is a number.
  EXPECT_EQ(order({"x99999999999999999999", "x"}).size(), 24u);
}

// With names of words the request may be typed with blanks or underscores; blanks are what names are shown
// with.
TEST(help, lookupmodeminos) {
  const tlines block = {"major iterations: Limit",
                        "                        integer,  range: 0 to 10 default: 5"};
  check(
      "g group 1 1 G\nmajor_iterations integer 1 5 0 10 1 1 Limit\nmax_loops synonym major_iterations\nMinos "
      "lookup\n",
      {{__LINE__, "major iterations", block},
       {__LINE__, "MAJOR ITERATIONS", block},
       {__LINE__, "maj iter", {"maj iter is a synonym for major iterations", block[0], block[1]}},
       {__LINE__,
        "major_iterations",
        {"major_iterations is a synonym for major iterations", block[0], block[1]}},
       {__LINE__, "max loops", {"max loops is a synonym for major iterations", block[0], block[1]}},
       {__LINE__,
        "1",
        {"", "Options summary by group", "", "G", "major iterations      : Limit",
         "max loops (Synonym for major iterations)", "                      : Limit"}}});
}

TEST(help, linesarecutat255) {
  inbothforms([](thandle& h) {
    const std::string text(252, 'x');
    h.definition("g group 1 1 " + text + "xyz" + "\niter integer 1 5 0 10 1 1 " + text + "\n " + text + "\n");
    EXPECT_EQ(joined(h.help("iter")), joined({"iter: " + text.substr(0, 249),
                                              "                        integer,  range: 0 to 10 default: 5",
                                              "                        " + text.substr(0, 231)}));
    EXPECT_EQ(joined(h.help("1")), joined({"", "Options summary by group", "", text + "xyz",
                                           "iter                  : " + text.substr(0, 231)}));
  });
}

}  // namespace
}  // namespace testsupport
