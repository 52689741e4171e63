// The lines of a definition file: what each kind of line makes, every message, fields that a line takes from the lines
// before it, odd bytes and lengths. A helper describes all that was made as text.
#include <algorithm>
#include <cstdio>

#include "interface/optiontext.h"

namespace testsupport {
namespace {

// The items of an enumerated option, one line each: "  value help-flag text".
std::string describeitems(thandle& h, int nr) {
  std::string result;
  std::int32_t count = 0;
  optgetenumcount(h.get(), nr, &count);
  for (int item = 1; item <= count; ++item) {
    std::int32_t value = 0, helpflag = 0;
    std::string name, text;
    EXPECT_EQ(h.getenumvalue(nr, item, value, name), 1);
    EXPECT_EQ(h.getenumhelp(nr, item, helpflag, text), 1);
    result += "\n  " + name + ' ' + std::to_string(helpflag) + (text.empty() ? "" : ' ' + text);
  }
  return result;
}

std::string describeoption(thandle& h, int nr) {
  constexpr const char* modifiers[] = {"", ".NV", ".OPT", ".TWO"};
  std::int32_t defined = 0, recent = 0, refnr = 0, datatype = 0, opttype = 0, subtype = 0, helpflag = 0,
               group = 0;
  std::string name, help, type, value;
  EXPECT_EQ(optgetinfonr(h.get(), nr, &defined, &recent, &refnr, &datatype, &opttype, &subtype), 1);
  EXPECT_EQ(defined, 0);
  h.getopthelpnr(nr, name, helpflag, group);
  h.gethelpnr(nr, name, help);
  h.gettypename(opttype, type);
  h.getstrnr(nr, value);
  std::string result = name + ' ' + type + modifiers[subtype];
  if (opttype == optTypeString || opttype == optTypeEnumStr)
    result += " \"" + value + '"';
  else if (opttype <= optTypeEnumInt)
    result += ' ' + value;
  std::int32_t low = 0, high = 0, unset = 0;
  char text[64];
  double lowdouble = 0, highdouble = 0, unsetdouble = 0;
  if (optgetboundsint(h.get(), nr, &low, &high, &unset) == 1)
    result += " in " + std::to_string(low) + ".." + std::to_string(high);
  if (optgetboundsdbl(h.get(), nr, &lowdouble, &highdouble, &unsetdouble) == 1)
    result += std::string(text, static_cast<std::size_t>(
                                    std::snprintf(text, sizeof text, " in %g..%g", lowdouble, highdouble)));
  result += " (" + std::to_string(refnr) + ' ' + std::to_string(helpflag) + ' ' + std::to_string(group) + ')';
  return result + (help.empty() ? "" : ' ' + help) + describeitems(h, nr);
}

// All that a definition made, the predefined option left out: an option is "name type default in low..high (user-map
// help-flag group) text", a synonym "name -> option", a group "[name] number help-flag text".
std::string describe(thandle& h) {
  std::string result;
  for (int nr = 2; nr <= optcount(h.get()); ++nr) result += describeoption(h, nr) + '\n';
  for (int nr = 1; nr <= optsynonymcount(h.get()); ++nr) {
    std::string synonym, name;
    EXPECT_EQ(h.getsynonym(nr, synonym, name), 1);
    result += synonym + " -> " + name + '\n';
  }
  for (int nr = 1; nr <= optgroupcount(h.get()); ++nr) {
    std::string name, help;
    std::int32_t group = 0, helpflag = 0;
    EXPECT_EQ(h.getgroupnr(nr, name, group, helpflag, help), 1);
    result += '[' + name + "] " + std::to_string(group) + ' ' + std::to_string(helpflag) +
              (help.empty() ? "" : ' ' + help) + '\n';
  }
  if (!result.empty()) result.pop_back();
  return result;
}

// The messages without the words that all of them begin with.
std::string definitionerrors(thandle& h) {
  const std::string_view head = "*** Definition Error ";
  std::string result;
  for (const std::string& line : h.messages()) {
    EXPECT_EQ(line.substr(0, head.size()), head);
    result += (result.empty() ? "" : "\n") + line.substr(std::min(head.size(), line.size()));
  }
  return result;
}

struct trow {
  int where;
  std::string definition;
  std::string errors;
  std::string described;
};

void check(thandle& h, const trow& row) {
  EXPECT_EQ(h.definition(row.definition), 0);
  EXPECT_EQ(definitionerrors(h), row.errors);
  EXPECT_EQ(describe(h), row.described);
}

TEST(definition, thepredefinedoption) {
  inbothforms([](thandle& h) {
    EXPECT_EQ(h.definition(""), 0);
    EXPECT_EQ(h.dump(), "1 Help immediate.OPT\n");
    EXPECT_EQ(describeoption(h, 1), "Help immediate.OPT (0 0 0)");
    // A second reading adds to the first.
    EXPECT_EQ(h.definition("* nothing\n\nHELP integer 1 0 0 9 1 1\n"), 0);
    EXPECT_EQ(definitionerrors(h), R"(line 3: Duplicate option for option "HELP")");
    EXPECT_EQ(h.dump(), "1 Help immediate.OPT\n2 Help immediate.OPT\n3 HELP integer = 0\n");
  });
}

TEST(definition, lines) {
  const std::string d254(254, 'n');
  const trow rows[] = {
      {__LINE__, "x integer 1 5 0 10 2 3 the text", "", "x integer 5 in 0..10 (1 2 3) the text"},
      {__LINE__, "x\tINTEGER \t1 \"5\" minint MaxInt 2 3 \t the  text \t ", "",
       "x integer 5 in -2147483648..2147483647 (1 2 3) the  text"},
      {__LINE__, "d double 1 .5 mindouble maxdouble 2 3 t", "", "d double 0.5 in -1e+299..1e+299 (1 2 3) t"},
      {__LINE__, "d double 1 epsdouble EPS 2.5d1 2 3", "", "d double 1E-20 in 1e-20..25 (1 2 3)"},
      {__LINE__, "s string 1 plain 2 3 t", "", "s string \"plain\" (1 2 3) t"},
      {__LINE__, R"(s string 1 "say "hi", now" 2 3 t)", "", R"(s string "say "hi", now" (1 2 3) t)"},
      {__LINE__, "b boolean 1 7 2 3 t", "", "b boolean 7 (1 2 3) t"},  // the default is not checked
      {__LINE__, "e enumstr 1 RED 2 3 t\n red 4 warm\n \"dark blue\" -1\n", "",
       "e enumstr \"RED\" (1 2 3) t\n  red 4 warm\n  dark blue -1"},
      {__LINE__, "e enumint 1 5 2 3 t\n 1 4 one\n 5 0\n", "", "e enumint 5 (1 2 3) t\n  1 4 one\n  5 0"},
      {__LINE__, "m multilist 1 2 3 t\nl strlist 1 2 3 t\nc macro 2 3 t\ni immediate readfile 2 3 t", "",
       "m multilist (1 2 3) t\nl strlist (1 2 3) t\nc macro (-1 2 3) t\ni immediate (-1 2 3) t"},
      {__LINE__, ".prior double 1 0 0 9 2 3 t", "", ".prior double 0 in 0..9 (1 2 3) t"},
      {__LINE__, "x_1Y integer 1 0 0 9 2 3", "", "x_1Y integer 0 in 0..9 (1 2 3)"},
      {__LINE__, d254 + "nnnz integer 1 0 0 9 2 3", "", d254 + "z integer 0 in 0..9 (1 2 3)"},
      // Modifiers. A string option takes one without a word and does not keep it.
      {__LINE__,
       "a integer.nv 1 0 0 0 0 0\nb double.Opt 1 0 0 0 0 0\nc boolean.TWO 1 0 0 0\nd enumstr.NV 1 x 0 0\n"
       " x 0\ne enumint.OPT 1 2 0 0\n 2 0\nf string.TWO 1 x 0 0",
       "",
       "a integer.NV 0 in 0..0 (1 0 0)\nb double.OPT 0 in 0..0 (1 0 0)\nc boolean.TWO 0 (1 0 0)\n"
       "d enumstr.NV \"x\" (1 0 0)\n  x 0\ne enumint.OPT 2 (1 0 0)\n  2 0\nf string \"x\" (1 0 0)"},
      // Synonyms and groups; the declared thing stands first.
      {__LINE__,
       "x integer 1 0 0 9 0 0\ny synonym X and more\nz synonym x\ng group 3 1 the text\nh group -4 0", "",
       "x integer 0 in 0..9 (1 0 0)\ny -> x\nz -> x\n[g] 3 1 the text\n[h] -4 0"},
  };
  foreachrow(__FILE__, rows, check);
}

TEST(definition, failedchecks) {
  const std::string i63(63, 'i');
  const std::string i64(64, 'i');
  const trow rows[] = {
      {__LINE__, "x integer", R"(line 1: Bad usermap value for option "x"
line 1: Bad default value for option "x"
line 1: Bad low value for option "x"
line 1: Bad high value for option "x"
line 1: Bad HC value for option "x"
line 1: Bad Group value for option "x")",
       "x integer 0 in 0..0 (0 0 0)"},
      {__LINE__, "x double 1 b c d e 3 t", R"(line 1: Bad default value for option "x"
line 1: Bad low value for option "x"
line 1: Bad high value for option "x"
line 1: Bad HC for option "x")",
       "x double 0 in 0..0 (1 0 3) t"},
      {__LINE__, "x string 1 \"a b 2 3 t ", R"(line 1: Bad HC for option "x"
line 1: Bad Group value for option "x")",
       "x string \"a b 2 3 t \" (1 0 0)"},  // a quote that nothing closes
      {__LINE__, "x boolean 1 yes 2.0 3", R"(line 1: Bad default value for option "x"
line 1: Bad HC for option "x")",
       "x boolean 0 (1 0 3)"},
      {__LINE__, "s string 4 text 2 3\nt string 5 , 2\nx enumstr 1", R"(line 2: Bad HC for option "t"
line 2: Bad Group value for option "t"
line 3: Bad default string for option "x"
line 3: Bad HC for option "x"
line 3: Bad Group value for option "x"
line 3: Default is undefined for option "x")",
       "s string \"text\" (4 2 3)\nt string \"\" (5 0 0) , 2\nx enumstr \"\" (1 0 0)"},
      {__LINE__, "x enumstr 1 c 2 3\n a 0\n b q t\n\n* end", R"(line 3: Bad HC for option "x"
line 5: Default is undefined for option "x")",
       "x enumstr \"c\" (1 2 3)\n  a 0\n  b 0 t"},
      {__LINE__, "x enumint 1 c\n 1 0\n b", R"(line 1: Bad default value for option "x"
line 1: Bad HC for option "x"
line 1: Bad Group value for option "x"
line 3: Bad integer enum for option "x"
line 3: Bad HC for option "x")",
       "x enumint 0 (1 0 0)\n  1 0\n  0 0"},
      {__LINE__, "x enumint 1 2 0 0\n 1 0\ny strlist 1 0 0", R"(line 3: Default is undefined for option "x")",
       "x enumint 2 (1 0 0)\n  1 0\ny strlist (1 0 0)"},
      {__LINE__, "m multilist\nl strlist 1 q 0\nc macro 0 q", R"(line 1: Bad usermap value for option "m"
line 1: Bad HC for option "m"
line 1: Bad Group value for option "m"
line 2: Bad HC for option "l"
line 3: Bad Group value for option "c")",
       "m multilist (0 0 0)\nl strlist (1 0 0)\nc macro (-1 0 0)"},
      {__LINE__, "x immediate\ny immediate Foo 2 3\nz immediate Help x 3",
       R"(line 1: immediate type expected for option "x"
line 1: Bad HC for option "x"
line 1: Bad Group value for option "x"
line 1: Unknown immediate option for option "x"
line 2: Unknown immediate option for option "y"
line 3: Bad HC for option "z")",
       "z immediate (-1 0 3)"},
      {__LINE__, "x integer 1 5 10 1 2 3\ny double 1 5 6 7 2 3\nz double 1 8 6 7 2 3",
       R"(line 1: Default not in range for option "x"
line 2: Default not in range for option "y"
line 3: Default not in range for option "z")",
       "x integer 5 in 10..1 (1 2 3)\ny double 5 in 6..7 (1 2 3)\nz double 8 in 6..7 (1 2 3)"},
      // A comma ends a field and is never stepped over.
      {__LINE__, "x integer 1 5, 0 10 2 3 t", R"(line 1: Bad low value for option "x"
line 1: Bad high value for option "x"
line 1: Bad HC value for option "x"
line 1: Bad Group value for option "x"
line 1: Default not in range for option "x")",
       "x integer 5 in 0..0 (1 0 0) , 0 10 2 3 t"},
      {__LINE__, "x integer 1 5 0 9 0 0\nX integer 2 5 0 9 0 0\ny synonym x\nY string 3 t 0 0",
       R"(line 2: Duplicate option for option "X"
line 4: Duplicate option for option "Y")",
       "x integer 5 in 0..9 (1 0 0)\nX integer 5 in 0..9 (2 0 0)\nY string \"t\" (3 0 0)\ny -> x"},
      {__LINE__, "x widget 5\nx integer 1 0 0 9 0 0\nx widget\ny\nz-y integer",
       R"(line 1: Unknown option type "widget" for option "x"
line 3: Duplicate option for option "x"
line 3: Bad usermap value for option "x"
line 3: Unknown option type "widget" for option "x"
line 4: Bad usermap value for option "y"
line 4: Unknown option type "" for option "y"
line 5: Bad usermap value for option "z"
line 5: Unknown option type "-y" for option "z")",
       "x integer 0 in 0..9 (1 0 0)"},
      // A type that is unknown takes no indented lines: such a line ends the reading.
      {__LINE__, "x widget 1\n help\ny strlist 1 0 0",
       R"(line 1: Unknown option type "widget" for option "x")", ""},
      {__LINE__,
       "a integer.NV 1 0 0 0 0 0\nb strlist.TWO 2 0 0\nc widget.nv 1\nd a.b.NV 1\ne widget.abc 1\n"
       "f integer. 1 0 0 0 0 0\ng integer 1 0 0 0 0 0\nh integer. 1 0 0 0 0 0\ni synonym.NV a",
       R"(line 2: Type modifier not allowed for option "b"
line 3: Unknown option type "widget" for option "c"
line 4: Unknown option type "a.b" for option "d"
line 5: Unknown type modifier = ABC for option "e"
line 5: Unknown option type "widget" for option "e"
line 6: Unknown type modifier =  for option "f"
line 8: Unknown type modifier =  for option "h"
line 9: Type modifier not allowed for option "i")",
       "a integer.NV 0 in 0..0 (1 0 0)\nb strlist (2 0 0)\nf integer.NV 0 in 0..0 (1 0 0)\n"
       "g integer 0 in 0..0 (1 0 0)\nh integer 0 in 0..0 (1 0 0)\ni -> a"},
      {__LINE__, '.' + i63 + " strlist 1 0 0\n." + i64 + " strlist 1 0 0",
       "line 2: Identifier too long for option \"." + i64 + '"',
       '.' + i63 + " strlist (1 0 0)\n." + i64 + " strlist (1 0 0)"},
      {__LINE__, "x integer 1 0 0 9 0 0\ny synonym x\ny synonym\nz synonym y", R"(line 3: Duplicate synonym"y"
line 3: Unknown option for synonym"y"
line 4: Unknown option for synonym"z")",
       "x integer 0 in 0..9 (1 0 0)\ny -> x\ny -> \nz -> "},
      {__LINE__, "g group 1 0 one\nG group 1 q two\nh group", R"(line 2: Duplicate group for option "G"
line 2: Bad HC for option "G"
line 2: Group number not unique for option "G"
line 3: Bad group number for option "h"
line 3: Bad HC for option "h"
line 3: Group number not unique for option "h")",
       "[g] 1 0 one\n[G] 1 0 two\n[h] 1 0"},
      {__LINE__, "m multilist 1 0 0\n M, Help\n help zz zz m\n mysynonym\n\n \n Help",
       R"(line 3: MultiList option "zz" is undefined for option "m"
line 3: MultiList option "zz" is undefined for option "m"
line 3: Duplicate option used for option "m"
line 3: Duplicate option used for option "m"
line 4: MultiList option "mysynonym" is undefined"m"
line 4: Duplicate option used for option "m"
line 7: Duplicate option used for option "m")",
       "m multilist (1 0 0)"},
      {__LINE__, "x strlist 1 0 0\ny synonym x\nm macro 0 0\n X y\n zz x\n y\n m\nc macro 0 0\n m",
       R"(line 5: Unknown option "zz" for macro "m" for option "m"
line 6: Unknown option "y" for macro "m" for option "m"
line 7: Unknown option "m" for macro "m" for option "m")",
       "x strlist (1 0 0)\nm macro (-1 0 0)\nc macro (-1 0 0)\ny -> x"},
      {__LINE__,
       "x strlist 1 0 0\nlost synonym nowhere\nnames deprecated and so on\n zz text\n x\n lost\n"
       "names2 obsolete\n zz text",
       R"(line 2: Unknown option for synonym"lost"
line 4: Deprecated option "zz" is undefined for option "names"
line 6: Deprecated option "lost" is undefined for option "names"
line 8: Deprecated option "zz" is undefined for option "names2")",
       "x strlist (1 0 0)\nlost -> "},
      {__LINE__, i63 + " indicator\n" + i64 + " indicator",
       "line 2: Indicator redefined for option \"" + i64 + "\"\nline 2: Indicator \"" + i64 +
           "\" not a good identifier for option \"" + i64 + '"',
       ""},
      {__LINE__, "normal lookup\nPATH lookup x\nMinos lookup\nFoo lookup",
       R"(line 4: Unknown lookup code "Foo" for option "Foo")", ""},
      // The mode of looking up names holds for the lines after it; a macro's members are exact names all the same.
      {__LINE__,
       "Path lookup\nconv_tolerance strlist 1 0 0\nconvergence_tol strlist 2 0 0\nm_one multilist 1 0 0\n"
       " con_tol\nmac macro 0 0\n con_tol\nsyn synonym con_tol",
       R"(line 3: Duplicate option for option "convergence_tol"
line 7: Unknown option "con_tol" for macro "mac" for option "mac")",
       "conv_tolerance strlist (1 0 0)\nconvergence_tol strlist (2 0 0)\nm_one multilist (1 0 0)\n"
       "mac macro (-1 0 0)\nsyn -> conv_tolerance"},
  };
  foreachrow(__FILE__, rows, check);
}

// A field without a token keeps what an earlier line left there.
TEST(definition, fieldsoflinesbefore) {
  const trow rows[] = {
      {__LINE__, "a integer 1 5 0 10 7 3 one\nb integer 2 6", R"(line 2: Bad low value for option "b"
line 2: Bad high value for option "b"
line 2: Bad HC value for option "b"
line 2: Bad Group value for option "b")",
       "a integer 5 in 0..10 (1 7 3) one\nb integer 6 in 0..10 (2 7 3)"},
      {__LINE__, "a integer 1 5 0 10 7 3\nb double 2 0 x\nc boolean 3",
       R"(line 2: Bad low value for option "b"
line 2: Bad high value for option "b"
line 2: Bad HC for option "b"
line 2: Bad Group value for option "b"
line 3: Bad default value for option "c"
line 3: Bad HC for option "c"
line 3: Bad Group value for option "c")",
       "a integer 5 in 0..10 (1 7 3)\nb double 0 in 0..0 (2 7 3)\nc boolean 5 (3 7 3)"},
      {__LINE__, "g group 3 8 t\ne enumstr 1 v 4\n v 9\n w\ns strlist 2",
       R"(line 2: Bad Group value for option "e"
line 4: Bad HC for option "e"
line 5: Bad HC for option "s"
line 5: Bad Group value for option "s")",
       "e enumstr \"v\" (1 4 3)\n  v 9\n  w 9\ns strlist (2 9 3)\n[g] 3 8 t"},
      {__LINE__, "a widget.TWO 4\nb integer.what 1 0 0 0 0 0",
       R"(line 1: Unknown option type "widget" for option "a"
line 2: Unknown type modifier = WHAT for option "b")",
       "b integer.TWO 0 in 0..0 (1 0 0)"},
      // A blank value line of an integer enumeration repeats the item before it.
      {__LINE__, "e enumint 1 5 0 0\n 5 6 t\n \n", R"(line 3: Bad integer enum for option "e"
line 3: Bad HC for option "e")",
       "e enumint 5 (1 0 0)\n  5 6 t\n  5 6"},
  };
  foreachrow(__FILE__, rows, check);
}

TEST(definition, bytesandlengths) {
  const std::string head = "x string 1 v 0 0 ";
  const std::string described = "x string \"v\" (1 0 0) ";
  const std::string t254(254, 't');
  const trow rows[] = {
      {__LINE__, head + "text\r\ny strlist 1 0 0\r\n\r\n", "", described + "text\ny strlist (1 0 0)"},
      {__LINE__, head + "text\r", "", described + "text"},
      {__LINE__, head + "te\rxt\r\r\n", "", described + "te\rxt\r"},
      {__LINE__, head + "te\x1Axt\ny strlist 1 0 0", "", described + "te\ny strlist (1 0 0)"},
      {__LINE__, head + "t\x01\xE9\x80\xFF", "", described + "t\x01\xE9\x80\xFF"},
      {__LINE__, head + t254 + 'u', "", described + t254 + 'u'},
      {__LINE__, head + t254 + "uvw", "", described + t254 + 'w'},
      // 1,020 characters of a line are kept; the line after it is not touched.
      {__LINE__, head + std::string(1019 - head.size(), 't') + "uvw\ny strlist 1 0 0", "",
       described + t254 + "u\ny strlist (1 0 0)"},
      {__LINE__, head + std::string(1000000, 't') + "\ny strlist 1 0 0", "",
       described + t254 + "t\ny strlist (1 0 0)"},
  };
  foreachrow(__FILE__, rows, check);

  thandle h;  // a text with a zero byte comes back whole as a short string only
  h.definition(head + std::string("a\0b", 3));
  EXPECT_EQ(describe(h), described + std::string("a\0b", 3));
}

}  // namespace
}  // namespace testsupport
