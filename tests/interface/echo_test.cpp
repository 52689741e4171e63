// Echoed lines: one message per piece of 130 characters, the marks where a line was cut, the order of echo
// and notes, and what is echoed of strings, buffers and definitions.
#include "interface/optiontext.h"

namespace testsupport {
namespace {

// A line and the pieces in which it is echoed; the marks are of code 187.
TEST(echo, piecesofaline) {
  foreachrow(R"(
    \x20nv\t! x => >>  \x20nv\t! x\n
    *<129c> => >>  *<129c>\n
    *<130c> => >> \xBB*<129c>\n>> \xBBc\n
    *<131c> => >> \xBB*<129c>\xBB\n>> \xBBcc\n
    *<259c> => >> \xBB*<129c>\xBB\n>> \xBB<130c>\n
    *<260c> => >> \xBB*<129c>\xBB\n>> \xBB<130c>\n>> \xBBc\n
    *<299c> => >> \xBB*<129c>\xBB\n>> \xBB<130c>\xBB\n>> \xBB<40c>\n
  )",
             [](thandle& h, const tcolumns& row) {
               h.definition("nv integer.NV 1 0 0 9 1 1\nmarks eolcomm !\n");
               optechoset(h.get(), 1);
               h.parameters(row[0] + "\nnv");
               EXPECT_EQ(joined(h.messages()), "Reading parameter(s) from \"OPT\"\n" + row[1] +
                                                   ">>  nv\nFinished reading from \"OPT\"\n");
             });
}

// A string or a buffer is echoed before the note on entering it, which then meets its leave note and goes.
TEST(echo, orderofechoandnotes) {
  inbothforms([](thandle& h) {
    optechoset(h.get(), 1);
    h.definition(
        "* definition\nx integer 1 0 0 9 1 1\n help\nread immediate ReadFile 0 0\n\n5 the end\nunread\n");
    EXPECT_EQ(told(h),
              ">>  * definition | >>  x integer 1 0 0 9 1 1 | >>   help | >>  read immediate ReadFile 0 0 | "
              ">>  | >>  5 the end");
    optclearmessages(h.get());
    h.string("x 1");
    h.pchar("x bad\nx 2");
    h.string("");
    EXPECT_EQ(told(h),
              ">>  x 1 | >>  x bad\nx 2 | +pchar | V Integer expected, for option \"x\" saw \"bad\" | -pchar "
              "| >> ");
    optclearmessages(h.get());
    h.file("inner", "x 3\r\n");
    h.parameters("read %DIR%/inner\n\nx 4");
    EXPECT_EQ(told(h), "+OPT | >>  read inner | +inner | >>  x 3 | -inner | >>  | >>  x 4 | -OPT");
    optclearmessages(h.get());
    optechoset(h.get(), 0);
    h.parameters("x 5");
    EXPECT_EQ(h.messages(), tlines());
  });
}

}  // namespace
}  // namespace testsupport
