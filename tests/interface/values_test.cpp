// Values: what the setters take from text and numbers, what they store, the words they refuse with, the
// defined and recent flags, the out-of-bounds marks (visible as the brackets of the written file) and the
// resets. A locale with a decimal comma changes none of it.
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "support/handle.h"

namespace testsupport {
namespace {

// One option of every type; "pair…" take two values, "switch" takes none.
constexpr const char* definitiontext = R"(maxit integer 1 5 0 10 1 1
wide integer 2 0 minint maxint 1 1
gap double 3 0.1 0 1 1 1
any double 4 0 mindouble maxdouble 1 1
note string 5 none 1 1
flag boolean 6 0 1 1
method enumstr 7 auto 1 1
 auto 1
 Primal 1
 "two words" 1
level enumint 8 1 1 1
 0 1
 1 1
 -12 1
switch integer.nv 9 7 0 10 1 1
pairint integer.two 10 1 0 10 1 1
pairdbl double.two 11 1 0 10 1 1
pairbool boolean.two 12 1 1 1
pairstr enumstr.two 13 a 1 1
 a 1
 B 1
pairenum enumint.two 14 1 1 1
 1 1
 2 1
words multilist 15 1 1
 maxit note
names strlist 16 1 1
all macro 1 1
 maxit
 flag
bounds immediate NoBounds 1 1
)";

void define(thandle& h) {
  ASSERT_EQ(h.definition(definitiontext), 0);
  ASSERT_EQ(joined(h.messages()), "");
}

struct ttextrow {
  int where;
  const char* option;
  const char* text;
  const char* value;          // afterwards
  const char* head = "";      // of the refusal, which goes on with the option and the text
  const char* second = "";    // the line after it
  const char* saw = nullptr;  // where the refusal shows something else than the text
};

constexpr const char* error = "*** Value Error ";
constexpr const char* warning = "*** Warning ";

// The messages of a refusal: what was wrong, for which option, what it saw; and the range or the list of
// values.
std::string refusal(const char* kind, const char* option, const std::string& saw, const char* head,
                    const char* second) {
  std::string text;
  if (*head != 0) text += kind + std::string(head) + '"' + option + "\" saw \"" + saw + "\"\n";
  if (*second != 0) text += kind + std::string(second) + '\n';
  return text;
}

constexpr const char* badinteger = "Integer expected, for option ";
constexpr const char* badintrange = "Integer range error for option ";
constexpr const char* baddouble = "Double expected for option ";
constexpr const char* baddblrange = "Double out of range for option ";
constexpr const char* badboolean = "Boolean value expected for option ";
constexpr const char* badboolrange = "Boolean out of range for option ";
constexpr const char* badenum = "Unknown value for option ";
constexpr const char* badquote = "Bad double-quote in value";

const std::vector<ttextrow> textrows = {
    {__LINE__, "maxit", "0", "0"},
    {__LINE__, "maxit", "10", "10"},
    {__LINE__, "maxit", "2.0", "2"},
    {__LINE__, "maxit", "1e1", "10"},
    {__LINE__, "maxit", "11", "5", badintrange, "   Valid range is 0 to 10"},
    {__LINE__, "maxit", "-1", "5", badintrange, "   Valid range is 0 to 10"},
    {__LINE__, "maxit", "MaxInt", "5", badintrange, "   Valid range is 0 to 10", "2147483647"},
    {__LINE__, "maxit", "2.5", "5", badinteger},
    {__LINE__, "maxit", " 3", "5", badinteger},
    {__LINE__, "maxit", "", "5", badinteger},
    {__LINE__, "wide", "minint", "-2147483648"},
    {__LINE__, "wide", "2147483648", "0", badinteger},

    {__LINE__, "gap", ".5", "0.5"},
    {__LINE__, "gap", "2.5d-1", "0.25"},
    {__LINE__, "gap", "EPS", "1E-20"},
    {__LINE__, "gap", "1.5", "0.1", baddblrange, "   Valid range is 0 to 1"},
    {__LINE__, "gap", "1,5", "0.1", baddouble},
    {__LINE__, "gap", "nan", "0.1", baddouble},
    {__LINE__, "gap", "", "0.1", baddouble},
    {__LINE__, "any", "mindouble", "-1E299"},
    {__LINE__, "any", "1e300", "0", baddblrange, "   Valid range is mindouble to maxdouble", "1E300"},
    {__LINE__, "any", "1e20", "1E20"},
    {__LINE__, "any", "-123456789012345678", "-1.23456789012346E17"},
    {__LINE__, "any", "1.5e-7", "1.5E-7"},

    {__LINE__, "note", "a, b", "a, b"},
    {__LINE__, "note", "", ""},
    {__LINE__, "note", "say \"hi", "none", "", badquote},
    {__LINE__, "maxit", "\"3\"", "5", "", badquote},

    {__LINE__, "flag", " yes", "0", badboolean},
    {__LINE__, "flag", "2", "0", badboolean},
    {__LINE__, "flag", "", "0", badboolean},

    {__LINE__, "method", "PRIMAL", "Primal"},
    {__LINE__, "method", "Two Words", "two words"},
    {__LINE__, "method", "prim", "auto", badenum, "   Possible values are  auto Primal two words"},
    {__LINE__, "level", "-12", "-12"},
    {__LINE__, "level", "3", "1", badenum, "   Possible values are  0 1 -12"},
    {__LINE__, "level", "1.0", "1", badinteger},
    {__LINE__, "bounds", "1", ""},
};

void checktexts(const char* kind, const std::vector<ttextrow>& rows, void (*prepare)(thandle& h)) {
  foreachrow(__FILE__, rows, [&](thandle& h, const ttextrow& row) {
    prepare(h);
    const bool refused = kind == error && (*row.head != 0 || *row.second != 0);
    EXPECT_EQ(h.setstrnr(h.number(row.option), row.text), refused ? 0 : 1);
    EXPECT_EQ(h.value(row.option), row.value);
    EXPECT_EQ(joined(h.messages()),
              refusal(kind, row.option, row.saw == nullptr ? row.text : row.saw, row.head, row.second));
  });
}

TEST(values, textisparsedandchecked) { checktexts(error, textrows, define); }

TEST(values, booleanwords) {
  inbothforms([](thandle& h) {
    define(h);
    for (const auto& [words, value] : {std::pair{tlines{"1", "y", "Yes", "ON", "true", "T"}, "1"},
                                       std::pair{tlines{"0", "N", "no", "Off", "FALSE", "f"}, "0"}})
      for (const std::string& word : words) {
        optsetintnr(h.get(), h.number("flag"), *value == '0' ? 1 : 0);
        EXPECT_EQ(h.setstrnr(h.number("flag"), word), 1) << word;
        EXPECT_EQ(h.value("flag"), value) << word;
      }
  });
}

// Text for an option without value only marks it; its own value stays what it was created with, not the
// default.
TEST(values, novalueoptionsonlybecomedefined) {
  inbothforms([](thandle& h) {
    define(h);
    EXPECT_EQ(h.value("switch"), "7");
    EXPECT_EQ(h.setstrnr(h.number("switch"), "any \" text"), 1);
    EXPECT_EQ(h.value("switch"), "0");
    EXPECT_EQ(h.written(), "switch\n");
    EXPECT_EQ(joined(h.messages()), "");
  });
}

enum class tsetter { intnr, int2nr, dblnr, dbl2nr, strnr, str2nr, valuesnr, values2nr };

int apply(thandle& h, tsetter setter, int nr, double number, const char* text) {
  const auto integer = [number] { return static_cast<std::int32_t>(number); };
  switch (setter) {
    case tsetter::intnr: return optsetintnr(h.get(), nr, integer());
    case tsetter::int2nr: return optsetint2nr(h.get(), nr, integer());
    case tsetter::dblnr: return optsetdblnr(h.get(), nr, number);
    case tsetter::dbl2nr: return optsetdbl2nr(h.get(), nr, number);
    case tsetter::strnr: return h.setstrnr(nr, text);
    case tsetter::str2nr: return h.setstr2nr(nr, text);
    case tsetter::valuesnr: return h.setvaluesnr(nr, integer(), number, text);
    case tsetter::values2nr: return h.setvalues2nr(nr, integer(), number, text);
  }
  return -1;
}

struct tcallrow {
  int where;
  tsetter setter;
  const char* option;
  double number;  // cut to an integer where the setter takes one
  const char* text;
  int ok;
  const char* value;  // first value, and for two-value options a bar and the second
  const char* head = "";
  const char* second = "";
  const char* saw = "";
};

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

// A setter that does not fit the option's type or number of values answers 0 and says nothing.
const std::vector<tcallrow> callrows = {
    {__LINE__, tsetter::intnr, "maxit", 10, "", 1, "10"},
    {__LINE__, tsetter::intnr, "maxit", 11, "", 0, "5", badintrange, "   Valid range is 0 to 10", "11"},
    {__LINE__, tsetter::intnr, "flag", 1, "", 1, "1"},
    {__LINE__, tsetter::intnr, "flag", 2, "", 0, "0", badboolrange, "   Valid values are 0 or 1", "2"},
    {__LINE__, tsetter::intnr, "flag", -1, "", 0, "0", badboolrange, "   Valid values are 0 or 1", "-1"},
    {__LINE__, tsetter::intnr, "level", -12, "", 1, "-12"},
    {__LINE__, tsetter::intnr, "level", 12, "", 0, "1", badenum, "   Possible values are  0 1 -12", "12"},
    {__LINE__, tsetter::intnr, "gap", 1, "", 0, "0.1"},
    {__LINE__, tsetter::intnr, "note", 1, "", 0, "none"},
    {__LINE__, tsetter::int2nr, "pairint", 7, "", 1, "1|7"},
    {__LINE__, tsetter::int2nr, "pairbool", 0, "", 1, "1|0"},
    {__LINE__, tsetter::int2nr, "pairenum", 2, "", 1, "1|2"},
    {__LINE__, tsetter::int2nr, "pairint", 77, "", 0, "1|1", badintrange, "   Valid range is 0 to 10", "77"},
    {__LINE__, tsetter::int2nr, "maxit", 7, "", 0, "5"},
    {__LINE__, tsetter::int2nr, "pairdbl", 7, "", 0, "1|1"},
    {__LINE__, tsetter::dblnr, "gap", 0.25, "", 1, "0.25"},
    {__LINE__, tsetter::dblnr, "gap", nan, "", 0, "0.1", baddblrange, "   Valid range is 0 to 1", "NAN"},
    {__LINE__, tsetter::dblnr, "gap", infinite, "", 0, "0.1", baddblrange, "   Valid range is 0 to 1", "INF"},
    {__LINE__, tsetter::dblnr, "gap", -infinite, "", 0, "0.1", baddblrange, "   Valid range is 0 to 1",
     "-INF"},
    {__LINE__, tsetter::dblnr, "any", 1e299, "", 1, "1E299"},
    {__LINE__, tsetter::dblnr, "maxit", 1, "", 0, "5"},
    {__LINE__, tsetter::dbl2nr, "pairdbl", 2.5, "", 1, "1|2.5"},
    {__LINE__, tsetter::dbl2nr, "gap", 0.5, "", 0, "0.1"},
    {__LINE__, tsetter::str2nr, "pairint", 0, "8", 1, "1|8"},
    {__LINE__, tsetter::str2nr, "pairstr", 0, "b", 1, "a|B"},
    {__LINE__, tsetter::str2nr, "pairbool", 0, "maybe", 0, "1|1", badboolean, "", "maybe"},
    {__LINE__, tsetter::str2nr, "pairstr", 0, "\"", 0, "a|a", "", badquote},
    {__LINE__, tsetter::str2nr, "note", 0, "x", 0, "none"},
    // Of the three values the one of the option's type counts; a string option takes a double quote this way.
    {__LINE__, tsetter::valuesnr, "maxit", 3.5, "x", 1, "3"},
    {__LINE__, tsetter::valuesnr, "gap", 0.5, "x", 1, "0.5"},
    {__LINE__, tsetter::valuesnr, "note", 3.5, "a\"b", 1, "a\"b"},
    {__LINE__, tsetter::valuesnr, "flag", 1.5, "off", 1, "1"},
    {__LINE__, tsetter::valuesnr, "method", 3.5, "primal", 1, "Primal"},
    {__LINE__, tsetter::valuesnr, "method", 3.5, "\"", 0, "auto", badenum,
     "   Possible values are  auto Primal two words", "\""},
    {__LINE__, tsetter::valuesnr, "level", 0.5, "1", 1, "0"},
    {__LINE__, tsetter::valuesnr, "words", 3.5, "3", 0, ""},
    {__LINE__, tsetter::valuesnr, "names", 3.5, "x", 0, ""},
    {__LINE__, tsetter::valuesnr, "all", 3.5, "1", 0, ""},
    {__LINE__, tsetter::values2nr, "pairint", 3.5, "x", 1, "1|3"},
    {__LINE__, tsetter::values2nr, "pairdbl", 3.5, "x", 1, "1|3.5"},
    {__LINE__, tsetter::values2nr, "pairstr", 3.5, "b", 1, "a|B"},
    {__LINE__, tsetter::values2nr, "pairenum", 3.5, "1", 0, "1|1", badenum, "   Possible values are  1 2",
     "3"},
    {__LINE__, tsetter::values2nr, "maxit", 3.5, "x", 0, "5"},
};

TEST(values, numberedsetters) {
  foreachrow(__FILE__, callrows, [](thandle& h, const tcallrow& row) {
    define(h);
    EXPECT_EQ(apply(h, row.setter, h.number(row.option), row.number, row.text), row.ok);
    const std::string second = h.value2(row.option);
    EXPECT_EQ(h.value(row.option) + (second == "?" ? "" : "|" + second), row.value);
    EXPECT_EQ(joined(h.messages()), refusal(error, row.option, row.saw, row.head, row.second));
    const std::string before = h.dump();
    optclearmessages(h.get());
    for (const int bad : {0, -1, optcount(h.get()) + 1})
      EXPECT_EQ(apply(h, row.setter, bad, row.number, row.text), 0) << bad;
    EXPECT_EQ(h.dump(), before);
    EXPECT_EQ(optmessagecount(h.get()), 0);
  });
}

// Each member of a macro says for itself what it does not take, in the name of the macro.
TEST(values, macros) {
  inbothforms([](thandle& h) {
    define(h);
    EXPECT_EQ(h.setstrnr(h.number("all"), "1"), 1);
    EXPECT_EQ(h.written(), "maxit=1\nflag=1\n");
    EXPECT_EQ(h.setstrnr(h.number("all"), "5"), 0);
    EXPECT_EQ(h.setstrnr(h.number("all"), "x"), 0);
    EXPECT_EQ(joined(h.messages()), refusal(error, "all", "5", badboolean, "") +
                                        refusal(error, "all", "x", badinteger, "") +
                                        refusal(error, "all", "x", badboolean, ""));
    EXPECT_EQ(h.written(), "maxit=5\nflag=1\n");
  });
}

// With bound checking off a value outside is stored with the same words as a warning; text that does not
// parse is refused as before. An enumerated string has no entry to store and becomes empty.
TEST(values, withoutboundchecking) {
  const auto prepare = [](thandle& h) {
    define(h);
    optnoboundsset(h.get(), 1);
  };
  checktexts(warning,
             {{__LINE__, "maxit", "11", "11", badintrange, "   Valid range is 0 to 10"},
              {__LINE__, "gap", "-2", "-2", baddblrange, "   Valid range is 0 to 1"},
              {__LINE__, "level", "12", "12", badenum, "   Possible values are  0 1 -12"},
              {__LINE__, "method", "prim", "", badenum, "   Possible values are  auto Primal two words"}},
             prepare);
  checktexts(error,
             {{__LINE__, "maxit", "x", "5", badinteger}, {__LINE__, "note", "\"", "none", "", badquote}},
             prepare);
  inbothforms([](thandle& h) {
    define(h);
    optnoboundsset(h.get(), 1);
    EXPECT_EQ(optsetintnr(h.get(), h.number("flag"), -3), 1);
    EXPECT_EQ(joined(h.takemessages()),
              joined({R"(*** Warning Boolean out of range for option "flag" saw "-3")",
                      "*** Warning    Valid values are 0 or 1"}));
    EXPECT_EQ(h.value("flag"), "-3");
    optsetint2nr(h.get(), h.number("pairint"), 77);
    EXPECT_EQ(h.written(), "bounds 1\nflag=-3\nbounds 0\nbounds 1\npairint=1 77\nbounds 0\n");
    // Any value inside the bounds clears the marks of both; a refused one and text without conversion do not.
    h.setstrnr(h.number("pairint"), "x");
    EXPECT_EQ(h.written(), "bounds 1\nflag=-3\nbounds 0\nbounds 1\npairint=1 77\nbounds 0\n");
    optsetintnr(h.get(), h.number("pairint"), 2);
    EXPECT_EQ(h.written(), "bounds 1\nflag=-3\nbounds 0\npairint=2 77\n");
    optresetnr(h.get(), h.number("flag"));
    optsetintnr(h.get(), h.number("flag"), 1);
    EXPECT_EQ(h.written(), "flag=1\npairint=2 77\n");
    // An option without value keeps its mark when it is named, and loses it with a reset.
    optsetintnr(h.get(), h.number("switch"), 99);
    h.string("switch");
    EXPECT_EQ(h.value("switch"), "7");
    EXPECT_EQ(h.written(), "flag=1\nbounds 1\nswitch\nbounds 0\npairint=2 77\n");
    optresetnr(h.get(), h.number("switch"));
    h.string("switch");
    EXPECT_EQ(h.written(), "flag=1\nswitch\npairint=2 77\n");
    optnoboundsset(h.get(), 0);
    EXPECT_EQ(optsetintnr(h.get(), h.number("maxit"), 11), 0);
  });
}

// A multilist deals its words out to its members; a word ends at the path-list separator, not at a blank.
TEST(values, multilistwords) {
  struct trow {
    int where;
    const char* text;
    const char* maxit;
    const char* note;
    tlines messages;
  };
  const std::vector<trow> rows = {
      {__LINE__, "", "5", "none", {}},
      {__LINE__, " \t ", "5", "none", {}},
      {__LINE__, "3", "3", "none", {}},
      {__LINE__, "3:", "3", "none", {}},
      {__LINE__, "3:a b ", "3", "a b ", {}},
      {__LINE__, " 3: \ta", "3", "a", {}},
      {__LINE__, ":a", "5", "a", {R"(*** Value Error Integer expected, for option "words" saw "")"}},
      {__LINE__, "3 :a", "5", "a", {R"(*** Value Error Integer expected, for option "words" saw "3 ")"}},
      {__LINE__, "3:a:b:c", "3", "a", {R"(*** Value Error Too many items for multilist "words")"}},
      {__LINE__, "\"3\":a", "5", "none", {"*** Value Error Bad double-quote in value"}},
  };
  foreachrow(__FILE__, rows, [](thandle& h, const trow& row) {
    define(h);
    EXPECT_EQ(h.setstrnr(h.number("words"), row.text), row.messages.empty() ? 1 : 0);
    EXPECT_EQ(h.value("maxit"), row.maxit);
    EXPECT_EQ(h.value("note"), row.note);
    std::int32_t defined = -7;
    EXPECT_EQ(optgetdefinednr(h.get(), h.number("words"), &defined), 1);
    EXPECT_EQ(defined, 0);
    EXPECT_EQ(joined(h.messages()), joined(row.messages));
  });
}

// Words for a member that the definition does not know, or for the list itself, are used up; lists and macros
// pass on what they are given, and say what is wrong in the name that was typed.
TEST(values, membersthatareliststhemselves) {
  inbothforms([](thandle& h) {
    h.definition(
        "first string 1 x 1 1\nlast string 2 x 1 1\ncount integer 3 1 0 9 1 1\n"
        "inner multilist 4 1 1\n first count\nboth macro 1 1\n first\n count\n"
        "outer multilist 5 1 1\n nosuch outer inner both last\n");
    h.takemessages();
    EXPECT_EQ(h.setstrnr(h.number("outer"), "a:b:c:d:e"), 0);
    EXPECT_EQ(joined(h.takemessages()), refusal(error, "outer", "d", badinteger, ""));
    EXPECT_EQ(h.written(), "first=d\nlast=e\n");
  });
}

std::string setlines(thandle& h) {  // the dump's lines of options that were set
  std::string result;
  const std::string dump = h.dump();
  for (std::size_t at = 0; at < dump.size();) {
    const std::size_t end = dump.find('\n', at) + 1;
    const std::string line = dump.substr(at, end - at);
    if (line.find(" set ") != std::string::npos) result += line;
    at = end;
  }
  return result;
}

TEST(values, flagsandresets) {
  inbothforms([](thandle& h) {
    define(h);
    const std::string fresh = h.dump();
    EXPECT_EQ(setlines(h), "");
    optsetint2nr(h.get(), h.number("pairint"), 4);
    h.setstrnr(h.number("names"), "one");
    h.setstrnr(h.number("names"), "");
    h.setstrnr(h.number("names"), "one");
    EXPECT_EQ(setlines(h),
              "11 pairint integer.TWO = 1 4 set 2\n"
              "17 names strlist = \"one\" \"\" \"one\" set 1\n");
    optrecentenabledset(h.get(), 0);
    EXPECT_EQ(optrecentenabled(h.get()), 0);
    optsetintnr(h.get(), h.number("pairint"), 3);
    h.setstrnr(h.number("all"), "1");
    EXPECT_EQ(setlines(h),
              "2 maxit integer = 1 set 1 recent 0\n"
              "7 flag boolean = 1 set 1 recent 0\n"
              "11 pairint integer.TWO = 3 4 set 3 recent 2\n"
              "17 names strlist = \"one\" \"\" \"one\" set 1\n");
    optrecentenabledset(h.get(), 9);
    EXPECT_EQ(optrecentenabled(h.get()), 1);
    optresetrecentchanges(h.get());
    EXPECT_EQ(setlines(h),
              "2 maxit integer = 1 set 1 recent 0\n"
              "7 flag boolean = 1 set 1 recent 0\n"
              "11 pairint integer.TWO = 3 4 set 3 recent 0\n"
              "17 names strlist = \"one\" \"\" \"one\" set 1 recent 0\n");
    optsetintnr(h.get(), h.number("maxit"), 2);
    optresetallrecent(h.get());
    EXPECT_EQ(setlines(h).substr(0, 36), "2 maxit integer = 2 set 1 recent 0\n7");
    EXPECT_EQ(optresetnr(h.get(), h.number("pairint")), 1);
    EXPECT_EQ(optresetnr(h.get(), h.number("all")), 1);  // a macro resets its members
    EXPECT_EQ(setlines(h), "17 names strlist = \"one\" \"\" \"one\" set 1 recent 0\n");
    EXPECT_EQ(optresetnr(h.get(), 0), 0);
    optresetall(h.get());
    EXPECT_EQ(h.dump(), fresh);
    // A reset multilist has lost its members, a macro has not.
    EXPECT_EQ(h.setstrnr(h.number("words"), "3"), 0);
    EXPECT_EQ(h.setstrnr(h.number("all"), "1"), 1);
    EXPECT_EQ(joined(h.messages()), "*** Value Error Too many items for multilist \"words\"\n");
    EXPECT_EQ(h.value("maxit"), "1");
  });
}

// Switches the process to a locale with a decimal comma: an installed one, else one made here.
class tcommalocale {
 public:
  tcommalocale() {
    for (const char* name : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", "nl_NL.UTF-8"})
      if (std::setlocale(LC_ALL, name) != nullptr) return;
    const std::string source = fdirectory.write(
        "source",
        "comment_char %\nescape_char /\nLC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\n"
        "grouping 3;3\nEND LC_NUMERIC\n");
    const std::string command = "localedef -c --no-archive -f ANSI_X3.4-1968 -i '" + source + "' '" +
                                fdirectory.path("comma") + "' >/dev/null 2>&1";
    if (std::system(command.c_str()) == -1) return;
    setenv("LOCPATH", fdirectory.path("").c_str(), 1);
    std::setlocale(LC_NUMERIC, "comma");
    unsetenv("LOCPATH");
  }
  ~tcommalocale() { std::setlocale(LC_ALL, "C"); }
  tcommalocale(const tcommalocale&) = delete;
  tcommalocale& operator=(const tcommalocale&) = delete;
  static bool active() { return *std::localeconv()->decimal_point == ','; }

 private:
  ttempdir fdirectory;
};

TEST(values, decimalcommaofthehostchangesnothing) {
  const tcommalocale locale;
  if (!tcommalocale::active()) GTEST_SKIP() << "no locale with a decimal comma can be had here";
  checktexts(error, textrows, define);
  inbothforms([](thandle& h) {
    h.definition("gap double 1 0.5 0.25 1234567.5 1 1 Gap\n");
    EXPECT_EQ(joined(h.help("gap")),
              "gap: Gap\n                        double,  range: 0.25 to 1234567.5 default: 0.5\n");
    h.string("gap 1000.75");
    EXPECT_EQ(h.written(), "gap=1000.75\n");
  });
}

}  // namespace
}  // namespace testsupport
