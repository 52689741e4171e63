// The written parameter file, byte by byte: which options appear, how values are quoted, the brackets around
// values out of bounds, string lists, dot options and indicators; files that cannot be written; and that a
// file read back is written the same again.
#include "interface/optiontext.h"

namespace testsupport {
namespace {

TEST(writer, bytes) {
  constexpr const char* rows = R"(
    \e
    flag yes\nmaxit 3\nbig_step 1e20 => maxit=3\nbig_step=1E20\nflag=1\n
    method "two words"\nlevel 2 => method="two words"\nlevel=2\n
    note a=b;c => note=a=b;c\n
    note a b => note="a b"\n
    note a,b => note="a,b"\n
    note a\tb => note="a\tb"\n
    note "" => note=""\n
    quiet\ntrace => quiet\ntrace=4\n
    pair 3 4\nspan 1.5e-7 -2\nboth a b c => pair=3 4\nspan=1.5E-7 -2\nboth=a "b c"\n
    // the default stands in for the value that was not set
    pair * 4 => pair=1 4\n
    string_list a b\nstring_list ""\n--more d => string_list="a b"\nstring_list=""\n--more=d\n
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
  )";
  foreachrow(rows, [](thandle& h, const tcolumns& row) {
    h.definition(everytype);
    h.parameters(row[0]);
    const std::string written = h.written();
    EXPECT_EQ(written, row[1]);
    // And read back, but for a dot entry out of bounds, which has no brackets.
    for (const int eolonly : {1, 0}) {
      thandle again(h.form());
      again.definition(everytype);
      opteolonlyset(again.get(), eolonly);
      again.parameters(written);
      EXPECT_EQ(again.written(), written == "x.prior = 200\n" ? "" : written);
    }
  });
}

// Without an option that switches the checking of bounds the brackets have no name.
TEST(writer, othernames) {
  thandle h;
  h.definition("big_max integer 1 5 0 10 1 1\nstring_list strlist 2 1 1\nMinos lookup\n");
  optnoboundsset(h.get(), 1);
  h.string("big max 11");
  h.string("string list a");
  EXPECT_EQ(h.written(), " 1\nbig max=11\n 0\nstring_list=a\n");
}

// Written text that no reading would take back: a client may store double quotes and line breaks in a string.
TEST(writer, nothinginsideavalueisescaped) {
  constexpr const char* rows = R"(
    " => note="\n
    a"b c => note="a"b c"\n
    "a,b" => note=""a,b""\n
    a\nb => note=a\nb\n
    x<251 >y => note="x<251 >y"\n
  )";
  foreachrow(rows, [](thandle& h, const tcolumns& row) {
    h.definition(everytype);
    h.call(BOTH(setvaluesnr), h.number("note"), 0, 0, row[0]);
    EXPECT_EQ(h.written(), row[1]);
  });
}

TEST(writer, failures) {
  constexpr const char* rows = R"(
    no/such => maxit 3 => 2
      => E Cannot write parameter file "no/such" | E    Error code = 2; No such file or directory
    . => maxit 3 => 21 => E Cannot write parameter file "." | E    Error code = 21; Is a directory
    /dev/full => maxit 3 => 0
      => E Cannot write parameter file "/dev/full" | E    Error code = 28; No space left on device
    /dev/full => => 0
  )";
  foreachrow(rows, [](thandle& h, const tcolumns& row) {
    h.definition(everytype);
    h.string(row[1]);
    const std::string path = row[0][0] == '/' ? row[0] : h.directory().path(row[0]);
    EXPECT_EQ(std::to_string(h.call(BOTH(writeparameterfile), path)), row[2]);
    EXPECT_EQ(told(h), row[3]);
    h.file("WRITTEN", "something that was there before\n");  // and is replaced
    EXPECT_EQ(h.written(), row[1].empty() ? "" : "maxit=3\n");
  });
}

}  // namespace
}  // namespace testsupport
