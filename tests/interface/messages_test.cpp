// The message list: decoration by kind, numbers out of range, line prefixes, enter and leave notes that
// cancel, the limit of 5,000, the two ways of counting and the cut at 255 characters; and echoed lines, in
// pieces of 130 characters.
#include "interface/script.h"

namespace testsupport::messagestest {

// The kinds of the messages.
const taddedstep kinds("kinds", [](thandle& h, const std::string&) {
  std::int32_t kind = -7;
  std::string result, text;
  for (std::int32_t nr = 1; nr <= h.one(optmessagecount); ++nr) {
    h.call(BOTH(getmessage), nr, text, kind);
    result += std::to_string(kind);
  }
  return result;
});

// One reading that files every kind but the limit. The echo comes when a source is opened or a line is read,
// before what is said about the line; help lines, notes and echo bear no line number.
TEST(messages, everykindhasitsdecoration) {
  play(everytype, R"(
    definition old integer 3 5 0 10 1 1\nmarks deprecated\n old use maxit\nbroken integer x 5 0 10 1 1\n
    echoset 1 ; parameters * comment\nmaxit 11\nlimits 1\nmaxit 11\nold 6\nhelp maxit\nnosuch 1\n
    echoset 0 ; addmessage the client's own ; errorcount => 5|3 ; kinds => 2600330044050110979
    told => D4 Bad usermap value for option "broken" | +OPT | >>  * comment | >>  maxit 11
      | V2 Integer range error for option "maxit" saw "11" | V2    Valid range is 0 to 10 | >>  limits 1
      | >>  maxit 11 | W4 Integer range error for option "maxit" saw "11" | W4    Valid range is 0 to 10
      | >>  old 6 | W5 deprecated option "old"; use maxit | >>  help maxit | maxit:\x20
      | <24 >integer,  range: 0 to 10 default: 5 | >>  nosuch 1 | E7 Unknown option "nosuch"
      | -OPT | E the client's own
    errorcount => 0|0 ; kinds =>
  )");
}

TEST(messages, numbersoutofrange) {
  play("", "addmessage one ; getmessage $1 => $2|9", R"(
    0 => Bad message number = -1
    2 => Bad message number = 1
    -5 => Bad message number = -6
    1 => *** Error one
    -2147483648 => Bad message number = -2147483649
  )");
}

TEST(messages, limitof5000) {
  play(everytype, R"(
    // The enter note is the 5000th message and goes again.
    fill 4999 ; readfromstr maxit 3 ; messagecount => 4999 ; getmessage 4999 => *** Error filler|9
    addmessage the 5000th ; getmessage 5000 => *** Error the 5000th|9 ; errorcount => 5000|0
    addmessage one more ; showhelp 3 ; messagecount => 5001
    getmessage 5001 => Maximum of 5000 messages reached|8 ; errorcount => 5001|0
    // A setter counts the messages that were filed, and none is: the value is refused all the same.
    setintnr maxit 11 => 1 ; value maxit => 3
    // A leave note that finds its enter note last cancels it even in a full list.
    clearmessages ; fill 4998 ; echoset 1 ; readfromstr maxit 4
    messagecount => 4999 ; getmessage 4999 => >>  maxit 4|0
    // Echo passes no limit, and takes the place of the limit message.
    fill 5000 ; readfromstr nosuch 4 ; messagecount => 5001 ; getmessage 5001 => >>  nosuch 4|0
    // The enter note becomes the limit message, which the leave note does not cancel.
    echoset 0 ; clearmessages ; fill 5000 ; readfromstr maxit 5 ; value maxit => 5
    messagecount => 5001 ; getmessage 5001 => Maximum of 5000 messages reached|8
  )");
}

// Stored text and decorated text are both cut at 255 characters.
TEST(messages, cutat255) {
  play(everytype, R"(
    addmessage <254x> ; setstrnr maxit <254x> ; parameters maxit <254x>\n
    messages => *** Error <245x>
      \n*** Value Error Integer expected, for option "maxit" saw "<197x>
      \nReading parameter(s) from "OPT"
      \n*** Value Error line 1: Integer expected, for option "maxit" saw "<189x>
      \nFinished reading from "OPT"\n
  )");
}

// A line and the pieces in which it is echoed; the marks are of code 187.
TEST(echo, piecesofaline) {
  play("nv integer.NV 1 0 0 9 1 1\nmarks eolcomm !\n", R"(
    echoset 1 ; parameters $1\nnv
    messages => Reading parameter(s) from "OPT"\n$2>>  nv\nFinished reading from "OPT"\n
  )",
       R"(
    \x20nv\t! x => >>  \x20nv\t! x\n
    *<129c> => >>  *<129c>\n
    *<130c> => >> \xBB*<129c>\n>> \xBBc\n
    *<131c> => >> \xBB*<129c>\xBB\n>> \xBBcc\n
    *<259c> => >> \xBB*<129c>\xBB\n>> \xBB<130c>\n
    *<260c> => >> \xBB*<129c>\xBB\n>> \xBB<130c>\n>> \xBBc\n
    *<299c> => >> \xBB*<129c>\xBB\n>> \xBB<130c>\xBB\n>> \xBB<40c>\n
  )");
}

// A string or a buffer is echoed before the note on entering it, which then meets its leave note and goes.
TEST(echo, orderofechoandnotes) {
  play("", R"(
    echoset 1
    definition * definition\nx integer 1 0 0 9 1 1\n help\nread immediate ReadFile 0 0\n\n5 the end\nunread\n
    told => >>  * definition | >>  x integer 1 0 0 9 1 1 | >>   help | >>  read immediate ReadFile 0 0
      | >>  | >>  5 the end
    readfromstr x 1 ; readfrompchar x bad\nx 2 ; readfromstr
    told => >>  x 1 | >>  x bad\nx 2 | +pchar | V Integer expected, for option "x" saw "bad" | -pchar | >>\x20
    file inner x 3\r\n ; parameters read %DIR%/inner\n\nx 4
    told => +OPT | >>  read inner | +inner | >>  x 3 | -inner | >>  | >>  x 4 | -OPT
    echoset 0 ; parameters x 5 ; messages =>
  )");
}

}  // namespace testsupport::messagestest
