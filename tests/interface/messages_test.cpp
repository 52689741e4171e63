// The message list: decoration by kind, numbers out of range, line prefixes, enter and leave notes that
// cancel, the limit of 5,000, the two ways of counting and the cut at 255 characters.
#include <limits>

#include "interface/optiontext.h"

namespace testsupport {
namespace {

constexpr const char* definitiontext =
    "maxit integer 1 5 0 10 1 1 Iteration limit\nnote string 2 none 1 1\nold integer 3 5 0 10 1 1\n"
    "marks deprecated\n old use maxit\nbounds immediate NoBounds 1 1\ninclude immediate ReadFile 1 1\n"
    "say immediate Message 1 1\n";

std::string counts(thandle& h) {
  std::int32_t errors = -7, warnings = -7;
  opterrorcount(h.get(), &errors, &warnings);
  return std::to_string(errors) + " errors, " + std::to_string(warnings) + " warnings";
}

std::string kinds(thandle& h) {
  std::string result;
  for (std::int32_t nr = 1; nr <= optmessagecount(h.get()); ++nr) {
    std::string text;
    std::int32_t kind = -7;
    h.getmessage(nr, text, kind);
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
    h.addmessage("the client's own");
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
    EXPECT_EQ(kinds(h), "2600330044050110979");
    EXPECT_EQ(counts(h), "5 errors, 3 warnings");
    optclearmessages(h.get());
    EXPECT_EQ(optmessagecount(h.get()), 0);
    EXPECT_EQ(counts(h), "0 errors, 0 warnings");
  });
}

TEST(messages, numbersoutofrange) {
  inbothforms([](thandle& h) {
    h.addmessage("one");
    for (const auto& [nr, expected] :
         {std::pair{0, "Bad message number = -1"}, std::pair{2, "Bad message number = 1"},
          std::pair{-5, "Bad message number = -6"}, std::pair{1, "*** Error one"}}) {
      std::string text = "old";
      std::int32_t kind = -7;
      h.getmessage(nr, text, kind);
      EXPECT_EQ(text, expected);
      EXPECT_EQ(kind, 9);
    }
    std::string text;
    std::int32_t kind = -7;
    h.getmessage(std::numeric_limits<std::int32_t>::min(), text, kind);
    EXPECT_EQ(text.substr(0, 21), "Bad message number = ");
  });
}

void fill(thandle& h, int count) {
  while (optmessagecount(h.get()) < count) h.addmessage("filler");
}

std::string last(thandle& h) {
  std::string text;
  std::int32_t kind = -7;
  h.getmessage(optmessagecount(h.get()), text, kind);
  return std::to_string(kind) + " " + text;
}

TEST(messages, limitof5000) {
  inbothforms([](thandle& h) {
    h.definition(definitiontext);
    fill(h, 4999);
    h.string("maxit 3");  // its enter note is the 5000th message and goes again
    EXPECT_EQ(optmessagecount(h.get()), 4999);
    h.addmessage("the 5000th");
    EXPECT_EQ(last(h), "9 *** Error the 5000th");
    EXPECT_EQ(counts(h), "5000 errors, 0 warnings");
    h.addmessage("one more");
    EXPECT_EQ(last(h), "8 Maximum of 5000 messages reached");
    h.addmessage("and another");
    h.showhelp("maxit");
    h.showhelp("3");
    EXPECT_EQ(optmessagecount(h.get()), 5001);
    EXPECT_EQ(counts(h), "5001 errors, 0 warnings");
    // A setter counts the messages that were filed, and none is: the value is refused all the same.
    EXPECT_EQ(optsetintnr(h.get(), h.number("maxit"), 11), 1);
    EXPECT_EQ(h.value("maxit"), "3");
    // A leave note that finds its enter note last cancels it even in a full list.
    optclearmessages(h.get());
    fill(h, 4998);
    optechoset(h.get(), 1);
    h.string("maxit 4");
    EXPECT_EQ(optmessagecount(h.get()), 4999);
    EXPECT_EQ(last(h), "0 >>  maxit 4");
    fill(h, 5000);
    h.string("nosuch 4");  // echo passes no limit, and takes the place of the limit message
    EXPECT_EQ(optmessagecount(h.get()), 5001);
    EXPECT_EQ(last(h), "0 >>  nosuch 4");
    optechoset(h.get(), 0);
    optclearmessages(h.get());
    fill(h, 5000);
    h.string("maxit 5");  // the enter note becomes the limit message, which the leave note does not cancel
    EXPECT_EQ(last(h), "8 Maximum of 5000 messages reached");
    EXPECT_EQ(optmessagecount(h.get()), 5001);
    EXPECT_EQ(h.value("maxit"), "5");
  });
}

// Stored text and decorated text are both cut at 255 characters.
TEST(messages, cutat255) {
  inbothforms([](thandle& h) {
    h.definition(definitiontext);
    const std::string text(254, 'x');
    h.addmessage(text);
    h.setstrnr(h.number("maxit"), text);
    h.parameters("maxit " + text + "\n");
    const std::string expected = R"(Integer expected, for option "maxit" saw ")" + text;
    EXPECT_EQ(
        h.messages(),
        (tlines{"*** Error " + text.substr(10 - 1), ("*** Value Error " + expected).substr(0, 255),
                "Reading parameter(s) from \"OPT\"", ("*** Value Error line 1: " + expected).substr(0, 255),
                "Finished reading from \"OPT\""}));
  });
}

}  // namespace
}  // namespace testsupport
