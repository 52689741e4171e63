// Option text: keys, values and what may follow them on a line in both reading modes, every message of the
// reader, values that take the rest of a line, deprecated names, immediate options, keys that create a list,
// keys of several words, and sources with unusual bytes and sizes; files that read files, files that are no
// ordinary files, and files that change while they are read.
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <thread>

#include "interface/script.h"

namespace testsupport::parameterstest {

constexpr const char* options =
    "a integer 1 0 -100 100 1 1 an integer\nb integer 2 0 0 9 1 1\nd double 3 0 0 1 1 1\n"
    "s string 4 none 1 1\nt boolean 5 0 1 1\nl strlist 6 1 1\nnv integer.NV 7 7 0 9 1 1\n"
    "opt integer.OPT 8 8 0 9 1 1\nflag boolean.NV 9 1 1 1\ntwo integer.TWO 10 1 0 9 1 1\n"
    "color enumstr.TWO 11 red 1 1\n red 1\n blue 1\nalias synonym a\nold integer 12 0 0 9 1 1\n"
    "gone integer 14 0 0 9 1 1\ngonetwo integer.TWO 14 1 0 9 1 1\ngoneflag boolean.NV 15 1 1 1\n"
    "shape enumstr.NV 16 box 1 1\n box 1\nlevel enumint.OPT 17 5 1 1\n 5 1\n"
    "mixed integer 17 0 0 9 1 1\nwas synonym mixed\nlately synonym b\nnames deprecated\n old use a\n"
    " mixed use b\n lately b is shorter\nnames obsolete\n gone left in release 3\n gonetwo left as well\n"
    " goneflag left, too\n was never more\nLines immediate EolFlag 0 0\nRead immediate ReadFile 0 0\n"
    "Say immediate Message 0 0\nFree immediate NoBounds 0 0\nmarks eolcomm !#\n";

const trules settingsofkeys("settings", options, reading, {__LINE__, R"(
    // dashes and slashes may stand before a key, and a comma between settings
    0 => , \tALIAS\t=\t1 ,/b=2 -/-s x => a=1 b=2 --s=[x]
    0 => a 1 , \n, ! b 3\n,\nb 2 => a=1 b=2
    1 => ,a 1\n,b 2 => a=1 b=2
    0 => \x20,, a 1\nb 2 => b=2 => E1 Option keyword expected, saw ","

    // if a key has a dash before it, a period begins the value
    0 => -d.5 => d=0.5

    // a key must follow a dash
    0 => - a 1\n-\nb 2 => b=2 => E1 Option keyword expected, saw " " | E2 Option keyword expected, saw ""

    // a key and its value are separated by blanks or an equals sign
    1 => \ta = 1 \nb := 2 # two => a=1 b=2
    0 => a:=1 b 2\nb, 2\nnv! b 3\n--zz:5 => => E1 Bad separator after key "a"
      | E2 Bad separator after key "b" | E3 Bad separator after key "nv" | E4 Bad separator after key "zz"

    // a star in the first column and an end-of-line character begin a comment
    0 => * a 1\n\n * a 1\n\t! a 1\nb 2 ! a 1 => b=2 => E3 Option keyword expected, saw "*"

    // an unknown option is skipped with its value, and the rest of the line is read
    0 => bad , a 3 bad "x y" b 2\nbad=1 a 4\nbad = 1 a 5 => a=4 b=2
      => E1 E1 E2 E3 Unknown option "bad" | E3 Option keyword expected, saw "1"

    // messages on values quote the key as it was typed
    0 => Alias 101 /B x => => V1 Integer range error for option "Alias" saw "101"
      | V1    Valid range is -100 to 100 | V1 Integer expected, for option "B" saw "x"

    // a key with two dashes adds its value to a list
    1 => --zz = a, b ! c\n//ZZ\n-/b 2 => --zz=[a, b ! c|] --b=[2]
    0 => --zz = x y 1 --zz "a b",---zz :x => --zz=[x|a b|:x] => E1 Unknown option "y"
    1 => --zz "a b"\n--zz ! => --zz=[] => V1 Bad double-quote in value
    // in normal reading a value is one word or a text in quotes
    0 => s "x y" b 2\nl x l "y z",l "" l w!v # z => b=2 s=x y l=[x|y z||w!v]
    0 => s "a"b"c" b 2 => b=2 => V1 Bad double-quote in value
    0 => s , b 2\na , t 1 => b=2 s= t=1 => V2 Integer expected, for option "a" saw ""

    // in normal reading a quote that is not closed gives no value and ends the line
    0 => s "x y b 2\nb 3 => b=3
    0 => s "\ntwo "3\nb 3 => b=3

    // in end-of-line reading a value is the rest of the line without blanks at either end
    1 => s  x  y \t ! z\nl "x ! y" # "z"\nl "  x  "\nl x, y\nl "z"\nl "" => s=x  y l=[x ! y|x|x, y|z|]
    1 => b 2,\na 3, b 2\ns 1, b 2 => s=1, b 2
      => V1 Integer expected, for option "b" saw "2," | V2 Integer expected, for option "a" saw "3, b 2"
    1 => s "x y\ns "x" y\na "5" ! five => a=5 => V1 V2 Bad double-quote in value

    // a key needs a value
    0 => ALIAS\na :5\nb 2 => b=2 => E1 E2 Value expected for key "a" | E2 Option keyword expected, saw ":"
    1 => t = \na ! 5\na :5\nb 2 => b=2
      => E1 Value expected for key "t" | E2 E3 Value expected for key "a" | E3 Remainder of line ignored

    // after an option without value the rest of the line is read
    0 => nv flag b 2 => b=2 nv=7 flag=1
    0 => nv 5 b 2\nflag=1 => nv=7 flag=1
      => E1 Option keyword expected, saw "5" | E2 Option keyword expected, saw "="
    1 => nv\nflag b 2\nflag =\nb 2 => b=2 nv=7 flag=1 => E2 E3 Remainder of line ignored

    // an option with an optional value takes the word that follows
    0 => opt\nshape b 2 level => b=2 opt=8 shape=box level=5
    0 => opt b 2\nopt =\nopt , b 3 => b=3
      => V1 Integer expected, for option "opt" saw "b" | E1 Option keyword expected, saw "2"
      | E2 Value expected for key "opt" | V3 Integer expected, for option "opt" saw ""

    // one word sets both of two values, and a star leaves one as it is
    0 => two 3 4 b 2 => b=2 two=3,4
    0 => two 3 * => two=3,-
    1 => two * "4" # five => two=-,4
    0 => two 3\ncolor red blue s x => s=x two=3,3 color=red,blue
    0 => two x => => V1 V1 Integer expected, for option "two" saw "x"
    0 => two => => E1 Value expected for key "two"

    // in end-of-line reading the second value is the rest of the line
    1 => two 3 4 5\ntwo 6,7 => two=6,-
      => V1 Integer expected, for option "two" saw "4 5" | V2 Integer expected, for option "two" saw ",7"
    1 => color blue red wine => color=blue,-
      => V1 Unknown value for option "color" saw "red wine" | V1    Possible values are  red blue

    // of a longer value 254 characters and the last one are kept
    1 => l <254v>wxyz\nl <254v>wx  ! c => l=[<254v>z|<254v>]
    1 => l "<254v>wxyz" ! c => => V1 Bad double-quote in value
    0 => s "<254v>wxyz" b 2 => b=2 s=<254v>
)"});

// An option of each type whose value may be left out.
const trules optionalvalues("settings",
                            "i integer.OPT 1 4 0 9 1 1\nd double.OPT 2 2.5 0 9 1 1\nb boolean.OPT 3 1 1 1\n"
                            "e enumstr.OPT 4 x 1 1\n x 1\n y 1\nn enumint.OPT 5 3 1 1\n 3 1\n 6 1\n",
                            {__LINE__, R"(
    // an option with an optional value goes back to its default when it is named alone
    parameters i 1\nd 1\nb 0\ne y\nn 6\n ; settings => i=1 d=1 b=0 e=y n=6
    parameters i\nd\nb\ne\nn\n ; settings => i=4 d=2.5 b=1 e=x n=3
)"});

const trules oldnamesandimmediates("statements", options, reading, {__LINE__, R"(
    // a deprecated name is reported and works
    0 => OLD 3 b 2 => b=2 old=3 => W1 deprecated option "OLD"; use a

    // an obsolete name is reported and ignored together with its value
    0 => gonetwo 3 4 b 2 => b=2 => W1 obsolete option "gonetwo"; left as well
    1 => gone 3 4\ngoneflag 1 => => W1 obsolete option "gone"; left in release 3
      | W2 obsolete option "goneflag"; left, too | E2 Remainder of line ignored

    // a synonym can be deprecated by itself
    0 => lately 3 b 4 => b=4 => W1 deprecated synonym "lately"; b is shorter

    // an option with both marks counts as deprecated, and its obsolete synonym is ignored
    0 => mixed 3 was 4 => mixed=3
      => W1 deprecated option "mixed"; use b | W1 deprecated synonym "was"; never more
    // an immediate option changes the mode of reading for the rest of the source
    1 => Lines = OFF, a 1\nd 1 lines on s x, b 2\ns y z => a=1 d=1 s=y z
    0 => lines perhaps s x y => s=x y

    // an immediate option adds a message or help
    1 => say "hello there" say = you help a b 2 => b=2 => E1 hello there | E1 you
      | a: an integer | <24 >integer,  range: -100 to 100 default: 0
    0 => say , b 2 => b=2 => E1\x20

    // an immediate option switches the checking of bounds
    0 => free 1 b 50 free 0 a 500 => b=50
      => W1 Integer range error for option "b" saw "50" | W1    Valid range is 0 to 9
      | V1 Integer range error for option "a" saw "500" | V1    Valid range is -100 to 100

    // every immediate option but help needs a value
    0 => LINES\nlines "no\nSay =\nread\nfree ! => => E1 Value expected for immediate option "LINES"
      | E2 Value expected for immediate option "lines" | E3 Value expected for immediate option "Say"
      | E4 Value expected for immediate option "read" | E5 Value expected for immediate option "free"
)"});

const trules bytes("lines", options, reading, {__LINE__, R"(
    // a carriage return belongs to the line end only if it stands there
    1 => a 1\r\n\r\nb 2\r\nnv\r\nd 1\r => a=1 b=2 d=1 nv=7
    0 => s x\ry\r\r\nb 2\n\r => b=2 s=x\ry\r

    // code 26 ends a line
    0 => a 1\x1A b 3\nt 1 => a=1 t=1
    1 => s x y\x1A z\nnv\x1A\n\x1A\nb 2 => b=2 s=x y nv=7
    1 => s "x\x1A y"\na\x1A 5 => => V1 Bad double-quote in value | E2 Value expected for key "a"

    // a setting cannot continue on the next line
    0 => b\n2 => => E1 Value expected for key "b" | E2 Option keyword expected, saw "2"

    // bytes above 127 cannot be in a key
    0 => \xEF\xBB\xBF\nb 2 => b=2 => E1 Option keyword expected, saw "\xEF"

    // of a line 1020 characters are read
    1 => *<1000000v>\ns <1017v>wxy\nb 2 => b=2 s=<254v>w
    0 => s x<1015 >b 2\nt 1 => s=x t=1 => E1 Value expected for key "b"
)"});

const trules modes("immediates", options, {__LINE__, R"(
    // a function sets the mode of all later readings
    eolonlyset 5 => 1 ; readfromstr lines 0 a 1 b 2 ; readfromstr s x, a 3 ; settings => a=1 b=2 s=x, a 3
    eolonlyset 0 => 1 ; readfromstr lines 1 s y z ; readfromstr a 3 b 4 ; settings => a=3 b=4 s=y z
    eolonlyset -1 => 0 ; eolonlyset 0 => 1 ; messages =>
)"});

const std::string names =
    "major_iterations_limit integer 1 0 0 99 0 0\nscale_option strlist 2 0 0\nfast integer 3 0 0 99 0 0\n"
    "one_two_three_four integer 4 0 0 99 0 0\nnames deprecated\n major_iterations_limit too long\n";
const trules pathkeys("pathkeys", "Path lookup\n" + names, reading, {__LINE__, R"(
    // words of a key may be abbreviated to three characters
    0 => majXX_iter_lim 7 fas 3 => major_iterations_limit=7 fast=3

    // keys with two dashes may be abbreviated as well
    0 => --ab x --abcd y --aXb z --Xb w => --ab=[x|y|z] --Xb=[w]
)"});
const trules minoskeys("minoskeys", "Minos lookup\n" + names, reading, {__LINE__, R"(
    // a key has one word or several
    0 => Major Iterations Limit 7 fas 3 => major_iterations_limit=7 fast=3
      => W1 deprecated option "Major_Iterations_Limit"; too long
    0 => one two three fox five one two three four 7 => one_two_three_four=7
      => E1 Unknown option "one_two_three_fox"
    1 => scale option x y => scale_option=[x y]

    // a word that is no identifier ends the key
    0 => scale -5 fast 3\n => fast=3 => E1 Unknown option "scale"

    // a key that is typed with underscores finds no option but may create a list
    0 => one_two 7 => => E1 Unknown option "one_two"
    0 => --zz y 1 => --zz_y=[1]

    // messages quote the words that were typed
    0 => MAJX iterX limiXX=100 => => V1 Integer range error for option "MAJX_iterX_limiXX" saw "100"
      | V1    Valid range is 0 to 99
)"});

const trules texts("texts", options, {__LINE__, R"(
    // a string or buffer is one line that a line feed ends
    readfromstr a 1\nb 2 ; settings => a=1
    readfrompchar s x y\nb 2 ; settings => a=1 s=x y
    readfrompchar l v w\nb 2 ; settings => a=1 s=x y l=[v w]
    readfromstr \na 2 ; readfromstr ; readfrompchar ; messages =>

    // messages on a string or buffer have no line number
    readfromstr * a 2 ; readfrompchar bad ; readfromstr read none
    told => +string | E Option keyword expected, saw "*" | -string | +pchar | E Unknown option "bad" | -pchar
      | +string | E Cannot open parameter file "none" | E Error code = 2; No such file or directory | -string

    // the length of a buffer has no limit
    eolonlyset 0 ; readfrompchar b 2<1000000 >t 1 ; value t => 1
)"});

// The file "inner", the text that reads it, what both set, and their messages.
const trules includes("files", options, "file inner $1 ; parameters $2 => 0 ; settings => $3 ; told => $4",
                      {__LINE__, R"(
    // a file reads another file at the line that names it
    a 1\n => read %DIR%/inner\r\nb 2 => a=1 b=2
    \e => read = "%DIR%/inner" b 2\na 1 => a=1 b=2

    // line numbers are those of each file
    \e\na x\n => * first\nread %DIR%/inner b y\nbad 1 =>
      => +OPT | +inner | V2 Integer expected, for option "a" saw "x" | -inner
      | V2 Integer expected, for option "b" saw "y" | E3 Unknown option "bad" | -OPT

    // notes on a file without messages are removed, those around it stay
    a 1 => say one\nread %DIR%/inner say two => a=1 => +OPT | E1 one | E2 two | -OPT
    say inside => read %DIR%/inner => => +OPT | +inner | E1 inside | -inner | -OPT

    // each file has its own mode of reading
    s x, a 1\nlines off => lines off read %DIR%/inner b 2 a 3\nb 4 a 5 => a=5 b=4 s=x, a 1
    lines off a 1 b 2 => read %DIR%/inner s x, a 3 => a=1 b=2 s=x, a 3

    // the checking of bounds is switched for all files
    free on => read %DIR%/inner b 50 => b=50
      => +OPT | W1 Integer range error for option "b" saw "50" | W1    Valid range is 0 to 9 | -OPT

    // a file that cannot be opened is reported with the line that names it
    \e => \nread %DIR%/. a 1\nread %DIR%/inner/x => a=1
      => +OPT | E2 Cannot open parameter file "." | E2 Error code = 21; Is a directory
      | E3 Cannot open parameter file "inner/x" | E3 Error code = 20; Not a directory | -OPT
)"});

constexpr const char* selfreading =
    "file self --list x\\nread %DIR%/self\\na 2 ; readfromstr read = %DIR%/self"
    " ; settings => a=2 --list=[x|x|x|x|x|x|x|x|x] ; told => $1 ; resetall ; readfromstr read = %DIR%/self"
    " ; settings => a=2 --list=[x|x|x|x|x|x|x|x|x] ; told => $1";
const trules nesting("files", options, selfreading, {__LINE__, R"(
    // files nest at most nine deep
    +string<10 | +self> | E File nesting level too deep; file ignored<10 | -self> | -string
)"});

const trules filecount("files", "read immediate ReadFile 1 1\nnote strlist 1 1 1\n", {__LINE__, R"(
    // one call reads at most ten thousand files, and the next call may again read as many
    eolonlyset 0 ; file f note x ; readfrompchar <10000read %DIR%/f > ; messages =>
    listcountstr note => 10000
    readfrompchar <10001read %DIR%/f > ; listcountstr note => 20000
    told => +pchar | +f | E Too many parameter files; file ignored | -f | -pchar

    // a file that is too deep counts as one that was read
    eolonlyset 0 ; file s note x <3read %DIR%/s > ; readfrompchar <1000000 >read %DIR%/s
    listcountstr note => 3337

    // of a small file 32 KiB are read again, and after that no file is read
    eolonlyset 0 ; file f *<1016v>\nnote x ; readfrompchar <33read %DIR%/f > ; messages =>
    listcountstr note => 33
    readfrompchar <34read %DIR%/f >read none ; listcountstr note => 66
    told => +pchar | E Too many bytes read again; file "f" ignored
      | E Too many bytes read again; file "none" ignored | -pchar

    // a larger file is read again twice
    file self *<100000v>\nnote x\nread %DIR%/self\n ; parameters read %DIR%/self ; listcountstr note => 3
    told => +OPT | +self<2 | +self> | E3 Too many bytes read again; file "self" ignored<3 | -self> | -OPT

    // the text of the call counts as well
    eolonlyset 0 ; file f *<4088v>\nnote x ; readfrompchar <1000000 ><50read %DIR%/f >
    listcountstr note => 50

    // a device that has no end is not read again
    parameters read /dev/zero\nread /dev/zero
    problems => E1 Option keyword expected, saw "\x00" | E1 Cannot read parameter file "/dev/zero"
      | E1 Error code = 27; File too large | E2 Too many bytes read again; file "/dev/zero" ignored
)"});

const trules noordinaryfiles("files", "", {__LINE__, R"(
    // a folder is reported and not read
    readdefinition %DIR%/ => 21
    told => D Cannot open option file "" | D Error code = 21; Is a directory
    readparameterfile %DIR%/ => 21
    told => E Cannot open parameter file "" | E Error code = 21; Is a directory

    // the null device is an empty file
    readdefinition /dev/null => 0 ; readparameterfile /dev/null => 0 ; messages =>

    // a name counts whole, although for the system it ends at its first zero byte
    readdefinition /dev/null\x00x => 2 ; readparameterfile /dev/null\x00x => 2
    readfromstr --any x ; writeparameterfile /dev/null\x00x => 2
)"});

// A program that writes to a FIFO would see that it is opened. The size of a file that is not opened does not
// count, so the small file is read only three times.
TEST(files, beyond_a_limit_are_not_opened) {
  thandle h;
  h.definition(options);
  const auto write = [&](const char* name, const std::string& text) {
    return h.directory().write(name, h.expanded(text));
  };
  const auto times = [](int count, const std::string& line) {
    std::string text;
    while (count-- > 0) text += line;
    return text;
  };
  const std::string fifo = h.directory().path("fifo");
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  const int writer = open(fifo.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
  ASSERT_EQ(::write(writer, "a 1\n", 4), 4);

  for (char level = '2'; level <= '8'; ++level)
    write(std::string(1, level).c_str(), std::string("read %DIR%/") + static_cast<char>(level + 1));
  write("9", "read %DIR%/fifo\nread %DIR%/none\nread %DIR%/large\nread %DIR%/.\nread /dev/null\\x00x\n");
  std::filesystem::resize_file(write("large", ""), 10'000'000);
  write("small", "l x\n*" + std::string(12'000, ' '));
  h.parameters("read %DIR%/2\n" + times(5, "read %DIR%/small\n"));
  EXPECT_EQ(h.call(BOTH(listcountstr), "l"), 3);
  const std::string ignored =
      "+fifo | E File nesting level too deep; file ignored | -fifo"
      " | E2 Cannot open parameter file \"none\" | E2 Error code = 2; No such file or directory"
      " | +large | E File nesting level too deep; file ignored | -large"
      " | E4 Cannot open parameter file \".\" | E4 Error code = 21; Is a directory"
      " | E5 Cannot open parameter file \"/dev/null\\x00x\" | E5 Error code = 2; No such file or directory";
  EXPECT_NE(told(h).find(ignored), std::string::npos) << told(h);
  for (const int form : {0, 1}) optclearmessages(h.handle(form));
  write("empty", "");
  h.parameters(times(9'999, "read %DIR%/empty\n") + "read %DIR%/fifo\n");
  EXPECT_EQ(told(h), "+OPT | +fifo | E Too many parameter files; file ignored | -fifo | -OPT");

  char left[8];
  EXPECT_EQ(read(writer, left, sizeof left), 4);
  close(writer);
}

// The file is a comment in memory. All of it but the first byte is a hole, which takes no memory.
TEST(files, may_have_two_gibibytes_less_one_byte) {
  const thandle h;
  const int file = memfd_create("large", MFD_CLOEXEC);
  EXPECT_EQ(write(file, "*", 1), 1);
  for (const off_t size : {0x7FFFFFFFL, 0x80000000L}) {
    EXPECT_EQ(ftruncate(file, size), 0);
    coptreadparameterfile(h.handle(0), ("/proc/self/fd/" + std::to_string(file)).c_str());
    std::int32_t errors = 0, warnings = 0;
    opterrorcount(h.handle(0), &errors, &warnings);
    EXPECT_EQ(errors, size > 0x7FFFFFFF ? 2 : 0);
  }
  close(file);
}

// Another thread makes and removes one file and adds lines to another.
TEST(files, that_grow_come_and_go_while_they_are_read_are_read_line_by_line_or_not) {
  constexpr int n = 100;
  thandle h;
  h.definition(options);
  const std::string inner = h.directory().path("inner"), grows = h.directory().write("grows", "");
  std::string text = '*' + std::string(300'000, ' ') + '\n';  // so much may be read again
  for (int i = 0; i < 10 * n; ++i) text += "read " + inner + "\nread " + grows + '\n';
  std::thread other([&] {
    std::ofstream growing(grows, std::ios::app);
    for (int i = 0; i < n; ++i) {
      std::ofstream(inner).close();
      growing << "l x\n" << std::flush;
      std::filesystem::remove(inner);
    }
  });
  tvksoptions* const one = h.handle(0);  // the second handle would find the files changed
  coptreadparameterfile(one, h.directory().write("OPT", text).c_str());
  other.join();
  const std::regex expected("No such file or directory|Cannot open parameter file \".*/inner\"|/OPT\"");
  char message[256];
  for (std::int32_t kind = 0, nr = optmessagecount(one); nr > 0; --nr) {
    coptgetmessage(one, nr, message, &kind);
    EXPECT_TRUE(std::regex_search(message, expected)) << message;
  }
  optresetall(one);
  coptreadparameterfile(one, grows.c_str());
  EXPECT_EQ(coptlistcountstr(one, "l"), n);
}

}  // namespace testsupport::parameterstest
