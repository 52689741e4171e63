// Files that read files: where reading goes on afterwards, what is passed on and what is not, the notes on entering and
// leaving, files that cannot be opened, and the limit of nine files in one another.
#include "interface/optiontext.h"

namespace testsupport {
namespace {

constexpr const char* options = R"(a integer 1 0 0 9 1 1
b integer 2 0 0 9 1 1
s string 3 none 1 1
Lines immediate EolFlag 0 0
Read immediate ReadFile 0 0
Free immediate NoBounds 0 0
Say immediate Message 0 0
marks eolcomm !
)";

struct trow {
  int where;
  std::string inner;  // the file "inner"
  std::string text;
  std::string settings;
  std::string messages;
};

TEST(nesting, includes) {
  const trow rows[] = {
      {__LINE__, "a 1\n", "read %DIR%/inner\r\nb 2", "a=1 b=2", ""},
      {__LINE__, "", "read = \"%DIR%/inner\" b 2\na 1", "a=1 b=2", ""},
      // Line numbers are those of each file, before and after.
      {__LINE__, "\na x\n", "* first\nread %DIR%/inner b y\nbad 1", "", R"(Reading parameter(s) from "OPT"
Reading parameter(s) from "inner"
*** Value Error line 2: Integer expected, for option "a" saw "x"
Finished reading from "inner"
*** Value Error line 2: Integer expected, for option "b" saw "y"
*** Error line 3: Unknown option "bad"
Finished reading from "OPT"
)"},
      // The notes of a file with nothing to say go; those around it stay when there is something else to say.
      {__LINE__, "a 1", "say one\nread %DIR%/inner say two", "a=1", R"(Reading parameter(s) from "OPT"
*** Error line 1: one
*** Error line 2: two
Finished reading from "OPT"
)"},
      {__LINE__, "say inside", "read %DIR%/inner", "", R"(Reading parameter(s) from "OPT"
Reading parameter(s) from "inner"
*** Error line 1: inside
Finished reading from "inner"
Finished reading from "OPT"
)"},
      // The reading mode is each reading's own, checking of bounds is not.
      {__LINE__, "s x, a 1\nlines off", "lines off read %DIR%/inner b 2 a 3\nb 4 a 5", "a=5 b=4 s=x, a 1",
       ""},
      {__LINE__, "lines off a 1 b 2", "read %DIR%/inner s x, a 3", "a=1 b=2 s=x, a 3", ""},
      {__LINE__, "free on", "read %DIR%/inner a 50", "a=50", R"(Reading parameter(s) from "OPT"
*** Warning line 1: Integer range error for option "a" saw "50"
*** Warning line 1:    Valid range is 0 to 9
Finished reading from "OPT"
)"},
      // Failures are told where the including file stands.
      {__LINE__, "", "\nread %DIR%/none a 1", "a=1", R"(Reading parameter(s) from "OPT"
*** Error line 2: Cannot open parameter file "none"
*** Error line 2: Error code = 2; No such file or directory
Finished reading from "OPT"
)"},
      {__LINE__, "", "read %DIR%/.\nread %DIR%/inner/x", "", R"(Reading parameter(s) from "OPT"
*** Error line 1: Cannot open parameter file "."
*** Error line 1: Error code = 21; Is a directory
*** Error line 2: Cannot open parameter file "inner/x"
*** Error line 2: Error code = 20; Not a directory
Finished reading from "OPT"
)"},
  };
  foreachrow(__FILE__, rows, [](thandle& h, const trow& row) {
    h.definition(options);
    EXPECT_EQ(joined(h.messages()), "");
    h.file("inner", row.inner);
    EXPECT_EQ(h.parameters(row.text), 0);
    EXPECT_EQ(joined(h.messages()), row.messages);
    EXPECT_EQ(settings(h), row.settings);
  });
}

// Files read from a string or a buffer, and failures that no line number can be said of.
TEST(nesting, withoutlines) {
  inbothforms([](thandle& h) {
    h.definition(options);
    EXPECT_EQ(h.readparameterfile(h.directory().path("")), 21);
    EXPECT_EQ(h.readparameterfile(""), 2);
    h.file("inner", "bad\n");
    h.string("read %DIR%/inner a x");
    h.pchar("read %DIR%/none");
    EXPECT_EQ(joined(h.messages()), R"(*** Error Cannot open parameter file ""
*** Error Error code = 21; Is a directory
*** Error Cannot open parameter file ""
*** Error Error code = 2; No such file or directory
Reading parameter(s) from "string"
Reading parameter(s) from "inner"
*** Error line 1: Unknown option "bad"
Finished reading from "inner"
*** Value Error Integer expected, for option "a" saw "x"
Finished reading from "string"
Reading parameter(s) from "pchar"
*** Error Cannot open parameter file "none"
*** Error Error code = 2; No such file or directory
Finished reading from "pchar"
)");
  });
}

// f1 reads f2 and so on; each sets s to its number before and a to it after.
void writechain(thandle& h, int files) {
  for (int i = 1; i <= files; ++i) {
    const std::string next = i < files ? "read %DIR%/f" + std::to_string(i + 1) + '\n' : "";
    h.file('f' + std::to_string(i), "s " + std::to_string(i) + '\n' + next + "a " + std::to_string(i % 10));
  }
}

TEST(nesting, tenfiles) {
  inbothforms([](thandle& h) {
    h.definition(options);
    writechain(h, 11);
    std::string expected;
    for (int i = 1; i <= 10; ++i) expected += "Reading parameter(s) from \"f" + std::to_string(i) + "\"\n";
    expected += "*** Error File nesting level too deep; file ignored\n";
    for (int i = 10; i >= 1; --i) expected += "Finished reading from \"f" + std::to_string(i) + "\"\n";
    EXPECT_EQ(h.readparameterfile(h.directory().path("f1")), 0);
    EXPECT_EQ(joined(h.takemessages()), expected);
    EXPECT_EQ(settings(h), "a=1 s=9");
    writechain(h, 9);  // the depth is back where it was; strings do not count
    h.string("read %DIR%/f1");
    EXPECT_EQ(h.messages(), tlines());
  });
}

}  // namespace
}  // namespace testsupport
