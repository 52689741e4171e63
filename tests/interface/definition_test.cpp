// Definition files: what each kind of line defines, every message, fields that a line takes from the lines
// before it, unusual bytes and lengths; lines that end the reading, blocks of continuation lines and their
// effect when the options are used, and comment characters.
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
    h.call(BOTH(getenumvalue), nr, item, low, name);
    h.call(BOTH(getenumhelp), nr, item, helpflag, help);
    text << " + " << name << ' ' << helpflag << (help.empty() ? "" : " ") << help;
  }
  return text.str();
}

// All that a definition has defined except the predefined option, with " | " between: options, a synonym as
// "name -> option", a group as "[name] number help-flag text".
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

// The definition, what it defines, and its messages.
constexpr const char* defining = "definition $1 => 0 ; made => $2 ; errors => $3";

const trules lines("definition", "", defining, {__LINE__, R"(
    // fields are separated by blanks and tabs, and the help text is the rest of the line
    x\tINTEGER \t1 "5" minint MaxInt 2 3 \t the  text \t\x20
      => x integer 5 in -2147483648..2147483647 (1 2 3) the  text
    x integer -1234567890 1234567890 0 MaxInt 2 3 => x integer 1234567890 in 0..2147483647 (-1234567890 2 3)
    s string 1 "say "hi", now" 2 3 t => s string "say "hi", now" (1 2 3) t
    .x_1Y double 1 0 0 9 2 3 t => .x_1Y double 0 in 0..9 (1 2 3) t

    // each type has its own fields
    d double 1 .5 mindouble maxdouble 2 3 t => d double 0.5 in -1e+299..1e+299 (1 2 3) t
    e enumstr 1 RED 2 3 t\n red 4 warm\n "dark blue" -1\n
      => e enumstr "RED" (1 2 3) t + red 4 warm + dark blue -1
    e enumint 1 5 2 3 t\n 1 4 one\n 5 0\n => e enumint 5 (1 2 3) t + 1 4 one + 5 0
    m multilist 1 2 3 t\nl strlist 1 2 3 t\nc macro 2 3 t\ni immediate readfile 2 3 t
      => m multilist (1 2 3) t | l strlist (1 2 3) t | c macro (-1 2 3) t | i immediate (-1 2 3) t

    // the default of a boolean is not checked
    b boolean 1 7 2 3 t => b boolean 7 (1 2 3) t

    // a modifier follows the type; a string option ignores it
    a integer.nv 1 0 0 0 0 0\nb double.Opt 1 0 0 0 0 0\nc boolean.TWO 1 0 0 0
      => a integer.NV 0 in 0..0 (1 0 0) | b double.OPT 0 in 0..0 (1 0 0) | c boolean.TWO 0 (1 0 0)
    d enumstr.NV 1 x 0 0\n x 0\ne enumint.OPT 1 2 0 0\n 2 0\nf string.TWO 1 x 0 0
      => d enumstr.NV "x" (1 0 0) + x 0 | e enumint.OPT 2 (1 0 0) + 2 0 | f string "x" (1 0 0)

    // synonyms and groups have their own lists
    x integer 1 0 0 9 0 0\ny synonym X and more\nz synonym x\ng group 3 1 the text\nh group -4 0
      => x integer 0 in 0..9 (1 0 0) | y -> x | z -> x | [g] 3 1 the text | [h] -4 0

    // all bytes are kept but line ends and code 26
    x string 1 v 0 0 text\r\ny strlist 1 0 0\r\n\r\n => x string "v" (1 0 0) text | y strlist (1 0 0)
    x string 1 v 0 0 t\x01\xE9\rxt\r\r\n => x string "v" (1 0 0) t\x01\xE9\rxt\r
    x string 1 v 0 0 te\x1Axt\ny strlist 1 0 0 => x string "v" (1 0 0) te | y strlist (1 0 0)

    // names and texts are cut at 255 characters, lines at 1020
    <254n>nnnz integer 1 0 0 9 2 3 => <254n>z integer 0 in 0..9 (1 2 3)
    x string 1 v 0 0 <254t>uvw => x string "v" (1 0 0) <254t>w
    x string 1 v 0 0 <1002t>uvw\ny strlist 1 0 0 => x string "v" (1 0 0) <254t>u | y strlist (1 0 0)
)"});

const trules mistakes("definition", "", defining, {__LINE__, R"(
    // a field that cannot be read is reported and counts as zero
    x integer => x integer 0 in 0..0 (0 0 0)
      => 1 x: Bad usermap value; Bad default value; Bad low value; Bad high value; Bad HC value; Bad Group value
    x double 1 b c d e 3 t => x double 0 in 0..0 (1 0 3) t
      => 1 x: Bad default value; Bad low value; Bad high value; Bad HC
    x boolean 1 yes 2.0 3 => x boolean 0 (1 0 3) => 1 x: Bad default value; Bad HC
    m multilist\nl strlist 1 q 0\nc macro 0 q => m multilist (0 0 0) | l strlist (1 0 0) | c macro (-1 0 0)
      => 1 m: Bad usermap value; Bad HC; Bad Group value | 2 l: Bad HC | 3 c: Bad Group value

    // a quote that is not closed takes the rest of the line
    x integer 1 "5 0 9 2 3\ny integer 2 0 0 9 2 3 => x integer 0 in 0..0 (1 0 0) | y integer 0 in 0..9 (2 2 3)
      => 1 x: Bad default value; Bad low value; Bad high value; Bad HC value; Bad Group value

    // a comma ends a field and is never skipped
    x integer 1 5, 0 10 2 3 t => x integer 5 in 0..0 (1 0 0) , 0 10 2 3 t
      => 1 x: Bad low value; Bad high value; Bad HC value; Bad Group value; Default not in range
    t string 5 , 2 => t string "" (5 0 0) , 2 => 1 t: Bad HC; Bad Group value

    // an enumeration needs a default that is among its values
    s string 4 text 2 3\nx enumstr 1 => s string "text" (4 2 3) | x enumstr "" (1 2 3)
      => 2 x: Bad default string; Bad HC; Bad Group value; Default is undefined
    x enumstr 1 c 2 3\n a 0\n b q t\n\n* end => x enumstr "c" (1 2 3) + a 0 + b 0 t
      => 3 x: Bad HC | 5 x: Default is undefined
    x enumint 1 c\n 1 0\n b => x enumint 0 (1 0 0) + 1 0 + 0 0
      => 1 x: Bad default value; Bad HC; Bad Group value | 3 x: Bad integer enum; Bad HC
    x enumint 1 2 0 0\n 1 0\ny strlist 1 0 0 => x enumint 2 (1 0 0) + 1 0 | y strlist (1 0 0)
      => 3 x: Default is undefined

    // an immediate option needs a kind
    x immediate\ny immediate Foo 2 3\nz immediate Help x 3 => z immediate (-1 0 3)
      => 1 x: immediate type expected; Bad HC; Bad Group value; Unknown immediate option
      | 2 y: Unknown immediate option | 3 z: Bad HC

    // a default outside the bounds is kept and reported
    x integer 1 5 10 1 2 3\ny double 1 5 6 7 2 3\nz double 1 8 6 7 2 3
      => x integer 5 in 10..1 (1 2 3) | y double 5 in 6..7 (1 2 3) | z double 8 in 6..7 (1 2 3)
      => 1 x: Default not in range | 2 y: Default not in range | 3 z: Default not in range

    // an option with a duplicate name is reported and still defined
    * nothing\n\nHELP integer 1 0 0 9 1 1 => HELP integer 0 in 0..9 (1 1 1) => 3 HELP: Duplicate option
    x integer 1 5 0 9 0 0\nX integer 2 5 0 9 0 0\ny synonym x\nY string 3 t 0 0
      => x integer 5 in 0..9 (1 0 0) | X integer 5 in 0..9 (2 0 0) | Y string "t" (3 0 0) | y -> x
      => 2 X: Duplicate option | 4 Y: Duplicate option
    x integer 1 0 0 9 0 0\ny synonym x\ny synonym\nz synonym y
      => x integer 0 in 0..9 (1 0 0) | y -> x | y ->  | z ->\x20
      => 3: Duplicate synonym"y" | 3: Unknown option for synonym"y" | 4: Unknown option for synonym"z"
    g group 1 0 one\nG group 1 q two\nh group => [g] 1 0 one | [G] 1 0 two | [h] 1 0
      => 2 G: Duplicate group; Bad HC; Group number not unique
      | 3 h: Bad group number; Bad HC; Group number not unique

    // an unknown type defines no option and takes no indented lines
    x widget 5\nx integer 1 0 0 9 0 0\nx widget\ny\nz-y integer => x integer 0 in 0..9 (1 0 0)
      => 1 x: Unknown option type "widget"
      | 3 x: Duplicate option; Bad usermap value; Unknown option type "widget"
      | 4 y: Bad usermap value; Unknown option type "" | 5 z: Bad usermap value; Unknown option type "-y"
    x widget 1\n help\ny strlist 1 0 0 => => 1 x: Unknown option type "widget"

    // a modifier that is unknown or not allowed is reported
    a strlist.TWO 2 0 0\nb integer 1 0 0 0 0 0\nc synonym.NV b
      => a strlist (2 0 0) | b integer 0 in 0..0 (1 0 0) | c -> b
      => 1 a: Type modifier not allowed | 3 c: Type modifier not allowed
    c widget.nv 1\nd a.b.NV 1\ne widget.abc 1 => => 1 c: Unknown option type "widget"
      | 2 d: Unknown option type "a.b" | 3 e: Unknown type modifier = ABC; Unknown option type "widget"

    // an unknown modifier leaves the modifier of the line before in effect
    a integer.NV 1 0 0 0 0 0\nf integer. 1 0 0 0 0 0\ng integer 1 0 0 0 0 0\nh integer. 1 0 0 0 0 0
      => a integer.NV 0 in 0..0 (1 0 0) | f integer.NV 0 in 0..0 (1 0 0) | g integer 0 in 0..0 (1 0 0)
      | h integer 0 in 0..0 (1 0 0) => 2 f: Unknown type modifier =  | 4 h: Unknown type modifier =\x20
    a widget.TWO 4\nb integer.what 1 0 0 0 0 0 => b integer.TWO 0 in 0..0 (1 0 0)
      => 1 a: Unknown option type "widget" | 2 b: Unknown type modifier = WHAT

    // the name of a dot option or indicator has at most 63 characters
    .<63i> strlist 1 0 0\n.<64i> strlist 1 0 0 => .<63i> strlist (1 0 0) | .<64i> strlist (1 0 0)
      => 2 .<64i>: Identifier too long
    <63i> indicator\n<64i> indicator =>
      => 2 <64i>: Indicator redefined; Indicator "<64i>" not a good identifier

    // a multilist names known options, each of them once, and a comma ends the line
    m multilist 1 0 0\n Help zz help\n m zz => m multilist (1 0 0)
      => 2 m: MultiList option "zz" is undefined; Duplicate option used
      | 3 m: MultiList option "zz" is undefined; Duplicate option used
    m multilist 1 0 0\n Help, zz\n\n \n HELP => m multilist (1 0 0) => 5 m: Duplicate option used

    // a message with the word synonym lacks the words for option
    m multilist 1 0 0\n mysynonym => m multilist (1 0 0) => 2: MultiList option "mysynonym" is undefined"m"

    // a macro names options by their own names and never itself
    x strlist 1 0 0\ny synonym x\nm macro 0 0\n X y\n zz x\n y\n m\nc macro 0 0\n m => x strlist (1 0 0)
      | m macro (-1 0 0) | c macro (-1 0 0) | y -> x => 5 m: Unknown option "zz" for macro "m"
      | 6 m: Unknown option "y" for macro "m" | 7 m: Unknown option "m" for macro "m"

    // a deprecated name must be known
    x strlist 1 0 0\nlost synonym nowhere\nnames deprecated and so on\n zz text\n x\n lost
      \nnames2 obsolete\n zz text => x strlist (1 0 0) | lost ->\x20
      => 2: Unknown option for synonym"lost" | 4 names: Deprecated option "zz" is undefined
      | 6 names: Deprecated option "lost" is undefined | 8 names2: Deprecated option "zz" is undefined

    // a lookup mode holds for the lines after it, but not for members of macros
    normal lookup\nPATH lookup x\nMinos lookup\nFoo lookup => => 4 Foo: Unknown lookup code "Foo"
    Path lookup\nconv_tolerance strlist 1 0 0\nconvergence_tol strlist 2 0 0\nm_one multilist 1 0 0
      \n con_tol\nmac macro 0 0\n con_tol\nsyn synonym con_tol
      => conv_tolerance strlist (1 0 0) | convergence_tol strlist (2 0 0) | m_one multilist (1 0 0)
      | mac macro (-1 0 0) | syn -> conv_tolerance
      => 3 convergence_tol: Duplicate option | 7 mac: Unknown option "con_tol" for macro "mac"

    // a missing field keeps the value of an earlier line
    i integer => i integer 0 in 0..0 (0 0 0)
      => 1 i: Bad usermap value; Bad default value; Bad low value; Bad high value; Bad HC value; Bad Group value
    d double => d double 0 in 0..0 (0 0 0)
      => 1 d: Bad usermap value; Bad default value; Bad low value; Bad high value; Bad HC; Bad Group value
    a integer 1 5 0 10 7 3\nb double 2 0 x\nc boolean 3
      => a integer 5 in 0..10 (1 7 3) | b double 0 in 0..0 (2 7 3) | c boolean 5 (3 7 3)
      => 2 b: Bad low value; Bad high value; Bad HC; Bad Group value
      | 3 c: Bad default value; Bad HC; Bad Group value
    g group 3 8 t\ne enumstr 1 v 4\n v 9\n w\ns strlist 2 => e enumstr "v" (1 4 3) + v 9 + w 9
      | s strlist (2 9 3) | [g] 3 8 t => 2 e: Bad Group value | 4 e: Bad HC | 5 s: Bad HC; Bad Group value

    // a blank value line of an integer enumeration repeats the item before it
    e enumint 1 5 0 0\n 5 6 t\n \n => e enumint 5 (1 0 0) + 5 6 t + 5 6 => 3 e: Bad integer enum; Bad HC
)"});

// A definition, after which another option follows; "?" if the reading ends before that option. It then ends
// without a message.
const trules endings("definition", "",
                     "definition $1\\nlast integer 1 0 0 0 0 0\\n => 0 ; told => ; value last => $2",
                     {__LINE__, R"(
    // reading ends at a line that begins neither with a letter nor with a period and a letter
    x strlist 1 0 0\n5 strlist 1 0 0 => ?
    x strlist 1 0 0\n. y strlist 1 0 0 => ?
    x strlist 1 0 0\n\x1A => ?

    // an empty line does not end the reading
    x strlist 1 0 0\n\n => 0
    x strlist 1 0 0\n\r => 0

    // reading ends at an indented line where none is allowed
    x strlist 1 0 0\n y strlist 1 0 0 => ?
    x string 1 t 0 0\n help => ?
    ind indicator\n help => ?

    // lines of help and values begin with a blank, not with a tab
    x integer 1 0 0 0 0 0\n\thelp => ?
    x integer 1 0 0 0 0 0\n\x20 => 0
    x boolean 1 0 0 0\n* no help\n\n help => 0
    x enumint 1 5 0 0\n 5 0\n 6 0 => 0

    // reading ends at a line for values or members that has none
    x enumstr 1 v 0 0\n v 0\n\x20 => ?
    x enumstr 1 v 0 0\n v 0\n "" 0 => ?
    x enumstr 1 v 0 0\n v 0\n , w 0 => ?
    x macro 0 0\n \t\x20 => ?

    // a blank line ends a block of names, and a definition line may follow
    names obsolete\n\x20 => 0
    names obsolete\n \n Help => ?
)"});

const trules deprecated(
    "definition",
    "x integer 1 0 0 9 0 0\ny integer 2 0 0 9 0 0\nsx synonym x\nsy synonym y\n"
    "names deprecated\n x use z\n sx use x\nnames obsolete\n y went away\n sy use y\nnames deprecated\n"
    " X  use it   no more\nnames obsolete\n sx\n",
    reading, {__LINE__, R"(
    // if several lines deprecate a name, the last one gives the text
    1 => X 5 => x=5 => W1 deprecated option "X"; use it   no more
    1 => sx 5 => => W1 deprecated synonym "sx";\x20
    1 => y 5 => => W1 obsolete option "y"; went away
    1 => SY 5 => => W1 obsolete synonym "SY"; use y
)"});

const trules members(
    "members",
    "x integer 1 0 0 9 0 0\nl strlist 1 0 0\nn strlist 1 0 0\nwords multilist 2 0 0\n x l n\n"
    "both macro 0 0\n x\n l\nall macro 0 0\n both\n words\nmix multilist 3 0 0\n both n\n"
    "self multilist 3 0 0\n self nowhere l\n",
    reading, {__LINE__, R"(
    // each word of a multilist goes to the next member
    1 => words 1:a:b => x=1 l=[a] n=[b]
    1 => words 1:a:b:c:d => x=1 l=[a] n=[b] => V1 Too many items for multilist "words"
    1 => words bad:a => l=[a] => V1 Integer expected, for option "words" saw "bad"

    // blanks before a word of a multilist are skipped, blanks after it belong to it
    1 => words 1: \ta b :c => x=1 l=[a b ] n=[c]
    1 => words 1 :b => l=[b] => V1 Integer expected, for option "words" saw "1 "

    // a word that is empty at the end of the text is dropped
    1 => words 4: => x=4
    1 => words 4:: => x=4
    0 => words "5: " => x=5
    1 => words ":"
    1 => words 1:a:b:: => x=1 l=[a] n=[b]
    1 => words 7:y:: => x=7 l=[y]
    1 => words " \t "

    // an empty word before the end of the text sets a member
    1 => words 1::2 => x=1 l=[] n=[2]
    0 => words "4:: " => x=4 l=[]

    // a macro passes the whole text to each member, and so do macros among the members
    1 => both 5:a => l=[5:a] => V1 Integer expected, for option "both" saw "5:a"
    1 => all 5 => x=5 l=[5]
    1 => mix 5:b => x=5 l=[5] n=[b]

    // an unknown member uses up a word, and so does the multilist itself
    1 => self y:z:w => l=[w]
)"});

// Tries all bytes and returns those that are comment characters.
const taddedstep commentcharacters("commentcharacters", [](thandle& h, const std::string&) {
  std::string found;
  for (int code = 1; code < 256; ++code) {
    if (code == '\t' || code == '\n' || code == 26 || code == ' ') continue;
    h.string(std::string("flag ") + static_cast<char>(code));
    if (h.messages().empty()) found += static_cast<char>(code);
    h.one(optclearmessages);
  }
  return found;
});

const trules comments("comments", "flag integer.NV 1 0 0 9 0 0\n", "definition $1 ; commentcharacters => $2",
                      {__LINE__, R"(
    // most characters other than letters and digits can begin a comment
    c eolcomm ! # => !
    c eolcomm \xA7$%&()*,/:;<\x3D>?@[\\]^_`{|}~ => $%&()*,/:;<\x3D>?@[\\]^_`{|}~\xA7

    // the first character that cannot begin a comment ends the list
    c eolcomm x!
    c eolcomm !"# => !
    c eolcomm !'# => !
    c eolcomm !1# => !
    c eolcomm !+# => !

    // if there are several lists, the last one counts
    c eolcomm !\nd eolcomm # => #
)"});

}  // namespace testsupport::definitiontest
