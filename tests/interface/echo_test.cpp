// Echoed lines: one message per piece of 130 characters, the marks where a line was cut, the order of echo
// and notes, and what is echoed of strings, buffers and definitions.
#include "interface/optiontext.h"

namespace testsupport {
namespace {

const std::string mark = "\xBB";

TEST(echo, piecesofaline) {
  struct trow {
    int where;
    std::string line;
    tlines pieces;
  };
  const auto c = [](std::size_t count) { return std::string(count, 'c'); };
  const trow rows[] = {
      {__LINE__, " nv\t! x", {"  nv\t! x"}},
      {__LINE__, '*' + c(129), {" *" + c(129)}},
      {__LINE__, '*' + c(130), {mark + '*' + c(129), mark + 'c'}},
      {__LINE__, '*' + c(131), {mark + '*' + c(129) + mark, mark + "cc"}},
      {__LINE__, '*' + c(259), {mark + '*' + c(129) + mark, mark + c(130)}},
      {__LINE__, '*' + c(260), {mark + '*' + c(129) + mark, mark + c(130), mark + 'c'}},
      {__LINE__, '*' + c(299), {mark + '*' + c(129) + mark, mark + c(130) + mark, mark + c(40)}},
  };
  foreachrow(__FILE__, rows, [](thandle& h, const trow& row) {
    h.definition("nv integer.NV 1 0 0 9 1 1\nmarks eolcomm !\n");
    optechoset(h.get(), 1);
    h.parameters(row.line + "\nnv");
    tlines expected = {"Reading parameter(s) from \"OPT\""};
    for (const std::string& piece : row.pieces) expected.push_back(">> " + piece);
    expected.insert(expected.end(), {">>  nv", "Finished reading from \"OPT\""});
    EXPECT_EQ(joined(h.messages()), joined(expected));
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
