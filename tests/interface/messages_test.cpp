// The message list: decoration by kind, numbers out of range, line prefixes, enter and leave notes that
// cancel, the limit of 5,000, the two ways of counting and the cut at 255 characters; and echoed lines, in
// pieces of 130 characters.
#include "interface/optiontext.h"

namespace testsupport {
namespace {

constexpr const char* definitiontext =
    "maxit integer 1 5 0 10 1 1 Iteration limit\nnote string 2 none 1 1\nold integer 3 5 0 10 1 1\n"
    "marks deprecated\n old use maxit\nbounds immediate NoBounds 1 1\ninclude immediate ReadFile 1 1\n"
    "say immediate Message 1 1\n";

// "errors|warnings|kinds of the messages".
std::string counts(thandle& h) {
  std::int32_t errors = -7, warnings = -7, kind = -7;
  opterrorcount(h.get(), &errors, &warnings);
  std::string result = std::to_string(errors) + '|' + std::to_string(warnings) + '|', text;
  for (std::int32_t nr = 1; nr <= optmessagecount(h.get()) && nr < 100; ++nr) {
    h.call(BOTH(getmessage), nr, text, kind);
    result += std::to_string(kind);
  }
  return result;
}

// One reading that files every kind but the limit. The echo comes when a source is opened or a line is read,
// before what is said about the line; help lines, notes and echo bear no line number.
TEST(messages, everykindhasitsdecoration) {
  inbothforms([](thandle& h) {
    h.definition(definitiontext + std::string("broken integer x 5 0 10 1 1\n"));
    optechoset(h.get(), 1);
    h.parameters("* comment\nmaxit 11\nbounds 1\nmaxit 11\nold 6\nhelp maxit\nnosuch 1\n");
    optechoset(h.get(), 0);
    h.call(BOTH(addmessage), "the client's own");
    EXPECT_EQ(joined(h.messages()), R"(*** Definition Error line 9: Bad usermap value for option "broken"
Reading parameter(s) from "OPT"
>>  * comment
>>  maxit 11
*** Value Error line 2: Integer range error for option "maxit" saw "11"
*** Value Error line 2:    Valid range is 0 to 10
>>  bounds 1
>>  maxit 11
*** Warning line 4: Integer range error for option "maxit" saw "11"
*** Warning line 4:    Valid range is 0 to 10
>>  old 6
*** Warning line 5: deprecated option "old"; use maxit
>>  help maxit
maxit: Iteration limit
                        integer,  range: 0 to 10 default: 5
>>  nosuch 1
*** Error line 7: Unknown option "nosuch"
Finished reading from "OPT"
*** Error the client's own
)");
    EXPECT_EQ(counts(h), "5|3|2600330044050110979");
    optclearmessages(h.get());
    EXPECT_EQ(counts(h), "0|0|");
  });
}

TEST(messages, numbersoutofrange) {
  constexpr const char* rows = R"(
    0 => Bad message number = -1
    2 => Bad message number = 1
    -5 => Bad message number = -6
    1 => *** Error one
    -2147483648 => Bad message number = -2147483649
  )";
  foreachrow(rows, [](thandle& h, const tcolumns& row) {
    h.call(BOTH(addmessage), "one");
    std::string text = "old";
    std::int32_t kind = -7;
    h.call(BOTH(getmessage), std::stoi(row[0]), text, kind);
    EXPECT_EQ(text, row[1]);
    EXPECT_EQ(kind, 9);
  });
}

// Fills the list up to that length.
void fill(thandle& h, int count) {
  while (optmessagecount(h.get()) < count) h.call(BOTH(addmessage), "filler");
}

// "number kind text" of the last message.
std::string last(thandle& h) {
  std::string text;
  std::int32_t kind = -7;
  h.call(BOTH(getmessage), optmessagecount(h.get()), text, kind);
  return std::to_string(optmessagecount(h.get())) + ' ' + std::to_string(kind) + ' ' + text;
}

TEST(messages, limitof5000) {
  inbothforms([](thandle& h) {
    h.definition(definitiontext);
    fill(h, 4999);
    h.string("maxit 3");  // its enter note is the 5000th message and goes again
    EXPECT_EQ(last(h), "4999 9 *** Error filler");
    h.call(BOTH(addmessage), "the 5000th");
    EXPECT_EQ(last(h), "5000 9 *** Error the 5000th");
    EXPECT_EQ(counts(h).substr(0, 7), "5000|0|");
    h.call(BOTH(addmessage), "one more");
    h.call(BOTH(showhelp), "3");
    EXPECT_EQ(last(h), "5001 8 Maximum of 5000 messages reached");
    EXPECT_EQ(counts(h).substr(0, 7), "5001|0|");
    // A setter counts the messages that were filed, and none is: the value is refused all the same.
    EXPECT_EQ(optsetintnr(h.get(), h.number("maxit"), 11), 1);
    EXPECT_EQ(h.value("maxit"), "3");
    // A leave note that finds its enter note last cancels it even in a full list.
    optclearmessages(h.get());
    fill(h, 4998);
    optechoset(h.get(), 1);
    h.string("maxit 4");
    EXPECT_EQ(last(h), "4999 0 >>  maxit 4");
    fill(h, 5000);
    h.string("nosuch 4");  // echo passes no limit, and takes the place of the limit message
    EXPECT_EQ(last(h), "5001 0 >>  nosuch 4");
    optechoset(h.get(), 0);
    optclearmessages(h.get());
    fill(h, 5000);
    h.string("maxit 5");  // the enter note becomes the limit message, which the leave note does not cancel
    EXPECT_EQ(last(h), "5001 8 Maximum of 5000 messages reached");
    EXPECT_EQ(h.value("maxit"), "5");
  });
}

// Stored text and decorated text are both cut at 255 characters.
TEST(messages, cutat255) {
  inbothforms([](thandle& h) {
    h.definition(definitiontext);
    const std::string text(254, 'x');
    h.call(BOTH(addmessage), text);
    h.call(BOTH(setstrnr), h.number("maxit"), text);
    h.parameters("maxit " + text + "\n");
    EXPECT_EQ(joined(h.messages()), literal(R"(*** Error <245x>
*** Value Error Integer expected, for option "maxit" saw "<197x>
Reading parameter(s) from "OPT"
*** Value Error line 1: Integer expected, for option "maxit" saw "<189x>
Finished reading from "OPT"
)"));
  });
}

// A line and the pieces in which it is echoed; the marks are of code 187.
TEST(echo, piecesofaline) {
  constexpr const char* rows = R"(
    \x20nv\t! x => >>  \x20nv\t! x\n
    *<129c> => >>  *<129c>\n
    *<130c> => >> \xBB*<129c>\n>> \xBBc\n
    *<131c> => >> \xBB*<129c>\xBB\n>> \xBBcc\n
    *<259c> => >> \xBB*<129c>\xBB\n>> \xBB<130c>\n
    *<260c> => >> \xBB*<129c>\xBB\n>> \xBB<130c>\n>> \xBBc\n
    *<299c> => >> \xBB*<129c>\xBB\n>> \xBB<130c>\xBB\n>> \xBB<40c>\n
  )";
  foreachrow(rows, [](thandle& h, const tcolumns& row) {
    h.definition("nv integer.NV 1 0 0 9 1 1\nmarks eolcomm !\n");
    optechoset(h.get(), 1);
    h.parameters(row[0] + "\nnv");
    EXPECT_EQ(joined(h.messages()),
              "Reading parameter(s) from \"OPT\"\n" + row[1] + ">>  nv\nFinished reading from \"OPT\"\n");
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
