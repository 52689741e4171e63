/* wexcorin.h: the C interface of the option library.
 *
 * A client creates a handle, loads the definition file of its solver once, reads any number of option files
 * and texts, asks for the values, fetches the messages and frees the handle. The conventions below hold for
 * every function; each function's own comment says only what is particular to it.
 *
 * Conventions
 *
 *  1. Handles. A handle comes from xcreate and ends with xfree. Every function except those of the load
 *     path and of the interface check takes it first. It must not be null: only xfree looks.
 *
 *  2. Two text forms. optxxx takes and fills short strings: a length byte and up to 255 characters, without a
 *     terminator. coptxxx, declared directly below it, is the same function for zero-terminated texts.
 *     Functions without text exist only as optxxx. optreadfrompchar takes a zero-terminated text of any
 *     length and has no second form.
 *
 *  3. Text limits. No text inside the library is longer than 255 characters; what is put together from parts
 *     is cut there. A zero-terminated argument may have at most 254 characters: a longer one arrives as the
 *     text "PCharToStr Overflow", and no result says so. A text is a sequence of bytes; only the letters A
 *     to Z have an upper and a lower case.
 *
 *  4. Null texts. A null pointer for a text argument reads as the empty text, in both forms.
 *
 *  5. Output buffers. A text output is a buffer of WEXCORIN_TEXT_SIZE bytes that belongs to the caller, in
 *     both forms; nothing is written past it. Bytes behind the text are left as they were. Output pointers
 *     must not be null. A text output may lie in the buffer of a text argument of the same call: arguments
 *     are read before outputs are written. Two outputs of one call need two buffers.
 *
 *  6. Numbering. Options, messages, groups, synonyms, dot entries, indicators, enumeration items, list
 *     strings and index elements are counted from 1. optlookup alone answers a position counted from 0.
 *     Option numbers follow the order of the definition file and never change: options are only added, at
 *     the end.
 *
 *  7. Results. "ok" is 1 for success and 0 for failure. A failed call sets its outputs as its comment says;
 *     where that is "untouched", nothing is written, except that a text output of the coptxxx form comes
 *     back empty.
 *
 *  8. Problems are messages. Nothing is thrown, the process is never ended, and nothing is printed but the
 *     name list that optshowhelp can be asked for. Whatever readers, setters and writers have to say becomes
 *     a numbered message of the handle, see optgetmessage.
 *
 *  9. Ownership. The library copies every text that it is given and copies texts into the caller's buffers. A
 *     client frees nothing but the handle.
 *
 * 10. Threads. Nothing is locked. A handle is used by one thread at a time; different handles may be used
 *     from different threads at the same time. The load path is one for the process and unguarded.
 *
 * 11. Out of memory. The call fails and the handle stays usable. The result is then a null handle or 0, and
 *     ENOMEM where it is the operating system's error code; the message "Out of memory" is filed, as soon as
 *     there is memory for it, and counts as an error at once.
 *
 * 12. Locale. Numbers are read and written with a decimal point, whatever locale the process has set.
 *
 * 13. Values. An option has a first value and, with sub-type optsub2Values, a second one. A value that was
 *     never set reads as the option's default. The defined bits tell which were set: 1 the first, 2 the
 *     second. The recent bits are the same for what was set since they were last cleared.
 */
#ifndef WEXCORIN_WEXCORIN_H
#define WEXCORIN_WEXCORIN_H

#include <stdint.h>

#if defined(__GNUC__)
#define WEXCORIN_API __attribute__((visibility("default")))
#else
#define WEXCORIN_API
#endif

/* The version of this interface. The shared library carries it in its soname. */
#define WEXCORIN_INTERFACE_VERSION 2

/* Bytes of a text buffer, in both text forms. */
#define WEXCORIN_TEXT_SIZE 256

#ifdef __cplusplus
extern "C" {
#endif

/* One set of options with its messages; opaque. */
typedef struct tvksoptions tvksoptions;

/* A short string: text[0] to text[length - 1] are its characters. */
typedef struct optshortstring {
  unsigned char length;
  char text[255];
} optshortstring;

/* Option types, as optgetinfonr reports them; the words are those of the definition file. */
enum {
  optTypeInteger = 0,   /* integer: 32 bits, within bounds */
  optTypeDouble = 1,    /* double: within bounds */
  optTypeString = 2,    /* string */
  optTypeBoolean = 3,   /* boolean: 0 or 1 */
  optTypeEnumStr = 4,   /* enumstr: one of a list of words */
  optTypeEnumInt = 5,   /* enumint: one of a list of integers */
  optTypeMultiList = 6, /* multilist: hands its words to a list of options, one each */
  optTypeStrList = 7,   /* strlist: collects texts */
  optTypeMacro = 8,     /* macro: hands its text to each of a list of options */
  optTypeImmediate = 9  /* immediate: acts when it is met in option text */
};

/* Data types: what kind of value an option of a type has. */
enum {
  optDataNone = 0,    /* multilist, macro, immediate */
  optDataInteger = 1, /* integer, boolean, enumint */
  optDataDouble = 2,  /* double */
  optDataString = 3,  /* string, enumstr */
  optDataStrList = 4  /* strlist */
};

/* Sub-types: what has to follow the key in option text. */
enum {
  optsubRequired = 0, /* one value */
  optsubNoValue = 1,  /* nothing; the key alone sets the default as the value */
  optsubOptional = 2, /* one value or nothing */
  optsub2Values = 3   /* two values; one alone sets both */
};

/* Message kinds, with what optgetmessage puts around the text. */
enum {
  optMsgInputEcho = 0,    /* ">> ": a line as it was read, see optechoset */
  optMsgHelp = 1,         /* nothing: a line of optshowhelp */
  optMsgDefineError = 2,  /* "*** Definition Error ": the definition file; an error */
  optMsgValueError = 3,   /* "*** Value Error ": a value was refused; an error */
  optMsgValueWarning = 4, /* "*** Warning ": a value out of bounds was taken, see optnoboundsset; a warning */
  optMsgDeprecated = 5,   /* "*** Warning ": a deprecated or obsolete name was used; a warning */
  optMsgFileEnter = 6,    /* "Reading parameter(s) from ", the name in double quotes */
  optMsgFileLeave = 7,    /* "Finished reading from ", the name in double quotes */
  optMsgTooManyMsgs = 8,  /* nothing: the message limit was reached; an error */
  optMsgUserError = 9     /* "*** Error ": anything else in option text, and optaddmessage; an error */
};

/* Immediate kinds: what an immediate option does. The definition file names them by the word given here. */
enum {
  optImmEolFlag = 0,  /* EolFlag: one statement per line, or several, for the rest of this text */
  optImmReadFile = 1, /* ReadFile: read another option file */
  optImmMessage = 2,  /* Message: file a message */
  optImmNoBounds = 3, /* NoBounds: tolerate values out of bounds, or not */
  optImmHelp = 4      /* Help: list help */
};

/* Lookup modes: how much of a name must be typed. The definition file chooses one by the word given here. */
enum {
  optLookupNormal = 0, /* Normal: all of it */
  optLookupPath = 1,   /* Path: three characters of each word between underscores */
  optLookupMinos = 2   /* Minos: three characters of the first word, four of each further one */
};

/* --------------------------------------------------------------------------
 * Lifecycle
 */

/* Creates an empty handle, stores it in *handle and returns it; null in both places when memory is out. A
 * new handle has no options, no messages, end-of-line mode and recent tracking on, echo and tolerance of
 * bounds off. End it with xfree. */
WEXCORIN_API tvksoptions* xcreate(tvksoptions** handle);

/* Frees the handle with everything in it and sets *handle to null. Does nothing when *handle is null. */
WEXCORIN_API void xfree(tvksoptions** handle);

/* --------------------------------------------------------------------------
 * Reading
 *
 * Files are read by name, pipes and devices too. A FIFO that no program opens for writing within five seconds
 * counts as a file that cannot be opened (ETIMEDOUT). A file that cannot be read to its end is reported: the
 * two messages begin with "Cannot read", and what was read before counts. So is what goes on behind 2 GiB
 * (EFBIG).
 */

/* Reads a definition file: options, groups, synonyms and the rest of the solver's description. Meant to be
 * called once, first; a further call adds to what is there. Option 1 of a fresh handle is then the
 * predefined immediate option "Help". The result is 0 when the file could be opened, whatever it holds,
 * and otherwise the operating system's error code, with two messages. Each mistake in the file is a
 * message of kind optMsgDefineError and does not stop the reading. A line that begins neither with a
 * letter nor with ".", and is not the continuation of a definition that takes one, ends it without a
 * message; so does a continuation line without a word under an enumstr or macro option. */
WEXCORIN_API int32_t optreaddefinition(tvksoptions* handle, const optshortstring* filename);
WEXCORIN_API int32_t coptreaddefinition(tvksoptions* handle, const char* filename);

/* Reads an option file: sets options, collects dot entries and indicators, acts on immediate options. An
 * immediate option may read further files, up to nine deep and 10,000 in all, this one counted. The result is
 * 0 when the file could be opened, and otherwise the operating system's error code, with two messages of kind
 * optMsgUserError. Messages from within carry "line " and the line's number, between a note of kind
 * optMsgFileEnter and one of optMsgFileLeave with the file's name; a file without any message leaves no
 * notes. */
WEXCORIN_API int32_t optreadparameterfile(tvksoptions* handle, const optshortstring* filename);
WEXCORIN_API int32_t coptreadparameterfile(tvksoptions* handle, const char* filename);

/* Reads one line of option text; a line feed in it ends it. See opteolonlyset for how many statements it may
 * hold. The notes name it "string". */
WEXCORIN_API void optreadfromstr(tvksoptions* handle, const optshortstring* text);
WEXCORIN_API void coptreadfromstr(tvksoptions* handle, const char* text);

/* The same for a text of any length; a line feed in it ends it. The notes name it "pchar". */
WEXCORIN_API void optreadfrompchar(tvksoptions* handle, const char* text);

/* Reads string number index of the strlist option called name (or with that synonym); the list is not
 * changed. The result is 1; 0 when index is not within 1 and the number of strings; -1 when the option is
 * not a strlist; -2 when there is none of that name. On every result but 1 value is empty. */
WEXCORIN_API int32_t optreadfromliststr(tvksoptions* handle, const optshortstring* name, int32_t index,
                                        optshortstring* value);
WEXCORIN_API int32_t coptreadfromliststr(tvksoptions* handle, const char* name, int32_t index, char* value);

/* --------------------------------------------------------------------------
 * Writing
 */

/* Writes what has been set as an option file that can be read again: a line per option whose defined bits
 * are not 0, in definition order, then the dot entries and the indicators. An existing file is replaced.
 * The result is 0 when the file could be opened, and otherwise the operating system's error code; that and
 * a write that fails later also file two messages of kind optMsgUserError. */
WEXCORIN_API int32_t optwriteparameterfile(tvksoptions* handle, const optshortstring* filename);
WEXCORIN_API int32_t coptwriteparameterfile(tvksoptions* handle, const char* filename);

/* Files help as messages of kind optMsgHelp, one per line. The request is the name or synonym of an
 * option, whose description follows, or a number whose bits choose listings: 1 a summary by group, 2 all
 * descriptions in alphabetical order, 4 a list of the names on standard output, for debugging, 8 marks of
 * deprecated and obsolete options in the summary. A number below 1 stands for 3, any other request for 1.
 * Blanks in the request count as underscores. */
WEXCORIN_API void optshowhelp(tvksoptions* handle, const optshortstring* request);
WEXCORIN_API void coptshowhelp(tvksoptions* handle, const char* request);

/* --------------------------------------------------------------------------
 * Messages
 *
 * The handle's list grows with every problem and note, and only optclearmessages empties it. When 5000
 * messages are there, one of kind optMsgTooManyMsgs follows and further ones are dropped, echoed lines
 * excepted.
 */

/* Files a message of kind optMsgUserError. */
WEXCORIN_API void optaddmessage(tvksoptions* handle, const optshortstring* text);
WEXCORIN_API void coptaddmessage(tvksoptions* handle, const char* text);

/* Fetches message number (from 1): its text with the prefix of its kind, and the kind. For a number that
 * does not exist the text is "Bad message number = " and number - 1, the kind optMsgUserError. */
WEXCORIN_API void optgetmessage(tvksoptions* handle, int32_t number, optshortstring* text, int32_t* kind);
WEXCORIN_API void coptgetmessage(tvksoptions* handle, int32_t number, char* text, int32_t* kind);

/* Removes all messages. Nothing else changes. */
WEXCORIN_API void optclearmessages(tvksoptions* handle);

/* The number of messages. */
WEXCORIN_API int32_t optmessagecount(tvksoptions* handle);

/* Counts the messages that are errors (kinds 2, 3, 8 and 9) and warnings (4 and 5). */
WEXCORIN_API void opterrorcount(tvksoptions* handle, int32_t* errors, int32_t* warnings);

/* --------------------------------------------------------------------------
 * Resetting
 *
 * A reset option has no value of its own any more: its defined and recent bits are 0, it reads as its
 * default, a strlist is empty. A macro resets the options that it stands for. A multilist forgets its list
 * of options. Dot entries, indicators and messages stay.
 */

/* Resets every option. */
WEXCORIN_API void optresetall(tvksoptions* handle);

/* Clears the recent bits of every option and changes nothing else. */
WEXCORIN_API void optresetallrecent(tvksoptions* handle);

/* The same as optresetallrecent. */
WEXCORIN_API void optresetrecentchanges(tvksoptions* handle);

/* Resets one option. ok; 0 for a bad number. */
WEXCORIN_API int32_t optresetnr(tvksoptions* handle, int32_t number);

/* --------------------------------------------------------------------------
 * Lookup
 *
 * Names are compared without regard to case, as much of them as the definition's lookup mode asks for. A
 * synonym is always compared whole. In lookup mode Minos the form with blanks that optgetnamenr gives is not
 * found; the one that optgethelpnr gives is.
 */

/* Finds an option by name or synonym: its number and its reference number. ok; on failure both are -1. */
WEXCORIN_API int32_t optfindstr(tvksoptions* handle, const optshortstring* name, int32_t* number,
                                int32_t* refnr);
WEXCORIN_API int32_t coptfindstr(tvksoptions* handle, const char* name, int32_t* number, int32_t* refnr);

/* Finds an option by name, synonyms not considered. The result is its position counted from 0, that is its
 * number less 1, or -1. */
WEXCORIN_API int32_t optlookup(tvksoptions* handle, const optshortstring* name);
WEXCORIN_API int32_t coptlookup(tvksoptions* handle, const char* name);

/* --------------------------------------------------------------------------
 * Values by number
 *
 * A getter is ok only when the number exists and the option has the kind of value that it asks for. A setter
 * checks the value against the option's bounds or list; its result is 1 exactly when it filed no error
 * message. It is 0 without a message for a bad number and for an option that does not have that kind of
 * value. A refused value leaves the option as it was; a multilist or macro option may have assigned the words
 * or members before the one that was refused. Once the list of messages is full (see optgetmessage) a refusal
 * can no longer be told from the result. With tolerance of bounds on (optnoboundsset) the value
 * is taken, the message is a warning and the result 1; but see optnoboundsset for enumstr. The functions with
 * a 2 in the name are for the second value, and ok only for sub-type optsub2Values.
 */

/* The option's name and first value. In lookup mode Minos the name's underscores come as blanks. svalue is
 * the value as text for every type that has one; ivalue is filled for integer, boolean and enumint, dvalue
 * for double; what the type does not fill is empty or 0. For multilist, strlist, macro and immediate
 * options the result is 0, with the name filled all the same. For a bad number everything is empty or 0. */
WEXCORIN_API int32_t optgetvaluesnr(tvksoptions* handle, int32_t number, optshortstring* name,
                                    int32_t* ivalue, double* dvalue, optshortstring* svalue);
WEXCORIN_API int32_t coptgetvaluesnr(tvksoptions* handle, int32_t number, char* name, int32_t* ivalue,
                                     double* dvalue, char* svalue);

/* Sets the first value from the one argument that fits the type: ivalue for integer, boolean and enumint,
 * dvalue for double, svalue for string and enumstr. Other types: 0. */
WEXCORIN_API int32_t optsetvaluesnr(tvksoptions* handle, int32_t number, int32_t ivalue, double dvalue,
                                    const optshortstring* svalue);
WEXCORIN_API int32_t coptsetvaluesnr(tvksoptions* handle, int32_t number, int32_t ivalue, double dvalue,
                                     const char* svalue);

/* The same for the second value. */
WEXCORIN_API int32_t optsetvalues2nr(tvksoptions* handle, int32_t number, int32_t ivalue, double dvalue,
                                     const optshortstring* svalue);
WEXCORIN_API int32_t coptsetvalues2nr(tvksoptions* handle, int32_t number, int32_t ivalue, double dvalue,
                                      const char* svalue);

/* The value of an integer, boolean or enumint option. On failure ivalue is untouched. */
WEXCORIN_API int32_t optgetintnr(tvksoptions* handle, int32_t number, int32_t* ivalue);
WEXCORIN_API int32_t optgetint2nr(tvksoptions* handle, int32_t number, int32_t* ivalue);

/* Sets an integer, boolean or enumint option. */
WEXCORIN_API int32_t optsetintnr(tvksoptions* handle, int32_t number, int32_t ivalue);
WEXCORIN_API int32_t optsetint2nr(tvksoptions* handle, int32_t number, int32_t ivalue);

/* The value of a double option. On failure dvalue is untouched. */
WEXCORIN_API int32_t optgetdblnr(tvksoptions* handle, int32_t number, double* dvalue);
WEXCORIN_API int32_t optgetdbl2nr(tvksoptions* handle, int32_t number, double* dvalue);

/* Sets a double option. A NaN is out of every bounds. */
WEXCORIN_API int32_t optsetdblnr(tvksoptions* handle, int32_t number, double dvalue);
WEXCORIN_API int32_t optsetdbl2nr(tvksoptions* handle, int32_t number, double dvalue);

/* The first value as text: integers and booleans in decimal, doubles with up to 15 digits; empty for
 * multilist, strlist, macro and immediate options. ok for every number that exists; else the text is
 * empty. */
WEXCORIN_API int32_t optgetstrnr(tvksoptions* handle, int32_t number, optshortstring* svalue);
WEXCORIN_API int32_t coptgetstrnr(tvksoptions* handle, int32_t number, char* svalue);

/* The same for the second value. On failure the text is empty. */
WEXCORIN_API int32_t optgetstr2nr(tvksoptions* handle, int32_t number, optshortstring* svalue);
WEXCORIN_API int32_t coptgetstr2nr(tvksoptions* handle, int32_t number, char* svalue);

/* Sets any option from text, as a line of an option file does: converts it, appends it to a strlist, hands
 * it on for a multilist or macro; nothing happens for an immediate option, and an option of sub-type
 * optsubNoValue only becomes defined. Of an option with two values only the first is set, and the text is one
 * value. A text with a double quote in it is refused (not so with optsubNoValue, whose text is not looked
 * at). */
WEXCORIN_API int32_t optsetstrnr(tvksoptions* handle, int32_t number, const optshortstring* svalue);
WEXCORIN_API int32_t coptsetstrnr(tvksoptions* handle, int32_t number, const char* svalue);

/* The same for the second value. */
WEXCORIN_API int32_t optsetstr2nr(tvksoptions* handle, int32_t number, const optshortstring* svalue);
WEXCORIN_API int32_t coptsetstr2nr(tvksoptions* handle, int32_t number, const char* svalue);

/* --------------------------------------------------------------------------
 * Values by name
 */

/* The first value, as optgetstrnr gives it, of the option with this name or synonym. ok; else the text is
 * empty. */
WEXCORIN_API int32_t optgetvalstr(tvksoptions* handle, const optshortstring* name, optshortstring* value);
WEXCORIN_API int32_t coptgetvalstr(tvksoptions* handle, const char* name, char* value);

/* The second value, as optgetstr2nr gives it. */
WEXCORIN_API int32_t optgetval2str(tvksoptions* handle, const optshortstring* name, optshortstring* value);
WEXCORIN_API int32_t coptgetval2str(tvksoptions* handle, const char* name, char* value);

/* --------------------------------------------------------------------------
 * Information
 *
 * All ok, unless said otherwise; a bad number or position is a failure.
 */

/* Defined bits, recent bits, the reference number, data type, option type and sub-type. On failure 0, 0,
 * 0, -1, -1, -1. */
WEXCORIN_API int32_t optgetinfonr(tvksoptions* handle, int32_t number, int32_t* defined, int32_t* definedr,
                                  int32_t* refnr, int32_t* datatype, int32_t* opttype, int32_t* subtype);

/* The defined bits. On failure 0. */
WEXCORIN_API int32_t optgetdefinednr(tvksoptions* handle, int32_t number, int32_t* defined);

/* The option's name; in lookup mode Minos with blanks for underscores, which optfindstr does not find: look
 * up what optgethelpnr gives. On failure empty. */
WEXCORIN_API int32_t optgetnamenr(tvksoptions* handle, int32_t number, optshortstring* name);
WEXCORIN_API int32_t coptgetnamenr(tvksoptions* handle, int32_t number, char* name);

/* The option's name as the definition file has it, and its one-line help text. On failure both are empty. */
WEXCORIN_API int32_t optgethelpnr(tvksoptions* handle, int32_t number, optshortstring* name,
                                  optshortstring* helptext);
WEXCORIN_API int32_t coptgethelpnr(tvksoptions* handle, int32_t number, char* name, char* helptext);

/* The option's name as in optgetnamenr, its help flag (above 0: listed in the help) and its group number
 * (not the group's position). On failure empty, -1, -1. */
WEXCORIN_API int32_t optgetopthelpnr(tvksoptions* handle, int32_t number, optshortstring* name,
                                     int32_t* helpflag, int32_t* group);
WEXCORIN_API int32_t coptgetopthelpnr(tvksoptions* handle, int32_t number, char* name, int32_t* helpflag,
                                      int32_t* group);

/* The default of a string option; other types fail, enumstr among them. On failure empty. */
WEXCORIN_API int32_t optgetdefaultstr(tvksoptions* handle, int32_t number, optshortstring* text);
WEXCORIN_API int32_t coptgetdefaultstr(tvksoptions* handle, int32_t number, char* text);

/* Bounds, inclusive, and default of an integer option; other types fail. On failure all three are
 * untouched. */
WEXCORIN_API int32_t optgetboundsint(tvksoptions* handle, int32_t number, int32_t* low, int32_t* high,
                                     int32_t* defaultvalue);

/* The same for a double option. */
WEXCORIN_API int32_t optgetboundsdbl(tvksoptions* handle, int32_t number, double* low, double* high,
                                     double* defaultvalue);

/* The number of items of an enumstr or enumint option; other types fail. On failure -1. */
WEXCORIN_API int32_t optgetenumcount(tvksoptions* handle, int32_t number, int32_t* count);

/* Help flag and help text of item number item. On failure -1 and empty. */
WEXCORIN_API int32_t optgetenumhelp(tvksoptions* handle, int32_t number, int32_t item, int32_t* helpflag,
                                    optshortstring* helptext);
WEXCORIN_API int32_t coptgetenumhelp(tvksoptions* handle, int32_t number, int32_t item, int32_t* helpflag,
                                     char* helptext);

/* Item number item: for enumint the integer and its text, for enumstr 0 and the word. On failure -1 and
 * empty. */
WEXCORIN_API int32_t optgetenumvalue(tvksoptions* handle, int32_t number, int32_t item, int32_t* ivalue,
                                     optshortstring* svalue);
WEXCORIN_API int32_t coptgetenumvalue(tvksoptions* handle, int32_t number, int32_t item, int32_t* ivalue,
                                      char* svalue);

/* The first value of an enumstr option and its item number, 0 when it is none of the items: svalue is then
 * empty when the value was set (see optnoboundsset), or the default that the definition left out of its list.
 * Other types fail. On failure empty and -1. */
WEXCORIN_API int32_t optgetenumstrnr(tvksoptions* handle, int32_t number, optshortstring* svalue,
                                     int32_t* item);
WEXCORIN_API int32_t coptgetenumstrnr(tvksoptions* handle, int32_t number, char* svalue, int32_t* item);

/* Synonym number number and the name of its option, empty when the definition gave it an unknown one. On
 * failure both are empty. */
WEXCORIN_API int32_t optgetsynonym(tvksoptions* handle, int32_t number, optshortstring* synonym,
                                   optshortstring* name);
WEXCORIN_API int32_t coptgetsynonym(tvksoptions* handle, int32_t number, char* synonym, char* name);

/* The option's group number; -1 on a bad number. */
WEXCORIN_API int32_t optgetoptgroupnr(tvksoptions* handle, int32_t number);

/* The group at a position: its name, its group number, help flag and help text. On failure empty, 0, 0,
 * empty. */
WEXCORIN_API int32_t optgetgroupnr(tvksoptions* handle, int32_t position, optshortstring* name,
                                   int32_t* group, int32_t* helpflag, optshortstring* helptext);
WEXCORIN_API int32_t coptgetgroupnr(tvksoptions* handle, int32_t position, char* name, int32_t* group,
                                    int32_t* helpflag, char* helptext);

/* The position, from 1, of the first group with this group number; -1 when there is none. */
WEXCORIN_API int32_t optgetgroupgrpnr(tvksoptions* handle, int32_t group);

/* The name of a constant of this header. group is 1 for data types, 2 for option types, 3 for sub-types, 4
 * for message kinds (0 to 8); index is the constant's value. On failure empty. */
WEXCORIN_API int32_t optgetconstname(tvksoptions* handle, int32_t group, int32_t index, optshortstring* name);
WEXCORIN_API int32_t coptgetconstname(tvksoptions* handle, int32_t group, int32_t index, char* name);

/* The definition file's word for an option type, 0 to 9. On failure empty. */
WEXCORIN_API int32_t optgettypename(tvksoptions* handle, int32_t opttype, optshortstring* name);
WEXCORIN_API int32_t coptgettypename(tvksoptions* handle, int32_t opttype, char* name);

/* The name, without its directories, of the file last given to optreaddefinition, whether it could be opened
 * or not; empty before. */
WEXCORIN_API void optdefinitionfile(tvksoptions* handle, optshortstring* filename);
WEXCORIN_API void coptdefinitionfile(tvksoptions* handle, char* filename);

/* The library's version line, 78 characters. */
WEXCORIN_API void optversion(tvksoptions* handle, optshortstring* line);
WEXCORIN_API void coptversion(tvksoptions* handle, char* line);

/* --------------------------------------------------------------------------
 * Counts
 */

/* The number of options. It grows with definition files and with keys of the form --name in option text
 * that name no option yet: each adds a strlist option. */
WEXCORIN_API int32_t optcount(tvksoptions* handle);

/* The number of synonyms. */
WEXCORIN_API int32_t optsynonymcount(tvksoptions* handle);

/* The number of groups. */
WEXCORIN_API int32_t optgroupcount(tvksoptions* handle);

/* The number of dot entries. rejected: how many were read and discarded because their line had an error. Once
 * the list of messages is full errors no longer count: entries with errors then stay. */
WEXCORIN_API int32_t optdotoptcount(tvksoptions* handle, int32_t* rejected);

/* The same of indicators; 0 and 0 when the definition declares no indicator keyword. */
WEXCORIN_API int32_t optindicatorcount(tvksoptions* handle, int32_t* rejected);

/* --------------------------------------------------------------------------
 * String lists
 *
 * Of strlist options, by name or synonym. A result of -1 says that the option is not a strlist, -2 that
 * there is none of that name.
 */

/* The number of strings, or -1 or -2. */
WEXCORIN_API int32_t optlistcountstr(tvksoptions* handle, const optshortstring* name);
WEXCORIN_API int32_t coptlistcountstr(tvksoptions* handle, const char* name);

/* Takes the first string out of the list. The result is 1; 0 when the list is empty; -1; -2. On every
 * result but 1 value is empty. */
WEXCORIN_API int32_t optgetfromliststr(tvksoptions* handle, const optshortstring* name,
                                       optshortstring* value);
WEXCORIN_API int32_t coptgetfromliststr(tvksoptions* handle, const char* name, char* value);

/* Takes the first string out of the first list that has one, and tells the option's name: among the
 * options whose name begins with "--" when dashed is not 0, among the others when it is. The result is 1;
 * 0 when no such list holds a string: value is then untouched, and name holds the last option looked at
 * that has strings, or is untouched. Each call goes through the options in front of that list. */
WEXCORIN_API int32_t optgetfromanystrlist(tvksoptions* handle, int32_t dashed, optshortstring* name,
                                          optshortstring* value);
WEXCORIN_API int32_t coptgetfromanystrlist(tvksoptions* handle, int32_t dashed, char* name, char* value);

/* --------------------------------------------------------------------------
 * Dot options and indicators
 *
 * Collected from option text, in the order of reading; the library attaches no meaning to them.
 */

/* Dot entry number number: the symbol's name, the number of the dot option, how many index elements it has
 * (0 to 20, unless the list of messages was full when the entry was read) and its value. On failure empty, 0,
 * 0, 0. */
WEXCORIN_API int32_t optgetdotoptnr(tvksoptions* handle, int32_t number, optshortstring* name,
                                    int32_t* option, int32_t* dimensions, double* value);
WEXCORIN_API int32_t coptgetdotoptnr(tvksoptions* handle, int32_t number, char* name, int32_t* option,
                                     int32_t* dimensions, double* value);

/* Index element number index of a dot entry: "*" for all, else the text without its quotes. On failure
 * empty. */
WEXCORIN_API int32_t optgetdotoptuel(tvksoptions* handle, int32_t number, int32_t index,
                                     optshortstring* element);
WEXCORIN_API int32_t coptgetdotoptuel(tvksoptions* handle, int32_t number, int32_t index, char* element);

/* Indicator number number: the equation's and the variable's name, how many index elements each has (0 to
 * 20) and the value, 0 or 1. On failure empty, empty, 0, 0, 0. */
WEXCORIN_API int32_t optgetindicatornr(tvksoptions* handle, int32_t number, optshortstring* equation,
                                       optshortstring* variable, int32_t* equationdims, int32_t* variabledims,
                                       int32_t* value);
WEXCORIN_API int32_t coptgetindicatornr(tvksoptions* handle, int32_t number, char* equation, char* variable,
                                        int32_t* equationdims, int32_t* variabledims, int32_t* value);

/* Index element number index of an indicator's equation, as written: with quotes where it has them. On
 * failure empty. */
WEXCORIN_API int32_t optgetequindicatornr(tvksoptions* handle, int32_t number, int32_t index,
                                          optshortstring* element);
WEXCORIN_API int32_t coptgetequindicatornr(tvksoptions* handle, int32_t number, int32_t index, char* element);

/* The same for its variable. */
WEXCORIN_API int32_t optgetvarindicatornr(tvksoptions* handle, int32_t number, int32_t index,
                                          optshortstring* element);
WEXCORIN_API int32_t coptgetvarindicatornr(tvksoptions* handle, int32_t number, int32_t index, char* element);

/* --------------------------------------------------------------------------
 * Flags
 *
 * A flag is on when it is not 0.
 */

/* Whether each line that is read is filed as messages of kind optMsgInputEcho. Off at first. */
WEXCORIN_API void optechoset(tvksoptions* handle, int32_t flag);

/* Whether values out of bounds, and values that are none of an enumeration's, are taken with a warning.
 * A word that is none of an enumstr's items is not kept: the option is then set to the empty text. Off at
 * first. An immediate option in option text switches it too. */
WEXCORIN_API void optnoboundsset(tvksoptions* handle, int32_t flag);

/* Whether setting a value sets its recent bit. On at first. */
WEXCORIN_API void optrecentenabledset(tvksoptions* handle, int32_t flag);

/* End-of-line mode of the readers: on, a line holds one statement and a value is the rest of the line;
 * off, a line may hold several, and a value is one word. On at first. The result is the previous value, 1
 * or 0. */
WEXCORIN_API int32_t opteolonlyset(tvksoptions* handle, int32_t flag);

/* The recent flag, 1 or 0. */
WEXCORIN_API int32_t optrecentenabled(tvksoptions* handle);

/* --------------------------------------------------------------------------
 * Reference numbers
 *
 * A number per option that belongs to the client: the definition file gives it first, the library never uses
 * it.
 */

/* Sets an option's reference number. ok; 0 for a bad number. */
WEXCORIN_API int32_t optsetrefnr(tvksoptions* handle, int32_t number, int32_t refnr);

/* The same by name or synonym; 0 when there is none. */
WEXCORIN_API int32_t optsetrefnrstr(tvksoptions* handle, const optshortstring* name, int32_t refnr);
WEXCORIN_API int32_t coptsetrefnrstr(tvksoptions* handle, const char* name, int32_t refnr);

/* --------------------------------------------------------------------------
 * Load path
 *
 * One text for the whole process, kept for the clients: empty when the library is loaded, never used by it.
 */

/* Copies the load path out. */
WEXCORIN_API void optgetloadpath(optshortstring* path);
WEXCORIN_API void coptgetloadpath(char* path);

/* Sets the load path. */
WEXCORIN_API void optsetloadpath(const optshortstring* path);
WEXCORIN_API void coptsetloadpath(const char* path);

/* --------------------------------------------------------------------------
 * Interface check
 *
 * For a client that loads the library at run time, before anything else: is this the library that it was
 * written for? These functions take no handle and may be called from any thread.
 */

/* Compares the interface version that the client was written for, WEXCORIN_INTERFACE_VERSION of its header,
 * with that of the library. The result is 1 for every version from 1 on, a newer client included, and 0 below
 * 1; *compat tells more: 0 not at all, 1 the same version, 2 an older client, 3 a newer client: functions
 * that it knows may be missing. message says it in words. */
WEXCORIN_API int32_t xapiversion(int32_t version, optshortstring* message, int32_t* compat);
WEXCORIN_API int32_t cxapiversion(int32_t version, char* message, int32_t* compat);

/* Compares the client's declaration of one function with the library's. name is the function's name in mixed
 * case, such as optGetNameNr; count the number of its arguments after the handle; signature holds count + 1
 * codes, that of the result first: 0 no result, 3 integer, 4 integer output, 10 zero-terminated text, 11
 * short string, 12 short string output, 13 double, 14 double output. The codes are those of the optxxx form.
 * Known are the functions that take a handle, other than xfree, by their optXxx names; for a coptxxx function
 * check the optXxx name. The result is 1 when all agree, with an empty message, and 0 otherwise; message then
 * names the first thing that differs: the name, the number of arguments (first the library's, then the
 * client's), or every differing argument by its number, the result being 0. Of the codes no more than count +
 * 1 are read, and none when the name is unknown or the count differs: signature may then be null. */
WEXCORIN_API int32_t xcheck(const optshortstring* name, int32_t count, const int32_t* signature,
                            optshortstring* message);
WEXCORIN_API int32_t cxcheck(const char* name, int32_t count, const int32_t* signature, char* message);

#ifdef __cplusplus
}
#endif

#endif
