// Definition files: what each kind of line makes, every message, fields that a line takes from the lines
// before it, odd bytes and lengths; lines that end the reading, blocks of continuation lines and what they do
// when the options are used, and comment characters.
#include "interface/script.h"

namespace testsupport::definitiontest {

// "name type default in low..high (user-map help-flag group) text", then "+ value help-flag text" for each of
// its values.
std::string describeoption(thandle& h, int nr) {
  constexpr const char* modifiers[] = {"", ".NV", ".OPT", ".TWO"};
  std::int32_t refnr = 0, opttype = 0, subtype = 0, helpflag = 0, group = 0, low = 0, high = 0, items = 0;
  double lowdouble = 0, highdouble = 0, unset = 0;
  std::string name, help, type, value;
  EXPECT_EQ(h.one(optgetinfonr, nr, low, low, refnr, low, opttype, subtype), 1);
  h.call(BOTH(getopthelpnr), nr, name, helpflag, group);
  h.call(BOTH(gethelpnr), nr, name, help);
  h.call(BOTH(gettypename), opttype, type);
  h.call(BOTH(getstrnr), nr, value);
  std::ostringstream text;
  text << name << ' ' << type << modifiers[subtype];
  if (opttype == optTypeString || opttype == optTypeEnumStr) value = '"' + value + '"';
  if (opttype <= optTypeEnumInt) text << ' ' << value;
  if (h.one(optgetboundsint, nr, low, high, items) == 1) text << " in " << low << ".." << high;
  if (h.one(optgetboundsdbl, nr, lowdouble, highdouble, unset) == 1)
    text << " in " << lowdouble << ".." << highdouble;
  text << " (" << refnr << ' ' << helpflag << ' ' << group << ')' << (help.empty() ? "" : " ") << help;
  h.one(optgetenumcount, nr, items);
  for (int item = 1; item <= items; ++item) {
    EXPECT_EQ(
        h.call(BOTH(getenumvalue), nr, item, low, name) + h.call(BOTH(getenumhelp), nr, item, helpflag, help),
        2);
    text << " + " << name << ' ' << helpflag << (help.empty() ? "" : " ") << help;
  }
  return text.str();
}

// All that a definition made but the predefined option, with " | " between: options, a synonym as "name ->
// option", a group as "[name] number help-flag text".
const taddedstep made("made", [](thandle& h, const std::string&) {
  std::string text, name, other;
  std::int32_t group = 0, helpflag = 0;
  for (int nr = 2; nr <= h.one(optcount); ++nr) text += " | " + describeoption(h, nr);
  for (int nr = 1; h.call(BOTH(getsynonym), nr, name, other) == 1; ++nr)
    text += " | " + name + " -> " + other;
  for (int nr = 1; h.call(BOTH(getgroupnr), nr, name, group, helpflag, other) == 1; ++nr)
    text += " | [" + name + "] " + std::to_string(group) + ' ' + std::to_string(helpflag) +
            (other.empty() ? "" : " ") + other;
  return text.substr(std::min<std::size_t>(text.size(), 3));
});

// Messages by line and option, "1 x: text; text" for two of the form "*** Definition Error line 1: text for
// option "x"".
const taddedstep definitionerrors("errors", [](thandle& h, const std::string&) {
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
});

// The definition, what it makes, and what is wrong with it.
constexpr const char* defining = "definition $1 => 0 ; made => $2 ; errors => $3";

TEST(definition, whatismade) {
  play("", defining, R"(
    x\tINTEGER \t1 "5" minint MaxInt 2 3 \t the  text \t\x20
      => x integer 5 in -2147483648..2147483647 (1 2 3) the  text
    x integer -1234567890 1234567890 0 MaxInt 2 3 => x integer 1234567890 in 0..2147483647 (-1234567890 2 3)
    d double 1 .5 mindouble maxdouble 2 3 t => d double 0.5 in -1e+299..1e+299 (1 2 3) t
    s string 1 "say "hi", now" 2 3 t => s string "say "hi", now" (1 2 3) t
    // the default is not checked
    b boolean 1 7 2 3 t => b boolean 7 (1 2 3) t
    e enumstr 1 RED 2 3 t\n red 4 warm\n "dark blue" -1\n
      => e enumstr "RED" (1 2 3) t + red 4 warm + dark blue -1
    e enumint 1 5 2 3 t\n 1 4 one\n 5 0\n => e enumint 5 (1 2 3) t + 1 4 one + 5 0
    m multilist 1 2 3 t\nl strlist 1 2 3 t\nc macro 2 3 t\ni immediate readfile 2 3 t
      => m multilist (1 2 3) t | l strlist (1 2 3) t | c macro (-1 2 3) t | i immediate (-1 2 3) t
    .x_1Y double 1 0 0 9 2 3 t => .x_1Y double 0 in 0..9 (1 2 3) t
    <254n>nnnz integer 1 0 0 9 2 3 => <254n>z integer 0 in 0..9 (1 2 3)
    // Modifiers. A string option takes one without a word and does not keep it.
    a integer.nv 1 0 0 0 0 0\nb double.Opt 1 0 0 0 0 0\nc boolean.TWO 1 0 0 0\nd enumstr.NV 1 x 0 0\n x 0
      \ne enumint.OPT 1 2 0 0\n 2 0\nf string.TWO 1 x 0 0
      => a integer.NV 0 in 0..0 (1 0 0) | b double.OPT 0 in 0..0 (1 0 0) | c boolean.TWO 0 (1 0 0)
      | d enumstr.NV "x" (1 0 0) + x 0 | e enumint.OPT 2 (1 0 0) + 2 0 | f string "x" (1 0 0)
    // Synonyms and groups; the declared thing stands first.
    x integer 1 0 0 9 0 0\ny synonym X and more\nz synonym x\ng group 3 1 the text\nh group -4 0
      => x integer 0 in 0..9 (1 0 0) | y -> x | z -> x | [g] 3 1 the text | [h] -4 0
    // Odd bytes; 1,020 characters of a line are kept, the line after it is not touched.
    x string 1 v 0 0 text\r\ny strlist 1 0 0\r\n\r\n => x string "v" (1 0 0) text | y strlist (1 0 0)
    x string 1 v 0 0 t\x01\xE9\rxt\r\r\n => x string "v" (1 0 0) t\x01\xE9\rxt\r
    x string 1 v 0 0 te\x1Axt\ny strlist 1 0 0 => x string "v" (1 0 0) te | y strlist (1 0 0)
    x string 1 v 0 0 <254t>uvw => x string "v" (1 0 0) <254t>w
    x string 1 v 0 0 <1002t>uvw\ny strlist 1 0 0 => x string "v" (1 0 0) <254t>u | y strlist (1 0 0)
  )");
}

TEST(definition, failedchecks) {
  play("", defining, R"(
    * nothing\n\nHELP integer 1 0 0 9 1 1 => HELP integer 0 in 0..9 (1 1 1) => 3 HELP: Duplicate option
    x integer => x integer 0 in 0..0 (0 0 0)
      => 1 x: Bad usermap value; Bad default value; Bad low value; Bad high value; Bad HC value; Bad Group value
    x integer 1 "5 0 9 2 3\ny integer 2 0 0 9 2 3
      => x integer 0 in 0..0 (1 0 0) | y integer 0 in 0..9 (2 2 3)
      => 1 x: Bad default value; Bad low value; Bad high value; Bad HC value; Bad Group value
    x double 1 b c d e 3 t => x double 0 in 0..0 (1 0 3) t
      => 1 x: Bad default value; Bad low value; Bad high value; Bad HC
    // a quote that nothing closes
    x string 1 "a b 2 3 t\x20 => x string "a b 2 3 t " (1 0 0) => 1 x: Bad HC; Bad Group value
    x boolean 1 yes 2.0 3 => x boolean 0 (1 0 3) => 1 x: Bad default value; Bad HC
    s string 4 text 2 3\nt string 5 , 2\nx enumstr 1
      => s string "text" (4 2 3) | t string "" (5 0 0) , 2 | x enumstr "" (1 0 0)
      => 2 t: Bad HC; Bad Group value
      | 3 x: Bad default string; Bad HC; Bad Group value; Default is undefined
    x enumstr 1 c 2 3\n a 0\n b q t\n\n* end => x enumstr "c" (1 2 3) + a 0 + b 0 t
      => 3 x: Bad HC | 5 x: Default is undefined
    x enumint 1 c\n 1 0\n b => x enumint 0 (1 0 0) + 1 0 + 0 0
      => 1 x: Bad default value; Bad HC; Bad Group value | 3 x: Bad integer enum; Bad HC
    x enumint 1 2 0 0\n 1 0\ny strlist 1 0 0 => x enumint 2 (1 0 0) + 1 0 | y strlist (1 0 0)
      => 3 x: Default is undefined
    m multilist\nl strlist 1 q 0\nc macro 0 q => m multilist (0 0 0) | l strlist (1 0 0) | c macro (-1 0 0)
      => 1 m: Bad usermap value; Bad HC; Bad Group value | 2 l: Bad HC | 3 c: Bad Group value
    x immediate\ny immediate Foo 2 3\nz immediate Help x 3 => z immediate (-1 0 3)
      => 1 x: immediate type expected; Bad HC; Bad Group value; Unknown immediate option
      | 2 y: Unknown immediate option | 3 z: Bad HC
    x integer 1 5 10 1 2 3\ny double 1 5 6 7 2 3\nz double 1 8 6 7 2 3
      => x integer 5 in 10..1 (1 2 3) | y double 5 in 6..7 (1 2 3) | z double 8 in 6..7 (1 2 3)
      => 1 x: Default not in range | 2 y: Default not in range | 3 z: Default not in range
    // A comma ends a field and is never stepped over.
    x integer 1 5, 0 10 2 3 t => x integer 5 in 0..0 (1 0 0) , 0 10 2 3 t
      => 1 x: Bad low value; Bad high value; Bad HC value; Bad Group value; Default not in range
    x integer 1 5 0 9 0 0\nX integer 2 5 0 9 0 0\ny synonym x\nY string 3 t 0 0
      => x integer 5 in 0..9 (1 0 0) | X integer 5 in 0..9 (2 0 0) | Y string "t" (3 0 0) | y -> x
      => 2 X: Duplicate option | 4 Y: Duplicate option
    x widget 5\nx integer 1 0 0 9 0 0\nx widget\ny\nz-y integer => x integer 0 in 0..9 (1 0 0)
      => 1 x: Unknown option type "widget"
      | 3 x: Duplicate option; Bad usermap value; Unknown option type "widget"
      | 4 y: Bad usermap value; Unknown option type "" | 5 z: Bad usermap value; Unknown option type "-y"
    // A type that is unknown takes no indented lines: such a line ends the reading.
    x widget 1\n help\ny strlist 1 0 0 => => 1 x: Unknown option type "widget"
    a integer.NV 1 0 0 0 0 0\nb strlist.TWO 2 0 0\nc widget.nv 1\nd a.b.NV 1\ne widget.abc 1
      \nf integer. 1 0 0 0 0 0\ng integer 1 0 0 0 0 0\nh integer. 1 0 0 0 0 0\ni synonym.NV a
      => a integer.NV 0 in 0..0 (1 0 0) | b strlist (2 0 0) | f integer.NV 0 in 0..0 (1 0 0)
      | g integer 0 in 0..0 (1 0 0) | h integer 0 in 0..0 (1 0 0) | i -> a
      => 2 b: Type modifier not allowed | 3 c: Unknown option type "widget"
      | 4 d: Unknown option type "a.b" | 5 e: Unknown type modifier = ABC; Unknown option type "widget"
      | 6 f: Unknown type modifier =  | 8 h: Unknown type modifier =  | 9 i: Type modifier not allowed
    .<63i> strlist 1 0 0\n.<64i> strlist 1 0 0 => .<63i> strlist (1 0 0) | .<64i> strlist (1 0 0)
      => 2 .<64i>: Identifier too long
    x integer 1 0 0 9 0 0\ny synonym x\ny synonym\nz synonym y
      => x integer 0 in 0..9 (1 0 0) | y -> x | y ->  | z ->\x20
      => 3: Duplicate synonym"y" | 3: Unknown option for synonym"y" | 4: Unknown option for synonym"z"
    g group 1 0 one\nG group 1 q two\nh group => [g] 1 0 one | [G] 1 0 two | [h] 1 0
      => 2 G: Duplicate group; Bad HC; Group number not unique
      | 3 h: Bad group number; Bad HC; Group number not unique
    m multilist 1 0 0\n M, Help\n help zz zz m\n mysynonym\n\n \n Help => m multilist (1 0 0)
      => 3 m: MultiList option "zz" is undefined; MultiList option "zz" is undefined; Duplicate option used; Duplicate option used | 4: MultiList option "mysynonym" is undefined"m" | 4 m: Duplicate option used | 7 m: Duplicate option used
    x strlist 1 0 0\ny synonym x\nm macro 0 0\n X y\n zz x\n y\n m\nc macro 0 0\n m
      => x strlist (1 0 0) | m macro (-1 0 0) | c macro (-1 0 0) | y -> x
      => 5 m: Unknown option "zz" for macro "m" | 6 m: Unknown option "y" for macro "m"
      | 7 m: Unknown option "m" for macro "m"
    x strlist 1 0 0\nlost synonym nowhere\nnames deprecated and so on\n zz text\n x\n lost
      \nnames2 obsolete\n zz text
      => x strlist (1 0 0) | lost ->\x20
      => 2: Unknown option for synonym"lost" | 4 names: Deprecated option "zz" is undefined
      | 6 names: Deprecated option "lost" is undefined | 8 names2: Deprecated option "zz" is undefined
    <63i> indicator\n<64i> indicator =>
      => 2 <64i>: Indicator redefined; Indicator "<64i>" not a good identifier
    normal lookup\nPATH lookup x\nMinos lookup\nFoo lookup => => 4 Foo: Unknown lookup code "Foo"
    // The mode of looking up names holds for the lines after it; a macro's members are exact names all the
    // same.
    Path lookup\nconv_tolerance strlist 1 0 0\nconvergence_tol strlist 2 0 0\nm_one multilist 1 0 0
      \n con_tol\nmac macro 0 0\n con_tol\nsyn synonym con_tol
      => conv_tolerance strlist (1 0 0) | convergence_tol strlist (2 0 0) | m_one multilist (1 0 0)
      | mac macro (-1 0 0) | syn -> conv_tolerance
      => 3 convergence_tol: Duplicate option | 7 mac: Unknown option "con_tol" for macro "mac"
    // A field without a token keeps what an earlier line left there.
    a integer 1 5 0 10 7 3 one\nb integer 2 6
      => a integer 5 in 0..10 (1 7 3) one | b integer 6 in 0..10 (2 7 3)
      => 2 b: Bad low value; Bad high value; Bad HC value; Bad Group value
    a integer 1 5 0 10 7 3\nb double 2 0 x\nc boolean 3
      => a integer 5 in 0..10 (1 7 3) | b double 0 in 0..0 (2 7 3) | c boolean 5 (3 7 3)
      => 2 b: Bad low value; Bad high value; Bad HC; Bad Group value
      | 3 c: Bad default value; Bad HC; Bad Group value
    g group 3 8 t\ne enumstr 1 v 4\n v 9\n w\ns strlist 2
      => e enumstr "v" (1 4 3) + v 9 + w 9 | s strlist (2 9 3) | [g] 3 8 t
      => 2 e: Bad Group value | 4 e: Bad HC | 5 s: Bad HC; Bad Group value
    a widget.TWO 4\nb integer.what 1 0 0 0 0 0 => b integer.TWO 0 in 0..0 (1 0 0)
      => 1 a: Unknown option type "widget" | 2 b: Unknown type modifier = WHAT
    // A blank value line of an integer enumeration repeats the item before it.
    e enumint 1 5 0 0\n 5 6 t\n \n => e enumint 5 (1 0 0) + 5 6 t + 5 6 => 3 e: Bad integer enum; Bad HC
  )");
}

// Reading ends, and says nothing, at a line that begins with anything but a letter or a period and a letter,
// unless the line continues the one above it. Another option follows, and is not read where reading ends.
TEST(definition, linesthatendthereading) {
  play("", "definition $1\\nlast integer 1 0 0 0 0 0\\n => 0 ; told => ; value last => $2", R"(
    x strlist 1 0 0\n5 strlist 1 0 0 => ?
    x strlist 1 0 0\n. y strlist 1 0 0 => ?
    x strlist 1 0 0\n\x1A => ?
    // with its line feed an empty line
    x strlist 1 0 0\n\r => 0
    // After these lines nothing may be indented.
    x strlist 1 0 0\n y strlist 1 0 0 => ?
    x string 1 t 0 0\n help => ?
    ind indicator\n help => ?
    // Help, values and members; a tab is no indentation.
    x integer 1 0 0 0 0 0\n\thelp => ?
    x integer 1 0 0 0 0 0\n\x20 => 0
    x boolean 1 0 0 0\n* no help\n\n help => 0
    x enumint 1 5 0 0\n 5 0\n 6 0 => 0
    x enumstr 1 v 0 0\n v 0\n\x20 => ?
    x enumstr 1 v 0 0\n v 0\n "" 0 => ?
    x enumstr 1 v 0 0\n v 0\n , w 0 => ?
    x macro 0 0\n \t\x20 => ?
    // the block ends, the line is done with
    names obsolete\n\x20 => 0
    // and what follows is a line of its own
    names obsolete\n \n Help => ?
  )");
}

// What the words and members of a block do when the options are used.
TEST(definition, blocksinuse) {
  play(
      "x integer 1 0 0 9 0 0\ny integer 2 0 0 9 0 0\nsx synonym x\nsy synonym y\nnames deprecated\n"
      " x use z\n sx use x\nnames obsolete\n y went away\n sy use y\nnames deprecated\n"
      " X  use it   no more\nnames obsolete\n sx\n",
      reading, R"(
    1 => X 5 => x=5 => W1 deprecated option "X"; use it   no more
    1 => sx 5 => => W1 deprecated synonym "sx";\x20
    1 => y 5 => => W1 obsolete option "y"; went away
    1 => SY 5 => => W1 obsolete synonym "SY"; use y
  )");
  play(
      "x integer 1 0 0 9 0 0\nl strlist 1 0 0\nml multilist 2 0 0\n x, l\n l ml x nowhere x\n"
      "one macro 0 0\n x and what follows\n l\n x\ntwo macro 0 0\n one\n ml\n two\nmix multilist 3 0 0\n"
      " one l\nmany multilist 3 0 0\n many x\n l\n",
      reading, R"(
    1 => ml 1::b:x:c:: => x=1 l=[]
      => V1 Integer expected, for option "ml" saw "x"
    1 => ml 1:a:b:2:c:3:4 => x=3 l=[a] => V1 Too many items for multilist "ml"
    // A word ends at the path-list separator, not at a blank.
    1 => ml 1: \ta b :c => x=1 l=[a b ]
    1 => ml 1 :b => l=[b] => V1 Integer expected, for option "ml" saw "1 "
    1 => ml " \t "
    1 => ml 1: => x=1
    1 => ml 1:: => x=1
    1 => ml ":"
    1 => ml 7::y => x=7 l=[]
    0 => ml "4:: " => x=4 l=[]
    1 => mix 5:b:c => x=5 l=[5|b] => V1 Too many items for multilist "mix"
    1 => two 50 => l=[50]
      => V1 Integer range error for option "two" saw "50" | V1    Valid range is 0 to 9
      | V1 Integer range error for option "two" saw "50" | V1    Valid range is 0 to 9
      | V1 Integer range error for option "two" saw "50" | V1    Valid range is 0 to 9
    // One that stands for itself passes a word by.
    1 => many y:7:z => x=7 l=[z]
    1 => many y:7:z:z => x=7 l=[z] => V1 Too many items for multilist "many"
  )");
}

// Of all bytes those that the definition made a comment character end a parameter line.
const taddedstep commentcharacters("commentcharacters", [](thandle& h, const std::string&) {
  std::string found;
  for (int code = 1; code < 256; ++code) {
    if (code == '\t' || code == '\n' || code == 26 || code == ' ') continue;
    h.string(std::string("flag ") + static_cast<char>(code));
    if (h.takemessages().empty()) found += static_cast<char>(code);
  }
  return found;
});

TEST(definition, commentcharacters) {
  play("flag integer.NV 1 0 0 9 0 0\n", "definition $1 ; commentcharacters => $2", R"(
    c eolcomm ! # => !
    c eolcomm x!
    c eolcomm \xA7$%&()*,/:;<\x3D>?@[\\]^_`{|}~ => $%&()*,/:;<\x3D>?@[\\]^_`{|}~\xA7
    c eolcomm !"# => !
    c eolcomm !'# => !
    c eolcomm !1# => !
    c eolcomm !+# => !
    c eolcomm !\nd eolcomm # => #
  )");
}

}  // namespace testsupport::definitiontest
