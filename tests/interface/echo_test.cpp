// Echoed lines: one message per piece of 130 characters, the marks where a line was cut, the order of echo and notes,
// and what is echoed of strings, buffers and definitions.
#include "interface/optiontext.h"

namespace testsupport {
namespace {

const std::string mark = "\xBB";
const std::string full(130, 'c');

TEST(echo, piecesofaline) {
  struct trow {
    int where;
    std::string line;
    tlines pieces;
  };
  const auto c = [](std::size_t count) { return std::string(count, 'c'); };
  const trow rows[] = {
      {__LINE__, "", {""}},
      {__LINE__, "*", {" *"}},
      {__LINE__, " nv\t! x", {"  nv\t! x"}},
      {__LINE__, '*' + c(129), {" *" + c(129)}},
      {__LINE__, '*' + c(130), {mark + '*' + c(129), mark + 'c'}},
      {__LINE__, '*' + c(131), {mark + '*' + c(129) + mark, mark + "cc"}},
      {__LINE__, '*' + c(259), {mark + '*' + c(129) + mark, mark + full}},
      {__LINE__, '*' + c(260), {mark + '*' + c(129) + mark, mark + full, mark + 'c'}},
      {__LINE__, '*' + c(299), {mark + '*' + c(129) + mark, mark + full + mark, mark + c(40)}},
      {__LINE__,
       '*' + c(1500),
       {mark + '*' + c(129) + mark, mark + full + mark, mark + full + mark, mark + full + mark,
        mark + full + mark, mark + full + mark, mark + full + mark, mark + c(110)}},
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
    EXPECT_EQ(joined(h.takemessages()), joined({">>  * definition", ">>  x integer 1 0 0 9 1 1", ">>   help",
                                                ">>  read immediate ReadFile 0 0", ">> ", ">>  5 the end"}));
    h.string("x 1");
    h.pchar("x bad\nx 2");
    h.string("");
    EXPECT_EQ(joined(h.takemessages()),
              joined({">>  x 1", ">>  x bad\nx 2", R"(Reading parameter(s) from "pchar")",
                      R"(*** Value Error Integer expected, for option "x" saw "bad")",
                      R"(Finished reading from "pchar")", ">> "}));
    h.file("inner", "x 3\r\n");
    h.parameters("read %DIR%/inner\n\nx 4");
    EXPECT_EQ(joined(h.takemessages()),
              joined({R"(Reading parameter(s) from "OPT")", ">>  read inner",
                      R"(Reading parameter(s) from "inner")", ">>  x 3", R"(Finished reading from "inner")",
                      ">> ", ">>  x 4", R"(Finished reading from "OPT")"}));
    optechoset(h.get(), 0);
    h.parameters("x 5");
    EXPECT_EQ(h.messages(), tlines());
  });
}

// A buffer's length has no limit, nor has the number of echoed lines.
TEST(echo, longsources) {
  thandle h;
  optechoset(h.get(), 1);
  h.pchar(std::string(1300001, ' '));
  EXPECT_EQ(optmessagecount(h.get()), 10001);
  std::string text;
  std::int32_t kind = -1;
  h.getmessage(10000, text, kind);
  EXPECT_EQ(text.size(), 3 + 131u);  // one more character follows: no mark at the end
  EXPECT_EQ(kind, optMsgInputEcho);
  h.getmessage(10001, text, kind);
  EXPECT_EQ(text, ">> " + mark + ' ');
}

}  // namespace
}  // namespace testsupport
