// The lines of a definition file: what each kind of line makes, every message, fields that a line takes from
// the lines before it, odd bytes and lengths. A helper describes all that was made as text.
#include <algorithm>
#include <sstream>

#include "interface/optiontext.h"

namespace testsupport {
namespace {

std::string describeoption(thandle& h, int nr) {
  constexpr const char* modifiers[] = {"", ".NV", ".OPT", ".TWO"};
  std::int32_t defined = 0, refnr = 0, datatype = 0, opttype = 0, subtype = 0, helpflag = 0, group = 0;
  std::string name, help, type, value;
  EXPECT_EQ(optgetinfonr(h.get(), nr, &defined, &defined, &refnr, &datatype, &opttype, &subtype), 1);
  h.getopthelpnr(nr, name, helpflag, group);
  h.gethelpnr(nr, name, help);
  h.gettypename(opttype, type);
  h.getstrnr(nr, value);
  std::ostringstream text;
  text << name << ' ' << type << modifiers[subtype];
  if (opttype == optTypeString || opttype == optTypeEnumStr)
    text << " \"" << value << '"';
  else if (opttype <= optTypeEnumInt)
    text << ' ' << value;
  std::int32_t low = 0, high = 0, items = 0;
  double lowdouble = 0, highdouble = 0, unset = 0;
  if (optgetboundsint(h.get(), nr, &low, &high, &items) == 1) text << " in " << low << ".." << high;
  if (optgetboundsdbl(h.get(), nr, &lowdouble, &highdouble, &unset) == 1)
    text << " in " << lowdouble << ".." << highdouble;
  text << " (" << refnr << ' ' << helpflag << ' ' << group << ')' << (help.empty() ? "" : " ") << help;
  optgetenumcount(h.get(), nr, &items);
  for (int item = 1; item <= items; ++item) {
    EXPECT_EQ(h.getenumvalue(nr, item, low, name) + h.getenumhelp(nr, item, helpflag, help), 2);
    text << " + " << name << ' ' << helpflag << (help.empty() ? "" : " ") << help;
  }
  return text.str();
}

// All that a definition made, the predefined option left out, with " | " between: an option is "name type
// default in low..high (user-map help-flag group) text", then "+ value help-flag text" for each of its
// values, a synonym "name -> option", a group "[name] number help-flag text".
std::string describe(thandle& h) {
  std::ostringstream text;
  std::string name, other;
  std::int32_t group = 0, helpflag = 0;
  for (int nr = 2; nr <= optcount(h.get()); ++nr) text << " | " << describeoption(h, nr);
  for (int nr = 1; h.getsynonym(nr, name, other) == 1; ++nr) text << " | " << name << " -> " << other;
  for (int nr = 1; h.getgroupnr(nr, name, group, helpflag, other) == 1; ++nr)
    text << " | [" << name << "] " << group << ' ' << helpflag << (other.empty() ? "" : " ") << other;
  return text.str().substr(std::min<std::size_t>(text.str().size(), 3));
}

// Messages by line and option, "1 x: text; text" for two of the form "*** Definition Error line 1: text for
// option "x"".
std::string definitionerrors(thandle& h) {
  static const std::regex form(R"~(\*\*\* Definition Error line (\d+): ([^]*?)(?: for option "([^"]*)")?)~");
  std::string result, before;
  for (const std::string& line : h.messages()) {
    std::smatch parts;
    EXPECT_TRUE(std::regex_match(line, parts, form)) << line;
    const std::string head = parts[1].str() + (parts[3].matched ? ' ' + parts[3].str() : "") + ": ";
    const bool same = parts[3].matched && head == before;
    result += (same ? "; " : (result.empty() ? "" : " | ") + head) + parts[2].str();
    before = head;
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
    EXPECT_EQ(describeoption(h, 1) + describe(h), "Help immediate.OPT (0 0 0)");
    // A second reading adds to the first.
    EXPECT_EQ(h.definition("* nothing\n\nHELP integer 1 0 0 9 1 1\n"), 0);
    EXPECT_EQ(definitionerrors(h), "3 HELP: Duplicate option");
    EXPECT_EQ(describe(h), "Help immediate.OPT (0 0 0) | HELP integer 0 in 0..9 (1 1 1)");
  });
}

TEST(definition, lines) {
  const std::string d254(254, 'n');
  const trow rows[] = {
      {__LINE__, "x\tINTEGER \t1 \"5\" minint MaxInt 2 3 \t the  text \t ", "",
       "x integer 5 in -2147483648..2147483647 (1 2 3) the  text"},
      {__LINE__, "d double 1 .5 mindouble maxdouble 2 3 t", "", "d double 0.5 in -1e+299..1e+299 (1 2 3) t"},
      {__LINE__, R"(s string 1 "say "hi", now" 2 3 t)", "", R"(s string "say "hi", now" (1 2 3) t)"},
      {__LINE__, "b boolean 1 7 2 3 t", "", "b boolean 7 (1 2 3) t"},  // the default is not checked
      {__LINE__, "e enumstr 1 RED 2 3 t\n red 4 warm\n \"dark blue\" -1\n", "",
       "e enumstr \"RED\" (1 2 3) t + red 4 warm + dark blue -1"},
      {__LINE__, "e enumint 1 5 2 3 t\n 1 4 one\n 5 0\n", "", "e enumint 5 (1 2 3) t + 1 4 one + 5 0"},
      {__LINE__, "m multilist 1 2 3 t\nl strlist 1 2 3 t\nc macro 2 3 t\ni immediate readfile 2 3 t", "",
       "m multilist (1 2 3) t | l strlist (1 2 3) t | c macro (-1 2 3) t | i immediate (-1 2 3) t"},
      {__LINE__, ".x_1Y double 1 0 0 9 2 3 t", "", ".x_1Y double 0 in 0..9 (1 2 3) t"},
      {__LINE__, d254 + "nnnz integer 1 0 0 9 2 3", "", d254 + "z integer 0 in 0..9 (1 2 3)"},
      // Modifiers. A string option takes one without a word and does not keep it.
      {__LINE__,
       "a integer.nv 1 0 0 0 0 0\nb double.Opt 1 0 0 0 0 0\nc boolean.TWO 1 0 0 0\nd enumstr.NV 1 x 0 0\n"
       " x 0\ne enumint.OPT 1 2 0 0\n 2 0\nf string.TWO 1 x 0 0",
       "",
       "a integer.NV 0 in 0..0 (1 0 0) | b double.OPT 0 in 0..0 (1 0 0) | c boolean.TWO 0 (1 0 0) | "
       "d enumstr.NV \"x\" (1 0 0) + x 0 | e enumint.OPT 2 (1 0 0) + 2 0 | f string \"x\" (1 0 0)"},
      // Synonyms and groups; the declared thing stands first.
      {__LINE__,
       "x integer 1 0 0 9 0 0\ny synonym X and more\nz synonym x\ng group 3 1 the text\nh group -4 0", "",
       "x integer 0 in 0..9 (1 0 0) | y -> x | z -> x | [g] 3 1 the text | [h] -4 0"},
  };
  foreachrow(__FILE__, rows, check);
}

TEST(definition, failedchecks) {
  const std::string i63(63, 'i');
  const std::string i64(64, 'i');
  const trow rows[] = {
      {__LINE__, "x integer",
       "1 x: Bad usermap value; Bad default value; Bad low value; Bad high value; Bad HC value; "
       "Bad Group value",
       "x integer 0 in 0..0 (0 0 0)"},
      {__LINE__, "x integer 1 \"5 0 9 2 3\ny integer 2 0 0 9 2 3",
       "1 x: Bad default value; Bad low value; Bad high value; Bad HC value; Bad Group value",
       "x integer 0 in 0..0 (1 0 0) | y integer 0 in 0..9 (2 2 3)"},
      {__LINE__, "x double 1 b c d e 3 t", "1 x: Bad default value; Bad low value; Bad high value; Bad HC",
       "x double 0 in 0..0 (1 0 3) t"},
      {__LINE__, "x string 1 \"a b 2 3 t ", "1 x: Bad HC; Bad Group value",
       "x string \"a b 2 3 t \" (1 0 0)"},  // a quote that nothing closes
      {__LINE__, "x boolean 1 yes 2.0 3", "1 x: Bad default value; Bad HC", "x boolean 0 (1 0 3)"},
      {__LINE__, "s string 4 text 2 3\nt string 5 , 2\nx enumstr 1",
       "2 t: Bad HC; Bad Group value | 3 x: Bad default string; Bad HC; Bad Group value; "
       "Default is undefined",
       "s string \"text\" (4 2 3) | t string \"\" (5 0 0) , 2 | x enumstr \"\" (1 0 0)"},
      {__LINE__, "x enumstr 1 c 2 3\n a 0\n b q t\n\n* end", "3 x: Bad HC | 5 x: Default is undefined",
       "x enumstr \"c\" (1 2 3) + a 0 + b 0 t"},
      {__LINE__, "x enumint 1 c\n 1 0\n b",
       "1 x: Bad default value; Bad HC; Bad Group value | 3 x: Bad integer enum; Bad HC",
       "x enumint 0 (1 0 0) + 1 0 + 0 0"},
      {__LINE__, "x enumint 1 2 0 0\n 1 0\ny strlist 1 0 0", "3 x: Default is undefined",
       "x enumint 2 (1 0 0) + 1 0 | y strlist (1 0 0)"},
      {__LINE__, "m multilist\nl strlist 1 q 0\nc macro 0 q",
       "1 m: Bad usermap value; Bad HC; Bad Group value | 2 l: Bad HC | 3 c: Bad Group value",
       "m multilist (0 0 0) | l strlist (1 0 0) | c macro (-1 0 0)"},
      {__LINE__, "x immediate\ny immediate Foo 2 3\nz immediate Help x 3",
       "1 x: immediate type expected; Bad HC; Bad Group value; Unknown immediate option | "
       "2 y: Unknown immediate option | 3 z: Bad HC",
       "z immediate (-1 0 3)"},
      {__LINE__, "x integer 1 5 10 1 2 3\ny double 1 5 6 7 2 3\nz double 1 8 6 7 2 3",
       "1 x: Default not in range | 2 y: Default not in range | 3 z: Default not in range",
       "x integer 5 in 10..1 (1 2 3) | y double 5 in 6..7 (1 2 3) | z double 8 in 6..7 (1 2 3)"},
      // A comma ends a field and is never stepped over.
      {__LINE__, "x integer 1 5, 0 10 2 3 t",
       "1 x: Bad low value; Bad high value; Bad HC value; Bad Group value; Default not in range",
       "x integer 5 in 0..0 (1 0 0) , 0 10 2 3 t"},
      {__LINE__, "x integer 1 5 0 9 0 0\nX integer 2 5 0 9 0 0\ny synonym x\nY string 3 t 0 0",
       "2 X: Duplicate option | 4 Y: Duplicate option",
       "x integer 5 in 0..9 (1 0 0) | X integer 5 in 0..9 (2 0 0) | Y string \"t\" (3 0 0) | y -> x"},
      {__LINE__, "x widget 5\nx integer 1 0 0 9 0 0\nx widget\ny\nz-y integer",
       R"(1 x: Unknown option type "widget" | 3 x: Duplicate option; Bad usermap value; )"
       R"(Unknown option type "widget" | 4 y: Bad usermap value; Unknown option type "" | )"
       R"(5 z: Bad usermap value; Unknown option type "-y")",
       "x integer 0 in 0..9 (1 0 0)"},
      // A type that is unknown takes no indented lines: such a line ends the reading.
      {__LINE__, "x widget 1\n help\ny strlist 1 0 0", R"(1 x: Unknown option type "widget")", ""},
      {__LINE__,
       "a integer.NV 1 0 0 0 0 0\nb strlist.TWO 2 0 0\nc widget.nv 1\nd a.b.NV 1\ne widget.abc 1\n"
       "f integer. 1 0 0 0 0 0\ng integer 1 0 0 0 0 0\nh integer. 1 0 0 0 0 0\ni synonym.NV a",
       R"(2 b: Type modifier not allowed | 3 c: Unknown option type "widget" | )"
       R"(4 d: Unknown option type "a.b" | 5 e: Unknown type modifier = ABC; )"
       R"(Unknown option type "widget" | 6 f: Unknown type modifier =  | 8 h: Unknown type modifier =  | )"
       "9 i: Type modifier not allowed",
       "a integer.NV 0 in 0..0 (1 0 0) | b strlist (2 0 0) | f integer.NV 0 in 0..0 (1 0 0) | "
       "g integer 0 in 0..0 (1 0 0) | h integer 0 in 0..0 (1 0 0) | i -> a"},
      {__LINE__, '.' + i63 + " strlist 1 0 0\n." + i64 + " strlist 1 0 0",
       "2 ." + i64 + ": Identifier too long", '.' + i63 + " strlist (1 0 0) | ." + i64 + " strlist (1 0 0)"},
      {__LINE__, "x integer 1 0 0 9 0 0\ny synonym x\ny synonym\nz synonym y",
       R"(3: Duplicate synonym"y" | 3: Unknown option for synonym"y" | 4: Unknown option for synonym"z")",
       "x integer 0 in 0..9 (1 0 0) | y -> x | y ->  | z -> "},
      {__LINE__, "g group 1 0 one\nG group 1 q two\nh group",
       "2 G: Duplicate group; Bad HC; Group number not unique | 3 h: Bad group number; Bad HC; "
       "Group number not unique",
       "[g] 1 0 one | [G] 1 0 two | [h] 1 0"},
      {__LINE__, "m multilist 1 0 0\n M, Help\n help zz zz m\n mysynonym\n\n \n Help",
       R"(3 m: MultiList option "zz" is undefined; MultiList option "zz" is undefined; )"
       "Duplicate option used; Duplicate option used | "
       R"(4: MultiList option "mysynonym" is undefined"m" | 4 m: Duplicate option used | )"
       "7 m: Duplicate option used",
       "m multilist (1 0 0)"},
      {__LINE__, "x strlist 1 0 0\ny synonym x\nm macro 0 0\n X y\n zz x\n y\n m\nc macro 0 0\n m",
       R"(5 m: Unknown option "zz" for macro "m" | 6 m: Unknown option "y" for macro "m" | )"
       R"(7 m: Unknown option "m" for macro "m")",
       "x strlist (1 0 0) | m macro (-1 0 0) | c macro (-1 0 0) | y -> x"},
      {__LINE__,
       "x strlist 1 0 0\nlost synonym nowhere\nnames deprecated and so on\n zz text\n x\n lost\n"
       "names2 obsolete\n zz text",
       R"(2: Unknown option for synonym"lost" | 4 names: Deprecated option "zz" is undefined | )"
       R"(6 names: Deprecated option "lost" is undefined | 8 names2: Deprecated option "zz" is undefined)",
       "x strlist (1 0 0) | lost -> "},
      {__LINE__, i63 + " indicator\n" + i64 + " indicator",
       "2 " + i64 + ": Indicator redefined; Indicator \"" + i64 + "\" not a good identifier", ""},
      {__LINE__, "normal lookup\nPATH lookup x\nMinos lookup\nFoo lookup",
       R"(4 Foo: Unknown lookup code "Foo")", ""},
      // The mode of looking up names holds for the lines after it; a macro's members are exact names all the
      // same.
      {__LINE__,
       "Path lookup\nconv_tolerance strlist 1 0 0\nconvergence_tol strlist 2 0 0\nm_one multilist 1 0 0\n"
       " con_tol\nmac macro 0 0\n con_tol\nsyn synonym con_tol",
       R"(3 convergence_tol: Duplicate option | 7 mac: Unknown option "con_tol" for macro "mac")",
       "conv_tolerance strlist (1 0 0) | convergence_tol strlist (2 0 0) | m_one multilist (1 0 0) | "
       "mac macro (-1 0 0) | syn -> conv_tolerance"},
  };
  foreachrow(__FILE__, rows, check);
}

// A field without a token keeps what an earlier line left there.
TEST(definition, fieldsoflinesbefore) {
  const trow rows[] = {
      {__LINE__, "a integer 1 5 0 10 7 3 one\nb integer 2 6",
       "2 b: Bad low value; Bad high value; Bad HC value; Bad Group value",
       "a integer 5 in 0..10 (1 7 3) one | b integer 6 in 0..10 (2 7 3)"},
      {__LINE__, "a integer 1 5 0 10 7 3\nb double 2 0 x\nc boolean 3",
       "2 b: Bad low value; Bad high value; Bad HC; Bad Group value | 3 c: Bad default value; Bad HC; "
       "Bad Group value",
       "a integer 5 in 0..10 (1 7 3) | b double 0 in 0..0 (2 7 3) | c boolean 5 (3 7 3)"},
      {__LINE__, "g group 3 8 t\ne enumstr 1 v 4\n v 9\n w\ns strlist 2",
       "2 e: Bad Group value | 4 e: Bad HC | 5 s: Bad HC; Bad Group value",
       "e enumstr \"v\" (1 4 3) + v 9 + w 9 | s strlist (2 9 3) | [g] 3 8 t"},
      {__LINE__, "a widget.TWO 4\nb integer.what 1 0 0 0 0 0",
       R"(1 a: Unknown option type "widget" | 2 b: Unknown type modifier = WHAT)",
       "b integer.TWO 0 in 0..0 (1 0 0)"},
      // A blank value line of an integer enumeration repeats the item before it.
      {__LINE__, "e enumint 1 5 0 0\n 5 6 t\n \n", "3 e: Bad integer enum; Bad HC",
       "e enumint 5 (1 0 0) + 5 6 t + 5 6"},
  };
  foreachrow(__FILE__, rows, check);
}

TEST(definition, bytesandlengths) {
  const std::string head = "x string 1 v 0 0 ";
  const std::string described = "x string \"v\" (1 0 0) ";
  const std::string t254(254, 't');
  const trow rows[] = {
      {__LINE__, head + "text\r\ny strlist 1 0 0\r\n\r\n", "", described + "text | y strlist (1 0 0)"},
      {__LINE__, head + "t\x01\xE9\rxt\r\r\n", "", described + "t\x01\xE9\rxt\r"},
      {__LINE__, head + "te\x1Axt\ny strlist 1 0 0", "", described + "te | y strlist (1 0 0)"},
      {__LINE__, head + t254 + "uvw", "", described + t254 + 'w'},
      // 1,020 characters of a line are kept; the line after it is not touched.
      {__LINE__, head + std::string(1019 - head.size(), 't') + "uvw\ny strlist 1 0 0", "",
       described + t254 + "u | y strlist (1 0 0)"},
  };
  foreachrow(__FILE__, rows, check);
}

}  // namespace
}  // namespace testsupport
