// The message list: the prefixes of each kind, numbers out of range, line numbers, notes on entering and
// leaving that are removed together, the limit of 5,000, the two ways of counting, the cut at 255 characters;
// and echoed lines, in pieces of 130 characters.
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

// A line is echoed when it is read, before the messages about it; a source is echoed when it is opened.
const trules decorations("messages", everytype, {__LINE__, R"(
    // each kind of message has its prefix; notes, help and echo have no line number
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
)"});

const trules numbers("messages", "", "addmessage one ; getmessage $1 => $2|9", {__LINE__, R"(
    // messages count from 1, and a number out of range gives a text that says so
    1 => *** Error one
    0 => Bad message number = -1
    2 => Bad message number = 1
    -5 => Bad message number = -6
    -2147483648 => Bad message number = -2147483649
)"});

const trules limit("limit", everytype, {__LINE__, R"(
    // after 5000 messages one more says so, and the rest are dropped
    fill 4999 ; addmessage the 5000th ; getmessage 5000 => *** Error the 5000th|9 ; errorcount => 5000|0
    addmessage one more ; showhelp 3 ; messagecount => 5001
    getmessage 5001 => Maximum of 5000 messages reached|8 ; errorcount => 5001|0

    // when the list is full, a setter returns 1 for a value that it refuses
    fill 5001 ; setintnr maxit 11 => 1 ; value maxit => 5

    // the notes on a source without messages are removed unless the limit was reached between them
    fill 4999 ; readfromstr maxit 3 ; messagecount => 4999 ; getmessage 4999 => *** Error filler|9
    fill 5000 ; readfromstr maxit 4 ; messagecount => 5001
    getmessage 5001 => Maximum of 5000 messages reached|8

    // echo is not limited, and fills the place of the message on the limit
    fill 4998 ; echoset 1 ; readfromstr maxit 4
    messagecount => 4999 ; getmessage 4999 => >>  maxit 4|0
    fill 5000 ; readfromstr nosuch 4 ; messagecount => 5001 ; getmessage 5001 => >>  nosuch 4|0
    readfromstr nosuch 5 ; messagecount => 5002 ; errorcount => 4999|0
)"});

const trules cuts("messages", everytype, {__LINE__, R"(
    // a text is cut at 255 characters, and so is the text with its prefix
    addmessage <254x> ; setstrnr maxit <254x> ; parameters maxit <254x>\n
    messages => *** Error <245x>\n*** Value Error Integer expected, for option "maxit" saw "<197x>
      \nReading parameter(s) from "OPT"
      \n*** Value Error line 1: Integer expected, for option "maxit" saw "<189x>
      \nFinished reading from "OPT"\n
)"});

// The character that marks a piece has the code 187.
const trules pieces(
    "echo", "nv integer.NV 1 0 0 9 1 1\nmarks eolcomm !\n",
    "echoset 1 ; parameters $1\\nnv"
    " ; messages => Reading parameter(s) from \"OPT\"\\n$2>>  nv\\nFinished reading from \"OPT\"\\n",
    {__LINE__, R"(
    // a line is echoed as it stands in the file
    \x20nv\t! x => >>  \x20nv\t! x\n

    // a longer line is echoed in pieces of 130 characters, marked where they were cut
    *<129c> => >>  *<129c>\n
    *<130c> => >> \xBB*<129c>\n>> \xBBc\n
    *<131c> => >> \xBB*<129c>\xBB\n>> \xBBcc\n
    *<259c> => >> \xBB*<129c>\xBB\n>> \xBB<130c>\n
    *<260c> => >> \xBB*<129c>\xBB\n>> \xBB<130c>\n>> \xBBc\n
)"});

// When the note on leaving follows that on entering, both are removed.
const trules order("echo", "x integer 1 0 0 9 1 1\nread immediate ReadFile 0 0\n", {__LINE__, R"(
    // the lines of a definition are echoed up to the one that ends the reading
    echoset 1 ; definition * definition\ny integer 1 0 0 9 1 1\n help\n\n5 the end\nunread\n
    told => >>  * definition | >>  y integer 1 0 0 9 1 1 | >>   help | >>  | >>  5 the end

    // a string or a buffer is echoed before the note on entering it
    echoset 1 ; readfromstr x 1 ; readfrompchar x bad\nx 2 ; readfromstr
    told => >>  x 1 | >>  x bad\nx 2 | +pchar | V Integer expected, for option "x" saw "bad" | -pchar | >>\x20

    // a file is echoed between its notes
    echoset 1 ; file inner x 3\r\n ; parameters read %DIR%/inner\n\nx 4
    told => +OPT | >>  read inner | +inner | >>  x 3 | -inner | >>  | >>  x 4 | -OPT

    // without the switch nothing is echoed
    echoset 1 ; echoset 0 ; parameters x 5 ; messages =>
)"});

}  // namespace testsupport::messagestest
