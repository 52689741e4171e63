// A definition file as a whole: the lines that end its reading, blocks of continuation lines and what they do
// when the options are used, comment characters, files that cannot be opened, and definitions of great depth.
#include "interface/optiontext.h"

namespace testsupport {
namespace {

// Reading ends, and says nothing, at a line that begins with anything but a letter or a period and a letter,
// unless the line continues the one above it. Each of these is put between a line of its kind and another
// option.
TEST(definitionblocks, linesthatendthereading) {
  struct tstray {
    int where;
    std::string before;
    std::string line;
    bool ends;
  };
  const std::string option = "x strlist 1 0 0\n";
  const tstray rows[] = {
      {__LINE__, option, "5 strlist 1 0 0", true},
      {__LINE__, option, ". y strlist 1 0 0", true},
      {__LINE__, option, "\x1A", true},
      {__LINE__, option, "\r", false},  // with its line feed an empty line
      // After these lines nothing may be indented.
      {__LINE__, option, " y strlist 1 0 0", true},
      {__LINE__, "x string 1 t 0 0\n", " help", true},
      {__LINE__, "ind indicator\n", " help", true},
      // Help, values and members; a tab is no indentation.
      {__LINE__, "x integer 1 0 0 0 0 0\n", "\thelp", true},
      {__LINE__, "x integer 1 0 0 0 0 0\n", " ", false},
      {__LINE__, "x boolean 1 0 0 0\n", "* no help\n\n help", false},
      {__LINE__, "x enumint 1 5 0 0\n 5 0\n", " 6 0", false},
      {__LINE__, "x enumstr 1 v 0 0\n v 0\n", " ", true},
      {__LINE__, "x enumstr 1 v 0 0\n v 0\n", " \"\" 0", true},
      {__LINE__, "x enumstr 1 v 0 0\n v 0\n", " , w 0", true},
      {__LINE__, "x macro 0 0\n", " \t ", true},
      {__LINE__, "names obsolete\n", " ", false},        // the block ends, the line is done with
      {__LINE__, "names obsolete\n", " \n Help", true},  // and what follows is a line of its own
  };
  foreachrow(__FILE__, rows, [](thandle& h, const tstray& row) {
    EXPECT_EQ(h.definition(row.before + row.line + "\nlast integer 1 0 0 0 0 0\n"), 0);
    EXPECT_EQ(told(h), "");
    EXPECT_EQ(h.lookup("last") < 0, row.ends);
  });
}

TEST(definitionblocks, longhelp) {
  inbothforms([](thandle& h) {
    h.definition("x boolean 1 0 1 1 short\n   first  line  \n* left out\n\n \n second\n");
    const std::string indent(24, ' ');
    EXPECT_EQ(h.help("x"), (tlines{"x: short", indent + "boolean,  default: 0", indent + "first  line",
                                   indent, indent + "second"}));
  });
}

// What the words and members of a block do when the options are used.
TEST(definitionblocks, blocksinuse) {
  struct tuse {
    int where;
    const char* definition;
    const char* text;
    const char* settings;
    const char* problems;
  };
  const char* const names =
      "x integer 1 0 0 9 0 0\ny integer 2 0 0 9 0 0\nsx synonym x\nsy synonym y\nnames deprecated\n"
      " x use z\n sx use x\nnames obsolete\n y went away\n sy use y\nnames deprecated\n"
      " X  use it   no more\nnames obsolete\n sx\n";
  const char* const lists =
      "x integer 1 0 0 9 0 0\nl strlist 1 0 0\nml multilist 2 0 0\n x, l\n l ml x nowhere x\n"
      "one macro 0 0\n x and what follows\n l\n x\ntwo macro 0 0\n one\n ml\n two\nmix multilist 3 0 0\n"
      " one l\n";
  const tuse rows[] = {
      {__LINE__, names, "X 5", "x=5", R"(W deprecated option "X"; use it   no more)"},
      {__LINE__, names, "sx 5", "", R"(W deprecated synonym "sx"; )"},
      {__LINE__, names, "y 5", "", R"(W obsolete option "y"; went away)"},
      {__LINE__, names, "SY 5", "", R"(W obsolete synonym "SY"; use y)"},
      {__LINE__, lists, "ml 1::b:x:c::", "x=1 l=[]",
       R"(V Integer expected, for option "ml" saw "x" | V Integer expected, for option "ml" saw "")"},
      {__LINE__, lists, "ml 1:a:b:2:c:3:4", "x=3 l=[a]", R"(V Too many items for multilist "ml")"},
      // A word ends at the path-list separator, not at a blank.
      {__LINE__, lists, "ml 1: \ta b :c", "x=1 l=[a b ]", ""},
      {__LINE__, lists, "ml 1 :b", "l=[b]", R"(V Integer expected, for option "ml" saw "1 ")"},
      {__LINE__, lists, "ml \" \t \"", "", ""},
      {__LINE__, lists, "ml 1:", "x=1", ""},
      {__LINE__, lists, "mix 5:b:c", "x=5 l=[5|b]", R"(V Too many items for multilist "mix")"},
      {__LINE__, lists, "two 50", "l=[50]",
       R"(V Integer range error for option "two" saw "50" | V    Valid range is 0 to 9 | )"
       R"(V Integer range error for option "two" saw "50" | V    Valid range is 0 to 9 | )"
       R"(V Integer range error for option "two" saw "50" | V    Valid range is 0 to 9)"},
  };
  foreachrow(__FILE__, rows, [](thandle& h, const tuse& row) {
    h.definition(row.definition);
    optclearmessages(h.get());
    h.string(row.text);
    EXPECT_EQ(problems(h), row.problems);
    EXPECT_EQ(settings(h), row.settings);
  });
}

// Of all bytes those that the definition made a comment character end a parameter line.
TEST(definitionblocks, commentcharacters) {
  struct tcomment {
    int where;
    const char* lines;
    const char* characters;
  };
  const tcomment rows[] = {
      {__LINE__, "c eolcomm ! #", "!"},
      {__LINE__, "c eolcomm x!", ""},
      {__LINE__, "c eolcomm \xA7$%&()*,/:;<=>?@[\\]^_`{|}~", "$%&()*,/:;<=>?@[\\]^_`{|}~\xA7"},
      {__LINE__, "c eolcomm !\"#", "!"},
      {__LINE__, "c eolcomm !'#", "!"},
      {__LINE__, "c eolcomm !1#", "!"},
      {__LINE__, "c eolcomm !+#", "!"},
      {__LINE__, "c eolcomm !\nd eolcomm #", "#"},
  };
  foreachrow(__FILE__, rows, [](thandle& h, const tcomment& row) {
    h.definition(std::string("flag integer.NV 1 0 0 9 0 0\n") + row.lines);
    std::string found;
    for (int code = 1; code < 256; ++code) {
      if (code == '\t' || code == '\n' || code == 26 || code == ' ') continue;
      h.string(std::string("flag ") + static_cast<char>(code));
      if (h.takemessages().empty()) found += static_cast<char>(code);
    }
    EXPECT_EQ(found, row.characters);
  });
}

// Sizes that no recursion survives: macros and multilists in chains of 100,000.
TEST(definitionblocks, greatdepth) {
  constexpr int depth = 100000;
  thandle h;
  std::string text = "x integer 1 0 0 9 0 0\nm0 macro 0 0\n x\nl0 multilist 1 0 0\n x\n";
  for (int i = 1; i <= depth; ++i) {
    const std::string nr = std::to_string(i);
    const std::string before = std::to_string(i - 1) + '\n';
    text += 'm' + nr + " macro 0 0\n m" + before + 'l' + nr + " multilist 1 0 0\n l" + before;
  }
  h.definition(text);
  EXPECT_EQ(h.messages(), tlines());
  for (const char* const assignment : {"m100000 5", "l100000 6"}) {
    h.string(assignment);
    EXPECT_EQ(h.value("x"), std::string(1, std::string(assignment).back()));
    EXPECT_EQ(optresetnr(h.get(), h.number("m100000")), 1);
    EXPECT_EQ(h.value("x"), "0");
  }
}

// Macros of macros that name each member twice: every level doubles the assignments.
TEST(definitionblocks, a_macro_of_macros_gives_up_past_the_number_of_options) {
  std::string definition = "texts strlist 1 1 1\nm0 macro 1 1\n texts\n texts\n";
  for (int level = 1; level < 40; ++level) {
    const std::string below = " m" + std::to_string(level - 1) + "\n";
    definition += "m" + std::to_string(level) + " macro 1 1\n" + below + below;
  }
  thandle h;
  h.definition(definition);
  h.string("m8 x");
  EXPECT_EQ(h.listcountstr("texts"), 512);
  EXPECT_EQ(optmessagecount(h.get()), 0);
  h.string("m39 x");
  EXPECT_EQ(h.messages()[1], "*** Value Error Too many members for option \"m39\"");
  EXPECT_LT(h.listcountstr("texts"), 2000);
  EXPECT_EQ(optresetnr(h.get(), h.number("m39")), 1);
  EXPECT_EQ(h.listcountstr("texts"), 0);
}

}  // namespace
}  // namespace testsupport
