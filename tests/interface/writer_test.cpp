// The written parameter file, byte by byte: which options appear, how values are quoted, the brackets around
// values out of bounds, string lists, dot options and indicators; files that cannot be written; and that a
// file read back is written the same again.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <random>

#include "support/handle.h"

namespace testsupport {
namespace {

constexpr const char* definitiontext = R"(maxit integer 1 5 0 10 1 1
big_step double 2 0.5 0 1e20 1 1
note string 3 none 1 1
flag boolean 4 0 1 1
method enumstr 5 auto 1 1
 auto 1
 Primal 1
 "two words" 1
level enumint 6 1 1 1
 1 1
 2 1
quiet integer.nv 7 1 0 1 1 1
trace integer.opt 8 4 0 9 1 1
pair integer.two 9 1 0 10 1 1
span double.two 10 0 mindouble maxdouble 1 1
both enumstr.two 11 a 1 1
 a 1
 "b c" 1
string_list strlist 12 1 1
words multilist 13 1 1
 maxit note
all macro 1 1
 maxit
 flag
limits immediate NoBounds 1 1
free immediate NoBounds 1 1
.prior double 14 1 0 100 1 1
.mark integer 15 1 0 9 1 1
indic indicator
)";

struct trow {
  int where;
  tlines parameters;  // each read as a string of its own
  const char* written;
};

TEST(writer, bytes) {
  const std::vector<trow> rows = {
      {__LINE__, {}, ""},
      {__LINE__, {"flag yes", "maxit 3", "big_step 1e20"}, "maxit=3\nbig_step=1E20\nflag=1\n"},
      {__LINE__, {"method PRIMAL", "level 2"}, "method=Primal\nlevel=2\n"},
      {__LINE__, {"method \"two words\""}, "method=\"two words\"\n"},
      {__LINE__, {"note plain"}, "note=plain\n"},
      {__LINE__, {"note a b"}, "note=\"a b\"\n"},
      {__LINE__, {"note a,b"}, "note=\"a,b\"\n"},
      {__LINE__, {"note a\tb"}, "note=\"a\tb\"\n"},
      {__LINE__, {"note \"\""}, "note=\"\"\n"},
      {__LINE__, {"note a=b;c"}, "note=a=b;c\n"},
      {__LINE__, {"quiet", "trace"}, "quiet\ntrace=4\n"},
      {__LINE__, {"trace 5"}, "trace=5\n"},
      {__LINE__, {"pair 3 4"}, "pair=3 4\n"},
      {__LINE__, {"pair * 4"}, "pair=1 4\n"},  // the default stands in for the value that was not set
      {__LINE__, {"pair 3 *"}, "pair=3 1\n"},
      {__LINE__, {"span 1.5e-7 -2"}, "span=1.5E-7 -2\n"},
      {__LINE__, {"both \"b c\" a"}, "both=\"b c\" a\n"},
      {__LINE__, {"both a b c"}, "both=a \"b c\"\n"},
      {__LINE__,
       {"string_list a b", "string_list \"\"", "string_list c", "--more d e"},
       "string_list=\"a b\"\nstring_list=\"\"\nstring_list=c\n--more=\"d e\"\n"},
      {__LINE__, {"all 1"}, "maxit=1\nflag=1\n"},
      {__LINE__, {"words 7:b"}, "maxit=7\nnote=b\n"},
      // Of two options that switch bound checking the first is named.
      {__LINE__,
       {"free on", "maxit 11", "pair 3 12"},
       "limits 1\nmaxit=11\nlimits 0\nlimits 1\npair=3 12\nlimits 0\n"},
      {__LINE__, {"free on", "maxit 11", "maxit 9"}, "maxit=9\n"},
      // Dot options and indicators follow all options, in the order of reading; a dot option is no line of
      // its own.
      {__LINE__,
       {"x.prior('a',\"b\",*) = 2.5", "indic eq(i,'j') $ var(i) 0", "y.mark 3", "indic e$v yes", "maxit 2"},
       "maxit=2\nx.prior('a',\"b\",*) = 2.5\ny.mark = 3\nindic eq(i,'j')$var(i)=0\nindic e$v=1\n"},
      {__LINE__, {"free on", "x.prior 200"}, "x.prior = 200\n"},
  };
  foreachrow(__FILE__, rows, [](thandle& h, const trow& row) {
    h.definition(definitiontext);
    for (const std::string& text : row.parameters) h.string(text);
    EXPECT_EQ(h.written(), row.written);
  });
}

TEST(writer, bracketswithoutaname) {
  inbothforms([](thandle& h) {
    h.definition("maxit integer 1 5 0 10 1 1\n");
    optnoboundsset(h.get(), 1);
    h.string("maxit 11");
    EXPECT_EQ(h.written(), " 1\nmaxit=11\n 0\n");
  });
}

// Written text that no reading would take back: a client may store double quotes and line breaks in a string.
TEST(writer, nothinginsideavalueisescaped) {
  inbothforms([](thandle& h) {
    h.definition(definitiontext);
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

TEST(writer, modeminoswritesblanks) {
  inbothforms([](thandle& h) {
    h.definition(std::string(definitiontext) + "Minos lookup\n");
    h.string("big step 3");
    h.string("string list a");
    EXPECT_EQ(h.written(), "big step=3\nstring_list=a\n");
  });
}

TEST(writer, failures) {
  struct tfailrow {
    int where;
    const char* path;
    const char* parameters;
    int result;
    int code;  // that the messages name; 0 for no messages
  };
  const std::vector<tfailrow> rows = {
      {__LINE__, "%DIR%/no/such", "maxit 3", ENOENT, ENOENT},
      {__LINE__, "%DIR%", "maxit 3", EISDIR, EISDIR},
      {__LINE__, "", "", ENOENT, ENOENT},
      {__LINE__, "/dev/full", "maxit 3", 0, ENOSPC},  // opened, but not written
      {__LINE__, "/dev/full", "", 0, 0},
  };
  foreachrow(__FILE__, rows, [](thandle& h, const tfailrow& row) {
    h.definition(definitiontext);
    h.string(row.parameters);
    const std::string directory = h.directory().path("x").substr(0, h.directory().path("x").size() - 2);
    std::string path = row.path;
    if (path.starts_with("%DIR%")) path.replace(0, 5, directory);
    const std::string before = h.dump();
    EXPECT_EQ(h.writeparameterfile(path), row.result);
    EXPECT_EQ(h.dump(), before);
    std::string expected;
    for (const std::string& line :
         {"*** Error Cannot write parameter file \"" + path + '"',
          "*** Error    Error code = " + std::to_string(row.code) + "; " + std::strerror(row.code)})
      expected += line + '\n';
    const std::size_t at = expected.find(directory + "/");
    if (at != std::string::npos) expected.erase(at, directory.size() + 1);
    EXPECT_EQ(joined(h.messages()), row.code == 0 ? "" : expected);
  });
  inbothforms([](thandle& h) {  // an existing file is replaced
    h.definition(definitiontext);
    h.file("WRITTEN", "something that was there before\n");
    EXPECT_EQ(h.written(), "");
  });
}

// Random settings, made through every kind of setter.
class tsettings {
 public:
  explicit tsettings(unsigned seed) : fgenerator(seed) {}

  void apply(thandle& h) {
    for (int count = pick(12); count >= 0; --count) set(h);
    optnoboundsset(h.get(), 0);
    optclearmessages(h.get());
  }

 private:
  int pick(int highest) { return std::uniform_int_distribution<int>(0, highest)(fgenerator); }

  double number() {
    const double mantissa = std::uniform_real_distribution<double>(-10, 10)(fgenerator);
    const int exponent = pick(1) == 0 ? pick(40) - 20 : pick(580) - 290;
    return std::stod(std::to_string(mantissa) + "e" + std::to_string(exponent));
  }

  // Any characters but the double quote, which no text may hold, and blanks at the ends, which reading to the
  // end of the line trims; short enough for the closing quote to be held with the value.
  std::string text() {
    std::string result;
    for (int length = pick(1) == 0 ? pick(8) : pick(250); length > 0; --length) {
      const char c = static_cast<char>(pick(3) == 0 ? " \t,*=:-+./$#!'();0aZ\xE9"[pick(20)] : '!' + pick(93));
      if (c != '"') result += c;
    }
    const std::size_t first = result.find_first_not_of(" \t");
    if (first == std::string::npos) return "";
    return result.substr(first, result.find_last_not_of(" \t") - first + 1);
  }

  void set(thandle& h) {
    tvksoptions* const raw = h.get();
    const int what = pick(15);
    // Only where a value out of bounds stands in brackets that let it in again: not a boolean, whose words
    // are 0 and 1 alone, and not one of two values, as the other one takes the brackets away.
    optnoboundsset(raw, what <= 2 && pick(2) == 0 ? 1 : 0);
    switch (what) {
      case 0: optsetintnr(raw, h.number("maxit"), pick(40) - 10); break;
      case 1: optsetdblnr(raw, h.number("big_step"), number()); break;
      case 2: optsetintnr(raw, h.number("level"), pick(4)); break;
      case 3: h.setstrnr(h.number("note"), text()); break;
      case 4: optsetintnr(raw, h.number("flag"), pick(1)); break;
      case 5: h.setstrnr(h.number("method"), pick(2) == 0 ? "two words" : "primal"); break;
      case 6: h.setstrnr(h.number("quiet"), ""); break;
      case 7: optsetintnr(raw, h.number("trace"), pick(9)); break;
      case 8: optsetintnr(raw, h.number("pair"), pick(20)); break;
      case 9: optsetint2nr(raw, h.number("pair"), pick(20)); break;
      case 10: optsetdblnr(raw, h.number("span"), number()); break;
      case 11: optsetdbl2nr(raw, h.number("span"), number()); break;
      case 12: h.setstr2nr(h.number("both"), pick(1) == 0 ? "b c" : "A"); break;
      case 13: h.setstrnr(h.number("string_list"), text()); break;
      case 14: h.string("--key" + std::to_string(pick(2)) + " value" + std::to_string(pick(99))); break;
      default:
        h.string("x.prior('" + std::to_string(pick(9)) + "',*) " + std::to_string(pick(300)));
        h.string("indic e" + std::to_string(pick(9)) + "(i)$v(i,\"a b\") " + (pick(1) == 0 ? "on" : "off"));
        break;
    }
  }

  std::mt19937 fgenerator;
};

TEST(writer, writereadwrite) {
  std::size_t bytes = 0;
  for (unsigned seed = 1; seed <= 150; ++seed) {
    const tform form = seed % 2 == 0 ? tform::shortstring : tform::zeroterminated;
    thandle h(form);
    h.definition(definitiontext);
    tsettings(seed).apply(h);
    const std::string first = h.written();
    bytes += first.size();
    for (const int eolonly : {1, 0}) {
      thandle again(form);
      again.definition(definitiontext);
      opteolonlyset(again.get(), eolonly);
      again.parameters(first);
      ASSERT_EQ(again.written(), first)
          << "seed " << seed << (eolonly != 0 ? ", to the line's end" : ", by tokens") << '\n'
          << joined(again.messages());
    }
  }
  EXPECT_GT(bytes, 15000u);
}

}  // namespace
}  // namespace testsupport
