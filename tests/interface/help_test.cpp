// The help listing, line by line: the summary by group with its column, the alphabetical listing, the
// description of one option by type, what a request selects, and the order of the names.
#include "interface/optiontext.h"

namespace testsupport {
namespace {

struct trow {
  int where;
  const char* request;
  std::string lines;
};

// The lines with "|" after each; ">" stands for the 24 blanks that the lines of a description begin with, "<"
// for the 22 blanks before a text that has no room beside its name.
std::string shown(const tlines& lines) {
  std::string text;
  for (const std::string& line : lines) {
    const bool description = line.starts_with(std::string(24, ' '));
    const bool beside = line.starts_with(std::string(22, ' ') + ':');
    text += (description ? ">" + line.substr(24) : beside ? "<" + line.substr(22) : line) + '|';
  }
  return text;
}

void check(const char* definition, const std::vector<trow>& rows) {
  foreachrow(__FILE__, rows, [definition](thandle& h, const trow& row) {
    h.definition(definition);
    h.takemessages();
    EXPECT_EQ(shown(h.help(row.request)), row.lines) << '"' << row.request << '"';
  });
}

// Groups appear in the order of their lines. Not shown: a group with help flag 0 and its options, an option
// with help flag 0 or without group; the alphabetical listing asks only the option.
constexpr const char* groupsdefinition =
    "late group 2 1 Late options\nhidden group 3 0 Hidden options\nearly group 1 1\n"
    "empty group 4 1 Nothing here\niter10 integer 1 5 0 10 1 1 Tenth\n More about the tenth,\n"
    "   in two lines\niter2 integer 2 5 minint maxint 1 1 Second\n"
    "secret boolean 3 0 1 3 In a hidden group\nsilent boolean 4 0 0 1 Without help flag\n"
    "stray boolean 5 0 1 0 Without group\nplain string 6 \"a b\" 2 2\nloop synonym iter2\n"
    "ghost synonym nosuch\nquietly synonym silent\nmarks deprecated\n iter10 use iter2\n loop use iter2\n"
    "olds obsolete\n plain gone\n";

const std::string summary =
    "|Options summary by group||Late options|plain                 : ||"
    "iter2                 : Second|iter10                : Tenth|loop (Synonym for iter2)|<: Second||"
    "Nothing here|";
const std::string markedsummary =
    "|Options summary by group||Late options|plain (Obsolete)      : ||"
    "iter2 (Deprecated)    : Second|iter10 (Deprecated)   : Tenth|"
    "loop (Synonym for iter2) (Deprecated)|<: Second||Nothing here|";
const std::string second = "iter2: Second|>integer,  range: minint to maxint default: 5|";
const std::string alphabet =
    "|Options in alphabetical order||" + second +
    "iter10: Tenth|>integer,  range: 0 to 10 default: 5|>More about the tenth,|>in two lines|"
    "plain: |>string,  default: \"a b\"|secret: In a hidden group|>boolean,  default: 0|";

TEST(help, requests) {
  check(groupsdefinition, {
                              {__LINE__, "1", summary},
                              {__LINE__, "2", alphabet},
                              {__LINE__, "+3", summary + alphabet},
                              {__LINE__, "0", summary + alphabet},
                              {__LINE__, "8", ""},
                              {__LINE__, "9", markedsummary},
                              {__LINE__, "ITER2", second},
                              {__LINE__, "silent", "silent: Without help flag|>boolean,  default: 0|"},
                              {__LINE__, "Loop", "Loop is a synonym for iter2|" + second},
                              // What is neither number nor name gives the summary.
                              {__LINE__, "", summary},
                              {__LINE__, "ghost", summary},
                              {__LINE__, " 2", summary},
                              {__LINE__, "2.0", summary},
                              {__LINE__, "99999999999", summary},
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
    EXPECT_EQ(shown(lines), alphabet);
    h.takemessages();
    h.string("help");  // without a request
    EXPECT_EQ(shown(h.messages()),
              "Reading parameter(s) from \"string\"|" + summary + "Finished reading from \"string\"|");
  });
}

// A title that no line follows is left out, unless the alphabetical listing ends its line.
TEST(help, withoutgroups) {
  check("lone boolean 1 5 1 1\n",
        {{__LINE__, "1", "|"},
         {__LINE__, "2", "|Options in alphabetical order||lone: |>boolean,  default: 5|"},
         {__LINE__, "3",
          "|Options summary by group||Options in alphabetical order||lone: |>boolean,  default: 5|"}});
}

// Names up to column 22, names of 22 and of 23 characters.
TEST(help, columnofthesummary) {
  check(
      "g group 1 1 G\na12345678901234567890x boolean 1 0 1 1 has 22\n"
      "b1234567890123456789x boolean 2 0 1 1 has 21\nc123456789012345678901x boolean 3 0 1 1 has 23\n"
      "d boolean 4 0 1 1\nf12345 synonym d\nf123456 synonym d\nold deprecated\n d\n",
      {{__LINE__, "1",
        "|Options summary by group||G|a12345678901234567890x: has 22|b1234567890123456789x : has 21|"
        "c123456789012345678901x|<: has 23|d                     : |f12345 (Synonym for d): |"
        "f123456 (Synonym for d)|<: |"},
       {__LINE__, "9",
        "|Options summary by group||G|a12345678901234567890x: has 22|b1234567890123456789x : has 21|"
        "c123456789012345678901x|<: has 23|d (Deprecated)        : |f12345 (Synonym for d) (Deprecated)|"
        "<: |f123456 (Synonym for d) (Deprecated)|<: |"}});
}

TEST(help, descriptionbytype) {
  check(
      "gap double 1 0.1 0 maxdouble 1 1 Gap\n Relative gap\nany double 2 1.5e-7 mindouble 1e20 1 1\n"
      "iter integer.two 3 minint -5 maxint 1 1 Two\nflag boolean.nv 4 1 1 1 Flag\n About the flag\n\n"
      "  closing words\nnote string 5 \"\" 1 1 Note\nmethod enumstr 6 auto 1 1 Method\n"
      " auto 1 Automatic choice\n Primal 0\n \"two words\" 1 Two\nlevel enumint 7 minint 1 1 Level\n"
      " minint 1 Lowest\n 99 1 Highest\n 7 1\nsteps enumint 8 7 1 1\n 7 1\n 100 1 Most\nbare enumint 9 7 1 1 "
      "No items\nwords multilist 10 1 1 Words\n"
      "names strlist 11 1 1 Names\nall macro 1 1 All\nact immediate Message 1 1 Act\n",
      {{__LINE__, "gap", "gap: Gap|>double,  range: 0 to maxdouble default: 0.1|>Relative gap|"},
       {__LINE__, "any", "any: |>double,  range: mindouble to 1E20 default: 1.5E-7|"},
       {__LINE__, "iter", "iter: Two|>integer,  range: -5 to maxint default: minint|"},
       {__LINE__, "flag", "flag: Flag|>boolean,  default: 1|>About the flag|>closing words|"},
       {__LINE__, "note", "note: Note|>string,  default: \"\"|"},
       {__LINE__, "method",
        "method: Method|>enumstr,  default: \"auto\"|>   auto       Automatic choice|>   Primal     |"
        ">   two words  Two|"},
       {__LINE__, "level",
        "level: Level|>enumint,  default: minint|>    -2147483648 Lowest|>    99 Highest|>     7 |"},
       {__LINE__, "steps", "steps: |>enumint,  default: 7|>      7 |>    100 Most|"},
       {__LINE__, "bare", "bare: No items|>enumint,  default: 7|"},
       {__LINE__, "words", "words: Words|>multilist, |"},
       {__LINE__, "names", "names: Names|>strlist, |"},
       {__LINE__, "all", "all: All|>macro, |"},
       {__LINE__, "act", "act: Act|>immediate, |"}});
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
  EXPECT_EQ(order({"iter10", "Iter2", "iter2a", "x", "ITER02", "iter", "a2", "iter002"}),
            "a2 iter ITER02 iter002 Iter2 iter10 iter2a x ");
  EXPECT_EQ(order({"x10000000000000000000", "b1", "x_1", "x0", "x9999999999999999999", "x", "a99"}),
            "a99 b1 x x0 x9999999999999999999 x10000000000000000000 x_1 ");
  EXPECT_EQ(order({"eq1", "b", "eq01", "a", "eq001", "eq0001", "c", "eq00001"}),
            "a b c eq0001 eq00001 eq01 eq1 eq001 ");
  check("g group 1 1 G\ne01 string 1 x 1 1\ne1 string 1 x 1 1\ne001 synonym e1\ne0001 synonym e01\n",
        {{__LINE__, "1",
          "|Options summary by group||G|e001 (Synonym for e1) : |e0001 (Synonym for e01)|<: |"
          "e01                   : |e1                    : |"}});
}

// With names of words the request may be typed with blanks or underscores; blanks are what names are shown
// with.
TEST(help, lookupmodeminos) {
  const std::string block = "major iterations: Limit|>integer,  range: 0 to 10 default: 5|";
  const std::string synonym = " is a synonym for major iterations|" + block;
  check(
      "g group 1 1 G\nmajor_iterations integer 1 5 0 10 1 1 Limit\nmax_loops synonym major_iterations\n"
      "Minos lookup\n",
      {{__LINE__, "MAJOR ITERATIONS", block},
       {__LINE__, "maj iter", "maj iter" + synonym},
       {__LINE__, "major_iterations", "major_iterations" + synonym},
       {__LINE__, "1",
        "|Options summary by group||G|major iterations      : Limit|"
        "max loops (Synonym for major iterations)|<: Limit|"}});
}

TEST(help, linesarecutat255) {
  inbothforms([](thandle& h) {
    const std::string text(252, 'x');
    h.definition("g group 1 1 " + text + "xyz" + "\niter integer 1 5 0 10 1 1 " + text + "\n " + text + "\n");
    EXPECT_EQ(shown(h.help("iter")), "iter: " + text.substr(0, 249) +
                                         "|>integer,  range: 0 to 10 default: 5|>" + text.substr(0, 231) +
                                         '|');
    EXPECT_EQ(shown(h.help("1")), "|Options summary by group||" + text +
                                      "xyz|iter                  : " + text.substr(0, 231) + '|');
  });
}

}  // namespace
}  // namespace testsupport
