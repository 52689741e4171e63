// The written parameter file, byte by byte: which options appear, how values are quoted, the brackets around
// values out of bounds, string lists, dot options and indicators; files that cannot be written; and that a
// file read back is written the same again.
#include "interface/script.h"

namespace testsupport::writertest {

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

}  // namespace testsupport::writertest
