// Values: what the setters take from text and numbers, what they store, the words they refuse with, the
// defined and recent flags, the out-of-bounds marks (visible as the brackets of the written file) and the
// resets.
#include <cmath>
#include <cstdlib>

#include "interface/optiontext.h"

namespace testsupport {
namespace {

void define(thandle& h) {
  ASSERT_EQ(h.definition(everytype), 0);
  ASSERT_EQ(told(h), "");
}

// The messages, with "@" for the option with its name.
std::string toldof(thandle& h, const std::string& option) {
  return std::regex_replace(told(h), std::regex("option \"" + option + '"'), "@");
}

// An option, the text it is set to, its value then, and what is told.
void checktexts(bool checkbounds, const char* table) {
  foreachrow(table, [&](thandle& h, const tcolumns& row) {
    define(h);
    optnoboundsset(h.get(), checkbounds ? 0 : 1);
    EXPECT_EQ(h.call(BOTH(setstrnr), h.number(row[0]), row[1]), row[3][0] == 'V' ? 0 : 1);
    EXPECT_EQ(h.value(row[0]), row[2]);
    EXPECT_EQ(toldof(h, row[0]), row[3]);
  });
}

TEST(values, texts) {
  checktexts(true, R"(
    maxit => 0 => 0
    maxit => 1e1 => 10
    maxit => -1 => 5 => V Integer range error for @ saw "-1" | V    Valid range is 0 to 10
    maxit => MaxInt => 5 => V Integer range error for @ saw "2147483647" | V    Valid range is 0 to 10
    maxit => 2.5 => 5 => V Integer expected, for @ saw "2.5"
    big_step => 2.5d-1 => 0.25
    big_step => 0 => 0
    big_step => -2 => 0.5 => V Double out of range for @ saw "-2" | V    Valid range is 0 to 1E20
    big_step => 1,5 => 0.5 => V Double expected for @ saw "1,5"
    span => 1e300 => 0
      => V Double out of range for @ saw "1E300" | V    Valid range is mindouble to maxdouble
    note => a, b => a, b
    note => say "hi => none => V Bad double-quote in value
    maxit => "3" => 5 => V Bad double-quote in value
    flag => 2 => 0 => V Boolean value expected for @ saw "2"
    method => Two Words => two words
    method => prim => auto
      => V Unknown value for @ saw "prim" | V    Possible values are  auto Primal two words
    level => 2 => 2
    level => 3 => 1 => V Unknown value for @ saw "3" | V    Possible values are  1 2
    level => 1.0 => 1 => V Integer expected, for @ saw "1.0"
    limits => 1
    // only marks it; its own value is not the default
    quiet => any " text => 0
  )");
  // Without checking of bounds a value outside is stored with the same words as a warning; text that does not
  // parse is refused as before. An enumerated string has no entry to store and becomes empty.
  checktexts(false, R"(
    maxit => 11 => 11 => W Integer range error for @ saw "11" | W    Valid range is 0 to 10
    big_step => -2 => -2 => W Double out of range for @ saw "-2" | W    Valid range is 0 to 1E20
    level => 12 => 12 => W Unknown value for @ saw "12" | W    Possible values are  1 2
    method => prim => => W Unknown value for @ saw "prim" | W    Possible values are  auto Primal two words
    maxit => x => 5 => V Integer expected, for @ saw "x"
    note => " => none => V Bad double-quote in value
  )");
  inbothforms([](thandle& h) {
    define(h);
    for (const std::string word : {"1", "0", "y", "N", "Yes", "no", "ON", "Off", "true", "FALSE", "T", "f"}) {
      const bool yes = std::string("1yYOtT").find(word[0]) != std::string::npos && word != "Off";
      optsetintnr(h.get(), h.number("flag"), yes ? 0 : 1);
      EXPECT_EQ(h.call(BOTH(setstrnr), h.number("flag"), word), 1) << word;
      EXPECT_EQ(h.value("flag"), yes ? "1" : "0") << word;
    }
  });
}

// The setter is called with the number, which is cut where it takes an integer, and the text behind it.
int apply(thandle& h, const std::string& setter, int nr, const std::string& argument) {
  const double number = std::strtod(argument.c_str(), nullptr);
  const auto integer = std::isnan(number) ? 0 : static_cast<std::int32_t>(number);
  const std::string text = argument.substr(argument.find(' ') + 1);
  if (setter == "intnr") return optsetintnr(h.get(), nr, integer);
  if (setter == "int2nr") return optsetint2nr(h.get(), nr, integer);
  if (setter == "dblnr") return optsetdblnr(h.get(), nr, number);
  if (setter == "dbl2nr") return optsetdbl2nr(h.get(), nr, number);
  if (setter == "str2nr") return h.call(BOTH(setstr2nr), nr, argument);
  return setter == "valuesnr" ? h.call(BOTH(setvaluesnr), nr, integer, number, text)
                              : h.call(BOTH(setvalues2nr), nr, integer, number, text);
}

// The setter and the option, what it is called with, its result, and the option's value, or both of them. A
// setter that does not fit the option's type or number of values answers 0 and says nothing.
TEST(values, numberedsetters) {
  constexpr const char* rows = R"(
    intnr maxit => 10 => 1 => 10
    intnr maxit => 11 => 0 => 5 => V Integer range error for @ saw "11" | V    Valid range is 0 to 10
    intnr flag => -1 => 0 => 0 => V Boolean out of range for @ saw "-1" | V    Valid values are 0 or 1
    intnr level => 2 => 1 => 2
    intnr big_step => 1 => 0 => 0.5
    intnr limits => 1 => 0
    int2nr pair => 7 => 1 => 1|7
    int2nr pair => 77 => 0 => 1|1 => V Integer range error for @ saw "77" | V    Valid range is 0 to 10
    int2nr maxit => 7 => 0 => 5
    int2nr span => 7 => 0 => 0|0
    dblnr big_step => 0.25 => 1 => 0.25
    dblnr big_step => nan => 0 => 0.5
      => V Double out of range for @ saw "NAN" | V    Valid range is 0 to 1E20
    dblnr maxit => 1 => 0 => 5
    dbl2nr span => 2.5 => 1 => 0|2.5
    dbl2nr big_step => 0.5 => 0 => 0.5
    str2nr pair => 8 => 1 => 1|8
    str2nr both => " => 0 => a|a => V Bad double-quote in value
    str2nr note => x => 0 => none
    // Of the three values the one of the option's type counts; a string option takes a double quote this way.
    valuesnr maxit => 3.5 x => 1 => 3
    valuesnr big_step => 0.5 x => 1 => 0.5
    valuesnr note => 3.5 a"b => 1 => a"b
    valuesnr flag => 1.5 off => 1 => 1
    valuesnr method => 3.5 primal => 1 => Primal
    valuesnr method => 3.5 " => 0 => auto
      => V Unknown value for @ saw """ | V    Possible values are  auto Primal two words
    valuesnr level => 2.5 1 => 1 => 2
    valuesnr words => 3.5 3 => 0
    valuesnr all => 3.5 1 => 0
    values2nr pair => 3.5 x => 1 => 1|3
    values2nr span => 3.5 x => 1 => 0|3.5
    values2nr both => 3.5 B C => 1 => a|b c
    values2nr maxit => 3.5 x => 0 => 5
  )";
  foreachrow(rows, [](thandle& h, const tcolumns& row) {
    define(h);
    const std::string setter = row[0].substr(0, row[0].find(' '));
    const std::string option = row[0].substr(setter.size() + 1);
    EXPECT_EQ(std::to_string(apply(h, setter, h.number(option), row[1])), row[2]);
    const std::string second = h.value2(option);
    EXPECT_EQ(h.value(option) + (second == "?" ? "" : "|" + second), row[3]);
    const std::string before = settings(h);
    for (const int bad : {0, -1, optcount(h.get()) + 1}) EXPECT_EQ(apply(h, setter, bad, row[1]), 0) << bad;
    EXPECT_EQ(settings(h), before);
    EXPECT_EQ(toldof(h, option), row[4]);
  });
}

TEST(values, outofboundsmarks) {
  inbothforms([](thandle& h) {
    define(h);
    optnoboundsset(h.get(), 1);
    EXPECT_EQ(optsetintnr(h.get(), h.number("flag"), -3), 1);
    EXPECT_EQ(told(h), R"(W Boolean out of range for option "flag" saw "-3" | W    Valid values are 0 or 1)");
    optsetint2nr(h.get(), h.number("pair"), 77);
    EXPECT_EQ(h.written(), "limits 1\nflag=-3\nlimits 0\nlimits 1\npair=1 77\nlimits 0\n");
    // Any value inside the bounds clears the marks of both; a refused one and text without conversion do not.
    h.call(BOTH(setstrnr), h.number("pair"), "x");
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
    h.call(BOTH(getnamenr), nr, name);
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
    for (const char* text : {"one", "", "one"}) h.call(BOTH(setstrnr), h.number("string_list"), text);
    EXPECT_EQ(settings(h), "pair=-,4 string_list=[one||one]");
    EXPECT_EQ(flagsof(h), "pair 2 2 string_list 1 1 ");
    optrecentenabledset(h.get(), 0);
    EXPECT_EQ(optrecentenabled(h.get()), 0);
    optsetintnr(h.get(), h.number("pair"), 3);
    h.call(BOTH(setstrnr), h.number("all"), "1");
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
    EXPECT_EQ(h.call(BOTH(setstrnr), h.number("words"), "3"), 0);
    EXPECT_EQ(h.call(BOTH(setstrnr), h.number("all"), "1"), 1);
    EXPECT_EQ(told(h), "V Too many items for multilist \"words\"");
    EXPECT_EQ(h.value("maxit"), "1");
  });
}

}  // namespace
}  // namespace testsupport
