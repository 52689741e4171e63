// Values: the texts and numbers that the setters take, what they store, their messages, the defined and
// recent flags, the out-of-bounds marks (visible in the written file as lines that switch the bounds), the
// resets; and the written parameter file: which options appear, how values are quoted, string lists, dot
// options and indicators, and files that cannot be written.
#include "interface/script.h"

namespace testsupport::valuestest {

// "name defined recent" of the options that were set
const taddedstep flags("flags", [](thandle& h, const std::string&) {
  std::string result;
  for (int nr = 1; nr <= h.one(optcount); ++nr) {
    std::int32_t defined = 0, recent = 0, other = 0;
    std::string name;
    h.one(optgetinfonr, nr, defined, recent, other, other, other, other);
    h.call(BOTH(getnamenr), nr, name);
    if (defined + recent != 0)
      result +=
          (result.empty() ? "" : " | ") + name + ' ' + std::to_string(defined) + ' ' + std::to_string(recent);
  }
  return result;
});

// An option, the text it is set to, the result, the value afterwards, and the messages.
constexpr const char* settingtext = "setstrnr $1 $2 => $3 ; value $1 => $4 ; told $1 => $5";

const trules texts("values", everytype, settingtext, {__LINE__, R"(
    // an integer is taken from any text that is a whole number and within its bounds
    maxit => 0 => 1 => 0
    maxit => 1e1 => 1 => 10
    maxit => -1 => 0 => 5 => V Integer range error for @ saw "-1" | V    Valid range is 0 to 10
    maxit => 2.5 => 0 => 5 => V Integer expected, for @ saw "2.5"

    // a double is taken from any text that is a number and within its bounds
    big_step => 2.5d-1 => 1 => 0.25
    big_step => 0 => 1 => 0
    big_step => -2 => 0 => 0.5 => V Double out of range for @ saw "-2" | V    Valid range is 0 to 1E20
    big_step => 1,5 => 0 => 0.5 => V Double expected for @ saw "1,5"
    span => 1e300 => 0 => 0|0
      => V Double out of range for @ saw "1E300" | V    Valid range is mindouble to maxdouble

    // a string is any text without a double quote
    note => a, b => 1 => a, b
    note => say "hi => 0 => none => V Bad double-quote in value
    maxit => "3" => 0 => 5 => V Bad double-quote in value

    // the only numbers for a boolean are 0 and 1
    flag => 2 => 0 => 0 => V Boolean value expected for @ saw "2"

    // an enumeration takes its own values only
    method => Two Words => 1 => two words
    method => prim => 0 => auto
      => V Unknown value for @ saw "prim" | V    Possible values are  auto Primal two words
    level => 2 => 1 => 2
    level => 3 => 0 => 1 => V Unknown value for @ saw "3" | V    Possible values are  1 2
    level => 1.0 => 0 => 1 => V Integer expected, for @ saw "1.0"

    // an option without a value of its own takes any text
    limits => 1 => 1

    // an option without value is marked as set, whatever the text
    quiet => any " text => 1 => 0
)"});

const trules unbounded("values", everytype, std::string("noboundsset 1 ; ") + settingtext, {__LINE__, R"(
    // without checking of bounds a value outside is stored with a warning
    maxit => 11 => 1 => 11 => W Integer range error for @ saw "11" | W    Valid range is 0 to 10
    big_step => -2 => 1 => -2 => W Double out of range for @ saw "-2" | W    Valid range is 0 to 1E20
    level => 12 => 1 => 12 => W Unknown value for @ saw "12" | W    Possible values are  1 2

    // without checking of bounds an unknown string of an enumeration becomes the empty one
    method => prim => 1 =>
      => W Unknown value for @ saw "prim" | W    Possible values are  auto Primal two words

    // without checking of bounds a text that is no value is still refused
    maxit => x => 0 => 5 => V Integer expected, for @ saw "x"
    note => " => 0 => none => V Bad double-quote in value
)"});

TEST(values, these_words_in_any_case_are_yes) {
  for (const std::string word : {"1", "y", "Yes", "ON", "true", "T"})
    play(everytype, "setintnr flag 0 ; setstrnr flag " + word + " => 1 ; value flag => 1");
}
TEST(values, these_words_in_any_case_are_no) {
  for (const std::string word : {"0", "N", "no", "Off", "FALSE", "f"})
    play(everytype, "setintnr flag 1 ; setstrnr flag " + word + " => 1 ; value flag => 0");
}

// The setter and the option, its arguments, its result, and the value or both values of the option. Numbers
// that are not those of an option are refused as well.
const trules setters(
    "setters", everytype,
    "$1 $2 $3 => $4 ; value $2 => $5 ; $1 0 $3 => 0 ; $1 -1 $3 => 0 ; $1 25 $3 => 0 ; value $2 => $5"
    " ; told $2 => $6",
    {__LINE__, R"(
    // an integer sets what holds an integer
    setintnr => maxit => 10 => 1 => 10
    setintnr => maxit => 11 => 0 => 5 => V Integer range error for @ saw "11" | V    Valid range is 0 to 10
    setintnr => flag => -1 => 0 => 0 => V Boolean out of range for @ saw "-1" | V    Valid values are 0 or 1
    setintnr => level => 2 => 1 => 2

    // a double sets what holds a double
    setdblnr => big_step => 0.25 => 1 => 0.25
    setdblnr => big_step => nan => 0 => 0.5
      => V Double out of range for @ saw "NAN" | V    Valid range is 0 to 1E20

    // a second value is set where there are two
    setint2nr => pair => 7 => 1 => 1|7
    setint2nr => pair => 77 => 0 => 1|1 => V Integer range error for @ saw "77" | V    Valid range is 0 to 10
    setdbl2nr => span => 2.5 => 1 => 0|2.5
    setstr2nr => pair => 8 => 1 => 1|8
    setstr2nr => both => " => 0 => a|a => V Bad double-quote in value

    // a setter for another type or number of values is refused without a message
    setintnr => big_step => 1 => 0 => 0.5
    setintnr => string_list => 1 => 0
    setint2nr => maxit => 7 => 0 => 5
    setint2nr => span => 7 => 0 => 0|0
    setdblnr => maxit => 1 => 0 => 5
    setdbl2nr => big_step => 0.5 => 0 => 0.5
    setstr2nr => note => x => 0 => none

    // of three values the one for the type of the option counts
    setvaluesnr => maxit => 3 3.5 x => 1 => 3
    setvaluesnr => big_step => 3 0.5 x => 1 => 0.5
    setvaluesnr => note => 3 3.5 text => 1 => text
    setvaluesnr => flag => 1 1.5 off => 1 => 1
    setvaluesnr => method => 3 3.5 primal => 1 => Primal
    setvaluesnr => level => 2 2.5 1 => 1 => 2
    setvaluesnr => words => 3 3.5 3 => 0
    setvaluesnr => all => 3 3.5 1 => 0
    setvalues2nr => pair => 3 3.5 x => 1 => 1|3
    setvalues2nr => span => 3 3.5 x => 1 => 0|3.5
    setvalues2nr => both => 3 3.5 B C => 1 => a|b c
    setvalues2nr => maxit => 3 3.5 x => 0 => 5

    // the text among three values may have a double quote
    setvaluesnr => note => 3 3.5 a"b => 1 => a"b
    setvaluesnr => method => 3 3.5 " => 0 => auto
      => V Unknown value for @ saw """ | V    Possible values are  auto Primal two words
)"});

const trules marksandflags("flags", everytype, {__LINE__, R"(
    // a value that is out of bounds is written between lines that switch the checking off and on
    noboundsset 1 ; setintnr flag -3 => 1
    told => W Boolean out of range for option "flag" saw "-3" | W    Valid values are 0 or 1
    setint2nr pair 77 ; written => limits 1\nflag=-3\nlimits 0\nlimits 1\npair=1 77\nlimits 0\n

    // a value within bounds clears the marks of both values
    noboundsset 1 ; setint2nr pair 77 ; setintnr pair 2 ; written => pair=2 77\n

    // a value that is refused leaves the mark
    noboundsset 1 ; setint2nr pair 77 ; setstrnr pair x ; written => limits 1\npair=1 77\nlimits 0\n

    // a reset clears the mark
    noboundsset 1 ; setintnr flag -3 ; resetnr flag ; setintnr flag 1 ; written => flag=1\n

    // an option that takes no value keeps its mark when it is set again
    noboundsset 1 ; setintnr quiet 99 ; readfromstr quiet ; value quiet => 1
    written => limits 1\nquiet\nlimits 0\n
    resetnr quiet ; readfromstr quiet ; written => quiet\n

    // the checking can be switched on again
    noboundsset 1 ; noboundsset 0 ; setintnr maxit 11 => 0
    // each of two values has a flag of its own, and a list has one
    flags => ; setint2nr pair 4 ; setstrnr string_list one ; setstrnr string_list ; setstrnr string_list one
    settings => pair=-,4 string_list=[one||one] ; flags => pair 2 2 | string_list 1 1

    // recent flags are set while they are enabled
    recentenabledset 0 ; recentenabled => 0 ; setintnr pair 3 ; flags => pair 1 0
    recentenabledset 9 ; recentenabled => 1 ; setint2nr pair 3 ; flags => pair 3 2

    // recent flags are cleared by two functions
    setintnr maxit 2 ; setstrnr all 1 ; flags => maxit 1 1 | flag 1 1
    resetrecentchanges ; flags => maxit 1 0 | flag 1 0
    setintnr maxit 2 ; flags => maxit 1 1 | flag 1 0 ; resetallrecent ; flags => maxit 1 0 | flag 1 0

    // a reset clears both flags, and the reset of a macro those of its members
    setintnr maxit 2 ; setintnr pair 3 ; setstrnr all 1 ; resetnr pair => 1 ; flags => maxit 1 1 | flag 1 1
    resetnr all => 1 ; flags => ; setintnr maxit 2 ; setstrnr string_list one ; resetall ; flags => ; written =>

    // a reset removes the members of a multilist, but not those of a macro
    resetall ; setstrnr words 3 => 0 ; setstrnr all 1 => 1 ; value maxit => 1
    told => V Too many items for multilist "words"
)"});

// ---- the written file, byte by byte

const trules writer("writer", everytype, "parameters $1 ; written => $2", {__LINE__, R"(
    // options that were set are written in the order of the definition
    \e
    flag yes\nmaxit 3\nbig_step 1e20 => maxit=3\nbig_step=1E20\nflag=1\n
    method "two words"\nlevel 2 => method="two words"\nlevel=2\n

    // a text is written in quotes when it is empty or has a blank, tab or comma
    note a=b;c => note=a=b;c\n
    note a b => note="a b"\n
    note "" => note=""\n
    string_list a b\nstring_list a,b\nstring_list a\tb\nstring_list ""
      => string_list="a b"\nstring_list="a,b"\nstring_list="a\tb"\nstring_list=""\n

    // a list that a key made is written with two dashes
    --more d => --more=d\n

    // an option that takes no value is written as its name
    quiet\ntrace => quiet\ntrace=4\n

    // two values are written on one line, with the default for one that was not set
    pair 3 4\nspan 1.5e-7 -2\nboth a b c => pair=3 4\nspan=1.5E-7 -2\nboth=a "b c"\n
    pair * 4 => pair=1 4\n

    // macros and multilists are written as what they set
    all 1 => maxit=1\nflag=1\n
    words 7:b => maxit=7\nnote=b\n

    // of two options that switch the checking of bounds the first is used
    free on\nmaxit 11\npair 3 12 => limits 1\nmaxit=11\nlimits 0\nlimits 1\npair=3 12\nlimits 0\n
    free on\nmaxit 11\nmaxit 9 => maxit=9\n

    // dot options and indicators follow all options in the order of reading
    x.prior('a',"b",*) = 2.5\nindic eq(i,'j') $ var(i) 0\ny.mark 3\nindic e$v yes\nmaxit 2
      => maxit=2\nx.prior('a',"b",*) = 2.5\ny.mark = 3\nindic eq(i,'j')$var(i)=0\nindic e$v=1\n

    // a dot option out of bounds is written without lines that switch the checking
    free on x.prior 200 => x.prior = 200\n
)"});

const trules withoutswitch("writer",
                           "big_max integer 1 5 0 10 1 1\nstring_list strlist 2 1 1\nMinos lookup\n",
                           {__LINE__, R"(
    // without an option that switches the checking, the lines around a value lack its name
    noboundsset 1 ; readfromstr big max 11 ; readfromstr string list a
    written => \x201\nbig max=11\n 0\nstring_list=a\n
)"});

const trules unreadable("writer", everytype, "setvaluesnr note 0 0 $1 ; written => note=$2\\n", {__LINE__, R"(
    // a text that cannot be read back is written unchanged
    " => "
    a"b c => "a"b c"
    "a,b" => ""a,b""
    a\nb => a\nb
    x<251 >y => "x<251 >y"
)"});

const trules failures(
    "writer", everytype,
    "readfromstr maxit 3 ; writeparameterfile $1 => $2 ; told => $3 ; written => maxit=3\\n", {__LINE__, R"(
    // for a file that cannot be opened the system's code is returned
    %DIR%/. => 21 => E Cannot write parameter file "." | E    Error code = 21; Is a directory

    // a file that cannot be written to its end gives a message
    /dev/full => 0
      => E Cannot write parameter file "/dev/full" | E    Error code = 28; No space left on device
)"});

const trules rewriting("writer", everytype, {__LINE__, R"(
    // an existing file is replaced
    readfromstr maxit 3 ; file WRITTEN what was there ; written => maxit=3\n

    // if nothing is to be written, nothing can fail
    writeparameterfile /dev/full => 0 ; told =>
)"});

}  // namespace testsupport::valuestest
