// Values: what the setters take from text and numbers, what they store, the words they refuse with, the
// defined and recent flags, the out-of-bounds marks (visible as the brackets of the written file) and the
// resets.
#include <limits>

#include "interface/optiontext.h"

namespace testsupport {
namespace {

void define(thandle& h) {
  ASSERT_EQ(h.definition(everytype), 0);
  ASSERT_EQ(told(h), "");
}

// Without checking of bounds.
void definefree(thandle& h) {
  define(h);
  optnoboundsset(h.get(), 1);
}

struct ttextrow {
  int where;
  const char* option;
  const char* text;
  const char* value;      // afterwards
  const char* told = "";  // with "@" for the name of the option
};

std::string toldof(thandle& h, const std::string& option) {
  return std::regex_replace(told(h), std::regex("option \"" + option + '"'), "@");
}

const std::vector<ttextrow> textrows = {
    {__LINE__, "maxit", "0", "0"},
    {__LINE__, "maxit", "1e1", "10"},
    {__LINE__, "maxit", "-1", "5", R"(V Integer range error for @ saw "-1" | V    Valid range is 0 to 10)"},
    {__LINE__, "maxit", "MaxInt", "5",
     R"(V Integer range error for @ saw "2147483647" | V    Valid range is 0 to 10)"},
    {__LINE__, "maxit", "2.5", "5", R"(V Integer expected, for @ saw "2.5")"},
    {__LINE__, "big_step", "2.5d-1", "0.25"},
    {__LINE__, "big_step", "-2", "0.5",
     R"(V Double out of range for @ saw "-2" | V    Valid range is 0 to 1E20)"},
    {__LINE__, "big_step", "1,5", "0.5", R"(V Double expected for @ saw "1,5")"},
    {__LINE__, "span", "1e300", "0",
     R"(V Double out of range for @ saw "1E300" | V    Valid range is mindouble to maxdouble)"},
    {__LINE__, "note", "a, b", "a, b"},
    {__LINE__, "note", "say \"hi", "none", "V Bad double-quote in value"},
    {__LINE__, "maxit", "\"3\"", "5", "V Bad double-quote in value"},
    {__LINE__, "flag", "2", "0", R"(V Boolean value expected for @ saw "2")"},
    {__LINE__, "method", "Two Words", "two words"},
    {__LINE__, "method", "prim", "auto",
     R"(V Unknown value for @ saw "prim" | V    Possible values are  auto Primal two words)"},
    {__LINE__, "level", "2", "2"},
    {__LINE__, "level", "3", "1", R"(V Unknown value for @ saw "3" | V    Possible values are  1 2)"},
    {__LINE__, "level", "1.0", "1", R"(V Integer expected, for @ saw "1.0")"},
    {__LINE__, "limits", "1", ""},
    {__LINE__, "quiet", "any \" text", "0"},  // only marks it; its own value is not the default
};

// A value outside is stored with the same words as a warning; text that does not parse is refused as before.
// An enumerated string has no entry to store and becomes empty.
const std::vector<ttextrow> freerows = {
    {__LINE__, "maxit", "11", "11", R"(W Integer range error for @ saw "11" | W    Valid range is 0 to 10)"},
    {__LINE__, "big_step", "-2", "-2",
     R"(W Double out of range for @ saw "-2" | W    Valid range is 0 to 1E20)"},
    {__LINE__, "level", "12", "12", R"(W Unknown value for @ saw "12" | W    Possible values are  1 2)"},
    {__LINE__, "method", "prim", "",
     R"(W Unknown value for @ saw "prim" | W    Possible values are  auto Primal two words)"},
    {__LINE__, "maxit", "x", "5", R"(V Integer expected, for @ saw "x")"},
    {__LINE__, "note", "\"", "none", "V Bad double-quote in value"},
};

void checktexts(const std::vector<ttextrow>& rows, void (*prepare)(thandle& h)) {
  foreachrow(__FILE__, rows, [&](thandle& h, const ttextrow& row) {
    prepare(h);
    EXPECT_EQ(h.setstrnr(h.number(row.option), row.text), *row.told == 'V' ? 0 : 1);
    EXPECT_EQ(h.value(row.option), row.value);
    EXPECT_EQ(toldof(h, row.option), row.told);
  });
}

TEST(values, textisparsedandchecked) { checktexts(textrows, define); }
TEST(values, textwithoutboundchecking) { checktexts(freerows, definefree); }

TEST(values, booleanwords) {
  inbothforms([](thandle& h) {
    define(h);
    for (const std::string word : {"1", "0", "y", "N", "Yes", "no", "ON", "Off", "true", "FALSE", "T", "f"}) {
      const bool yes = std::string("1yYOtT").find(word[0]) != std::string::npos && word != "Off";
      optsetintnr(h.get(), h.number("flag"), yes ? 0 : 1);
      EXPECT_EQ(h.setstrnr(h.number("flag"), word), 1) << word;
      EXPECT_EQ(h.value("flag"), yes ? "1" : "0") << word;
    }
  });
}

enum class tsetter { intnr, int2nr, dblnr, dbl2nr, str2nr, valuesnr, values2nr };
using enum tsetter;

int apply(thandle& h, tsetter setter, int nr, double number, const char* text) {
  const auto integer = [number] { return static_cast<std::int32_t>(number); };
  switch (setter) {
    case intnr: return optsetintnr(h.get(), nr, integer());
    case int2nr: return optsetint2nr(h.get(), nr, integer());
    case dblnr: return optsetdblnr(h.get(), nr, number);
    case dbl2nr: return optsetdbl2nr(h.get(), nr, number);
    case str2nr: return h.setstr2nr(nr, text);
    case valuesnr: return h.setvaluesnr(nr, integer(), number, text);
    case values2nr: return h.setvalues2nr(nr, integer(), number, text);
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
  const char* told = "";
};

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// A setter that does not fit the option's type or number of values answers 0 and says nothing.
const std::vector<tcallrow> callrows = {
    {__LINE__, intnr, "maxit", 10, "", 1, "10"},
    {__LINE__, intnr, "maxit", 11, "", 0, "5",
     R"(V Integer range error for @ saw "11" | V    Valid range is 0 to 10)"},
    {__LINE__, intnr, "flag", -1, "", 0, "0",
     R"(V Boolean out of range for @ saw "-1" | V    Valid values are 0 or 1)"},
    {__LINE__, intnr, "level", 2, "", 1, "2"},
    {__LINE__, intnr, "big_step", 1, "", 0, "0.5"},
    {__LINE__, intnr, "limits", 1, "", 0, ""},
    {__LINE__, int2nr, "pair", 7, "", 1, "1|7"},
    {__LINE__, int2nr, "pair", 77, "", 0, "1|1",
     R"(V Integer range error for @ saw "77" | V    Valid range is 0 to 10)"},
    {__LINE__, int2nr, "maxit", 7, "", 0, "5"},
    {__LINE__, int2nr, "span", 7, "", 0, "0|0"},
    {__LINE__, dblnr, "big_step", 0.25, "", 1, "0.25"},
    {__LINE__, dblnr, "big_step", nan, "", 0, "0.5",
     R"(V Double out of range for @ saw "NAN" | V    Valid range is 0 to 1E20)"},
    {__LINE__, dblnr, "maxit", 1, "", 0, "5"},
    {__LINE__, dbl2nr, "span", 2.5, "", 1, "0|2.5"},
    {__LINE__, dbl2nr, "big_step", 0.5, "", 0, "0.5"},
    {__LINE__, str2nr, "pair", 0, "8", 1, "1|8"},
    {__LINE__, str2nr, "both", 0, "\"", 0, "a|a", "V Bad double-quote in value"},
    {__LINE__, str2nr, "note", 0, "x", 0, "none"},
    // Of the three values the one of the option's type counts; a string option takes a double quote this way.
    {__LINE__, valuesnr, "maxit", 3.5, "x", 1, "3"},
    {__LINE__, valuesnr, "big_step", 0.5, "x", 1, "0.5"},
    {__LINE__, valuesnr, "note", 3.5, "a\"b", 1, "a\"b"},
    {__LINE__, valuesnr, "flag", 1.5, "off", 1, "1"},
    {__LINE__, valuesnr, "method", 3.5, "primal", 1, "Primal"},
    {__LINE__, valuesnr, "method", 3.5, "\"", 0, "auto",
     R"(V Unknown value for @ saw """ | V    Possible values are  auto Primal two words)"},
    {__LINE__, valuesnr, "level", 2.5, "1", 1, "2"},
    {__LINE__, valuesnr, "words", 3.5, "3", 0, ""},
    {__LINE__, valuesnr, "all", 3.5, "1", 0, ""},
    {__LINE__, values2nr, "pair", 3.5, "x", 1, "1|3"},
    {__LINE__, values2nr, "span", 3.5, "x", 1, "0|3.5"},
    {__LINE__, values2nr, "both", 3.5, "B C", 1, "a|b c"},
    {__LINE__, values2nr, "maxit", 3.5, "x", 0, "5"},
};

TEST(values, numberedsetters) {
  foreachrow(__FILE__, callrows, [](thandle& h, const tcallrow& row) {
    define(h);
    EXPECT_EQ(apply(h, row.setter, h.number(row.option), row.number, row.text), row.ok);
    const std::string second = h.value2(row.option);
    EXPECT_EQ(h.value(row.option) + (second == "?" ? "" : "|" + second), row.value);
    const std::string before = settings(h);
    for (const int bad : {0, -1, optcount(h.get()) + 1})
      EXPECT_EQ(apply(h, row.setter, bad, row.number, row.text), 0) << bad;
    EXPECT_EQ(settings(h), before);
    EXPECT_EQ(toldof(h, row.option), row.told);
  });
}

TEST(values, outofboundsmarks) {
  inbothforms([](thandle& h) {
    definefree(h);
    EXPECT_EQ(optsetintnr(h.get(), h.number("flag"), -3), 1);
    EXPECT_EQ(told(h), R"(W Boolean out of range for option "flag" saw "-3" | W    Valid values are 0 or 1)");
    optsetint2nr(h.get(), h.number("pair"), 77);
    EXPECT_EQ(h.written(), "limits 1\nflag=-3\nlimits 0\nlimits 1\npair=1 77\nlimits 0\n");
    // Any value inside the bounds clears the marks of both; a refused one and text without conversion do not.
    h.setstrnr(h.number("pair"), "x");
    EXPECT_EQ(h.written(), "limits 1\nflag=-3\nlimits 0\nlimits 1\npair=1 77\nlimits 0\n");
    optsetintnr(h.get(), h.number("pair"), 2);
    EXPECT_EQ(h.written(), "limits 1\nflag=-3\nlimits 0\npair=2 77\n");
    optresetnr(h.get(), h.number("flag"));
    optresetnr(h.get(), h.number("pair"));
    optsetintnr(h.get(), h.number("flag"), 1);
    EXPECT_EQ(h.written(), "flag=1\n");
    // An option without value keeps its mark when it is named, and loses it with a reset.
    optsetintnr(h.get(), h.number("quiet"), 99);
    h.string("quiet");
    EXPECT_EQ(h.value("quiet"), "1");
    EXPECT_EQ(h.written(), "flag=1\nlimits 1\nquiet\nlimits 0\n");
    optresetnr(h.get(), h.number("quiet"));
    h.string("quiet");
    EXPECT_EQ(h.written(), "flag=1\nquiet\n");
    optnoboundsset(h.get(), 0);
    EXPECT_EQ(optsetintnr(h.get(), h.number("maxit"), 11), 0);
  });
}

std::string flagsof(thandle& h) {  // "name defined recent" of the options that were set
  std::string result;
  for (int nr = 1; nr <= optcount(h.get()); ++nr) {
    std::int32_t defined = 0, recent = 0, other = 0;
    std::string name;
    optgetinfonr(h.get(), nr, &defined, &recent, &other, &other, &other, &other);
    h.getnamenr(nr, name);
    if (defined + recent != 0)
      result += name + ' ' + std::to_string(defined) + ' ' + std::to_string(recent) + ' ';
  }
  return result;
}

TEST(values, flagsandresets) {
  inbothforms([](thandle& h) {
    define(h);
    EXPECT_EQ(flagsof(h), "");
    optsetint2nr(h.get(), h.number("pair"), 4);
    for (const char* text : {"one", "", "one"}) h.setstrnr(h.number("string_list"), text);
    EXPECT_EQ(settings(h), "pair=-,4 string_list=[one||one]");
    EXPECT_EQ(flagsof(h), "pair 2 2 string_list 1 1 ");
    optrecentenabledset(h.get(), 0);
    EXPECT_EQ(optrecentenabled(h.get()), 0);
    optsetintnr(h.get(), h.number("pair"), 3);
    h.setstrnr(h.number("all"), "1");
    EXPECT_EQ(flagsof(h), "maxit 1 0 flag 1 0 pair 3 2 string_list 1 1 ");
    optrecentenabledset(h.get(), 9);
    EXPECT_EQ(optrecentenabled(h.get()), 1);
    optresetrecentchanges(h.get());
    EXPECT_EQ(flagsof(h), "maxit 1 0 flag 1 0 pair 3 0 string_list 1 0 ");
    optsetintnr(h.get(), h.number("maxit"), 2);
    EXPECT_EQ(flagsof(h), "maxit 1 1 flag 1 0 pair 3 0 string_list 1 0 ");
    optresetallrecent(h.get());
    EXPECT_EQ(flagsof(h), "maxit 1 0 flag 1 0 pair 3 0 string_list 1 0 ");
    EXPECT_EQ(optresetnr(h.get(), h.number("pair")), 1);
    EXPECT_EQ(optresetnr(h.get(), h.number("all")), 1);  // a macro resets its members
    EXPECT_EQ(flagsof(h), "string_list 1 0 ");
    optresetall(h.get());
    EXPECT_EQ(flagsof(h) + h.written(), "");
    // A reset multilist has lost its members, a macro has not.
    EXPECT_EQ(h.setstrnr(h.number("words"), "3"), 0);
    EXPECT_EQ(h.setstrnr(h.number("all"), "1"), 1);
    EXPECT_EQ(told(h), "V Too many items for multilist \"words\"");
    EXPECT_EQ(h.value("maxit"), "1");
  });
}

}  // namespace
}  // namespace testsupport
