// A definition file as a whole: the lines that end its reading, blocks of continuation lines and what they do
// when the options are used, comment characters, files that cannot be opened, and definitions of great depth.
#include "interface/optiontext.h"

namespace testsupport {
namespace {

// Reading ends, and says nothing, at a line that begins with anything but a letter or a period and a letter,
// unless the line continues the one above it. Another option follows, and is not read where reading ends.
TEST(definitionblocks, linesthatendthereading) {
  constexpr const char* rows = R"(
    x strlist 1 0 0\n5 strlist 1 0 0 => ends
    x strlist 1 0 0\n. y strlist 1 0 0 => ends
    x strlist 1 0 0\n\x1A => ends
    // with its line feed an empty line
    x strlist 1 0 0\n\r
    // After these lines nothing may be indented.
    x strlist 1 0 0\n y strlist 1 0 0 => ends
    x string 1 t 0 0\n help => ends
    ind indicator\n help => ends
    // Help, values and members; a tab is no indentation.
    x integer 1 0 0 0 0 0\n\thelp => ends
    x integer 1 0 0 0 0 0\n\x20
    x boolean 1 0 0 0\n* no help\n\n help
    x enumint 1 5 0 0\n 5 0\n 6 0
    x enumstr 1 v 0 0\n v 0\n\x20 => ends
    x enumstr 1 v 0 0\n v 0\n "" 0 => ends
    x enumstr 1 v 0 0\n v 0\n , w 0 => ends
    x macro 0 0\n \t\x20 => ends
    // the block ends, the line is done with
    names obsolete\n\x20
    // and what follows is a line of its own
    names obsolete\n \n Help => ends
  )";
  foreachrow(rows, [](thandle& h, const tcolumns& row) {
    EXPECT_EQ(h.definition(row[0] + "\nlast integer 1 0 0 0 0 0\n"), 0);
    EXPECT_EQ(told(h), "");
    EXPECT_EQ(h.call(BOTH(lookup), "last") < 0 ? "ends" : "", row[1]);
  });
}

// What the words and members of a block do when the options are used.
TEST(definitionblocks, blocksinuse) {
  checkreading(
      "x integer 1 0 0 9 0 0\ny integer 2 0 0 9 0 0\nsx synonym x\nsy synonym y\nnames deprecated\n"
      " x use z\n sx use x\nnames obsolete\n y went away\n sy use y\nnames deprecated\n"
      " X  use it   no more\nnames obsolete\n sx\n",
      R"(
    eol => X 5 => x=5 => W1 deprecated option "X"; use it   no more
    eol => sx 5 => => W1 deprecated synonym "sx";\x20
    eol => y 5 => => W1 obsolete option "y"; went away
    eol => SY 5 => => W1 obsolete synonym "SY"; use y
  )");
  checkreading(
      "x integer 1 0 0 9 0 0\nl strlist 1 0 0\nml multilist 2 0 0\n x, l\n l ml x nowhere x\n"
      "one macro 0 0\n x and what follows\n l\n x\ntwo macro 0 0\n one\n ml\n two\nmix multilist 3 0 0\n"
      " one l\nmany multilist 3 0 0\n many x\n l\n",
      R"(
    eol => ml 1::b:x:c:: => x=1 l=[]
      => V1 Integer expected, for option "ml" saw "x" | V1 Integer expected, for option "ml" saw ""
    eol => ml 1:a:b:2:c:3:4 => x=3 l=[a] => V1 Too many items for multilist "ml"
    // A word ends at the path-list separator, not at a blank.
    eol => ml 1: \ta b :c => x=1 l=[a b ]
    eol => ml 1 :b => l=[b] => V1 Integer expected, for option "ml" saw "1 "
    eol => ml " \t "
    eol => ml 1: => x=1
    eol => mix 5:b:c => x=5 l=[5|b] => V1 Too many items for multilist "mix"
    eol => two 50 => l=[50]
      => V1 Integer range error for option "two" saw "50" | V1    Valid range is 0 to 9
      | V1 Integer range error for option "two" saw "50" | V1    Valid range is 0 to 9
      | V1 Integer range error for option "two" saw "50" | V1    Valid range is 0 to 9
    // One that stands for itself passes a word by.
    eol => many y:7:z => x=7 l=[z]
    eol => many y:7:z:z => x=7 l=[z] => V1 Too many items for multilist "many"
  )");
}

// Of all bytes those that the definition made a comment character end a parameter line.
TEST(definitionblocks, commentcharacters) {
  constexpr const char* rows = R"(
    c eolcomm ! # => !
    c eolcomm x!
    c eolcomm \xA7$%&()*,/:;<\x3D>?@[\\]^_`{|}~ => $%&()*,/:;<\x3D>?@[\\]^_`{|}~\xA7
    c eolcomm !"# => !
    c eolcomm !'# => !
    c eolcomm !1# => !
    c eolcomm !+# => !
    c eolcomm !\nd eolcomm # => #
  )";
  foreachrow(rows, [](thandle& h, const tcolumns& row) {
    h.definition("flag integer.NV 1 0 0 9 0 0\n" + row[0]);
    std::string found;
    for (int code = 1; code < 256; ++code) {
      if (code == '\t' || code == '\n' || code == 26 || code == ' ') continue;
      h.string(std::string("flag ") + static_cast<char>(code));
      if (h.takemessages().empty()) found += static_cast<char>(code);
    }
    EXPECT_EQ(found, row[1]);
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
  EXPECT_EQ(h.call(BOTH(listcountstr), "texts"), 512);
  EXPECT_EQ(optmessagecount(h.get()), 0);
  h.string("m39 x");
  EXPECT_EQ(h.messages()[1], "*** Value Error Too many members for option \"m39\"");
  EXPECT_LT(h.call(BOTH(listcountstr), "texts"), 2000);
  EXPECT_EQ(optresetnr(h.get(), h.number("m39")), 1);
  EXPECT_EQ(h.call(BOTH(listcountstr), "texts"), 0);
}

}  // namespace
}  // namespace testsupport
