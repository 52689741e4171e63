{ wexcorin.pas: the interface of the option library for Free Pascal on Linux x86-64, in its short-string form.

  A client checks that the unit and the library fit together, creates a handle and loads the definition file
  of its solver once. It then reads any number of option files and option texts, asks for the values, fetches
  the messages and frees the handle. examples/client.pas is such a client.

  Compiling and linking. PASCAL is the folder of this file, LIB the folder of libwexcorin.so. -Fl tells the
  linker where the library is, -rpath the program when it runs; both are needed only when the system does not
  search that folder anyway.

    fpc -FuPASCAL -FlLIB -k-rpath -kLIB client.pas

  Conventions

   1. Handles. xCreate makes a handle and xFree frees it. All functions take a handle as their first argument,
      except those of the load path and of the interface check. It must not be nil; only xFree accepts nil.
   2. Texts are of type ShortString: at most 255 characters of one byte each. A longer AnsiString is cut when
      it is passed. A text that the library puts together from parts is cut to 255 characters. A text output
      must be a variable of type ShortString, not of a shorter string type. Two outputs of one call need two
      variables.
   3. Numbers. Options, messages, groups, synonyms, dot entries, indicators, enumeration items, the strings of
      a list and index elements are numbered from 1. Only optLookUp returns a position counted from 0. Options
      have the order of the definition file, and the number of an option never changes.
   4. Arguments. Where the comment of a function says nothing else, number is the number of an option, from 1
      to optCount, and an argument name is the name or a synonym of an option.
   5. Results. "ok" is 1 for success and 0 for failure. A failed call sets its outputs to what its comment
      says. Where that is "untouched", the call does not write the output.
   6. Problems are reported as messages, see optGetMessage. The library raises no exception and never ends the
      program. When there is no memory, the call fails, the handle stays usable, and the message "Out of
      memory" is filed. Texts hold bytes of the files as they are: before a program shows one to people, it
      replaces control characters, marks that change the order of characters and invisible characters.
   7. Ownership. The library copies each text that it receives. The handle is all that a client has to free.
   8. Values. An option has a first value. With sub-type optsub2Values it also has a second value. The value
      of an option that was never set is its default. The defined bits say which values were set: 1 the first,
      2 the second. The recent bits say the same for the time since they were last cleared.
   9. Threads. Only one thread at a time may use a handle; different threads may use different handles at the
      same time. The load path is shared by the whole process and is not thread-safe.
  10. Floating point. Pascal programs trap invalid operations, and unit Math makes other settings. No call
      springs a trap, and all settings are as before afterwards. }
unit wexcorin;

{$mode objfpc}{$H-}

interface

const
  { The version of the interface that this unit declares. }
  optInterfaceVersion = 2;

  { Option types, as optGetInfoNr returns them; the keywords are those of the definition file. }
  optTypeInteger = 0;   { integer: 32 bits, within bounds }
  optTypeDouble = 1;    { double: within bounds }
  optTypeString = 2;    { string }
  optTypeBoolean = 3;   { boolean: 0 or 1 }
  optTypeEnumStr = 4;   { enumstr: one of a list of words }
  optTypeEnumInt = 5;   { enumint: one of a list of integers }
  optTypeMultiList = 6; { multilist: sets a list of options, one word of its text each }
  optTypeStrList = 7;   { strlist: collects texts in a list }
  optTypeMacro = 8;     { macro: sets each option of a list to the same text }
  optTypeImmediate = 9; { immediate: acts when it is read in option text }

  { Data types: the kind of value that an option of a type has. }
  optDataNone = 0;    { multilist, macro, immediate }
  optDataInteger = 1; { integer, boolean, enumint }
  optDataDouble = 2;  { double }
  optDataString = 3;  { string, enumstr }
  optDataStrList = 4; { strlist }

  { Sub-types: what has to follow the name of the option in option text. }
  optsubRequired = 0; { one value }
  optsubNoValue = 1;  { nothing; the name alone sets the default as the value }
  optsubOptional = 2; { one value or nothing }
  optsub2Values = 3;  { two values; a single one sets both }

  { Message kinds. Each comment begins with what optGetMessage puts before the text. }
  optMsgInputEcho = 0;    { ">> ": a line that was read, see optEchoSet }
  optMsgHelp = 1;         { nothing: a line of help, see optShowHelp }
  optMsgDefineError = 2;  { "*** Definition Error ": a mistake in the definition file; an error }
  optMsgValueError = 3;   { "*** Value Error ": a refused value; an error }
  optMsgValueWarning = 4; { "*** Warning ": an illegal value was stored, see optNoBoundsSet; a warning }
  optMsgDeprecated = 5;   { "*** Warning ": a deprecated or obsolete name was used; a warning }
  optMsgFileEnter = 6;    { "Reading parameter(s) from ", then the name in double quotes }
  optMsgFileLeave = 7;    { "Finished reading from ", then the name in double quotes }
  optMsgTooManyMsgs = 8;  { nothing: the limit of messages was reached; an error }
  optMsgUserError = 9;    { "*** Error ": all other errors in option text, and optAddMessage; an error }

  { Immediate kinds: what an immediate option does. The words are those of the definition file. }
  optImmEolFlag = 0;  { EolFlag: switches end-of-line mode for the rest of this text, see optEOLOnlySet }
  optImmReadFile = 1; { ReadFile: reads another option file }
  optImmMessage = 2;  { Message: files a message }
  optImmNoBounds = 3; { NoBounds: switches the tolerance of values out of bounds, see optNoBoundsSet }
  optImmHelp = 4;     { Help: files help, see optShowHelp }

  { Lookup modes: how much of a name must be typed. The words are those of the definition file. }
  optLookupNormal = 0; { Normal: the whole name }
  optLookupPath = 1;   { Path: three characters of each word between underscores }
  optLookupMinos = 2;  { Minos: three characters of the first word, four of each further word }

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
  { A handle: one set of options with its messages. The type is opaque. }
  tvksoptions = ^tvksoptionsrecord;
  tvksoptionsrecord = record
  end;

{ ---- Checks at start: is the library found at run time the one that this unit was written for? }

{ Returns True when it is; a library that is newer than the unit fits, too. Otherwise message says what is
  wrong.

    if not optInterfaceFits(message) then begin WriteLn(StdErr, message); Halt(2); end; }
function optInterfaceFits(var message: ShortString): Boolean;

{ Returns True when the function name, in mixed case as below, has this signature: the code of its result,
  then those of its arguments after the handle. Otherwise message says what differs.

    optSignatureFits('optResetNr', [optCodeInteger, optCodeInteger], message) }
function optSignatureFits(constref name: ShortString; const signature: array of LongInt;
  var message: ShortString): Boolean;

const
  wexcorinlibrary = 'wexcorin';

{ ---- Lifecycle }

{ Creates an empty handle, stores it in handle and returns it. Both are nil when there is no memory. }
function xCreate(var handle: tvksoptions): tvksoptions; cdecl; external wexcorinlibrary name 'xcreate';

{ Frees the handle with everything in it, and sets it to nil. Does nothing when it is nil. }
procedure xFree(var handle: tvksoptions); cdecl; external wexcorinlibrary name 'xfree';

{ ---- Reading. When a file cannot be read to its end, two messages report it. When the list of messages is
  full and cannot hold them, the call that reads the file returns the error code of the operating system
  instead. optReadFromStr and optReadFromPChar have no result: call optClearMessages first. }

{ Reads a definition file, given by its path. Call it once, before all other reading. Option 1 is then the
  predefined immediate option "Help". The result is 0 when the file could be opened, whatever it holds, but
  see above. Otherwise it is the error code of the operating system, and two messages are filed. Each mistake
  in the file is reported as a message. }
function optReadDefinition(handle: tvksoptions; constref filename: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optreaddefinition';

{ Reads an option file, given by its path. An immediate option may read further files. At most nine files may
  be open within each other and 10,000 may be read in one call, this file included; what is read again, and
  help, are bounded as well. The result is 0 when the file could be opened, but see above. Otherwise it is
  the error code of the operating system, and two messages are filed. An error or warning about a line of the
  file has the number of the line before its text; the messages of a file stand between two that name the
  file. }
function optReadParameterFile(handle: tvksoptions; constref filename: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optreadparameterfile';

{ Reads one line of option text. A line feed in the text ends the line, and what follows it is ignored. }
procedure optReadFromStr(handle: tvksoptions; constref text: ShortString);
  cdecl; external wexcorinlibrary name 'optreadfromstr';

{ Does the same for a zero-terminated text of any length. nil means the empty text. }
procedure optReadFromPChar(handle: tvksoptions; text: PAnsiChar);
  cdecl; external wexcorinlibrary name 'optreadfrompchar';

{ Copies one string of a strlist option into value; the list does not change. index is from 1 to
  optListCountStr. The result is 1 for success, 0 when index is out of range, -1 when the option is not a
  strlist, and -2 when there is no option of that name. value is empty for every result but 1. }
function optReadFromListStr(handle: tvksoptions; constref name: ShortString; index: LongInt;
  var value: ShortString): LongInt; cdecl; external wexcorinlibrary name 'optreadfromliststr';

{ ---- Writing }

{ Writes the settings as an option file that can be read again. filename is its path; an existing file is
  replaced. The result is 0 when the file could be opened. Otherwise it is the error code of the operating
  system, and two messages are filed. The same messages are filed, with result 0, when the file could not be
  written to its end. A full list of messages cannot hold them, and optErrorCount does not change then: to
  learn of such an error in any case, call optClearMessages before writing. }
function optWriteParameterFile(handle: tvksoptions; constref filename: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optwriteparameterfile';

{ Files help as messages of kind optMsgHelp. request is the name or a synonym of an option, for the
  description of that option, or a number whose bits choose what is listed: 1 a summary by group, 2 the
  descriptions of all options in alphabetical order, 4 the names on standard output, 8 marks of deprecated and
  obsolete options within the summary. A number below 1 means 3; any other request means 1. Blanks in the
  request are read as underscores. }
procedure optShowHelp(handle: tvksoptions; constref request: ShortString);
  cdecl; external wexcorinlibrary name 'optshowhelp';

{ ---- Messages. The list holds 5000, one that reports the limit, and any number of echoed lines; only
  optClearMessages empties it. }

{ Files a message of kind optMsgUserError with this text. }
procedure optAddMessage(handle: tvksoptions; constref text: ShortString);
  cdecl; external wexcorinlibrary name 'optaddmessage';

{ Fetches a message: its text with the prefix of its kind, and the kind. number is from 1 to optMessageCount.
  For any other number the text is "Bad message number = " followed by number - 1, and the kind is
  optMsgUserError. }
procedure optGetMessage(handle: tvksoptions; number: LongInt; var text: ShortString; var kind: LongInt);
  cdecl; external wexcorinlibrary name 'optgetmessage';

{ Removes all messages. }
procedure optClearMessages(handle: tvksoptions); cdecl; external wexcorinlibrary name 'optclearmessages';

{ Returns the number of messages. }
function optMessageCount(handle: tvksoptions): LongInt;
  cdecl; external wexcorinlibrary name 'optmessagecount';

{ Counts the messages: errors are kinds 2, 3, 8 and 9, warnings kinds 4 and 5. }
procedure optErrorCount(handle: tvksoptions; var errors, warnings: LongInt);
  cdecl; external wexcorinlibrary name 'opterrorcount';

{ ---- Resetting: the defined and recent bits become 0, the value is the default again, a strlist is empty. A
  macro resets the options of its list, a multilist empties its list of options. }

{ Resets every option. Dot entries, indicators and messages stay. }
procedure optResetAll(handle: tvksoptions); cdecl; external wexcorinlibrary name 'optresetall';

{ Clear the recent bits of every option and change nothing else. Both do the same. }
procedure optResetAllRecent(handle: tvksoptions); cdecl; external wexcorinlibrary name 'optresetallrecent';
procedure optResetRecentChanges(handle: tvksoptions);
  cdecl; external wexcorinlibrary name 'optresetrecentchanges';

{ Resets one option. Returns ok; fails when there is no option of that number. }
function optResetNr(handle: tvksoptions; number: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optresetnr';

{ ---- Lookup. Upper and lower case are the same. The lookup mode of the definition says how much of a name is
  compared; a synonym is always compared as a whole. In lookup mode Minos look up the name that optGetHelpNr
  returns. }

{ Finds an option by name or synonym: its number and its reference number. Returns ok; on failure both are
  -1. }
function optFindStr(handle: tvksoptions; constref name: ShortString; var number, refnr: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optfindstr';

{ Finds an option by name; synonyms are not searched. Returns its position counted from 0, which is its number
  less 1, or -1 when there is no option of that name. }
function optLookUp(handle: tvksoptions; constref name: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optlookup';

{ ---- Values by number. These functions return ok. A getter succeeds when the option exists and has the kind
  of value that the getter returns. A setter checks the value against the bounds of the option or against its
  list of values. It fails without a message when the option does not exist or does not have that kind of
  value; otherwise it succeeds exactly when it files no error message. A refused value leaves the option
  unchanged. A function with a 2 in its name is for the second value, and fails for options without the
  sub-type optsub2Values. }

{ Gets the name and the first value. svalue is the value as text; ivalue is the value of an integer, boolean
  or enumint option and otherwise 0; dvalue is the value of a double option and otherwise 0. Fails for
  multilist, strlist, macro and immediate options: name is then set, the other outputs are empty or 0. When
  there is no option of that number, name is empty, too. }
function optGetValuesNr(handle: tvksoptions; number: LongInt; var name: ShortString; var ivalue: LongInt;
  var dvalue: Double; var svalue: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetvaluesnr';

{ Set a value from the argument that fits the type: ivalue for integer, boolean and enumint, dvalue for
  double, svalue for string and enumstr options. The other two arguments are ignored. Fail for other types. }
function optSetValuesNr(handle: tvksoptions; number, ivalue: LongInt; dvalue: Double;
  constref svalue: ShortString): LongInt; cdecl; external wexcorinlibrary name 'optsetvaluesnr';
function optSetValues2Nr(handle: tvksoptions; number, ivalue: LongInt; dvalue: Double;
  constref svalue: ShortString): LongInt; cdecl; external wexcorinlibrary name 'optsetvalues2nr';

{ Get the value of an integer, boolean or enumint option. On failure ivalue is untouched. }
function optGetIntNr(handle: tvksoptions; number: LongInt; var ivalue: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetintnr';
function optGetInt2Nr(handle: tvksoptions; number: LongInt; var ivalue: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetint2nr';

{ Set the value of an integer, boolean or enumint option. }
function optSetIntNr(handle: tvksoptions; number, ivalue: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optsetintnr';
function optSetInt2Nr(handle: tvksoptions; number, ivalue: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optsetint2nr';

{ Get the value of a double option. On failure dvalue is untouched. }
function optGetDblNr(handle: tvksoptions; number: LongInt; var dvalue: Double): LongInt;
  cdecl; external wexcorinlibrary name 'optgetdblnr';
function optGetDbl2Nr(handle: tvksoptions; number: LongInt; var dvalue: Double): LongInt;
  cdecl; external wexcorinlibrary name 'optgetdbl2nr';

{ Set the value of a double option. A NaN is always out of bounds. }
function optSetDblNr(handle: tvksoptions; number: LongInt; dvalue: Double): LongInt;
  cdecl; external wexcorinlibrary name 'optsetdblnr';
function optSetDbl2Nr(handle: tvksoptions; number: LongInt; dvalue: Double): LongInt;
  cdecl; external wexcorinlibrary name 'optsetdbl2nr';

{ Get the value as text. It is empty for multilist, strlist, macro and immediate options, and on failure. }
function optGetStrNr(handle: tvksoptions; number: LongInt; var svalue: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetstrnr';
function optGetStr2Nr(handle: tvksoptions; number: LongInt; var svalue: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetstr2nr';

{ Set an option of any type from text, as a line of an option file does. A text with a double quote in it is
  refused, except for sub-type optsubNoValue, whose text is ignored. }
function optSetStrNr(handle: tvksoptions; number: LongInt; constref svalue: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optsetstrnr';
function optSetStr2Nr(handle: tvksoptions; number: LongInt; constref svalue: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optsetstr2nr';

{ ---- Values by name or synonym as text, like optGetStrNr and optGetStr2Nr. They return ok; on failure value
  is empty. }

function optGetValStr(handle: tvksoptions; constref name: ShortString; var value: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetvalstr';
function optGetVal2Str(handle: tvksoptions; constref name: ShortString; var value: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetval2str';

{ ---- Information. These functions return ok, unless their comment says otherwise. They fail when there is no
  option, item, synonym or group of the given number. }

{ Gets the defined bits, the recent bits (definedr), the reference number, the data type, the option type and
  the sub-type. On failure they are 0, 0, 0, -1, -1, -1. }
function optGetInfoNr(handle: tvksoptions; number: LongInt;
  var defined, definedr, refnr, datatype, opttype, subtype: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetinfonr';

{ Gets the defined bits. On failure defined is 0. }
function optGetDefinedNr(handle: tvksoptions; number: LongInt; var defined: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetdefinednr';

{ Gets the name. In lookup mode Minos it has blanks in place of its underscores. On failure name is empty. }
function optGetNameNr(handle: tvksoptions; number: LongInt; var name: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetnamenr';

{ Gets the name as it stands in the definition file, and the help text of one line. On failure both are
  empty. }
function optGetHelpNr(handle: tvksoptions; number: LongInt; var name, helptext: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgethelpnr';

{ Gets the name as optGetNameNr returns it, the help flag (above 0 when the help lists the option) and the
  group number. On failure they are empty, -1, -1. }
function optGetOptHelpNr(handle: tvksoptions; number: LongInt; var name: ShortString;
  var helpflag, group: LongInt): LongInt; cdecl; external wexcorinlibrary name 'optgetopthelpnr';

{ Gets the default of a string option. Fails for all other types, also for enumstr. On failure text is
  empty. }
function optGetDefaultStr(handle: tvksoptions; number: LongInt; var text: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetdefaultstr';

{ Get the bounds, which are inclusive, and the default of an integer or a double option. Fail for all other
  types. On failure the outputs are untouched. }
function optGetBoundsInt(handle: tvksoptions; number: LongInt; var low, high, defaultvalue: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetboundsint';
function optGetBoundsDbl(handle: tvksoptions; number: LongInt; var low, high, defaultvalue: Double): LongInt;
  cdecl; external wexcorinlibrary name 'optgetboundsdbl';

{ Gets the number of items of an enumstr or enumint option. Fails for all other types. On failure count is
  -1. }
function optGetEnumCount(handle: tvksoptions; number: LongInt; var count: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetenumcount';

{ Gets the help flag and the help text of an item. item is from 1 to optGetEnumCount. On failure they are -1
  and empty. }
function optGetEnumHelp(handle: tvksoptions; number, item: LongInt; var helpflag: LongInt;
  var helptext: ShortString): LongInt; cdecl; external wexcorinlibrary name 'optgetenumhelp';

{ Gets the value of an item. item is from 1 to optGetEnumCount. For an enumint option ivalue is the integer
  and svalue the same as text; for an enumstr option ivalue is 0 and svalue the word. On failure they are -1
  and empty. }
function optGetEnumValue(handle: tvksoptions; number, item: LongInt; var ivalue: LongInt;
  var svalue: ShortString): LongInt; cdecl; external wexcorinlibrary name 'optgetenumvalue';

{ Gets the first value of an enumstr option and the number of its item, which is 0 when the value is none of
  the items. Fails for all other types. On failure they are empty and -1. }
function optGetEnumStrNr(handle: tvksoptions; number: LongInt; var svalue: ShortString;
  var item: LongInt): LongInt; cdecl; external wexcorinlibrary name 'optgetenumstrnr';

{ Gets a synonym and the name of its option, which is empty for an unknown option. number is from 1 to
  optSynonymCount. On failure both are empty. }
function optGetSynonym(handle: tvksoptions; number: LongInt; var synonym, name: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetsynonym';

{ Returns the group number of an option, or -1 when there is no option of that number. }
function optGetOptGroupNr(handle: tvksoptions; number: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetoptgroupnr';

{ Gets a group: its name, its group number, its help flag and its help text. number is here its position, from
  1 to optGroupCount. On failure they are empty, 0, 0, empty. }
function optGetGroupNr(handle: tvksoptions; position: LongInt; var name: ShortString;
  var group, helpflag: LongInt; var helptext: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetgroupnr';

{ Returns the position, from 1, of the first group with this group number, or -1 when there is none. }
function optGetGroupGrpNr(handle: tvksoptions; group: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetgroupgrpnr';

{ Gets the name of a constant of this unit. group is 1 for data types, 2 for option types, 3 for sub-types and
  4 for message kinds; index is the value of the constant. Of the message kinds only 0 to 8 have names here.
  On failure name is empty. }
function optGetConstName(handle: tvksoptions; group, index: LongInt; var name: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetconstname';

{ Gets the keyword of the definition file for an option type, from 0 to 9. On failure name is empty. }
function optGetTypeName(handle: tvksoptions; opttype: LongInt; var name: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgettypename';

{ Gets the name, without its directories, of the file that was last given to optReadDefinition. It is empty
  before the first call. }
procedure optDefinitionFile(handle: tvksoptions; var filename: ShortString);
  cdecl; external wexcorinlibrary name 'optdefinitionfile';

{ Gets the version line of the library. }
procedure optVersion(handle: tvksoptions; var line: ShortString);
  cdecl; external wexcorinlibrary name 'optversion';

{ ---- Counts }

{ Returns the number of options. A definition file adds options; so does a name with two dashes in option text
  that is not an option yet. }
function optCount(handle: tvksoptions): LongInt; cdecl; external wexcorinlibrary name 'optcount';

{ Return the number of synonyms, and of groups. }
function optSynonymCount(handle: tvksoptions): LongInt;
  cdecl; external wexcorinlibrary name 'optsynonymcount';
function optGroupCount(handle: tvksoptions): LongInt; cdecl; external wexcorinlibrary name 'optgroupcount';

{ Return the number of dot entries, and of indicators. rejected is set to the number of those that were
  discarded because their line had an error. }
function optDotOptCount(handle: tvksoptions; var rejected: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optdotoptcount';
function optIndicatorCount(handle: tvksoptions; var rejected: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optindicatorcount';

{ ---- String lists. A result of -1 means that the option is not a strlist, -2 that there is no option of that
  name. }

{ Returns the number of strings in the list, -1 or -2. }
function optListCountStr(handle: tvksoptions; constref name: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optlistcountstr';

{ Removes the first string from the list and copies it into value. The result is 1 for success, 0 when the
  list is empty, -1 or -2. value is empty for every result but 1. }
function optGetFromListStr(handle: tvksoptions; constref name: ShortString; var value: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetfromliststr';

{ Removes the first string from the first list that has one, and copies it into value and the name of the
  option into name. When dashed is 0 only options whose name does not begin with "--" are searched, otherwise
  only those whose name does. The result is 1 for success and 0 when no such list holds a string: value is
  then untouched, and name is the last strlist option that holds strings at all, or untouched when there is
  none. }
function optGetFromAnyStrList(handle: tvksoptions; dashed: LongInt; var name, value: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetfromanystrlist';

{ ---- Dot entries and indicators, in the order in which they were read. number is their number, from 1 to
  optDotOptCount or optIndicatorCount. The functions return ok. }

{ Gets a dot entry: the name of the symbol, the number of the dot option, the number of its index elements (0
  to 20) and its value. On failure the outputs are empty, 0, 0, 0. }
function optGetDotOptNr(handle: tvksoptions; number: LongInt; var name: ShortString;
  var option, dimensions: LongInt; var value: Double): LongInt;
  cdecl; external wexcorinlibrary name 'optgetdotoptnr';

{ Gets an index element of a dot entry: "*", which means all, or the text without its quotes. index is from 1
  to the number of elements. On failure element is empty. }
function optGetDotOptUel(handle: tvksoptions; number, index: LongInt; var element: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetdotoptuel';

{ Gets an indicator: the names of its equation and its variable, the number of index elements of each (0 to
  20) and the value, 0 or 1. On failure the outputs are empty, empty, 0, 0, 0. }
function optGetIndicatorNr(handle: tvksoptions; number: LongInt; var equation, variable: ShortString;
  var equationdims, variabledims, value: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optgetindicatornr';

{ Get an index element of the equation, and of the variable, of an indicator as it was written, with its
  quotes if it has any. index is from 1 to the number of elements. On failure element is empty. }
function optGetEquIndicatorNr(handle: tvksoptions; number, index: LongInt; var element: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetequindicatornr';
function optGetVarIndicatorNr(handle: tvksoptions; number, index: LongInt; var element: ShortString): LongInt;
  cdecl; external wexcorinlibrary name 'optgetvarindicatornr';

{ ---- Flags. 0 switches a flag off, any other number switches it on. }

{ Switches echo: each line that is read is filed as messages of kind optMsgInputEcho, without a limit. Off at
  first. }
procedure optEchoSet(handle: tvksoptions; flag: LongInt); cdecl; external wexcorinlibrary name 'optechoset';

{ Switches the tolerance of values out of bounds: such values, and values that are not among the items of an
  enumeration, are stored with a warning. Instead of a word that is not among the items of an enumstr option,
  the empty text is stored. Off at first. }
procedure optNoBoundsSet(handle: tvksoptions; flag: LongInt);
  cdecl; external wexcorinlibrary name 'optnoboundsset';

{ Switches recent tracking: setting a value sets its recent bit. On at first. }
procedure optRecentEnabledSet(handle: tvksoptions; flag: LongInt);
  cdecl; external wexcorinlibrary name 'optrecentenabledset';

{ Returns whether recent tracking is on, 1 or 0. }
function optRecentEnabled(handle: tvksoptions): LongInt;
  cdecl; external wexcorinlibrary name 'optrecentenabled';

{ Switches end-of-line mode for the files and texts that are read later. When it is on, a line holds one
  statement, and its value is the rest of the line. When it is off, a line may hold several statements, and a
  value is one word. On at first. Returns the previous setting, 1 or 0. }
function optEOLOnlySet(handle: tvksoptions; flag: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'opteolonlyset';

{ ---- Reference numbers: each option has one for the client's own use; the library never uses it. }

{ Set it by number, and by name or synonym. Return ok; fail when there is no such option. }
function optSetRefNr(handle: tvksoptions; number, refnr: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optsetrefnr';
function optSetRefNrStr(handle: tvksoptions; constref name: ShortString; refnr: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'optsetrefnrstr';

{ ---- Load path: one text for the whole process, kept for the clients. It is empty at first; the library
  never uses it. }

procedure optGetLoadPath(var path: ShortString); cdecl; external wexcorinlibrary name 'optgetloadpath';
procedure optSetLoadPath(constref path: ShortString); cdecl; external wexcorinlibrary name 'optsetloadpath';

{ ---- Interface check. optInterfaceFits and optSignatureFits are easier to call. }

{ Compares version, which is optInterfaceVersion, with the version of the library. The result is 0 for a
  version below 1 and otherwise 1. compat is set to 0 for not compatible, 1 for the same version, 2 for an
  older client and 3 for a newer client. message says the same in words. }
function xAPIVersion(version: LongInt; var message: ShortString; var compat: LongInt): LongInt;
  cdecl; external wexcorinlibrary name 'xapiversion';

{ Compares the client's declaration of the function name, in mixed case as above, with the library's. count is
  the number of its arguments after the handle; signature points to count + 1 codes, first that of the result.
  The result is 1, with an empty message, when all agree. Otherwise it is 0, and message reports what
  differs. }
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
