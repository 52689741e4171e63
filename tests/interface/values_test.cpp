// Values: what the setters take from text and numbers, what they store, the words they refuse with, the
// defined and recent flags, the out-of-bounds marks (visible as the brackets of the written file) and the
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

// An option, the text it is set to, the result, its value then, and what is told.
TEST(values, texts) {
  play(everytype, "setstrnr $1 $2 => $3 ; value $1 => $4 ; told $1 => $5", R"(
    maxit => 0 => 1 => 0
    maxit => 1e1 => 1 => 10
    maxit => -1 => 0 => 5 => V Integer range error for @ saw "-1" | V    Valid range is 0 to 10
    maxit => MaxInt => 0 => 5 => V Integer range error for @ saw "2147483647" | V    Valid range is 0 to 10
    maxit => 2.5 => 0 => 5 => V Integer expected, for @ saw "2.5"
    big_step => 2.5d-1 => 1 => 0.25
    big_step => 0 => 1 => 0
    big_step => -2 => 0 => 0.5 => V Double out of range for @ saw "-2" | V    Valid range is 0 to 1E20
    big_step => 1,5 => 0 => 0.5 => V Double expected for @ saw "1,5"
    span => 1e300 => 0 => 0|0
      => V Double out of range for @ saw "1E300" | V    Valid range is mindouble to maxdouble
    note => a, b => 1 => a, b
    note => say "hi => 0 => none => V Bad double-quote in value
    maxit => "3" => 0 => 5 => V Bad double-quote in value
    flag => 2 => 0 => 0 => V Boolean value expected for @ saw "2"
    method => Two Words => 1 => two words
    method => prim => 0 => auto
      => V Unknown value for @ saw "prim" | V    Possible values are  auto Primal two words
    level => 2 => 1 => 2
    level => 3 => 0 => 1 => V Unknown value for @ saw "3" | V    Possible values are  1 2
    level => 1.0 => 0 => 1 => V Integer expected, for @ saw "1.0"
    limits => 1 => 1
    // only marks it; its own value is not the default
    quiet => any " text => 1 => 0
  )");
  // Without checking of bounds a value outside is stored with the same words as a warning; text that does not
  // parse is refused as before. An enumerated string has no entry to store and becomes empty.
  play(everytype, "noboundsset 1 ; setstrnr $1 $2 => $3 ; value $1 => $4 ; told $1 => $5", R"(
    maxit => 11 => 1 => 11 => W Integer range error for @ saw "11" | W    Valid range is 0 to 10
    big_step => -2 => 1 => -2 => W Double out of range for @ saw "-2" | W    Valid range is 0 to 1E20
    level => 12 => 1 => 12 => W Unknown value for @ saw "12" | W    Possible values are  1 2
    method => prim => 1 =>
      => W Unknown value for @ saw "prim" | W    Possible values are  auto Primal two words
    maxit => x => 0 => 5 => V Integer expected, for @ saw "x"
    note => " => 0 => none => V Bad double-quote in value
  )");
  for (const std::string word : {"1", "0", "y", "N", "Yes", "no", "ON", "Off", "true", "FALSE", "T", "f"}) {
    const bool yes = std::string("1yYOtT").find(word[0]) != std::string::npos && word != "Off";
    play(everytype, "setintnr flag $1 ; setstrnr flag $2 => 1 ; value flag => $3",
         std::string(yes ? "0" : "1") + " => " + word + " => " + (yes ? "1" : "0"));
  }
}

// The setter and the option, what it is called with, its result, and the option's value, or both of them. A
// setter that does not fit the option's type or number of values answers 0 and says nothing.
TEST(values, numberedsetters) {
  play(everytype,
       "$1 $2 $3 => $4 ; value $2 => $5 ; $1 0 $3 => 0 ; $1 -1 $3 => 0 ; $1 25 $3 => 0 ; value $2 => $5"
       " ; told $2 => $6",
       R"(
    setintnr => maxit => 10 => 1 => 10
    setintnr => maxit => 11 => 0 => 5 => V Integer range error for @ saw "11" | V    Valid range is 0 to 10
    setintnr => flag => -1 => 0 => 0 => V Boolean out of range for @ saw "-1" | V    Valid values are 0 or 1
    setintnr => level => 2 => 1 => 2
    setintnr => big_step => 1 => 0 => 0.5
    setintnr => limits => 1 => 0
    setintnr => string_list => 1 => 0
    setint2nr => pair => 7 => 1 => 1|7
    setint2nr => pair => 77 => 0 => 1|1
      => V Integer range error for @ saw "77" | V    Valid range is 0 to 10
    setint2nr => maxit => 7 => 0 => 5
    setint2nr => span => 7 => 0 => 0|0
    setdblnr => big_step => 0.25 => 1 => 0.25
    setdblnr => big_step => nan => 0 => 0.5
      => V Double out of range for @ saw "NAN" | V    Valid range is 0 to 1E20
    setdblnr => maxit => 1 => 0 => 5
    setdbl2nr => span => 2.5 => 1 => 0|2.5
    setdbl2nr => big_step => 0.5 => 0 => 0.5
    setstr2nr => pair => 8 => 1 => 1|8
    setstr2nr => both => " => 0 => a|a => V Bad double-quote in value
    setstr2nr => note => x => 0 => none
    // Of the three values the one of the option's type counts; a string option takes a double quote this way.
    setvaluesnr => maxit => 3 3.5 x => 1 => 3
    setvaluesnr => big_step => 3 0.5 x => 1 => 0.5
    setvaluesnr => note => 3 3.5 a"b => 1 => a"b
    setvaluesnr => flag => 1 1.5 off => 1 => 1
    setvaluesnr => method => 3 3.5 primal => 1 => Primal
    setvaluesnr => method => 3 3.5 " => 0 => auto
      => V Unknown value for @ saw """ | V    Possible values are  auto Primal two words
    setvaluesnr => level => 2 2.5 1 => 1 => 2
    setvaluesnr => words => 3 3.5 3 => 0
    setvaluesnr => all => 3 3.5 1 => 0
    setvalues2nr => pair => 3 3.5 x => 1 => 1|3
    setvalues2nr => span => 3 3.5 x => 1 => 0|3.5
    setvalues2nr => both => 3 3.5 B C => 1 => a|b c
    setvalues2nr => maxit => 3 3.5 x => 0 => 5
  )");
}

TEST(values, outofboundsmarks) {
  play(everytype, R"(
    noboundsset 1 ; setintnr flag -3 => 1
    told => W Boolean out of range for option "flag" saw "-3" | W    Valid values are 0 or 1
    setint2nr pair 77 ; written => limits 1\nflag=-3\nlimits 0\nlimits 1\npair=1 77\nlimits 0\n
    // Any value inside the bounds clears the marks of both; a refused one and text without conversion do not.
    setstrnr pair x ; written => limits 1\nflag=-3\nlimits 0\nlimits 1\npair=1 77\nlimits 0\n
    setintnr pair 2 ; written => limits 1\nflag=-3\nlimits 0\npair=2 77\n
    resetnr flag ; resetnr pair ; setintnr flag 1 ; written => flag=1\n
    // An option without value keeps its mark when it is named, and loses it with a reset.
    setintnr quiet 99 ; readfromstr quiet ; value quiet => 1
    written => flag=1\nlimits 1\nquiet\nlimits 0\n
    resetnr quiet ; readfromstr quiet ; written => flag=1\nquiet\n
    noboundsset 0 ; setintnr maxit 11 => 0
  )");
}

TEST(values, flagsandresets) {
  play(everytype, R"(
    flags => ; setint2nr pair 4
    setstrnr string_list one ; setstrnr string_list ; setstrnr string_list one
    settings => pair=-,4 string_list=[one||one]
    flags => pair 2 2 | string_list 1 1
    recentenabledset 0 ; recentenabled => 0 ; setintnr pair 3 ; setstrnr all 1
    flags => maxit 1 0 | flag 1 0 | pair 3 2 | string_list 1 1
    recentenabledset 9 ; recentenabled => 1 ; resetrecentchanges
    flags => maxit 1 0 | flag 1 0 | pair 3 0 | string_list 1 0
    setintnr maxit 2 ; flags => maxit 1 1 | flag 1 0 | pair 3 0 | string_list 1 0
    resetallrecent ; flags => maxit 1 0 | flag 1 0 | pair 3 0 | string_list 1 0
    // a macro resets its members
    resetnr pair => 1 ; resetnr all => 1 ; flags => string_list 1 0
    resetall ; flags => ; written =>
    // A reset multilist has lost its members, a macro has not.
    setstrnr words 3 => 0 ; setstrnr all 1 => 1 ; value maxit => 1
    told => V Too many items for multilist "words"
  )");
}

// ---- the written file, byte by byte

TEST(writer, bytes) {
  play(everytype, "parameters $1 ; written => $2", R"(
    \e
    flag yes\nmaxit 3\nbig_step 1e20 => maxit=3\nbig_step=1E20\nflag=1\n
    method "two words"\nlevel 2 => method="two words"\nlevel=2\n
    note a=b;c\nstring_list a b\nstring_list a,b\nstring_list a\tb\nstring_list ""\n--more d
      => note=a=b;c\nstring_list="a b"\nstring_list="a,b"\nstring_list="a\tb"\nstring_list=""\n--more=d\n
    note a b => note="a b"\n
    note "" => note=""\n
    quiet\ntrace => quiet\ntrace=4\n
    pair 3 4\nspan 1.5e-7 -2\nboth a b c => pair=3 4\nspan=1.5E-7 -2\nboth=a "b c"\n
    // the default stands in for the value that was not set
    pair * 4 => pair=1 4\n
    all 1 => maxit=1\nflag=1\n
    words 7:b => maxit=7\nnote=b\n
    // Of two options that switch bound checking the first is named.
    free on\nmaxit 11\npair 3 12 => limits 1\nmaxit=11\nlimits 0\nlimits 1\npair=3 12\nlimits 0\n
    free on\nmaxit 11\nmaxit 9 => maxit=9\n
    // Dot options and indicators follow all options, in the order of reading; a dot option is no line of
    // its own.
    x.prior('a',"b",*) = 2.5\nindic eq(i,'j') $ var(i) 0\ny.mark 3\nindic e$v yes\nmaxit 2
      => maxit=2\nx.prior('a',"b",*) = 2.5\ny.mark = 3\nindic eq(i,'j')$var(i)=0\nindic e$v=1\n
    free on x.prior 200 => x.prior = 200\n
  )");
  // Without an option that switches the checking of bounds the brackets have no name.
  play("big_max integer 1 5 0 10 1 1\nstring_list strlist 2 1 1\nMinos lookup\n", R"(
    noboundsset 1 ; readfromstr big max 11 ; readfromstr string list a
    written => \x201\nbig max=11\n 0\nstring_list=a\n
  )");
  // Written text that no reading would take back: a client may store double quotes and line breaks in a
  // string.
  play(everytype, "setvaluesnr note 0 0 $1 ; written => note=$2\\n", R"(
    " => "
    a"b c => "a"b c"
    "a,b" => ""a,b""
    a\nb => a\nb
    x<251 >y => "x<251 >y"
  )");
}

TEST(writer, failures) {
  play(everytype,
       "readfromstr $2 ; writeparameterfile $1 => $3 ; told => $4 ; file WRITTEN what was there ; written => "
       "$5",
       R"(
    %DIR%/no/such => maxit 3 => 2
      => E Cannot write parameter file "no/such" | E    Error code = 2; No such file or directory => maxit=3\n
    %DIR%/. => maxit 3 => 21
      => E Cannot write parameter file "." | E    Error code = 21; Is a directory => maxit=3\n
    /dev/full => maxit 3 => 0
      => E Cannot write parameter file "/dev/full" | E    Error code = 28; No space left on device
      => maxit=3\n
    /dev/full => => 0
  )");
}

}  // namespace testsupport::valuestest
