// Very large inputs, and inputs with unusual bytes. If the time grew faster than the input, the tests would
// take hours instead of seconds.
#include <algorithm>

#include "interface/script.h"

namespace testsupport::scaletest {

#ifdef WEXCORIN_SANITIZED  // which takes many times as long; these are still beyond every limit
constexpr int many = 10'000;
constexpr int verymany = 40'000;
constexpr std::size_t hugeline = 10'000'000;
#else
constexpr int many = 100'000;
constexpr int verymany = 1'000'000;
constexpr std::size_t hugeline = 100'000'000;
#endif

// The text, repeated for each number below count; "#" becomes the number and "@" the next number.
std::string repeated(int count, const std::string& text) {
  std::string result;
  for (int i = 0; i < count; ++i)
    for (const char character : text)
      if (character == '#' || character == '@')
        result += std::to_string(character == '#' ? i : i + 1);
      else
        result += character;
  return result;
}

TEST(scale, every_one_of_many_options_is_found_set_and_written_in_each_way_of_comparing_names) {
  for (const std::string mode : {"normal", "path", "minos"}) {
    SCOPED_TRACE(mode);
    // In the modes path and minos three characters of each word are compared.
    std::string definition = mode + " lookup\n", text;
    for (int i = 0; i < many; ++i) {
      const std::string digits = std::to_string(1'000'000 + i);
      std::string letters = digits;
      for (char& c : letters) c = static_cast<char>(c - '0' + 'a');
      std::string name = letters.insert(6, "y_z").insert(3, "yz_") + "zz";
      definition += name + " integer " + digits + " 1 0 2000000 1 1 Help of it\n And more\n";
      std::replace(name.begin(), name.end(), '_', mode == "minos" ? ' ' : '_');
      text += name + '=' + digits + '\n';
    }
    thandle h;
    ASSERT_EQ(h.definition(definition), 0);
    ASSERT_EQ(h.one(optcount), many + 1);
    h.parameters(text);
    EXPECT_EQ(h.messages(), tlines());
    EXPECT_TRUE(h.written() == text);
    // the listing ends when the messages are full
    EXPECT_EQ(h.help("2").size(), 5001u);
    h.one(optresetall);
    EXPECT_EQ(h.written(), "");
  }
}

TEST(scale, an_option_may_have_many_values_help_lines_synonyms_members_and_marks) {
  const int n = many / 2;
  const std::string last = std::to_string(n - 1);
  std::string definition =
      "base integer 1 0 0 9 1 1\nword enumstr 2 w0 1 1\n" + repeated(n, " w# 1 Text #\n") +
      "level enumint 3 0 1 1\n" + repeated(n, " # 1 Text\n") + "long double 4 0 0 9 1 1 Long\n" +
      repeated(n, " line #\n") + repeated(n, "s# synonym base\n") + repeated(n, "g# group # 1 Group\n") +
      "texts strlist 5 1 1\nall macro 1 1\n" + repeated(n, " texts\n") + "names deprecated\n" +
      repeated(n, " s# gone\n") + repeated(n, "free# strlist 5 1 1\n") + "each multilist 6 1 1\n" +
      repeated(n, " free#\n");
  thandle h;
  ASSERT_EQ(h.definition(definition), 0);
  EXPECT_EQ(told(h, false), "");
  EXPECT_EQ(h.one(optsynonymcount), n);
  EXPECT_EQ(h.one(optgroupcount), n);
  h.parameters("word w" + last + "\nlevel " + last + "\neach x:y\n");
  EXPECT_EQ(settings(h), "word=w" + last + " level=" + last + " free0=[x] free1=[y]");
  for (int i = 0; i < n; ++i) ASSERT_EQ(h.number('S' + std::to_string(i)), 2);
  h.parameters("s" + last + " 7\nall 8");
  EXPECT_EQ(h.call(BOTH(listcountstr), "texts"), n);  // each member of the macro was set
  EXPECT_EQ(told(h, false), "W1 deprecated synonym \"s" + last + "\"; gone");
  h.one(optclearmessages);
  EXPECT_EQ(h.call(BOTH(setstrnr), 3, "none") + h.call(BOTH(setstrnr), 4, "-1"), 0);
  for (const int nr : {2, 4}) EXPECT_EQ(h.messages().at(static_cast<std::size_t>(nr) - 1).size(), 255u);
  h.one(optclearmessages);
  EXPECT_EQ(h.help("long").size(), 5001u);
}

// Each of the groups has all options, and is listed although its number is not its own.
TEST(scale, a_listing_of_many_groups_with_many_options_ends_when_the_messages_are_full) {
  const int n = many / 2;
  thandle h;
  h.definition(repeated(n, "g# group 1 1\n") + repeated(n, "o# integer 1 0 0 9 1 1\n"));
  h.one(optclearmessages);
  testing::internal::CaptureStdout();
  EXPECT_EQ(h.help("5").size(), 5001u);
  const std::string printed = testing::internal::GetCapturedStdout();
  EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 2 * (n + 1));
}

// Chains that are too long for recursion.
TEST(scale, macros_and_multilists_may_stand_for_each_other_to_any_depth) {
  thandle h;
  h.definition("x integer 1 0 0 9 0 0\nm0 macro 0 0\n x\nl0 multilist 1 0 0\n x\n" +
               repeated(many, "m@ macro 0 0\n m#\nl@ multilist 1 0 0\n l#\n"));
  const std::string last = std::to_string(many);
  for (const std::string kind : {"m", "l"}) {
    h.string(kind + last + " 5");
    EXPECT_EQ(h.value("x"), "5");
    EXPECT_EQ(h.one(optresetnr, h.number("m" + last)), 1);
    EXPECT_EQ(h.value("x"), "0");
  }
  EXPECT_EQ(told(h), "");
}

// Each macro names the one before it twice, so each level doubles the number of assignments.
const trules doubling("scale",
                      "texts strlist 1 1 1\nd0 macro 1 1\n texts\n texts\n" +
                          repeated(39, "d@ macro 1 1\n d#\n d#\n"),
                      {__LINE__, R"(
    // one assignment sets at most a thousand members more than there are options
    readfromstr d8 x ; listcountstr texts => 512 ; told =>
    readfromstr d39 x ; problems => V Too many members for option "d39" ; listcountstr texts => 1018
    resetnr d39 => 1 ; listcountstr texts => 0
)"});

// A line, its message, and its result. The note on the file comes first, so 4,999 lines have a message each.
TEST(scale, a_line_may_come_many_times) {
  const ttable rows = {__LINE__, R"(
    maxit 5
    \e
    string_list x\r => => listed
    --own x => => listed
    x.prior('i') 3 => => entered
    indic e(i)$v('j') 1 => => indicated
    unknown 5 => Unknown option "unknown"
    maxit 5 5 => Integer expected, for option "maxit" saw "5 5"
    \x00\x00maxit 5 => Option keyword expected, saw "\x00"
    x.none => unknown .suffix ".none" for key "x"
  )"};
  eachrow(rows, [](const tcolumns& columns) {
    thandle h;
    h.definition(everytype);
    h.parameters(repeated(verymany, columns[0] + '\n') + "note last");
    const auto becomes = [&](const char* word) { return columns[2] == word ? verymany : 0; };
    std::int32_t rejected = 0;
    const std::string list = columns[0][0] == '-' ? "--own" : "string_list";
    EXPECT_EQ(h.call(BOTH(listcountstr), list), becomes("listed"));
    for (std::string text; list == "--own" && h.call(BOTH(getfromliststr), list, text) == 1;) continue;
    EXPECT_EQ(h.one(optdotoptcount, rejected), becomes("entered"));
    EXPECT_EQ(h.one(optindicatorcount, rejected), becomes("indicated"));
    EXPECT_EQ(h.value("note"), "last");
    const tlines all = h.messages();
    ASSERT_EQ(all.size(), columns[1].empty() ? 0u : 5001u);
    if (columns[1].empty()) return;
    EXPECT_EQ(brief(all[1]).substr(1), "1 " + columns[1]);
    EXPECT_EQ(brief(all[4999]).substr(1), "4999 " + columns[1]);
    EXPECT_EQ(all.back(), "Maximum of 5000 messages reached");
  });
}

// Texts in one list after another, and in the one that is the last of all.
TEST(scale, all_lists_are_emptied_without_being_named_in_linear_time) {
  thandle h;
  h.parameters(repeated(many, "--list# x\n") + repeated(many, "--last y\n"));
  std::string name, text;
  int taken = 0;
  while (h.call(BOTH(getfromanystrlist), 1, name, text) == 1) ++taken;
  EXPECT_EQ(taken, 2 * many);
  EXPECT_EQ(name + '=' + text, "--last=y");
}

// In path mode a name with a short word is found by no name, not even its own, so each line makes a list.
TEST(scale, a_name_that_matches_nothing_may_come_many_times) {
  thandle h;
  h.definition("path lookup\nlong_name integer 1 0 0 9 1 1\n");
  h.parameters(repeated(verymany, "--a_b\n") + "lon_name 5\n--a_b\n");
  EXPECT_EQ(h.one(optcount), verymany + 3);
  EXPECT_EQ(h.value("lon_nam"), "5");
  EXPECT_EQ(h.number("--a_b"), -1);
}

// How a line begins, the byte that fills it, the options that are set, and the messages.
TEST(scale, a_line_may_be_of_any_length_and_the_line_after_it_is_read_as_always) {
  const ttable rows = {__LINE__, R"(
    maxit 5 => \x20 => maxit=5 note=last
    * => * => note=last
    string_list\x20 => x => note=last string_list=[<255x>]
    \e => \x00 => note=last => +OPT | E1 Option keyword expected, saw "\x00" | -OPT
  )"};
  eachrow(rows, [](const tcolumns& columns) {
    thandle h;
    h.definition(everytype);
    h.parameters(columns[0] + std::string(hugeline, columns[1][0]) + "\nnote last");
    EXPECT_EQ(settings(h), columns[2]);
    EXPECT_EQ(told(h), columns[3]);
  });
}

}  // namespace testsupport::scaletest
