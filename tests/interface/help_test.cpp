// The help listing, line by line: the summary by group with its column, the alphabetical listing, the
// description of one option by type, what a request selects, and the order of the names.
#include <stdio_ext.h>

#include "interface/script.h"

namespace testsupport::helptest {

constexpr const char* request = "help $1 => $2";

// Groups appear in the order of their lines. The summary leaves out groups with help flag 0 and their
// options, and options with help flag 0 or without a group. For the alphabetical listing only the help flag
// of the option counts.
constexpr const char* groupsdefinition =
    "late group 2 1 Late options\nhidden group 3 0 Hidden options\nearly group 1 1\n"
    "empty group 4 1 Nothing here\niter10 integer 1 5 0 10 1 1 Tenth\n More about the tenth,\n"
    "   in two lines\niter2 integer 2 5 minint maxint 1 1 Second\n"
    "secret boolean 3 0 1 3 In a hidden group\nsilent boolean 4 0 0 1 Without help flag\n"
    "stray boolean 5 0 1 0 Without group\nplain string 6 \"a b\" 2 2\nloop synonym iter2\n"
    "ghost synonym nosuch\nquietly synonym silent\nmarks deprecated\n iter10 use iter2\n loop use iter2\n"
    "olds obsolete\n plain gone\n";

// Requests for the summary and for the list in alphabetical order, and their answers.
const std::string summary =
    "help $1 => \\nOptions summary by group\\n\\nLate options\\n"
    "plain                 : \\n\\niter2                 : Second\\niter10                : Tenth\\n"
    "loop (Synonym for iter2)\\n<: Second\\n\\nNothing here\\n";
const std::string list =
    "\\nOptions in alphabetical order\\n\\niter2: Second\\n"
    ">integer,  range: minint to maxint default: 5\\niter10: Tenth\\n"
    ">integer,  range: 0 to 10 default: 5\\n>More about the tenth,\\n>in two lines\\nplain: \\n"
    ">string,  default: \"a b\"\\nsecret: In a hidden group\\n>boolean,  default: 0\\n";

const trules summaries("help", groupsdefinition, summary, {__LINE__, R"(
    // 1 asks for the summary
    1

    // a request that is neither a number nor a name asks for the summary
    \e
    ghost
    \x202
    99999999999
)"});
const trules listings("help", groupsdefinition, "help $1 => " + list, {__LINE__, R"(
    // 2 asks for the list in alphabetical order
    2
)"});
const trules summariesandlists("help", groupsdefinition, summary + list, {__LINE__, R"(
    // 3 and numbers below 1 ask for the summary and the list
    +3
    0
)"});

const trules otherrequests("help", groupsdefinition, request, {__LINE__, R"(
    // 8 alone asks for nothing
    8

    // 9 asks for a summary that marks deprecated options
    9 => \nOptions summary by group\n\nLate options\nplain (Obsolete)      : \n\niter2 (Deprecated)    : Second
      \niter10 (Deprecated)   : Tenth\nloop (Synonym for iter2) (Deprecated)\n<: Second\n\nNothing here\n

    // the name of an option or synonym asks for its description
    ITER2 => iter2: Second\n>integer,  range: minint to maxint default: 5\n
    silent => silent: Without help flag\n>boolean,  default: 0\n
    Loop => Loop is a synonym for iter2\niter2: Second\n>integer,  range: minint to maxint default: 5\n
)"});

const trules withoutgroups("help", "lone boolean 1 5 1 1\n", request, {__LINE__, R"(
    // a title without lines below it is left out unless the list ends its line
    1 => \n
    2 => \nOptions in alphabetical order\n\nlone: \n>boolean,  default: 5\n
    3 => \nOptions summary by group\n\nOptions in alphabetical order\n\nlone: \n>boolean,  default: 5\n
)"});

const trules fromafile("help", "lone boolean 1 5 1 1\n", {__LINE__, R"(
    // the option help without a request gives the summary
    readfromstr help ; told => +string |  | -string

    // of an option that a key with two dashes created only the name is known
    readfromstr --New text ; help --New => --New: \n>strlist, \n
)"});

// A listing of 800 lines with 255 bytes each is a fifth of the bound.
TEST(help, requests_of_one_call_are_refused_once_they_have_put_out_a_mebibyte) {
  std::string definition = "ask immediate Help 0 0\ng group 1 1 Group\n", requests;
  for (int i = 0; i < 800; ++i)
    definition += "o" + std::to_string(i) + " integer 1 0 0 9 1 1 " + std::string(240, 'x') + '\n';
  for (int i = 0; i < 8; ++i) requests += "ask 1\n";
  thandle h;
  ASSERT_EQ(h.definition(definition), 0);
  for (int call = 0; call < 2; ++call) {
    h.one(optclearmessages);
    h.parameters(requests);
    const tlines all = h.messages();
    EXPECT_EQ(std::count(all.begin(), all.end(), "Options summary by group"), 6);
    EXPECT_EQ(all.at(all.size() - 3), "*** Error line 7: Too much help requested; request ignored");
    EXPECT_EQ(all.at(all.size() - 2), "*** Error line 8: Too much help requested; request ignored");
  }
  // what is printed counts like what is listed; each of the two handles prints
  h.one(optclearmessages);
  testing::internal::CaptureStdout();
  h.parameters(std::regex_replace(std::string(300, '4'), std::regex("4"), "ask 4\n"));
  EXPECT_NEAR(static_cast<double>(testing::internal::GetCapturedStdout().size()), 1.8e6, 2e5);
  EXPECT_GT(h.messages().size(), 100u);
}

// 40 names of 250 characters are sorted for each request, but belong to no group that is listed. 105 requests
// sort a mebibyte of them.
TEST(help, requests_of_one_call_are_refused_once_they_have_sorted_a_mebibyte_of_names) {
  std::string definition = "ask immediate Help 0 0\n", requests;
  for (int i = 10; i < 50; ++i)
    definition += std::string(248, 'x') + std::to_string(i) + " integer 1 0 0 9 1 1\n";
  for (int i = 0; i < 200; ++i) requests += "ask 1\n";
  thandle h;
  ASSERT_EQ(h.definition(definition), 0);
  h.parameters(requests);
  const tlines all = h.messages();
  EXPECT_EQ(std::count(all.begin(), all.end(), ""), 105);
  EXPECT_EQ(all.at(106), "*** Error line 106: Too much help requested; request ignored");
}

// Each request looks at the names of all options, option 0 included, and synonyms, but lists none. 16 requests may cost
// a mebibyte, but not a byte more.
TEST(help, requests_of_one_call_are_refused_once_they_have_looked_at_a_million_names) {
  for (const bool ismore : {false, true}) {
    std::string definition = "ask immediate Help 0 0\no integer 1 0 0 9 1 0\n", requests;
    const int synonyms = 1024 * 1024 / 16 - 3 + (ismore ? 1 : 0);
    for (int i = 0; i < synonyms; ++i) definition += "s" + std::to_string(i) + " synonym o\n";
    for (int i = 0; i < 20; ++i) requests += "ask 1\n";
    thandle h;
    ASSERT_EQ(h.definition(definition), 0);
    h.parameters(requests);
    const std::string refused = "*** Error line 17: Too much help requested; request ignored";
    EXPECT_EQ(h.messages().at(17), ismore ? refused : "");
  }
}

// The debugging list is printed to standard output at once, together with the list in alphabetical order.
TEST(help, debugging_list_is_printed_and_flushed) {
  testing::internal::CaptureStdout();
  play(groupsdefinition, "help 6 => " + list);
  EXPECT_EQ(__fpending(stdout), 0u);
  const std::string printed = "\niter2 \niter10 \nloop *****Nil = Syn\nplain \nsecret \n";
  EXPECT_EQ(testing::internal::GetCapturedStdout(), printed + printed);
}

const trules columns(
    "help",
    "g group 1 1 G\na12345678901234567890x boolean 1 0 1 1 has 22\n"
    "b1234567890123456789x boolean 2 0 1 1 has 21\nc123456789012345678901x boolean 3 0 1 1 has 23\n"
    "d boolean 4 0 1 1\nf12345 synonym d\nf123456 synonym d\nold deprecated\n d\n",
    request, {__LINE__, R"(
    // help texts begin in column 23, on a line of their own if the name is longer
    1 => \nOptions summary by group\n\nG\na12345678901234567890x: has 22\nb1234567890123456789x : has 21
      \nc123456789012345678901x\n<: has 23\nd                     :\x20
      \nf12345 (Synonym for d): \nf123456 (Synonym for d)\n<: \n
)"});

const trules descriptions(
    "help",
    "gap double 1 0.1 0 maxdouble 1 1 Gap\n Relative gap\nany double 2 1.5e-7 mindouble 1e20 1 1\n"
    "iter integer.two 3 minint -5 maxint 1 1 Two\nflag boolean.nv 4 1 1 1 Flag\n About  the flag  \n\n"
    "  closing words\n* left out\n \n last\nnote string 5 \"\" 1 1 Note\nmethod enumstr 6 auto 1 1 Method\n"
    " auto 1 Automatic choice\n Primal 0\n \"two words\" 1 Two\nlevel enumint 7 minint 1 1 Level\n"
    " minint 1 Lowest\n 99 1 Highest\n 7 1\nsteps enumint 8 7 1 1\n 100 1 Most\n 7 1\nbare enumint 9 7 1 1 "
    "No items\nwords multilist 10 1 1 Words\n"
    "names strlist 11 1 1 Names\nall macro 1 1 All\nact immediate Message 1 1 Act\n",
    request, {__LINE__, R"(
    // a description has the type, the range, the default and further lines of help
    gap => gap: Gap\n>double,  range: 0 to maxdouble default: 0.1\n>Relative gap\n
    any => any: \n>double,  range: mindouble to 1E20 default: 1.5E-7\n
    iter => iter: Two\n>integer,  range: -5 to maxint default: minint\n
    flag => flag: Flag\n>boolean,  default: 1\n>About  the flag\n>closing words\n>\n>last\n
    note => note: Note\n>string,  default: ""\n

    // a description lists the values of an enumeration
    method => method: Method\n>enumstr,  default: "auto"\n>   auto       Automatic choice\n>   Primal    \x20
      \n>   two words  Two\n
    level => level: Level\n>enumint,  default: minint\n>    -2147483648 Lowest\n>    99 Highest\n>     7 \n
    steps => steps: \n>enumint,  default: 7\n>    100 Most\n>      7 \n
    bare => bare: No items\n>enumint,  default: 7\n

    // a description of an option without a value of its own has the type alone
    words => words: Words\n>multilist, \n
    names => names: Names\n>strlist, \n
    all => all: All\n>macro, \n
    act => act: Act\n>immediate, \n
)"});

// The names in the order of the summary.
const taddedstep summarystep("summary", [](thandle& h, const std::string&) {
  std::string result;
  for (const std::string& line : h.help("1"))
    if (line.ends_with(" : ")) result += (result.empty() ? "" : " ") + line.substr(0, line.find(' '));
  return result;
});

// The list to sort has the options in the order of the definition, then the synonyms.
const trules order("help", "g group 1 1 G\n", "integers $1 ; summary => $2", {__LINE__, R"(
    // names are ordered without regard to case
    b A c aa B_ => A aa b B_ c

    // numbers at the end of names are ordered by value
    iter10 Iter2 iter2a x ITER1 iter a2 iter003 => a2 iter ITER1 Iter2 iter003 iter10 iter2a x
    n30 n12 n21 n11 => n11 n12 n21 n30
    x10000000000000000000 b1 x_1 x0 x9999999999999999999 x a99
      => a99 b1 x x0 x9999999999999999999 x10000000000000000000 x_1

    // names that differ only in leading zeros stand as the sort leaves them
    eq1 b eq01 a eq001 eq0001 c eq00001 => a b c eq0001 eq00001 eq01 eq1 eq001
)"});
const trules orderofsynonyms(
    "help", "g group 1 1 G\ne01 string 1 x 1 1\ne1 string 1 x 1 1\ne001 synonym e1\ne0001 synonym e01\n",
    request, {__LINE__, R"(
    // synonyms that differ only in leading zeros stand as the sort leaves them
    1 => \nOptions summary by group\n\nG\ne001 (Synonym for e1) : \ne0001 (Synonym for e01)\n<:\x20
      \ne01                   : \ne1                    : \n
)"});

const trules minos(
    "help",
    "g group 1 1 G\nmajor_iterations integer 1 5 0 10 1 1 Limit\nmax_loops synonym major_iterations\n"
    "Minos lookup\n",
    request, {__LINE__, R"(
    // a name of several words may be typed with blanks or underscores, and is shown with blanks
    MAJOR ITERATIONS => major iterations: Limit\n>integer,  range: 0 to 10 default: 5\n
    maj iter => maj iter is a synonym for major iterations
      \nmajor iterations: Limit\n>integer,  range: 0 to 10 default: 5\n
    major_iterations => major_iterations is a synonym for major iterations
      \nmajor iterations: Limit\n>integer,  range: 0 to 10 default: 5\n
    1 => \nOptions summary by group\n\nG\nmajor iterations      : Limit
      \nmax loops (Synonym for major iterations)\n<: Limit\n
)"});

const std::string longtext(252, 'x');
const trules longlines("help",
                       "g group 1 1 " + longtext + "xyz\niter integer 1 5 0 10 1 1 " + longtext + "\n " +
                           longtext + "\n",
                       request, {__LINE__, R"(
    // a line is cut at 255 characters
    iter => iter: <249x>\n>integer,  range: 0 to 10 default: 5\n><231x>\n
    1 => \nOptions summary by group\n\n<252x>xyz\niter                  : <231x>\n
)"});

}  // namespace testsupport::helptest
