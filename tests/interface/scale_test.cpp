// Inputs of a size that nobody writes by hand, and of bytes that nobody types. Work that grew faster than the
// input would take hours here instead of seconds.
#include <algorithm>

#include "interface/script.h"

namespace testsupport {
namespace {

using namespace std::string_literals;

#ifdef WEXCORIN_SANITIZED
constexpr int scale = 10;
#else
constexpr int scale = 1;
#endif
constexpr int many = 100'000 / scale;
constexpr int verymany = 1'000'000 / scale;
constexpr std::size_t hugeline = std::size_t{100'000'000} / scale;

// The text once for each number below count, with the number for each "#" and the next one for each "@".
std::string repeated(int count, const std::string& text) {
  std::string result;
  for (int i = 0; i < count; ++i)
    for (const char character : text)
      if (character == '#')
        result += std::to_string(i);
      else if (character == '@')
        result += std::to_string(i + 1);
      else
        result += character;
  return result;
}

// Every option is found by its name, set and written, in each way of comparing names.
TEST(scale, options) {
  for (const std::string mode : {"normal", "path", "minos"}) {
    SCOPED_TRACE(mode);
    // In both shorter modes three characters of each word count.
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
    ASSERT_EQ(optcount(h.get()), many + 1);
    h.parameters(text);
    EXPECT_EQ(h.messages(), tlines());
    EXPECT_TRUE(h.written() == text);
    // the listing ends when the messages are full
    EXPECT_EQ(h.help("2").size(), 5001u);
    optresetall(h.get());
    EXPECT_EQ(h.written(), "");
  }
}

// What hangs on one option or stands beside the options.
TEST(scale, definitions) {
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
  EXPECT_EQ(optsynonymcount(h.get()), n);
  EXPECT_EQ(optgroupcount(h.get()), n);
  h.parameters("word w" + last + "\nlevel " + last + "\neach x:y\n");
  EXPECT_EQ(settings(h), "word=w" + last + " level=" + last + " free0=[x] free1=[y]");
  for (int i = 0; i < n; ++i) ASSERT_EQ(h.number('S' + std::to_string(i)), 2);
  h.parameters("s" + last + " 7\nall 8");
  EXPECT_EQ(h.call(BOTH(listcountstr), "texts"), n);  // all of them get their turn
  EXPECT_EQ(told(h, false), "W1 deprecated synonym \"s" + last + "\"; gone");
  optclearmessages(h.get());
  EXPECT_EQ(h.call(BOTH(setstrnr), 3, "none") + h.call(BOTH(setstrnr), 4, "-1"), 0);
  for (const int nr : {2, 4}) EXPECT_EQ(h.messages().at(static_cast<std::size_t>(nr) - 1).size(), 255u);
  optclearmessages(h.get());
  EXPECT_EQ(h.help("long").size(), 5001u);
}

// Chains that no recursion survives.
TEST(scale, depth) {
  thandle h;
  h.definition("x integer 1 0 0 9 0 0\nm0 macro 0 0\n x\nl0 multilist 1 0 0\n x\n" +
               repeated(many, "m@ macro 0 0\n m#\nl@ multilist 1 0 0\n l#\n"));
  const std::string last = std::to_string(many);
  for (const std::string kind : {"m", "l"}) {
    h.string(kind + last + " 5");
    EXPECT_EQ(h.value("x"), "5");
    EXPECT_EQ(optresetnr(h.get(), h.number("m" + last)), 1);
    EXPECT_EQ(h.value("x"), "0");
  }
  EXPECT_EQ(told(h), "");
}

// Macros of macros that name each member twice: every level doubles the assignments, until there are more than
// options.
TEST(scale, doubling) {
  thandle h;
  h.definition("texts strlist 1 1 1\nm0 macro 1 1\n texts\n texts\n" +
               repeated(39, "m@ macro 1 1\n m#\n m#\n"));
  h.string("m8 x");
  EXPECT_EQ(h.call(BOTH(listcountstr), "texts"), 512);
  EXPECT_EQ(told(h), "");
  h.string("m39 x");
  EXPECT_EQ(told(h, false), "V Too many members for option \"m39\"");
  EXPECT_LT(h.call(BOTH(listcountstr), "texts"), 2000);
  EXPECT_EQ(optresetnr(h.get(), h.number("m39")), 1);
  EXPECT_EQ(h.call(BOTH(listcountstr), "texts"), 0);
}

constexpr const char* lineoptions =
    "a integer 1 0 0 9 1 1\nl strlist 2 1 1\ns string 3 none 1 1\n.prior double 4 1 0 9 1 1\nind indicator\n";

// Many times the same line: what is listed and entered of it, and what is wrong, which is told of the first
// 4,999 lines, behind the note on the file.
TEST(scale, lines) {
  const struct {
    int where;
    std::string line, told;
    int listed = 0, dotentries = 0;
  } rows[] = {
      {__LINE__, "a 5", ""},
      {__LINE__, "", ""},
      {__LINE__, "l x\r", "", verymany},
      {__LINE__, "--own x", "", verymany},
      {__LINE__, "x.prior('i') 3", "", 0, verymany},
      {__LINE__, "unknown 5", R"(Unknown option "unknown")"},
      {__LINE__, "a 5 5", R"(Integer expected, for option "a" saw "5 5")"},
      {__LINE__, "a \"", "Bad double-quote in value"},
      {__LINE__, "\"\"\"", R"(Option keyword expected, saw """)"},
      {__LINE__, "\0\0a 5"s, "Option keyword expected, saw \"\0\""s},
      {__LINE__, "\xFF", "Option keyword expected, saw \"\xFF\""},
      {__LINE__, "x.none", R"(unknown .suffix ".none" for key "x")"},
  };
  for (const auto& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.where, row.line);
    thandle h;
    h.definition(lineoptions);
    h.parameters(repeated(verymany, row.line + '\n') + "s last");
    std::int32_t rejected = 0;
    EXPECT_EQ(h.call(BOTH(listcountstr), row.line[0] == '-' ? "--own" : "l"), row.listed);
    EXPECT_EQ(optdotoptcount(h.get(), &rejected), row.dotentries);
    EXPECT_EQ(h.value("s"), "last");
    const tlines all = h.messages();
    ASSERT_EQ(all.size(), row.told.empty() ? 0u : 5001u);
    if (row.told.empty()) continue;
    EXPECT_EQ(brief(all[1]).substr(1), "1 " + row.told);
    EXPECT_EQ(brief(all[4999]).substr(1), "4999 " + row.told);
    EXPECT_EQ(all.back(), "Maximum of 5000 messages reached");
  }
}

// Of a line 1,020 characters count, however it goes on, and the line after it is read as always.
TEST(scale, oneline) {
  const struct {
    int where;
    std::string begin;
    char filler;
    std::string settings, told;
  } rows[] = {
      {__LINE__, "a 5", ' ', "a=5", ""},
      {__LINE__, "* ", '*', "", ""},
      {__LINE__, "l ", 'x', "l=[" + std::string(255, 'x') + ']', ""},
      {__LINE__, "", '\0', "", "+OPT | E1 Option keyword expected, saw \"\0\" | -OPT"s},
      {__LINE__, "", '"', "", "+OPT | E1 Option keyword expected, saw \"\"\" | -OPT"},
  };
  for (const auto& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.where, row.begin + row.filler);
    thandle h;
    h.definition(lineoptions);
    h.parameters(row.begin + std::string(hugeline, row.filler) + "\ns last");
    EXPECT_EQ(told(h), row.told);
    EXPECT_EQ(settings(h), row.settings + (row.settings.empty() ? "" : " ") + "s=last");
  }
}

}  // namespace
}  // namespace testsupport
