{ wexcorin.pas: the interface of the option library for Free Pascal on Linux x86-64, in its short-string form.

  A client checks that unit and library go together, creates a handle, loads the definition file of its solver
  once, reads any number of option files and texts, asks for the values, fetches the messages and frees the
  handle. examples/client.pas is such a client.

  Compiling and linking. PASCAL is the folder of this file, LIB that of libwexcorin.so, named only when it is
  none that the system searches anyway: -Fl for the linker, -rpath for the program when it runs.

    fpc -FuPASCAL -FlLIB -k-rpath -kLIB client.pas

  Conventions

   1. Handles. Every function except those of the load path and of the interface check takes one first. It
      comes from xCreate and must not be nil: only xFree looks.
   2. Texts are ShortString: at most 255 characters, each one byte. A longer AnsiString is cut when it is
      passed, and so is, inside the library, what is put together from parts. A text output is a variable of
      type ShortString itself, not of a shorter string type, and two outputs of one call are two variables.
   3. Numbers. Options, messages, groups, synonyms, dot entries, indicators, enumeration items, list strings
      and index elements are counted from 1; optLookUp alone answers a position counted from 0. Option numbers
      follow the definition file and never change.
   4. Results. "ok" is 1 for success and 0 for failure. A failed call sets its outputs as its comment says;
      where that is "untouched", nothing is written.
   5. Problems are messages, see optGetMessage. Nothing is raised, nothing ends the program.
   6. Values. An option has a first value and, with sub-type optsub2Values, a second one; one that was never
      set reads as the default. The defined bits tell which were set: 1 the first, 2 the second. The recent
      bits are the same for what was set since they were last cleared.
   7. Threads. A handle is used by one thread at a time, different handles by different threads as they like.
      The load path is one for the process and unguarded.
   8. Floating point. Pascal programs trap invalid operations, and a NaN that is handed to the library is one.
      A program that may hold any calls SetExceptionMask (unit Math) first. }
unit wexcorin;

{$mode objfpc}{$H-}

interface

const
  { The version of the interface that this unit declares. }
  optInterfaceVersion = 2;

  { Option types, as optGetInfoNr reports them; the words are those of the definition file. }
  optTypeInteger = 0;   { integer: 32 bits, within bounds }
  optTypeDouble = 1;    { double: within bounds }
  optTypeString = 2;    { string }
  optTypeBoolean = 3;   { boolean: 0 or 1 }
  optTypeEnumStr = 4;   { enumstr: one of a list of words }
  optTypeEnumInt = 5;   { enumint: one of a list of integers }
  optTypeMultiList = 6; { multilist: hands its words to a list of options, one each }
  optTypeStrList = 7;   { strlist: collects texts }
  optTypeMacro = 8;     { macro: hands its text to each of a list of options }
  optTypeImmediate = 9; { immediate: acts when it is met in option text }

  { Data types: what kind of value an option of a type has. }
  optDataNone = 0;    { multilist, macro, immediate }
  optDataInteger = 1; { integer, boolean, enumint }
  optDataDouble = 2;  { double }
  optDataString = 3;  { string, enumstr }
  optDataStrList = 4; { strlist }

  { Sub-types: what has to follow the key in option text. }
  optsubRequired = 0; { one value }
  optsubNoValue = 1;  { nothing; the key alone sets the default as the value }
  optsubOptional = 2; { one value or nothing }
  optsub2Values = 3;  { two values; one alone sets both }

  { Message kinds, with what optGetMessage puts around the text. }
  optMsgInputEcho = 0;    { ">> ": a line as it was read, see optEchoSet }
  optMsgHelp = 1;         { nothing: a line of optShowHelp }
  optMsgDefineError = 2;  { "*** Definition Error ": the definition file; an error }
  optMsgValueError = 3;   { "*** Value Error ": a value was refused; an error }
  optMsgValueWarning = 4; { "*** Warning ": a value was taken although out of bounds; a warning }
  optMsgDeprecated = 5;   { "*** Warning ": a deprecated or obsolete name was used; a warning }
  optMsgFileEnter = 6;    { "Reading parameter(s) from ", the name in double quotes }
  optMsgFileLeave = 7;    { "Finished reading from ", the name in double quotes }
  optMsgTooManyMsgs = 8;  { nothing: the message limit was reached; an error }
  optMsgUserError = 9;    { "*** Error ": anything else in option text, and optAddMessage; an error }

  { Immediate kinds: what an immediate option does. The definition file names them by the word given here. }
  optImmEolFlag = 0;  { EolFlag: one statement per line, or several, for the rest of this text }
  optImmReadFile = 1; { ReadFile: read another option file }
  optImmMessage = 2;  { Message: file a message }
  optImmNoBounds = 3; { NoBounds: tolerate values out of bounds, or not }
  optImmHelp = 4;     { Help: list help }

  { Lookup modes: how much of a name must be typed. The definition file chooses one by the word given here. }
  optLookupNormal = 0; { Normal: all of it }
  optLookupPath = 1;   { Path: three characters of each word between underscores }
  optLookupMinos = 2;  { Minos: three characters of the first word, four of each further one }

  { Codes of results and arguments, for optSignatureFits and xCheck. }
  optCodeNone = 0;       { no result: a procedure }
  optCodeInteger = 3;    { LongInt }
  optCodeVarInteger = 4; { var LongInt }
  optCodePChar = 10;     { PAnsiChar }
  optCodeString = 11;    { constref ShortString }
  optCodeVarString = 12; { var ShortString }
  optCodeDouble = 13;    { Double }
  optCodeVarDouble = 14; { var Double }

type
  { One set of options with its messages; opaque. }
  tvksoptions = ^tvksoptionsrecord;
  tvksoptionsrecord = record
  end;

{ ---- Check at start: is the library found at run time the one that this unit was written for? }

{ True when it is, which includes a newer library for older units; otherwise message says what is wrong.

    if not optInterfaceFits(message) then begin WriteLn(StdErr, message); Halt(2); end; }
function optInterfaceFits(var message: ShortString): Boolean;

{ True when the function called name (mixed case, as below) has this signature: the code of its result, then
  those of its arguments after the handle; otherwise message says what differs.

    optSignatureFits('optResetNr', [optCodeInteger, optCodeInteger], message) }
function optSignatureFits(constref name: ShortString; const signature: array of LongInt;
  var message: ShortString): Boolean;

const
  wexcorinlibrary = 'wexcorin';

{ ---- Lifecycle }

{ Creates an empty handle, stores it in handle and returns it; nil in both places when memory is out. }
function xCreate(var handle: tvksoptions): tvksoptions; cdecl; external wexcorinlibrary name 'xcreate';

{ Frees the handle with everything in it and sets it to nil. Does nothing when it is nil. }
procedure xFree(var handle: tvksoptions); cdecl; external wexcorinlibrary name 'xfree';

{ ---- Reading }

{ Reads a definition file; meant to be called once, first. The result is 0 when the file could be opened,
  whatever it holds, and otherwise the operating system's error code, with two messages. Mistakes are
  messages. Option 1 is then the predefined immediate option "Help". }
function optReadDefinition(handle: tvksoptions; constref filename: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optreaddefinition';

{ Reads an option file. The result is 0 when it could be opened, otherwise the operating system's error code,
  with two messages. Messages from within carry the line's number, between notes with the file's name. }
function optReadParameterFile(handle: tvksoptions; constref filename: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optreadparameterfile';

{ Reads one line of option text. }
procedure optReadFromStr(handle: tvksoptions; constref text: ShortString);
  cdecl; external wexcorinlibrary name 'optreadfromstr';

{ The same for a zero-terminated text of any length; a line feed ends it. nil reads as the empty text. }
procedure optReadFromPChar(handle: tvksoptions; text: PAnsiChar);
  cdecl; external wexcorinlibrary name 'optreadfrompchar';

{ String number index of the strlist option called name; the list is not changed. 1; 0 for a bad index; -1
  when the option is no strlist; -2 when there is none of that name. On every result but 1 value is empty. }
function optReadFromListStr(handle: tvksoptions; constref name: ShortString; index: LongInt;
  var value: ShortString): LongInt; cdecl; external wexcorinlibrary name 'optreadfromliststr';

{ ---- Writing }

{ Writes what has been set as an option file that can be read again. 0 when the file could be opened,
  otherwise the operating system's error code; that and a failed write file two messages. }
function optWriteParameterFile(handle: tvksoptions; constref filename: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optwriteparameterfile';

{ Files help as messages of kind optMsgHelp. The request is an option's name or synonym, or a number whose
  bits choose listings: 1 by group, 2 all descriptions by name, 4 the names on standard output, 8 marks of
  deprecated options. A number below 1 stands for 3, any other request for 1. }
procedure optShowHelp(handle: tvksoptions; constref request: ShortString);
  cdecl; external wexcorinlibrary name 'optshowhelp';

{ ---- Messages. At most 5000 and one that says so are kept; only optClearMessages removes any. }

{ Files a message of kind optMsgUserError. }
procedure optAddMessage(handle: tvksoptions; constref text: ShortString);
  cdecl; external wexcorinlibrary name 'optaddmessage';

{ Message number number (from 1) with the prefix of its kind, and the kind. For a bad number the text says so,
  the kind is optMsgUserError. }
procedure optGetMessage(handle: tvksoptions; number: LongInt; var text: ShortString; var kind: LongInt);
  cdecl; external wexcorinlibrary name 'optgetmessage';

{ Removes all messages. }
procedure optClearMessages(handle: tvksoptions); cdecl; external wexcorinlibrary name 'optclearmessages';

{ The number of messages. }
function optMessageCount(handle: tvksoptions): LongInt;
  cdecl; external wexcorinlibrary name 'optmessagecount';

{ Counts the messages that are errors (kinds 2, 3, 8 and 9) and warnings (4 and 5). }
procedure optErrorCount(handle: tvksoptions; var errors, warnings: LongInt);
  cdecl; external wexcorinlibrary name 'opterrorcount';

{ ---- Resetting: defined and recent bits 0, the default as value, a strlist empty. }

{ Resets every option. Dot entries, indicators and messages stay. }
procedure optResetAll(handle: tvksoptions); cdecl; external wexcorinlibrary name 'optresetall';

{ Clears the recent bits of every option and changes nothing else; the second is the same. }
procedure optResetAllRecent(handle: tvksoptions); cdecl; external wexcorinlibrary name 'optresetallrecent';
procedure optResetRecentChanges(handle: tvksoptions);
  cdecl; external wexcorinlibrary name 'optresetrecentchanges';

{ Resets one option. ok; 0 for a bad number. }
function optResetNr(handle: tvksoptions; number: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optresetnr';

{ ---- Lookup, without regard to case, as much of a name as the definition's lookup mode asks for }

{ Finds an option by name or synonym: its number and its reference number. ok; on failure both are -1. }
function optFindStr(handle: tvksoptions; constref name: ShortString; var number, refnr: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optfindstr';

{ Finds an option by name, not by synonym: its position counted from 0, that is its number less 1, or -1. }
function optLookUp(handle: tvksoptions; constref name: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optlookup';

{ ---- Values by number. A getter is ok when the number exists and the option has the kind of value that it
  asks for. A setter checks against bounds or list; its result is 1 when it filed no error message, and 0
  without a message for a bad number or the wrong kind. A refused value leaves the option as it was. A 2 in
  the name stands for the second value, which only sub-type optsub2Values has. }

{ Name and first value: svalue as text for all that have one, ivalue for integer, boolean and enumint, dvalue
  for double; the others are empty or 0. 0 for multilist, strlist, macro and immediate (the name is filled)
  and for a bad number (all is empty or 0). }
function optGetValuesNr(handle: tvksoptions; number: LongInt; var name: ShortString; var ivalue: LongInt;
  var dvalue: Double; var svalue: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetvaluesnr';

{ Sets a value from the one argument that fits the type: ivalue for integer, boolean and enumint, dvalue for
  double, svalue for string and enumstr. }
function optSetValuesNr(handle: tvksoptions; number, ivalue: LongInt; dvalue: Double;
  constref svalue: ShortString): LongInt; cdecl; external wexcorinlibrary name 'optsetvaluesnr';
function optSetValues2Nr(handle: tvksoptions; number, ivalue: LongInt; dvalue: Double;
  constref svalue: ShortString): LongInt; cdecl; external wexcorinlibrary name 'optsetvalues2nr';

{ The value of an integer, boolean or enumint option. On failure untouched. }
function optGetIntNr(handle: tvksoptions; number: LongInt; var ivalue: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetintnr';
function optGetInt2Nr(handle: tvksoptions; number: LongInt; var ivalue: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetint2nr';

{ Sets an integer, boolean or enumint option. }
function optSetIntNr(handle: tvksoptions; number, ivalue: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optsetintnr';
function optSetInt2Nr(handle: tvksoptions; number, ivalue: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optsetint2nr';

{ The value of a double option. On failure untouched. }
function optGetDblNr(handle: tvksoptions; number: LongInt; var dvalue: Double): LongInt;
  cdecl; external wexcorinlibrary name 'optgetdblnr';
function optGetDbl2Nr(handle: tvksoptions; number: LongInt; var dvalue: Double): LongInt;
  cdecl; external wexcorinlibrary name 'optgetdbl2nr';

{ Sets a double option. }
function optSetDblNr(handle: tvksoptions; number: LongInt; dvalue: Double): LongInt;
  cdecl; external wexcorinlibrary name 'optsetdblnr';
function optSetDbl2Nr(handle: tvksoptions; number: LongInt; dvalue: Double): LongInt;
  cdecl; external wexcorinlibrary name 'optsetdbl2nr';

{ The value as text, empty for types without one. On failure empty. }
function optGetStrNr(handle: tvksoptions; number: LongInt; var svalue: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetstrnr';
function optGetStr2Nr(handle: tvksoptions; number: LongInt; var svalue: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetstr2nr';

{ Sets any option from text, as a line of an option file does. A text with a double quote in it is refused. }
function optSetStrNr(handle: tvksoptions; number: LongInt; constref svalue: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optsetstrnr';
function optSetStr2Nr(handle: tvksoptions; number: LongInt; constref svalue: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optsetstr2nr';

{ ---- Values by name or synonym, as optGetStrNr and optGetStr2Nr give them. ok; else empty. }

function optGetValStr(handle: tvksoptions; constref name: ShortString; var value: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetvalstr';
function optGetVal2Str(handle: tvksoptions; constref name: ShortString; var value: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetval2str';

{ ---- Information. All ok, unless said otherwise; a bad number or position is a failure. }

{ Defined bits, recent bits, reference number, data type, option type and sub-type. On failure 0, 0, 0, -1,
  -1, -1. }
function optGetInfoNr(handle: tvksoptions; number: LongInt;
  var defined, definedr, refnr, datatype, opttype, subtype: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetinfonr';

{ The defined bits. On failure 0. }
function optGetDefinedNr(handle: tvksoptions; number: LongInt; var defined: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetdefinednr';

{ The option's name; in lookup mode Minos with blanks for underscores. On failure empty. }
function optGetNameNr(handle: tvksoptions; number: LongInt; var name: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetnamenr';

{ The name as the definition file has it, and the one-line help text. On failure both are empty. }
function optGetHelpNr(handle: tvksoptions; number: LongInt; var name, helptext: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgethelpnr';

{ The name as in optGetNameNr, the help flag (above 0: listed) and the group number. On failure empty, -1, -1.
  }
function optGetOptHelpNr(handle: tvksoptions; number: LongInt; var name: ShortString;
  var helpflag, group: LongInt): LongInt; cdecl; external wexcorinlibrary name 'optgetopthelpnr';

{ The default of a string option; other types fail, enumstr among them. On failure empty. }
function optGetDefaultStr(handle: tvksoptions; number: LongInt; var text: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetdefaultstr';

{ Bounds, inclusive, and default of an integer or a double option; other types fail. On failure untouched. }
function optGetBoundsInt(handle: tvksoptions; number: LongInt; var low, high, defaultvalue: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetboundsint';
function optGetBoundsDbl(handle: tvksoptions; number: LongInt; var low, high, defaultvalue: Double): LongInt;
  cdecl; external wexcorinlibrary name 'optgetboundsdbl';

{ The number of items of an enumstr or enumint option; other types fail. On failure -1. }
function optGetEnumCount(handle: tvksoptions; number: LongInt; var count: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetenumcount';

{ Help flag and help text of item number item. On failure -1 and empty. }
function optGetEnumHelp(handle: tvksoptions; number, item: LongInt; var helpflag: LongInt;
  var helptext: ShortString): LongInt; cdecl; external wexcorinlibrary name 'optgetenumhelp';

{ Item number item: for enumint the integer and its text, for enumstr 0 and the word. On failure -1 and empty.
  }
function optGetEnumValue(handle: tvksoptions; number, item: LongInt; var ivalue: LongInt;
  var svalue: ShortString): LongInt; cdecl; external wexcorinlibrary name 'optgetenumvalue';

{ The first value of an enumstr option and its item number, 0 when it is none of the items. On failure empty,
  -1. }
function optGetEnumStrNr(handle: tvksoptions; number: LongInt; var svalue: ShortString;
  var item: LongInt): LongInt; cdecl; external wexcorinlibrary name 'optgetenumstrnr';

{ Synonym number number and the name of its option, empty for an unknown one. On failure both are empty. }
function optGetSynonym(handle: tvksoptions; number: LongInt; var synonym, name: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetsynonym';

{ The option's group number; -1 for a bad number. }
function optGetOptGroupNr(handle: tvksoptions; number: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetoptgroupnr';

{ The group at a position: name, group number, help flag, help text. On failure empty, 0, 0, empty. }
function optGetGroupNr(handle: tvksoptions; position: LongInt; var name: ShortString;
  var group, helpflag: LongInt; var helptext: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetgroupnr';

{ The position of the first group with this group number; -1 when there is none. }
function optGetGroupGrpNr(handle: tvksoptions; group: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetgroupgrpnr';

{ The name of a constant of this unit. group is 1 for data types, 2 for option types, 3 for sub-types, 4 for
  message kinds (0 to 8); index is the constant's value. On failure empty. }
function optGetConstName(handle: tvksoptions; group, index: LongInt; var name: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetconstname';

{ The definition file's word for an option type, 0 to 9. On failure empty. }
function optGetTypeName(handle: tvksoptions; opttype: LongInt; var name: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgettypename';

{ The name of the definition file without its directories; empty before one was read. }
procedure optDefinitionFile(handle: tvksoptions; var filename: ShortString);
  cdecl; external wexcorinlibrary name 'optdefinitionfile';

{ The library's version line. }
procedure optVersion(handle: tvksoptions; var line: ShortString);
  cdecl; external wexcorinlibrary name 'optversion';

{ ---- Counts }

{ The number of options; keys of the form --name in option text add to it. }
function optCount(handle: tvksoptions): LongInt; cdecl; external wexcorinlibrary name 'optcount';

{ The number of synonyms, and of groups. }
function optSynonymCount(handle: tvksoptions): LongInt;
  cdecl; external wexcorinlibrary name 'optsynonymcount';
function optGroupCount(handle: tvksoptions): LongInt; cdecl; external wexcorinlibrary name 'optgroupcount';

{ The number of dot entries, and of indicators. rejected: how many were discarded because of errors. }
function optDotOptCount(handle: tvksoptions; var rejected: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optdotoptcount';
function optIndicatorCount(handle: tvksoptions; var rejected: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optindicatorcount';

{ ---- String lists, by name or synonym. -1: the option is no strlist; -2: there is none of that name. }

{ The number of strings, or -1 or -2. }
function optListCountStr(handle: tvksoptions; constref name: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optlistcountstr';

{ Takes the first string out of the list. 1; 0 when it is empty; -1; -2. On every result but 1 value is empty.
  }
function optGetFromListStr(handle: tvksoptions; constref name: ShortString; var value: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetfromliststr';

{ Takes the first string out of the first list that has one, among the options whose name begins with "--"
  when dashed is not 0, among the others when it is, and tells the option's name. 1; 0 when no such list holds
  a string: value is then untouched. }
function optGetFromAnyStrList(handle: tvksoptions; dashed: LongInt; var name, value: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetfromanystrlist';

{ ---- Dot entries and indicators, in the order of reading }

{ A dot entry: its symbol, the number of the dot option, the number of its index elements (0 to 20), its
  value. On failure empty, 0, 0, 0. }
function optGetDotOptNr(handle: tvksoptions; number: LongInt; var name: ShortString;
  var option, dimensions: LongInt; var value: Double): LongInt;
  cdecl; external wexcorinlibrary name 'optgetdotoptnr';

{ An index element of a dot entry: "*" for all, else the text without its quotes. On failure empty. }
function optGetDotOptUel(handle: tvksoptions; number, index: LongInt; var element: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetdotoptuel';

{ An indicator: equation and variable, the number of index elements of each (0 to 20), the value, 0 or 1. On
  failure empty, empty, 0, 0, 0. }
function optGetIndicatorNr(handle: tvksoptions; number: LongInt; var equation, variable: ShortString;
  var equationdims, variabledims, value: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetindicatornr';

{ An index element of an indicator's equation, and of its variable, as written. On failure empty. }
function optGetEquIndicatorNr(handle: tvksoptions; number, index: LongInt; var element: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetequindicatornr';
function optGetVarIndicatorNr(handle: tvksoptions; number, index: LongInt; var element: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetvarindicatornr';

{ ---- Flags, on when not 0 }

{ Whether each line that is read is filed as messages of kind optMsgInputEcho. Off at first. }
procedure optEchoSet(handle: tvksoptions; flag: LongInt); cdecl; external wexcorinlibrary name 'optechoset';

{ Whether values out of bounds or of no enumeration item are taken with a warning. Off at first. }
procedure optNoBoundsSet(handle: tvksoptions; flag: LongInt);
  cdecl; external wexcorinlibrary name 'optnoboundsset';

{ Whether setting a value sets its recent bit. On at first. }
procedure optRecentEnabledSet(handle: tvksoptions; flag: LongInt);
  cdecl; external wexcorinlibrary name 'optrecentenabledset';

{ That flag, 1 or 0. }
function optRecentEnabled(handle: tvksoptions): LongInt;
  cdecl; external wexcorinlibrary name 'optrecentenabled';

{ Whether a line of option text holds one statement (on, at first) or several. The previous value. }
function optEOLOnlySet(handle: tvksoptions; flag: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'opteolonlyset';

{ ---- Reference numbers: one per option, for the client's own use }

{ Sets it by number, and by name or synonym. ok; 0 when there is no such option. }
function optSetRefNr(handle: tvksoptions; number, refnr: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optsetrefnr';
function optSetRefNrStr(handle: tvksoptions; constref name: ShortString; refnr: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optsetrefnrstr';

{ ---- Load path: one text for the whole process, kept for the clients, empty at first, never used by the
  library }

procedure optGetLoadPath(var path: ShortString); cdecl; external wexcorinlibrary name 'optgetloadpath';
procedure optSetLoadPath(constref path: ShortString); cdecl; external wexcorinlibrary name 'optsetloadpath';

{ ---- Interface check; optInterfaceFits and optSignatureFits are easier to call }

{ Compares an interface version with the library's. 1 when the two get along, 0 when not; compat tells how: 0
  not at all, 1 the same version, 2 an older client, 3 a newer client. message says it in words. }
function xAPIVersion(version: LongInt; var message: ShortString; var compat: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'xapiversion';

{ Compares the signature of the function called name: count arguments after the handle, count + 1 codes. 1 and
  an empty message when all agree; else 0, and message names what differs. }
function xCheck(constref name: ShortString; count: LongInt; signature: PLongInt;
  var message: ShortString): LongInt; cdecl; external wexcorinlibrary name 'xcheck';

implementation

function optInterfaceFits(var message: ShortString): Boolean;
var
  compat: LongInt;
begin
  compat := 0;
  optInterfaceFits := (xAPIVersion(optInterfaceVersion, message, compat) = 1) and (compat <> 3);
end;

function optSignatureFits(constref name: ShortString; const signature: array of LongInt;
  var message: ShortString): Boolean;
begin
  optSignatureFits := xCheck(name, High(signature), @signature[0], message) = 1;
end;

end.
