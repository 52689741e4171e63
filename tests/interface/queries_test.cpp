// The numbered and named queries: what each gives for a good number, and what becomes of its outputs on
// failure: cleared, -1, or left as they were.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "support/handle.h"

namespace testsupport {
namespace {

// Options 2 to 14; Help is option 1.
constexpr const char* definitiontext = R"(g1 group 10 1 General
g2 group 20 0
maxit integer 101 5 -1 10 1 10 Iteration limit
gap double 102 0.5 0 1 2 20 Gap
note string 103 "a b" 1 10 Note
flag boolean 104 1 1 10
method enumstr 105 auto 1 20 Method
 auto 1 Automatic
 Primal 0
level enumint 106 1 1 20
 0 1 Nothing
 1 -1
words multilist 107 1 10
 maxit
names strlist 108 1 10
all macro 1 10
 maxit
say immediate Message 1 10
pair integer.two 109 1 0 10 1 10
off_grid double.two 110 1 0 10 1 10
pairstr enumstr.two 112 x 1 10
 x 1
 y 1
iterations synonym maxit
ghost synonym nosuch
)";

void define(thandle& h) {
  ASSERT_EQ(h.definition(definitiontext), 0);
  ASSERT_EQ(joined(h.takemessages()), "*** Definition Error line 25: Unknown option for synonym\"ghost\"\n");
}

template <class... Values>
std::string show(int result, const Values&... values) {
  std::ostringstream text;
  text << result;
  ((text << '|' << values), ...);
  return text.str();
}

// The outputs of a call start as "old", -7 and -7.5.
struct toutputs {
  std::string s = "old";
  std::string t = "old";
  std::int32_t i = -7, j = -7, k = -7, l = -7, m = -7, n = -7;
  double d = -7.5, e = -7.5, f = -7.5;
};

struct trow {
  int where;
  std::string (*call)(thandle& h, toutputs& o, int nr);
  int nr;
  const char* expected;  // the result and the outputs in the order of the arguments
};

std::string info(thandle& h, toutputs& o, int nr) {
  const int result = optgetinfonr(h.get(), nr, &o.i, &o.j, &o.k, &o.l, &o.m, &o.n);
  return show(result, o.i, o.j, o.k, o.l, o.m, o.n);
}
std::string defined(thandle& h, toutputs& o, int nr) { return show(optgetdefinednr(h.get(), nr, &o.i), o.i); }
std::string name(thandle& h, toutputs& o, int nr) { return show(h.getnamenr(nr, o.s), o.s); }
std::string help(thandle& h, toutputs& o, int nr) { return show(h.gethelpnr(nr, o.s, o.t), o.s, o.t); }
std::string opthelp(thandle& h, toutputs& o, int nr) {
  return show(h.getopthelpnr(nr, o.s, o.i, o.j), o.s, o.i, o.j);
}
std::string optgroup(thandle& h, toutputs&, int nr) { return show(optgetoptgroupnr(h.get(), nr)); }
std::string group(thandle& h, toutputs& o, int nr) {
  return show(h.getgroupnr(nr, o.s, o.i, o.j, o.t), o.s, o.i, o.j, o.t);
}
std::string groupposition(thandle& h, toutputs&, int nr) { return show(optgetgroupgrpnr(h.get(), nr)); }
std::string synonym(thandle& h, toutputs& o, int nr) { return show(h.getsynonym(nr, o.s, o.t), o.s, o.t); }
std::string defaultstr(thandle& h, toutputs& o, int nr) { return show(h.getdefaultstr(nr, o.s), o.s); }
std::string boundsint(thandle& h, toutputs& o, int nr) {
  return show(optgetboundsint(h.get(), nr, &o.i, &o.j, &o.k), o.i, o.j, o.k);
}
std::string boundsdbl(thandle& h, toutputs& o, int nr) {
  return show(optgetboundsdbl(h.get(), nr, &o.d, &o.e, &o.f), o.d, o.e, o.f);
}
std::string enumcount(thandle& h, toutputs& o, int nr) {
  return show(optgetenumcount(h.get(), nr, &o.i), o.i);
}
template <int item>
std::string enumvalue(thandle& h, toutputs& o, int nr) {
  return show(h.getenumvalue(nr, item, o.i, o.s), o.i, o.s);
}
template <int item>
std::string enumhelp(thandle& h, toutputs& o, int nr) {
  return show(h.getenumhelp(nr, item, o.i, o.s), o.i, o.s);
}
std::string enumstr(thandle& h, toutputs& o, int nr) { return show(h.getenumstrnr(nr, o.s, o.i), o.s, o.i); }
std::string getint(thandle& h, toutputs& o, int nr) { return show(optgetintnr(h.get(), nr, &o.i), o.i); }
std::string getint2(thandle& h, toutputs& o, int nr) { return show(optgetint2nr(h.get(), nr, &o.i), o.i); }
std::string getdbl(thandle& h, toutputs& o, int nr) { return show(optgetdblnr(h.get(), nr, &o.d), o.d); }
std::string getdbl2(thandle& h, toutputs& o, int nr) { return show(optgetdbl2nr(h.get(), nr, &o.d), o.d); }
std::string getstr(thandle& h, toutputs& o, int nr) { return show(h.getstrnr(nr, o.s), o.s); }
std::string getstr2(thandle& h, toutputs& o, int nr) { return show(h.getstr2nr(nr, o.s), o.s); }
std::string values(thandle& h, toutputs& o, int nr) {
  return show(h.getvaluesnr(nr, o.s, o.i, o.d, o.t), o.s, o.i, o.d, o.t);
}
std::string reset(thandle& h, toutputs&, int nr) { return show(optresetnr(h.get(), nr)); }
std::string setrefnr(thandle& h, toutputs&, int nr) { return show(optsetrefnr(h.get(), nr, 77)); }
std::string typenamenr(thandle& h, toutputs& o, int nr) { return show(h.gettypename(nr, o.s), o.s); }
std::string dotopt(thandle& h, toutputs& o, int nr) {
  return show(h.getdotoptnr(nr, o.s, o.i, o.j, o.d), o.s, o.i, o.j, o.d);
}
std::string dotuel(thandle& h, toutputs& o, int nr) { return show(h.getdotoptuel(nr, 1, o.s), o.s); }
std::string indicator(thandle& h, toutputs& o, int nr) {
  return show(h.getindicatornr(nr, o.s, o.t, o.i, o.j, o.k), o.s, o.t, o.i, o.j, o.k);
}
std::string equuel(thandle& h, toutputs& o, int nr) { return show(h.getequindicatornr(nr, 1, o.s), o.s); }
std::string varuel(thandle& h, toutputs& o, int nr) { return show(h.getvarindicatornr(nr, 1, o.s), o.s); }

const std::vector<trow> rows = {
    // result|defined|recent|reference number|data type|option type|sub-type
    {__LINE__, info, 0, "0|0|0|0|-1|-1|-1"},
    {__LINE__, info, 15, "0|0|0|0|-1|-1|-1"},
    {__LINE__, info, 1, "1|0|0|0|0|9|2"},  // Help
    {__LINE__, info, 2, "1|1|1|101|1|0|0"},
    {__LINE__, info, 3, "1|0|0|102|2|1|0"},
    {__LINE__, info, 4, "1|0|0|103|3|2|0"},
    {__LINE__, info, 5, "1|0|0|104|1|3|0"},
    {__LINE__, info, 6, "1|0|0|105|3|4|0"},
    {__LINE__, info, 7, "1|0|0|106|1|5|0"},
    {__LINE__, info, 8, "1|0|0|107|0|6|0"},
    {__LINE__, info, 9, "1|1|1|108|4|7|0"},
    {__LINE__, info, 10, "1|0|0|-1|0|8|0"},
    {__LINE__, info, 11, "1|0|0|-1|0|9|0"},
    {__LINE__, info, 12, "1|2|2|109|1|0|3"},
    {__LINE__, defined, 12, "1|2"},
    {__LINE__, name, 2, "1|maxit"},
    {__LINE__, name, 0, "0|"},
    {__LINE__, help, 2, "1|maxit|Iteration limit"},
    {__LINE__, help, 5, "1|flag|"},
    {__LINE__, opthelp, 3, "1|gap|2|20"},
    {__LINE__, opthelp, 0, "0||-1|-1"},
    {__LINE__, optgroup, 3, "20"},
    {__LINE__, optgroup, 0, "-1"},
    {__LINE__, group, 1, "1|g1|10|1|General"},
    {__LINE__, group, 2, "1|g2|20|0|"},
    {__LINE__, group, 0, "0||0|0|"},
    {__LINE__, groupposition, 20, "2"},
    {__LINE__, groupposition, 2, "-1"},
    {__LINE__, synonym, 1, "1|iterations|maxit"},
    {__LINE__, synonym, 2, "1|ghost|"},
    {__LINE__, synonym, 0, "0||"},
    {__LINE__, defaultstr, 4, "1|a b"},
    {__LINE__, defaultstr, 6, "0|"},  // only of type string
    {__LINE__, defaultstr, 0, "0|"},
    {__LINE__, boundsint, 2, "1|-1|10|5"},
    {__LINE__, boundsint, 3, "0|-7|-7|-7"},
    {__LINE__, boundsdbl, 3, "1|0|1|0.5"},
    {__LINE__, boundsdbl, 2, "0|-7.5|-7.5|-7.5"},
    {__LINE__, boundsdbl, 99, "0|-7.5|-7.5|-7.5"},
    {__LINE__, enumcount, 6, "1|2"},
    {__LINE__, enumcount, 7, "1|2"},
    {__LINE__, enumcount, 5, "0|-1"},
    {__LINE__, enumvalue<2>, 6, "1|0|Primal"},
    {__LINE__, enumvalue<2>, 7, "1|1|1"},
    {__LINE__, enumvalue<0>, 6, "0|-1|"},
    {__LINE__, enumvalue<3>, 7, "0|-1|"},
    {__LINE__, enumvalue<1>, 2, "0|-1|"},
    {__LINE__, enumhelp<1>, 6, "1|1|Automatic"},
    {__LINE__, enumhelp<2>, 7, "1|-1|"},
    {__LINE__, enumhelp<1>, 5, "0|-1|"},
    {__LINE__, enumstr, 6, "1|auto|1"},
    {__LINE__, enumstr, 14, "1|y|2"},
    {__LINE__, enumstr, 7, "0||-1"},
    {__LINE__, getint, 2, "1|3"},
    {__LINE__, getint, 5, "1|1"},
    {__LINE__, getint, 12, "1|1"},
    {__LINE__, getint, 3, "0|-7"},
    {__LINE__, getint, 0, "0|-7"},
    {__LINE__, getint2, 12, "1|4"},
    {__LINE__, getint2, 2, "0|-7"},
    {__LINE__, getdbl, 3, "1|0.5"},
    {__LINE__, getdbl, 2, "0|-7.5"},
    {__LINE__, getdbl2, 13, "1|2.5"},
    {__LINE__, getdbl2, 3, "0|-7.5"},
    {__LINE__, getstr, 2, "1|3"},
    {__LINE__, getstr, 4, "1|a b"},
    {__LINE__, getstr, 9, "1|"},  // lists have no text
    {__LINE__, getstr, 0, "0|"},
    {__LINE__, getstr2, 12, "1|4"},
    {__LINE__, getstr2, 13, "1|2.5"},
    {__LINE__, getstr2, 2, "0|"},
    {__LINE__, values, 2, "1|maxit|3|0|3"},
    {__LINE__, values, 3, "1|gap|0|0.5|0.5"},
    {__LINE__, values, 4, "1|note|0|0|a b"},
    {__LINE__, values, 6, "1|method|0|0|auto"},
    {__LINE__, values, 9, "0|names|0|0|"},  // refused, yet named
    {__LINE__, values, 0, "0||0|0|"},
    {__LINE__, reset, 2, "1"},
    {__LINE__, reset, 0, "0"},
    {__LINE__, setrefnr, 11, "1"},
    {__LINE__, setrefnr, 15, "0"},
    {__LINE__, typenamenr, 10, "0|"},
    {__LINE__, typenamenr, -1, "0|"},
    {__LINE__, dotopt, 1, "0||0|0|0"},
    {__LINE__, dotuel, 1, "0|"},
    {__LINE__, indicator, 1, "0|||0|0|0"},
    {__LINE__, equuel, 1, "0|"},
    {__LINE__, varuel, 1, "0|"},
};

TEST(queries, bynumber) {
  foreachrow(__FILE__, rows, [](thandle& h, const trow& row) {
    define(h);
    h.string("maxit 3");
    optsetint2nr(h.get(), h.number("pair"), 4);
    optsetdbl2nr(h.get(), h.number("off_grid"), 2.5);
    h.setstrnr(h.number("pairstr"), "Y");
    h.setstrnr(h.number("names"), "one");
    toutputs outputs;
    EXPECT_EQ(row.call(h, outputs, row.nr), row.expected);
    EXPECT_EQ(optmessagecount(h.get()), 0);
  });
}

TEST(queries, codenames) {
  const std::vector<std::vector<const char*>> groups = {
      {},
      {"optDataNone", "optDataInteger", "optDataDouble", "optDataString", "optDataStrList"},
      {"optTypeInteger", "optTypeDouble", "optTypeString", "optTypeBoolean", "optTypeEnumStr",
       "optTypeEnumInt", "optTypeMultiList", "optTypeStrList", "optTypeMacro", "optTypeImmediate"},
      {"optsubRequired", "optsubNoValue", "optsubOptional", "optsub2Values"},
      {"optMsgInputEcho", "optMsgHelp", "optMsgDefineError", "optMsgValueError", "optMsgValueWarning",
       "optMsgDeprecated", "optMsgFileEnter", "optMsgFileLeave",
       "optMsgTooManyMsgs"},  // the tenth is not served
      {}};
  const std::vector<const char*> types = {"integer", "double",    "string",  "boolean", "enumstr",
                                          "enumint", "multilist", "strlist", "macro",   "immediate"};
  inbothforms([&](thandle& h) {
    std::string text;
    for (int group = 0; group < static_cast<int>(groups.size()); ++group) {
      const auto& names = groups[static_cast<std::size_t>(group)];
      for (int index = -1; index <= static_cast<int>(names.size()); ++index) {
        text = "old";
        const bool known = index >= 0 && index < static_cast<int>(names.size());
        EXPECT_EQ(h.getconstname(group, index, text), known ? 1 : 0);
        EXPECT_EQ(text, known ? names[static_cast<std::size_t>(index)] : "") << group << ',' << index;
      }
    }
    EXPECT_EQ(h.getconstname(-1, 0, text), 0);
    for (int code = 0; code < 10; ++code) {
      EXPECT_EQ(h.gettypename(code, text), 1);
      EXPECT_EQ(text, types[static_cast<std::size_t>(code)]);
    }
  });
}

TEST(queries, byname) {
  inbothforms([](thandle& h) {
    define(h);
    EXPECT_EQ(optcount(h.get()), 14);
    EXPECT_EQ(optsynonymcount(h.get()), 2);
    EXPECT_EQ(optgroupcount(h.get()), 2);
    EXPECT_EQ(h.definitionfile(), "DEF");
    EXPECT_EQ(h.value("MAXIT"), "5");
    EXPECT_EQ(h.value("iterations"), "5");
    EXPECT_EQ(h.value("names"), "");
    EXPECT_EQ(h.value2("pair"), "1");
    std::string text = "old";
    EXPECT_EQ(h.getvalstr("nosuch", text), 0);
    EXPECT_EQ(text, "");
    for (const char* name : {"nosuch", "maxit", "ghost"}) {
      text = "old";
      EXPECT_EQ(h.getval2str(name, text), 0);
      EXPECT_EQ(text, "");
    }
    std::int32_t nr = -7;
    std::int32_t refnr = -7;
    EXPECT_EQ(h.findstr("Iterations", nr, refnr), 1);
    EXPECT_EQ(show(nr, refnr), "2|101");
    EXPECT_EQ(h.findstr("ghost", nr, refnr), 0);
    EXPECT_EQ(show(nr, refnr), "-1|-1");
    EXPECT_EQ(h.setrefnrstr("iterations", -5), 1);
    EXPECT_EQ(h.setrefnrstr("nosuch", -5), 0);
    h.findstr("maxit", nr, refnr);
    EXPECT_EQ(refnr, -5);
  });
}

TEST(queries, enumeratedvalueoutsideitslist) {
  inbothforms([](thandle& h) {
    h.definition("method enumstr 1 other 1 1\n auto 1\n");
    std::string text = "old";
    std::int32_t item = -7;
    EXPECT_EQ(h.getenumstrnr(2, text, item), 1);
    EXPECT_EQ(text, "other");
    EXPECT_EQ(item, 0);
  });
}

TEST(queries, stringlists) {
  inbothforms([](thandle& h) {
    const std::string kept = h.form() == tform::shortstring ? "old" : "";  // an untouched text
    define(h);
    std::string text = "old";
    EXPECT_EQ(h.listcountstr("nosuch"), -2);
    EXPECT_EQ(h.listcountstr("maxit"), -1);
    EXPECT_EQ(h.listcountstr("names"), 0);
    h.string("names one");
    h.string("names two");
    h.string("--extra three");
    h.string("--more four");
    EXPECT_EQ(h.listcountstr("NAMES"), 2);
    struct tread {
      const char* name;
      int index;
      const char* expected;
    };
    for (const tread& read :
         {tread{"names", 2, "1|two"}, tread{"names", 3, "0|"}, tread{"names", 0, "0|"},
          tread{"maxit", 1, "-1|"}, tread{"nosuch", 1, "-2|"}, tread{"--more", 1, "1|four"}}) {
      text = "old";
      const int result = h.readfromliststr(read.name, read.index, text);
      EXPECT_EQ(show(result, text), read.expected) << read.name << read.index;
    }
    std::string name = "old";
    text = "old";
    EXPECT_EQ(h.getfromanystrlist(1, name, text), 1);
    EXPECT_EQ(name + "|" + text, "--extra|three");
    EXPECT_EQ(h.getfromanystrlist(-1, name, text), 1);
    EXPECT_EQ(name + "|" + text, "--more|four");
    // Nothing left of the wanted sort: the name is that of the last list looked at, the text is left alone.
    text = "old";
    EXPECT_EQ(h.getfromanystrlist(1, name, text), 0);
    EXPECT_EQ(name + "|" + text, "names|" + kept);
    EXPECT_EQ(h.getfromanystrlist(0, name, text), 1);
    EXPECT_EQ(name + "|" + text, "names|one");
    text = "old";
    EXPECT_EQ(show(h.getfromliststr("names", text), text), "1|two");
    EXPECT_EQ(show(h.getfromliststr("names", text), text), "0|");
    text = "old";
    EXPECT_EQ(show(h.getfromliststr("maxit", text), text), "-1|");
    EXPECT_EQ(show(h.getfromliststr("nosuch", text), text), "-2|");
    name = text = "old";
    EXPECT_EQ(h.getfromanystrlist(0, name, text), 0);
    EXPECT_EQ(name + "|" + text, kept + "|" + kept);
    EXPECT_EQ(h.getfromanystrlist(1, name, text), 0);
    EXPECT_EQ(optmessagecount(h.get()), 0);
  });
}

}  // namespace
}  // namespace testsupport
