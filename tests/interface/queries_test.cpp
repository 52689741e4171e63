// The numbered and named queries: what each gives for a good number, and what becomes of its outputs on
// failure: cleared, -1, or left as they were.
#include <sstream>

#include "interface/optiontext.h"

namespace testsupport {
namespace {

// Options 2 to 14; Help is option 1.
constexpr const char* definitiontext =
    "g1 group 10 1 General\ng2 group 20 0\nmaxit integer 101 5 -1 10 1 10 Iteration limit\n"
    "gap double 102 0.5 0 1 2 20 Gap\nnote string 103 \"a b\" 1 10 Note\nflag boolean 104 1 1 10\n"
    "method enumstr 105 auto 1 20 Method\n auto 1 Automatic\n Primal 0\nlevel enumint 106 1 1 20\n"
    " 0 1 Nothing\n 1 -1\nwords multilist 107 1 10\n maxit\nnames strlist 108 1 10\nall macro 1 10\n"
    " maxit\nsay immediate Message 1 10\npair integer.two 109 1 0 10 1 10\n"
    "off_grid double.two 110 1 0 10 1 10\npairstr enumstr.two 112 x 1 10\n x 1\n y 1\n"
    "iterations synonym maxit\nghost synonym nosuch\nmethodx enumstr 113 other 1 10\n auto 1\n"
    ".off double 114 1 0 10 1 10\nind indicator\n";

void define(thandle& h) {
  ASSERT_EQ(h.definition(definitiontext), 0);
  ASSERT_EQ(told(h),
            "D25 Unknown option for synonym\"ghost\" | D28 Default is undefined for option \"methodx\"");
  optclearmessages(h.get());
}

template <class... Values>
std::string show(int result, const Values&... values) {
  std::ostringstream text;
  text << result;
  ((text << '|' << values), ...);
  return text.str();
}

// The outputs of a call start as "old", -7 and -7.5.
struct touts {
  std::string s = "old";
  std::string t = "old";
  std::int32_t i = -7, j = -7, k = -7, l = -7, m = -7, n = -7;
  double d = -7.5, e = -7.5, f = -7.5;
};

struct trow {
  int where;
  std::string (*call)(thandle& h, touts& o, int nr);
  int nr;
  const char* expected;  // the result and the outputs in the order of the arguments
  int unfit;             // an option that the query does not fit, answered like a number out of range
  const char* failed;
};

using ttext = std::string;

ttext info(thandle& h, touts& o, int n) {
  const int result = optgetinfonr(h.get(), n, &o.i, &o.j, &o.k, &o.l, &o.m, &o.n);
  return show(result, o.i, o.j, o.k, o.l, o.m, o.n);
}
ttext defined(thandle& h, touts& o, int n) { return show(optgetdefinednr(h.get(), n, &o.i), o.i); }
ttext name(thandle& h, touts& o, int n) { return show(h.getnamenr(n, o.s), o.s); }
ttext help(thandle& h, touts& o, int n) { return show(h.gethelpnr(n, o.s, o.t), o.s, o.t); }
ttext opthelp(thandle& h, touts& o, int n) { return show(h.getopthelpnr(n, o.s, o.i, o.j), o.s, o.i, o.j); }
ttext optgroup(thandle& h, touts&, int n) { return show(optgetoptgroupnr(h.get(), n)); }
ttext group(thandle& h, touts& o, int n) {
  return show(h.getgroupnr(n, o.s, o.i, o.j, o.t), o.s, o.i, o.j, o.t);
}
ttext groupposition(thandle& h, touts&, int n) { return show(optgetgroupgrpnr(h.get(), n)); }
ttext synonym(thandle& h, touts& o, int n) { return show(h.getsynonym(n, o.s, o.t), o.s, o.t); }
ttext defaultstr(thandle& h, touts& o, int n) { return show(h.getdefaultstr(n, o.s), o.s); }
ttext boundsint(thandle& h, touts& o, int n) {
  return show(optgetboundsint(h.get(), n, &o.i, &o.j, &o.k), o.i, o.j, o.k);
}
ttext boundsdbl(thandle& h, touts& o, int n) {
  return show(optgetboundsdbl(h.get(), n, &o.d, &o.e, &o.f), o.d, o.e, o.f);
}
ttext enumcount(thandle& h, touts& o, int n) { return show(optgetenumcount(h.get(), n, &o.i), o.i); }
template <int item>
ttext enumvalue(thandle& h, touts& o, int n) {
  return show(h.getenumvalue(n, item, o.i, o.s), o.i, o.s);
}
template <int item>
ttext enumhelp(thandle& h, touts& o, int n) {
  return show(h.getenumhelp(n, item, o.i, o.s), o.i, o.s);
}
ttext enumstr(thandle& h, touts& o, int n) { return show(h.getenumstrnr(n, o.s, o.i), o.s, o.i); }
ttext getint(thandle& h, touts& o, int n) { return show(optgetintnr(h.get(), n, &o.i), o.i); }
ttext getint2(thandle& h, touts& o, int n) { return show(optgetint2nr(h.get(), n, &o.i), o.i); }
ttext getdbl(thandle& h, touts& o, int n) { return show(optgetdblnr(h.get(), n, &o.d), o.d); }
ttext getdbl2(thandle& h, touts& o, int n) { return show(optgetdbl2nr(h.get(), n, &o.d), o.d); }
ttext getstr(thandle& h, touts& o, int n) { return show(h.getstrnr(n, o.s), o.s); }
ttext getstr2(thandle& h, touts& o, int n) { return show(h.getstr2nr(n, o.s), o.s); }
ttext values(thandle& h, touts& o, int n) {
  return show(h.getvaluesnr(n, o.s, o.i, o.d, o.t), o.s, o.i, o.d, o.t);
}
ttext reset(thandle& h, touts&, int n) { return show(optresetnr(h.get(), n)); }
ttext setrefnr(thandle& h, touts&, int n) { return show(optsetrefnr(h.get(), n, 77)); }
ttext typenamenr(thandle& h, touts& o, int n) { return show(h.gettypename(n, o.s), o.s); }
ttext dotopt(thandle& h, touts& o, int n) {
  return show(h.getdotoptnr(n, o.s, o.i, o.j, o.d), o.s, o.i, o.j, o.d);
}
ttext dotuel(thandle& h, touts& o, int n) { return show(h.getdotoptuel(n, 1, o.s), o.s); }
ttext indicator(thandle& h, touts& o, int n) {
  return show(h.getindicatornr(n, o.s, o.t, o.i, o.j, o.k), o.s, o.t, o.i, o.j, o.k);
}
ttext equuel(thandle& h, touts& o, int n) { return show(h.getequindicatornr(n, 1, o.s), o.s); }
ttext varuel(thandle& h, touts& o, int n) { return show(h.getvarindicatornr(n, 1, o.s), o.s); }

const std::vector<trow> rows = {
    // result|defined|recent|reference number|data type|option type|sub-type
    {__LINE__, info, 2, "1|1|1|101|1|0|0", 17, "0|0|0|0|-1|-1|-1"},
    {__LINE__, defined, 12, "1|2", 17, "0|0"},
    {__LINE__, name, 2, "1|maxit", 17, "0|"},
    {__LINE__, help, 2, "1|maxit|Iteration limit", 17, "0||"},
    {__LINE__, opthelp, 3, "1|gap|2|20", 17, "0||-1|-1"},
    {__LINE__, optgroup, 3, "20", 17, "-1"},
    {__LINE__, group, 1, "1|g1|10|1|General", 3, "0||0|0|"},
    {__LINE__, groupposition, 20, "2", 2, "-1"},
    {__LINE__, synonym, 1, "1|iterations|maxit", 3, "0||"},
    {__LINE__, synonym, 2, "1|ghost|", 3, "0||"},
    {__LINE__, defaultstr, 4, "1|a b", 6, "0|"},  // only of type string
    {__LINE__, boundsint, 2, "1|-1|10|5", 3, "0|-7|-7|-7"},
    {__LINE__, boundsdbl, 3, "1|0|1|0.5", 2, "0|-7.5|-7.5|-7.5"},
    {__LINE__, enumcount, 6, "1|2", 5, "0|-1"},
    {__LINE__, enumvalue<2>, 6, "1|0|Primal", 5, "0|-1|"},
    {__LINE__, enumvalue<0>, 6, "0|-1|", 5, "0|-1|"},
    {__LINE__, enumvalue<2>, 7, "1|1|1", 2, "0|-1|"},
    {__LINE__, enumhelp<1>, 6, "1|1|Automatic", 5, "0|-1|"},
    {__LINE__, enumhelp<2>, 7, "1|-1|", 5, "0|-1|"},
    {__LINE__, enumhelp<3>, 7, "0|-1|", 5, "0|-1|"},
    {__LINE__, enumhelp<0>, 7, "0|-1|", 5, "0|-1|"},
    {__LINE__, enumstr, 14, "1|y|2", 7, "0||-1"},
    {__LINE__, enumstr, 15, "1|other|0", 7, "0||-1"},  // a default outside the list
    {__LINE__, getint, 2, "1|3", 3, "0|-7"},
    {__LINE__, getint2, 12, "1|4", 2, "0|-7"},
    {__LINE__, getint2, 12, "1|4", 13, "0|-7"},
    {__LINE__, getdbl, 3, "1|0.5", 2, "0|-7.5"},
    {__LINE__, getdbl2, 13, "1|2.5", 3, "0|-7.5"},
    {__LINE__, getstr, 2, "1|3", 17, "0|"},
    {__LINE__, getstr, 9, "1|", 17, "0|"},  // lists have no text
    {__LINE__, getstr2, 13, "1|2.5", 2, "0|"},
    {__LINE__, values, 2, "1|maxit|3|0|3", 17, "0||0|0|"},
    {__LINE__, values, 3, "1|gap|0|0.5|0.5", 17, "0||0|0|"},
    {__LINE__, values, 6, "1|method|0|0|auto", 17, "0||0|0|"},
    {__LINE__, values, 9, "0|names|0|0|", 17, "0||0|0|"},  // refused, yet named
    {__LINE__, reset, 2, "1", 17, "0"},
    {__LINE__, setrefnr, 11, "1", 17, "0"},
    {__LINE__, typenamenr, 4, "1|enumstr", 10, "0|"},
    {__LINE__, dotopt, 1, "1|x|16|1|3", 2, "0||0|0|0"},
    {__LINE__, dotuel, 1, "1|u", 2, "0|"},
    {__LINE__, indicator, 1, "1|e|v|1|0|1", 2, "0|||0|0|0"},
    {__LINE__, equuel, 1, "1|'i'", 2, "0|"},
    {__LINE__, varuel, 1, "0|", 2, "0|"},
};

TEST(queries, bynumber) {
  foreachrow(__FILE__, rows, [](thandle& h, const trow& row) {
    touts none;
    if (row.call != typenamenr) {
      EXPECT_EQ(row.call(h, none, 1), row.failed) << "without a definition";
    }
    define(h);
    h.string("maxit 3");
    optsetint2nr(h.get(), h.number("pair"), 4);
    optsetdbl2nr(h.get(), h.number("off_grid"), 2.5);
    h.setstrnr(h.number("pairstr"), "Y");
    h.string("x.off('u') 3 ind e('i')$v 1");
    touts good;
    EXPECT_EQ(row.call(h, good, row.nr), row.expected);
    for (const int nr : {row.unfit, 0, -1, 99}) {
      touts outputs;
      if (row.call == typenamenr && nr == 0) continue;
      EXPECT_EQ(row.call(h, outputs, nr), row.failed) << nr;
    }
    EXPECT_EQ(joined(h.messages()), "");
  });
}

// Data type, option type and sub-type of all options.
TEST(queries, types) {
  thandle h;
  define(h);
  std::string all;
  touts o;
  for (int nr = 1; optgetinfonr(h.get(), nr, &o.i, &o.j, &o.k, &o.l, &o.m, &o.n) == 1 && nr <= 12; ++nr)
    all += show(o.l, o.m, o.n) + ' ';
  EXPECT_EQ(all, "0|9|2 1|0|0 2|1|0 3|2|0 1|3|0 3|4|0 1|5|0 0|6|0 4|7|0 0|8|0 0|9|0 1|0|3 ");
}

// The names of a group of codes, or of the types for group 0, up to the first number that has none.
std::string codenames(thandle& h, int group) {
  std::string result, text = "old";
  for (int code = 0; (group > 0 ? h.getconstname(group, code, text) : h.gettypename(code, text)) == 1; ++code)
    result += text + ' ';
  EXPECT_EQ(text, "");
  EXPECT_EQ(h.getconstname(group, -1, text), 0);
  return result;
}

TEST(queries, codenames) {
  inbothforms([&](thandle& h) {
    EXPECT_EQ(codenames(h, 0),
              "integer double string boolean enumstr enumint multilist strlist macro immediate ");
    EXPECT_EQ(codenames(h, 1), "optDataNone optDataInteger optDataDouble optDataString optDataStrList ");
    EXPECT_EQ(codenames(h, 2),
              "optTypeInteger optTypeDouble optTypeString optTypeBoolean optTypeEnumStr "
              "optTypeEnumInt optTypeMultiList optTypeStrList optTypeMacro optTypeImmediate ");
    EXPECT_EQ(codenames(h, 3), "optsubRequired optsubNoValue optsubOptional optsub2Values ");
    // The tenth kind of message is not served.
    EXPECT_EQ(codenames(h, 4),
              "optMsgInputEcho optMsgHelp optMsgDefineError optMsgValueError optMsgValueWarning "
              "optMsgDeprecated optMsgFileEnter optMsgFileLeave optMsgTooManyMsgs ");
    std::string text = "old";
    for (const int group : {-1, 0, 5}) EXPECT_EQ(h.getconstname(group, 0, text), 0);
    EXPECT_EQ(text, "");
  });
}

TEST(queries, byname) {
  inbothforms([](thandle& h) {
    define(h);
    EXPECT_EQ(show(optcount(h.get()), optsynonymcount(h.get()), optgroupcount(h.get())), "16|2|2");
    EXPECT_EQ(h.definitionfile(), "DEF");
    EXPECT_EQ(h.value("MAXIT") + h.value("iterations") + h.value("names") + h.value2("pair"), "551");
    std::string text = "old";
    EXPECT_EQ(show(h.getvalstr("nosuch", text), text), "0|");
    for (const char* name : {"nosuch", "maxit", "ghost"}) {
      text = "old";
      EXPECT_EQ(show(h.getval2str(name, text), text), "0|");
    }
    std::int32_t nr = -7, refnr = -7;
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

TEST(queries, stringlists) {
  inbothforms([](thandle& h) {
    const std::string kept = h.form() == tform::shortstring ? "old" : "";  // an untouched text
    define(h);
    EXPECT_EQ(show(h.listcountstr("nosuch"), h.listcountstr("maxit"), h.listcountstr("names")), "-2|-1|0");
    for (const char* line : {"names one", "names two", "--extra three", "--more four"}) h.string(line);
    EXPECT_EQ(h.listcountstr("NAMES"), 2);
    std::string name, text;
    const auto read = [&](const char* list, int index) {
      text = "old";
      const int result = h.readfromliststr(list, index, text);
      return show(result, text);
    };
    EXPECT_EQ(read("names", 2), "1|two");
    EXPECT_EQ(read("names", 3), "0|");
    EXPECT_EQ(read("names", 0), "0|");
    EXPECT_EQ(read("maxit", 1), "-1|");
    EXPECT_EQ(read("nosuch", 1), "-2|");
    const auto takeany = [&](int flag) {
      name = text = "old";
      const int result = h.getfromanystrlist(flag, name, text);
      return show(result, name, text);
    };
    EXPECT_EQ(takeany(1), "1|--extra|three");
    EXPECT_EQ(takeany(-1), "1|--more|four");
    // Nothing left of the wanted sort: the name is that of the last list looked at, the text is left alone.
    EXPECT_EQ(takeany(1), "0|names|" + kept);
    EXPECT_EQ(takeany(0), "1|names|one");
    const auto take = [&](const char* list) {
      text = "old";
      const int result = h.getfromliststr(list, text);
      return show(result, text);
    };
    EXPECT_EQ(take("names"), "1|two");
    EXPECT_EQ(take("names"), "0|");
    EXPECT_EQ(take("maxit"), "-1|");
    EXPECT_EQ(take("nosuch"), "-2|");
    EXPECT_EQ(takeany(0), "0|" + kept + '|' + kept);
    EXPECT_EQ(optmessagecount(h.get()), 0);
  });
}

}  // namespace
}  // namespace testsupport
