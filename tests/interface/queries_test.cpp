// The numbered and named queries: what each gives for a good number, and what becomes of its outputs on
// failure: cleared, -1, or left as they were.
#include <type_traits>

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

// What goes in: the first number, the second, and the text. Outputs start as -7, -7.5 and "old".
struct tinputs {
  std::int32_t nr = 0, item = 0;
  std::string name = {};
};

template <class tparameter>
auto before(tinputs& inputs) {
  if constexpr (std::is_same_v<tparameter, std::int32_t>)
    return std::exchange(inputs.nr, inputs.item);
  else if constexpr (std::is_same_v<tparameter, std::int32_t*>)
    return std::int32_t{-7};
  else if constexpr (std::is_same_v<tparameter, double*>)
    return -7.5;
  else
    return std::is_const_v<std::remove_pointer_t<tparameter>> ? inputs.name : std::string("old");
}

// The result and the outputs in the order of the arguments, with bars between.
template <class... tparameters>
std::string answer(std::int32_t (*function)(tvksoptions*, tparameters...), thandle& h, tinputs inputs) {
  std::tuple values{before<tparameters>(inputs)...};
  std::ostringstream text;
  const auto show = [&text](bool isoutput, const auto& value) {
    if (isoutput) text << '|' << value;
  };
  std::apply(
      [&](auto&... each) {
        tvksoptions* const handle = h.get();
        text << call(function, handle, each...);
        (show(std::is_pointer_v<tparameters> && !std::is_const_v<std::remove_pointer_t<tparameters>>, each),
         ...);
      },
      values);
  return text.str();
}

template <auto shortform, auto charform = shortform>
std::string ask(thandle& h, const tinputs& inputs) {
  return h.form() == tform::shortstring ? answer(shortform, h, inputs) : answer(charform, h, inputs);
}

struct trow {
  int where;
  std::string (*ask)(thandle& h, const tinputs& inputs);
  int nr;
  const char* expected;
  int unfit;  // an option that the query does not fit, answered like a number out of range
  const char* failed;
  int item = 0;
};

const std::vector<trow> rows = {
    // result|defined|recent|reference number|data type|option type|sub-type
    {__LINE__, ask<optgetinfonr>, 2, "1|1|1|101|1|0|0", 17, "0|0|0|0|-1|-1|-1"},
    {__LINE__, ask<optgetdefinednr>, 12, "1|2", 17, "0|0"},
    {__LINE__, ask<BOTH(getnamenr)>, 2, "1|maxit", 17, "0|"},
    {__LINE__, ask<BOTH(gethelpnr)>, 2, "1|maxit|Iteration limit", 17, "0||"},
    {__LINE__, ask<BOTH(getopthelpnr)>, 3, "1|gap|2|20", 17, "0||-1|-1"},
    {__LINE__, ask<optgetoptgroupnr>, 3, "20", 17, "-1"},
    {__LINE__, ask<BOTH(getgroupnr)>, 1, "1|g1|10|1|General", 3, "0||0|0|"},
    {__LINE__, ask<optgetgroupgrpnr>, 20, "2", 2, "-1"},
    {__LINE__, ask<BOTH(getsynonym)>, 1, "1|iterations|maxit", 3, "0||"},
    {__LINE__, ask<BOTH(getsynonym)>, 2, "1|ghost|", 3, "0||"},
    {__LINE__, ask<BOTH(getdefaultstr)>, 4, "1|a b", 6, "0|"},  // only of type string
    {__LINE__, ask<optgetboundsint>, 2, "1|-1|10|5", 3, "0|-7|-7|-7"},
    {__LINE__, ask<optgetboundsdbl>, 3, "1|0|1|0.5", 2, "0|-7.5|-7.5|-7.5"},
    {__LINE__, ask<optgetenumcount>, 6, "1|2", 5, "0|-1"},
    {__LINE__, ask<BOTH(getenumvalue)>, 6, "1|0|Primal", 5, "0|-1|", 2},
    {__LINE__, ask<BOTH(getenumvalue)>, 6, "0|-1|", 5, "0|-1|", 0},
    {__LINE__, ask<BOTH(getenumvalue)>, 7, "1|1|1", 2, "0|-1|", 2},
    {__LINE__, ask<BOTH(getenumhelp)>, 6, "1|1|Automatic", 5, "0|-1|", 1},
    {__LINE__, ask<BOTH(getenumhelp)>, 7, "1|-1|", 5, "0|-1|", 2},
    {__LINE__, ask<BOTH(getenumhelp)>, 7, "0|-1|", 5, "0|-1|", 3},
    {__LINE__, ask<BOTH(getenumhelp)>, 7, "0|-1|", 5, "0|-1|", 0},
    {__LINE__, ask<BOTH(getenumstrnr)>, 14, "1|y|2", 7, "0||-1"},
    // a default outside the list
    {__LINE__, ask<BOTH(getenumstrnr)>, 15, "1|other|0", 7, "0||-1"},
    {__LINE__, ask<optgetintnr>, 2, "1|3", 3, "0|-7"},
    {__LINE__, ask<optgetint2nr>, 12, "1|4", 2, "0|-7"},
    {__LINE__, ask<optgetint2nr>, 12, "1|4", 13, "0|-7"},
    {__LINE__, ask<optgetdblnr>, 3, "1|0.5", 2, "0|-7.5"},
    {__LINE__, ask<optgetdbl2nr>, 13, "1|2.5", 3, "0|-7.5"},
    {__LINE__, ask<BOTH(getstrnr)>, 2, "1|3", 17, "0|"},
    {__LINE__, ask<BOTH(getstrnr)>, 9, "1|", 17, "0|"},  // lists have no text
    {__LINE__, ask<BOTH(getstr2nr)>, 13, "1|2.5", 2, "0|"},
    {__LINE__, ask<BOTH(getvaluesnr)>, 2, "1|maxit|3|0|3", 17, "0||0|0|"},
    {__LINE__, ask<BOTH(getvaluesnr)>, 3, "1|gap|0|0.5|0.5", 17, "0||0|0|"},
    {__LINE__, ask<BOTH(getvaluesnr)>, 6, "1|method|0|0|auto", 17, "0||0|0|"},
    {__LINE__, ask<BOTH(getvaluesnr)>, 4, "1|note|0|0|a b", 17, "0||0|0|"},
    {__LINE__, ask<BOTH(getvaluesnr)>, 7, "1|level|1|0|1", 17, "0||0|0|"},
    {__LINE__, ask<BOTH(getvaluesnr)>, 8, "0|words|0|0|", 17, "0||0|0|"},
    {__LINE__, ask<BOTH(getvaluesnr)>, 10, "0|all|0|0|", 17, "0||0|0|"},
    // refused, yet named
    {__LINE__, ask<BOTH(getvaluesnr)>, 9, "0|names|0|0|", 17, "0||0|0|"},
    {__LINE__, ask<optresetnr>, 2, "1", 17, "0"},
    {__LINE__, ask<optsetrefnr>, 11, "1", 17, "0", 77},
    {__LINE__, ask<BOTH(getdotoptnr)>, 1, "1|x|16|1|3", 2, "0||0|0|0"},
    {__LINE__, ask<BOTH(getdotoptuel)>, 1, "1|u", 2, "0|", 1},
    {__LINE__, ask<BOTH(getindicatornr)>, 1, "1|e|v|1|0|1", 2, "0|||0|0|0"},
    {__LINE__, ask<BOTH(getequindicatornr)>, 1, "1|'i'", 2, "0|", 1},
    {__LINE__, ask<BOTH(getvarindicatornr)>, 1, "0|", 2, "0|", 1},
};

TEST(queries, bynumber) {
  for (const trow& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.where, row.expected);
    inbothforms([&row](thandle& h) {
      EXPECT_EQ(row.ask(h, {1, row.item}), row.failed) << "without a definition";
      define(h);
      h.string("maxit 3");
      optsetint2nr(h.get(), h.number("pair"), 4);
      optsetdbl2nr(h.get(), h.number("off_grid"), 2.5);
      h.call(BOTH(setstrnr), h.number("pairstr"), "Y");
      h.string("x.off('u') 3 ind e('i')$v 1");
      EXPECT_EQ(row.ask(h, {row.nr, row.item}), row.expected);
      for (const int nr : {row.unfit, 0, -1, 99}) EXPECT_EQ(row.ask(h, {nr, row.item}), row.failed) << nr;
      EXPECT_EQ(joined(h.messages()), "");
    });
  }
}

// Data types by option, then the names of codes, for a group up to the first number that has none.
TEST(queries, types) {
  inbothforms([&](thandle& h) {
    const auto names = [&h](int group) {
      std::string result, name;
      for (int code = 0; ask<BOTH(getconstname)>(h, {group, code})[0] == '1'; ++code)
        result += ask<BOTH(getconstname)>(h, {group, code}).substr(1);
      EXPECT_EQ((ask<BOTH(getconstname)>(h, {group, -1})), "0|");
      return result;
    };
    EXPECT_EQ(names(1), "|optDataNone|optDataInteger|optDataDouble|optDataString|optDataStrList");
    EXPECT_EQ(names(2),
              "|optTypeInteger|optTypeDouble|optTypeString|optTypeBoolean|optTypeEnumStr|optTypeEnumInt"
              "|optTypeMultiList|optTypeStrList|optTypeMacro|optTypeImmediate");
    EXPECT_EQ(names(3), "|optsubRequired|optsubNoValue|optsubOptional|optsub2Values");
    EXPECT_EQ(names(4),
              "|optMsgInputEcho|optMsgHelp|optMsgDefineError|optMsgValueError|optMsgValueWarning"
              "|optMsgDeprecated|optMsgFileEnter|optMsgFileLeave|optMsgTooManyMsgs");  // not the tenth
    for (const int group : {-1, 0, 5}) EXPECT_EQ(names(group), "");
    std::string types;
    for (int code = -1; code <= 10; ++code) types += ask<BOTH(gettypename)>(h, {code, 0});
    EXPECT_EQ(
        types,
        "0|1|integer1|double1|string1|boolean1|enumstr1|enumint1|multilist1|strlist1|macro1|immediate0|");
    define(h);
    std::string data;
    for (int nr = 1; nr <= 12; ++nr) {
      const std::string info = ask<optgetinfonr>(h, {nr});
      data += info.substr(info.size() - 5) + ' ';
    }
    EXPECT_EQ(data, "0|9|2 1|0|0 2|1|0 3|2|0 1|3|0 3|4|0 1|5|0 0|6|0 4|7|0 0|8|0 0|9|0 1|0|3 ");
  });
}

TEST(queries, byname) {
  inbothforms([](thandle& h) {
    define(h);
    EXPECT_EQ(ask<optcount>(h, {}) + ask<optsynonymcount>(h, {}) + ask<optgroupcount>(h, {}), "1622");
    std::string file;
    h.call(BOTH(definitionfile), file);
    EXPECT_EQ(file, "DEF");
    EXPECT_EQ(h.value("MAXIT") + h.value("iterations") + h.value("names") + h.value2("pair"), "551");
    EXPECT_EQ((ask<BOTH(getvalstr)>(h, {0, 0, "nosuch"})), "0|");
    for (const char* name : {"nosuch", "maxit", "ghost"})
      EXPECT_EQ((ask<BOTH(getval2str)>(h, {0, 0, name})), "0|");
    EXPECT_EQ((ask<BOTH(findstr)>(h, {0, 0, "Iterations"})), "1|2|101");
    EXPECT_EQ((ask<BOTH(findstr)>(h, {0, 0, "ghost"})), "0|-1|-1");
    EXPECT_EQ((ask<BOTH(setrefnrstr)>(h, {-5, 0, "iterations"})), "1");
    EXPECT_EQ((ask<BOTH(setrefnrstr)>(h, {-5, 0, "nosuch"})), "0");
    EXPECT_EQ((ask<BOTH(findstr)>(h, {0, 0, "maxit"})), "1|2|-5");
  });
}

TEST(queries, stringlists) {
  inbothforms([](thandle& h) {
    const std::string kept = h.form() == tform::shortstring ? "old" : "";  // an untouched text
    const auto count = [&](const char* list) { return ask<BOTH(listcountstr)>(h, {0, 0, list}); };
    const auto read = [&](const char* list, int index) {
      return ask<BOTH(readfromliststr)>(h, {index, 0, list});
    };
    const auto takeany = [&](int flag) { return ask<BOTH(getfromanystrlist)>(h, {flag, 0}); };
    const auto take = [&](const char* list) { return ask<BOTH(getfromliststr)>(h, {0, 0, list}); };
    define(h);
    EXPECT_EQ(count("nosuch") + count("maxit") + count("names"), "-2-10");
    for (const char* line : {"names one", "names two", "--extra three", "--more four"}) h.string(line);
    EXPECT_EQ(count("NAMES"), "2");
    EXPECT_EQ(read("names", 2) + ' ' + read("names", 3) + ' ' + read("names", 0), "1|two 0| 0|");
    EXPECT_EQ(read("maxit", 1) + ' ' + read("nosuch", 1), "-1| -2|");
    EXPECT_EQ(takeany(1), "1|--extra|three");
    EXPECT_EQ(takeany(-1), "1|--more|four");
    // Nothing left of the wanted sort: the name is that of the last list looked at, the text is left alone.
    EXPECT_EQ(takeany(1), "0|names|" + kept);
    EXPECT_EQ(takeany(0), "1|names|one");
    EXPECT_EQ(take("names"), "1|two");
    EXPECT_EQ(take("names"), "0|");
    EXPECT_EQ(take("maxit") + ' ' + take("nosuch"), "-1| -2|");
    EXPECT_EQ(takeany(0), "0|" + kept + '|' + kept);
    EXPECT_EQ(optmessagecount(h.get()), 0);
  });
}

}  // namespace
}  // namespace testsupport
