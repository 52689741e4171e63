// The written parameter file, byte by byte: which options appear, how values are quoted, the brackets around
// values out of bounds, string lists, dot options and indicators; files that cannot be written; and that a
// file read back is written the same again.
#include "interface/optiontext.h"

namespace testsupport {
namespace {

struct trow {
  int where;
  const char* parameters;  // a file
  const char* written;
};

TEST(writer, bytes) {
  const std::vector<trow> rows = {
      {__LINE__, "", ""},
      {__LINE__, "flag yes\nmaxit 3\nbig_step 1e20", "maxit=3\nbig_step=1E20\nflag=1\n"},
      {__LINE__, "method \"two words\"\nlevel 2", "method=\"two words\"\nlevel=2\n"},
      {__LINE__, "note a=b;c", "note=a=b;c\n"},
      {__LINE__, "note a b", "note=\"a b\"\n"},
      {__LINE__, "note a,b", "note=\"a,b\"\n"},
      {__LINE__, "note a\tb", "note=\"a\tb\"\n"},
      {__LINE__, "note \"\"", "note=\"\"\n"},
      {__LINE__, "quiet\ntrace", "quiet\ntrace=4\n"},
      {__LINE__, "pair 3 4\nspan 1.5e-7 -2\nboth a b c", "pair=3 4\nspan=1.5E-7 -2\nboth=a \"b c\"\n"},
      {__LINE__, "pair * 4", "pair=1 4\n"},  // the default stands in for the value that was not set
      {__LINE__, "string_list a b\nstring_list \"\"\n--more d",
       "string_list=\"a b\"\nstring_list=\"\"\n--more=d\n"},
      {__LINE__, "all 1", "maxit=1\nflag=1\n"},
      {__LINE__, "words 7:b", "maxit=7\nnote=b\n"},
      // Of two options that switch bound checking the first is named.
      {__LINE__, "free on\nmaxit 11\npair 3 12",
       "limits 1\nmaxit=11\nlimits 0\nlimits 1\npair=3 12\nlimits 0\n"},
      {__LINE__, "free on\nmaxit 11\nmaxit 9", "maxit=9\n"},
      // Dot options and indicators follow all options, in the order of reading; a dot option is no line of
      // its own.
      {__LINE__, "x.prior('a',\"b\",*) = 2.5\nindic eq(i,'j') $ var(i) 0\ny.mark 3\nindic e$v yes\nmaxit 2",
       "maxit=2\nx.prior('a',\"b\",*) = 2.5\ny.mark = 3\nindic eq(i,'j')$var(i)=0\nindic e$v=1\n"},
      {__LINE__, "free on x.prior 200", "x.prior = 200\n"},
  };
  foreachrow(__FILE__, rows, [](thandle& h, const trow& row) {
    h.definition(everytype);
    h.parameters(row.parameters);
    const std::string written = h.written();
    EXPECT_EQ(written, row.written);
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
  inbothforms([](thandle& h) {
    h.definition("big_max integer 1 5 0 10 1 1\nstring_list strlist 2 1 1\nMinos lookup\n");
    optnoboundsset(h.get(), 1);
    h.string("big max 11");
    h.string("string list a");
    EXPECT_EQ(h.written(), " 1\nbig max=11\n 0\nstring_list=a\n");
  });
}

// Written text that no reading would take back: a client may store double quotes and line breaks in a string.
TEST(writer, nothinginsideavalueisescaped) {
  inbothforms([](thandle& h) {
    h.definition(everytype);
    const int note = h.number("note");
    for (const auto& [value, line] :
         {std::pair{"\"", "note=\"\n"}, std::pair{"a\"b c", "note=\"a\"b c\"\n"},
          std::pair{"\"a,b\"", "note=\"\"a,b\"\"\n"}, std::pair{"a\nb", "note=a\nb\n"}}) {
      h.setvaluesnr(note, 0, 0, value);
      EXPECT_EQ(h.written(), line);
    }
    const std::string longest(253, ' ');
    h.setvaluesnr(note, 0, 0, longest);
    EXPECT_EQ(h.written(), "note=\"" + longest + "\"\n");
  });
}

TEST(writer, failures) {
  struct tfailrow {
    int where;
    const char* path;
    const char* parameters;
    int result;
    const char* told;
  };
  const tfailrow rows[] = {
      {__LINE__, "no/such", "maxit 3", 2,
       R"(E Cannot write parameter file "no/such" | E    Error code = 2; No such file or directory)"},
      {__LINE__, ".", "maxit 3", 21,
       R"(E Cannot write parameter file "." | E    Error code = 21; Is a directory)"},
      {__LINE__, "/dev/full", "maxit 3", 0,  // opened, but not written
       R"(E Cannot write parameter file "/dev/full" | E    Error code = 28; No space left on device)"},
      {__LINE__, "/dev/full", "", 0, ""},
  };
  foreachrow(__FILE__, rows, [](thandle& h, const tfailrow& row) {
    h.definition(everytype);
    h.string(row.parameters);
    EXPECT_EQ(h.writeparameterfile(row.path[0] == '/' ? row.path : h.directory().path(row.path)), row.result);
    EXPECT_EQ(told(h), row.told);
  });
  inbothforms([](thandle& h) {  // an existing file is replaced
    h.file("WRITTEN", "something that was there before\n");
    EXPECT_EQ(h.written(), "");
  });
}

}  // namespace
}  // namespace testsupport
