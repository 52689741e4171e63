/* wexcorin.h: the C interface of the option library.
 *
 * A client creates a handle and loads the definition file of its solver once. It then reads any number of
 * option files and option texts, asks for the values, fetches the messages and frees the handle. The
 * conventions below hold for every function. The comment of a function says only what is particular to it.
 *
 * Conventions
 *
 *  1. Handles. xcreate makes a handle and xfree frees it. All functions take a handle as their first
 *     argument, except those of the load path and of the interface check. The handle must not be null; only
 *     xfree accepts a null handle.
 *
 *  2. Two text forms. Functions named optxxx take and fill short strings: a length byte and up to 255
 *     characters, without a terminator. coptxxx, declared directly below optxxx, is the same function for
 *     zero-terminated texts; so are cxapiversion and cxcheck for xapiversion and xcheck. A function without
 *     texts exists only in the first form. optreadfrompchar takes a zero-terminated text of any length and
 *     has no second form.
 *
 *  3. Text limits. No text inside the library is longer than 255 characters. A text that the library puts
 *     together from parts is cut to 255 characters. A zero-terminated argument may have at most 254
 *     characters: a longer one is replaced by the text "PCharToStr Overflow", and no result reports that. A
 *     text is a sequence of bytes; only the letters A to Z have an upper and a lower case.
 *
 *  4. Null texts. A null pointer for a text argument means the empty text, in both forms.
 *
 *  5. Output buffers. A text output is a buffer of WEXCORIN_TEXT_SIZE bytes that belongs to the caller, in
 *     both forms. The library never writes past its end, and leaves the bytes after the text unchanged. A
 *     text that holds zero bytes is copied as a whole, also by coptxxx, whose text then ends at the first
 *     of them. Output pointers must not be null. A text output may use the same buffer as a text argument
 *     of the same call, because arguments are read before outputs are written. Two outputs of one call need
 *     two buffers.
 *
 *  6. Numbering. Options, messages, groups, synonyms, dot entries, indicators, enumeration items, the strings
 *     of a list and index elements are numbered from 1. Only optlookup returns a position counted from 0.
 *     Options have the order of the definition file, and the number of an option never changes: new options
 *     are only added at the end.
 *
 *  7. Arguments. Where the comment of a function says nothing else, `number` is the number of an option, from
 *     1 to optcount, and an argument `name` is the name or a synonym of an option (see "Lookup").
 *
 *  8. Results. "ok" is 1 for success and 0 for failure. A failed call sets its outputs to what its comment
 *     says. Where that is "untouched", the call does not write the output; only a text output of the coptxxx
 *     form is empty then.
 *
 *  9. Messages. A problem is reported as a message. The readers, the setters and the writer file numbered
 *     messages with the handle, see optgetmessage. The library throws no exception, never ends the process
 *     and prints nothing, except for the list of names that help with bit 4 prints, when optshowhelp or a
 *     line of an option file requests it. When it writes to a pipe whose reader has left, or beyond the
 *     size limit for files, the process receives no signal; this, too, is reported as a message.
 *     Messages and help hold bytes of the files as they are. A file that somebody else wrote can hold what
 *     controls a terminal or makes a text look like another one, so a host that shows a text to people
 *     first replaces the control characters (0x00 to 0x1F, 0x7F, U+0080 to U+009F), the separators of lines
 *     (U+2028, U+2029), what Unicode calls default ignorable (marks that change the order of characters,
 *     and invisible ones such as U+00AD, U+061C, U+200B to U+200F, U+202A to U+202E, U+2060 to U+206F and
 *     U+FEFF), and bytes that are not valid in its encoding. The same holds for names, values and all other
 *     texts.
 *
 * 10. Ownership. The library copies each text that it receives, and copies its results into the caller's
 *     buffers. The handle is all that a client has to free.
 *
 * 11. Threads. The library uses no locks. Only one thread at a time may use a handle; different threads may
 *     use different handles at the same time. The load path is shared by the whole process and is not
 *     thread-safe.
 *
 * 12. Out of memory. The call fails and the handle stays usable. The result is then a null handle, ENOMEM for
 *     a function that returns an error code of the operating system, -1 for optlookup and optgetgroupgrpnr,
 *     and otherwise 0; outputs may be unchanged. A query can fail, too, because a long list of names needs an
 *     index. The message "Out of memory" is filed as soon as there is memory for it; it counts as an error at
 *     once.
 *
 * 13. Numbers. They are read and written with a decimal point, whatever the locale of the process is. The
 *     floating-point settings of the calling thread do not matter either, such as traps, rounding and the
 *     treatment of subnormal numbers. After a call the settings and the exception flags are as before.
 *
 * 14. Values. An option has a first value. With sub-type optsub2Values it also has a second value. The value
 *     of an option that was never set is its default. The defined bits say which values were set: 1 the
 *     first, 2 the second. The recent bits say the same for the time since they were last cleared.
 */
#ifndef WEXCORIN_WEXCORIN_H
#define WEXCORIN_WEXCORIN_H

#include <stdint.h>

#if defined(__GNUC__)
#define WEXCORIN_API __attribute__((visibility("default")))
#else
#define WEXCORIN_API
#endif

/* The version of this interface. It is also the number in the soname of the shared library. */
#define WEXCORIN_INTERFACE_VERSION 2

/* The size of a text buffer in bytes, in both text forms. */
#define WEXCORIN_TEXT_SIZE 256

#ifdef __cplusplus
extern "C" {
#endif

/* A handle: one set of options with its messages. The type is opaque. */
typedef struct tvksoptions tvksoptions;

/* A short string. Its characters are text[0] to text[length - 1]. */
typedef struct optshortstring {
  unsigned char length;
  char text[255];
} optshortstring;

/* Option types, as optgetinfonr returns them. Each comment begins with the keyword of the definition file. */
enum {
  optTypeInteger = 0,   /* integer: 32 bits, within bounds */
  optTypeDouble = 1,    /* double: within bounds */
  optTypeString = 2,    /* string */
  optTypeBoolean = 3,   /* boolean: 0 or 1 */
  optTypeEnumStr = 4,   /* enumstr: one of a list of words */
  optTypeEnumInt = 5,   /* enumint: one of a list of integers */
  optTypeMultiList = 6, /* multilist: sets a list of options, one word of its text each */
  optTypeStrList = 7,   /* strlist: collects texts in a list */
  optTypeMacro = 8,     /* macro: sets each option of a list to the same text */
  optTypeImmediate = 9  /* immediate: acts when it is read in option text */
};

/* Data types: the kind of value that an option of a type has. */
enum {
  optDataNone = 0,    /* multilist, macro, immediate */
  optDataInteger = 1, /* integer, boolean, enumint */
  optDataDouble = 2,  /* double */
  optDataString = 3,  /* string, enumstr */
  optDataStrList = 4  /* strlist */
};

/* Sub-types: what has to follow the name of the option in option text. */
enum {
  optsubRequired = 0, /* one value */
  optsubNoValue = 1,  /* nothing; the name alone sets the default as the value */
  optsubOptional = 2, /* one value or nothing */
  optsub2Values = 3   /* two values; a single one sets both */
};

/* Message kinds. Each comment begins with what optgetmessage puts before the text. */
enum {
  optMsgInputEcho = 0,    /* ">> ": a line that was read, see optechoset */
  optMsgHelp = 1,         /* nothing: a line of help, see optshowhelp */
  optMsgDefineError = 2,  /* "*** Definition Error ": a mistake in the definition file; an error */
  optMsgValueError = 3,   /* "*** Value Error ": a refused value; an error */
  optMsgValueWarning = 4, /* "*** Warning ": an illegal value was stored, see optnoboundsset; a warning */
  optMsgDeprecated = 5,   /* "*** Warning ": a deprecated or obsolete name was used; a warning */
  optMsgFileEnter = 6,    /* "Reading parameter(s) from ", then the name in double quotes */
  optMsgFileLeave = 7,    /* "Finished reading from ", then the name in double quotes */
  optMsgTooManyMsgs = 8,  /* nothing: the limit of messages was reached; an error */
  optMsgUserError = 9     /* "*** Error ": all other errors in option text, and optaddmessage; an error */
};

/* Immediate kinds: what an immediate option does. The words are those of the definition file. */
enum {
  optImmEolFlag = 0,  /* EolFlag: switches end-of-line mode for the rest of this text, see opteolonlyset */
  optImmReadFile = 1, /* ReadFile: reads another option file */
  optImmMessage = 2,  /* Message: files a message */
  optImmNoBounds = 3, /* NoBounds: switches the tolerance of values out of bounds, see optnoboundsset */
  optImmHelp = 4      /* Help: files help, see optshowhelp */
};

/* Lookup modes: how much of a name must be typed. The words are those of the definition file. */
enum {
  optLookupNormal = 0, /* Normal: the whole name */
  optLookupPath = 1,   /* Path: three characters of each word between underscores */
  optLookupMinos = 2   /* Minos: three characters of the first word, four of each further word */
};

/* --------------------------------------------------------------------------
 * Lifecycle
 */

/* Creates an empty handle, stores it in *handle and returns it. Both are null when there is no memory. A new
 * handle has no options and no messages. End-of-line mode and recent tracking are on; echo and tolerance of
 * values out of bounds are off (see "Flags"). The caller owns the handle and frees it with xfree.
 *
 * Attention: xcreate and xfree are common names. Some libraries export a function xfree that frees any memory
 * (libreadline is one). The dynamic linker gives a process one function of a name only, and then either this
 * client calls the other library's xfree with a handle and aborts, or the other library calls this xfree and
 * crashes. No order of linking avoids both. What does:
 * - link this library last, and take the two functions from the library itself:
 *     void* library = dlopen("libwexcorin.so.2", RTLD_NOW | RTLD_LOCAL);
 *     *(void**)&create = dlsym(library, "xcreate");  and the same for xfree
 * - or put the client into a shared library, link only that with this library, and load it with dlopen and
 *   RTLD_LOCAL | RTLD_DEEPBIND, or with dlmopen and LM_ID_NEWLM.
 * docs/client-guide.md has the code. wexcorin.hpp notices when it gets another library's function. */
WEXCORIN_API tvksoptions* xcreate(tvksoptions** handle);

/* Frees the handle with everything in it, and sets *handle to null. Does nothing when *handle is null. */
WEXCORIN_API void xfree(tvksoptions** handle);

/* --------------------------------------------------------------------------
 * Reading
 *
 * A file is given by its path; pipes and devices are read like files. One call waits for pipes, FIFOs and
 * terminals for 60 seconds at most, whatever number of files it opens; 5 of these seconds are for programs
 * that open the other end of a FIFO. After that, a file without data cannot be opened or not be read to its
 * end (ETIMEDOUT). When a file cannot be read to its end, two messages report it, of which the first begins
 * with "Cannot read"; what was read before takes effect. The same holds for a file of 2 GiB or more and for
 * more than 16 MiB of a device (EFBIG).
 * When the list of messages has no room for both messages, the call that reads the file returns the error
 * code as well, also when the file was read by another file. optreadfromstr and optreadfrompchar have
 * no result: call optclearmessages first, and look afterwards whether optmessagecount is above 5000.
 */

/* Reads a definition file: options, groups, synonyms and the other parts of a solver's description. Call it
 * once, before all other reading; a further call adds to what is there. Option 1 of a new handle is then the
 * predefined immediate option "Help". filename is the path of the file. The result is 0 when the file could
 * be opened, whatever it holds, but see above. Otherwise it is the error code of the operating system, and
 * two messages are filed. Each mistake in the file is reported as a message of kind optMsgDefineError and
 * does not stop the reading. A line ends the definition without a message when it begins neither with a
 * letter nor with "." and a letter, and does not continue a definition that can be continued. So does a
 * continuation line without a word below an enumstr or macro option. */
WEXCORIN_API int32_t optreaddefinition(tvksoptions* handle, const optshortstring* filename);
WEXCORIN_API int32_t coptreaddefinition(tvksoptions* handle, const char* filename);

/* Reads an option file: sets options, collects dot entries and indicators, and carries out immediate
 * options. An immediate option may read further files. At most nine files may be open within each other
 * and 10,000 may be read in one call, this file included; further ones are not opened. Files that were
 * read before are read again for at most twice the bytes that the call reads at all, or 32 KiB, and
 * requests for help are answered until they have put out 1 MiB; further ones are refused with a message
 * of kind optMsgUserError. filename is the path of the file. The result is 0 when the file could be
 * opened, but see above. Otherwise it is the error code of the operating system, and two messages of kind
 * optMsgUserError are filed. An error or warning about a line of the file has "line " and the number of
 * the line before its text. The messages of a file stand between a message of kind optMsgFileEnter and
 * one of kind optMsgFileLeave, which name the file; both are left out when there is no message between
 * them. */
WEXCORIN_API int32_t optreadparameterfile(tvksoptions* handle, const optshortstring* filename);
WEXCORIN_API int32_t coptreadparameterfile(tvksoptions* handle, const char* filename);

/* Reads one line of option text. A line feed in the text ends the line, and what follows it is ignored.
 * opteolonlyset chooses whether the line may hold several statements. The messages optMsgFileEnter and
 * optMsgFileLeave name the text "string". */
WEXCORIN_API void optreadfromstr(tvksoptions* handle, const optshortstring* text);
WEXCORIN_API void coptreadfromstr(tvksoptions* handle, const char* text);

/* Does the same for a zero-terminated text of any length. The messages name the text "pchar". */
WEXCORIN_API void optreadfrompchar(tvksoptions* handle, const char* text);

/* Copies one string of a strlist option into value; the list does not change. name is the name or a synonym
 * of the option, index the number of the string, from 1 to optlistcountstr. The result is 1 for success, 0
 * when index is out of range, -1 when the option is not a strlist, and -2 when there is no option of that
 * name. value is empty for every result but 1. */
WEXCORIN_API int32_t optreadfromliststr(tvksoptions* handle, const optshortstring* name, int32_t index,
                                        optshortstring* value);
WEXCORIN_API int32_t coptreadfromliststr(tvksoptions* handle, const char* name, int32_t index, char* value);

/* --------------------------------------------------------------------------
 * Writing
 */

/* Writes the settings as an option file that can be read again: a line for each option whose defined bits
 * are not 0, in the order of the definition, then the dot entries and the indicators. filename is the
 * path of the file; an existing file is replaced. The result is 0 when the file could be opened.
 * Otherwise it is the error code of the operating system, and two messages of kind optMsgUserError are
 * filed. The same messages are filed, with result 0, when the file could be opened but not written to its
 * end. A full list of messages cannot hold them, and opterrorcount does not change then: to learn of such
 * an error in any case, call optclearmessages before writing, or make sure that optmessagecount is below
 * 4999. A FIFO is waited for as in reading: 5 seconds for a program that reads it, and 60 seconds in all
 * (ETIMEDOUT). */
WEXCORIN_API int32_t optwriteparameterfile(tvksoptions* handle, const optshortstring* filename);
WEXCORIN_API int32_t coptwriteparameterfile(tvksoptions* handle, const char* filename);

/* Files help as messages of kind optMsgHelp, one for each line. request is the name or a synonym of an
 * option, for the description of that option, or a number in decimal. The bits of a number choose what is
 * listed:
 *   1  a summary by group
 *   2  the descriptions of all options in alphabetical order
 *   4  the names of the options, on standard output, for debugging; if they cannot be written, two messages
 *      of kind optMsgUserError are filed
 *   8  marks of deprecated and obsolete options, within the summary
 * A number below 1 means 3; any other request means 1. Blanks in the request are read as underscores. */
WEXCORIN_API void optshowhelp(tvksoptions* handle, const optshortstring* request);
WEXCORIN_API void coptshowhelp(tvksoptions* handle, const char* request);

/* --------------------------------------------------------------------------
 * Messages
 *
 * Each handle has one list of messages, which only optclearmessages empties. The list holds 5000 messages.
 * After these, one message of kind optMsgTooManyMsgs is added, and all further messages are dropped except
 * echoed lines, which are always added. When an echoed line is the first one after 5000 messages,
 * optMsgTooManyMsgs is not added.
 */

/* Files a message of kind optMsgUserError with this text. */
WEXCORIN_API void optaddmessage(tvksoptions* handle, const optshortstring* text);
WEXCORIN_API void coptaddmessage(tvksoptions* handle, const char* text);

/* Fetches a message: its text with the prefix of its kind, and the kind. number is from 1 to optmessagecount.
 * For any other number the text is "Bad message number = " followed by number - 1, and the kind is
 * optMsgUserError. */
WEXCORIN_API void optgetmessage(tvksoptions* handle, int32_t number, optshortstring* text, int32_t* kind);
WEXCORIN_API void coptgetmessage(tvksoptions* handle, int32_t number, char* text, int32_t* kind);

/* Removes all messages. Does not change anything else. */
WEXCORIN_API void optclearmessages(tvksoptions* handle);

/* Returns the number of messages. */
WEXCORIN_API int32_t optmessagecount(tvksoptions* handle);

/* Counts the messages: *errors those of kinds 2, 3, 8 and 9, *warnings those of kinds 4 and 5. */
WEXCORIN_API void opterrorcount(tvksoptions* handle, int32_t* errors, int32_t* warnings);

/* --------------------------------------------------------------------------
 * Resetting
 *
 * Resetting takes the value of an option away: its defined and recent bits become 0, its value is the default
 * again, and a strlist is empty. Resetting a macro resets the options of its list. Resetting a multilist
 * empties its list of options. Dot entries, indicators and messages stay.
 */

/* Resets every option. */
WEXCORIN_API void optresetall(tvksoptions* handle);

/* Clears the recent bits of every option. Does not change anything else. */
WEXCORIN_API void optresetallrecent(tvksoptions* handle);

/* Does the same as optresetallrecent. */
WEXCORIN_API void optresetrecentchanges(tvksoptions* handle);

/* Resets one option. Returns ok; fails when there is no option of that number. */
WEXCORIN_API int32_t optresetnr(tvksoptions* handle, int32_t number);

/* --------------------------------------------------------------------------
 * Lookup
 *
 * Upper and lower case are the same in names. The lookup mode of the definition says how much of a name is
 * compared; a synonym is always compared as a whole. In lookup mode Minos, optgetnamenr returns names with
 * blanks, which are not found. Look up the name that optgethelpnr returns.
 */

/* Finds an option by name or synonym. number is set to its number, refnr to its reference number. Returns ok;
 * on failure both are -1. */
WEXCORIN_API int32_t optfindstr(tvksoptions* handle, const optshortstring* name, int32_t* number,
                                int32_t* refnr);
WEXCORIN_API int32_t coptfindstr(tvksoptions* handle, const char* name, int32_t* number, int32_t* refnr);

/* Finds an option by name; synonyms are not searched. Returns its position counted from 0, which is its
 * number less 1, or -1 when there is no option of that name. */
WEXCORIN_API int32_t optlookup(tvksoptions* handle, const optshortstring* name);
WEXCORIN_API int32_t coptlookup(tvksoptions* handle, const char* name);

/* --------------------------------------------------------------------------
 * Values by number
 *
 * These functions return ok. A getter succeeds only when the option exists and has the kind of value that the
 * getter returns.
 *
 * A setter checks the value against the bounds of the option or against its list of values. It fails without
 * a message when the option does not exist or does not have that kind of value. Otherwise it succeeds exactly
 * when it files no error message. A refused value leaves the option unchanged; a multilist or macro option
 * may already have set some of its options before one refused its word. When values out of bounds are
 * tolerated (optnoboundsset), the value is stored, the message is a warning and the setter succeeds; see
 * optnoboundsset for enumstr options. Once the list of messages is full (see "Messages"), a setter also
 * succeeds for a refused value.
 *
 * A function with a 2 in its name is the same function for the second value. It fails for options without the
 * sub-type optsub2Values.
 */

/* Gets the name and the first value of an option. In lookup mode Minos the name has blanks in place of its
 * underscores. svalue is the value as text, as optgetstrnr returns it. ivalue is the value of an integer,
 * boolean or enumint option and otherwise 0; dvalue is the value of a double option and otherwise 0. The call
 * fails for multilist, strlist, macro and immediate options: name is then set, the other outputs are empty or
 * 0. When there is no option of that number, name is empty, too. */
WEXCORIN_API int32_t optgetvaluesnr(tvksoptions* handle, int32_t number, optshortstring* name,
                                    int32_t* ivalue, double* dvalue, optshortstring* svalue);
WEXCORIN_API int32_t coptgetvaluesnr(tvksoptions* handle, int32_t number, char* name, int32_t* ivalue,
                                     double* dvalue, char* svalue);

/* Sets the first value from the argument that fits the type: ivalue for integer, boolean and enumint, dvalue
 * for double, svalue for string and enumstr options. The other two arguments are ignored. The call fails for
 * other types. */
WEXCORIN_API int32_t optsetvaluesnr(tvksoptions* handle, int32_t number, int32_t ivalue, double dvalue,
                                    const optshortstring* svalue);
WEXCORIN_API int32_t coptsetvaluesnr(tvksoptions* handle, int32_t number, int32_t ivalue, double dvalue,
                                     const char* svalue);

/* Sets the second value in the same way. */
WEXCORIN_API int32_t optsetvalues2nr(tvksoptions* handle, int32_t number, int32_t ivalue, double dvalue,
                                     const optshortstring* svalue);
WEXCORIN_API int32_t coptsetvalues2nr(tvksoptions* handle, int32_t number, int32_t ivalue, double dvalue,
                                      const char* svalue);

/* Gets the value of an integer, boolean or enumint option. On failure ivalue is untouched. */
WEXCORIN_API int32_t optgetintnr(tvksoptions* handle, int32_t number, int32_t* ivalue);
WEXCORIN_API int32_t optgetint2nr(tvksoptions* handle, int32_t number, int32_t* ivalue);

/* Sets the value of an integer, boolean or enumint option. */
WEXCORIN_API int32_t optsetintnr(tvksoptions* handle, int32_t number, int32_t ivalue);
WEXCORIN_API int32_t optsetint2nr(tvksoptions* handle, int32_t number, int32_t ivalue);

/* Gets the value of a double option. On failure dvalue is untouched. */
WEXCORIN_API int32_t optgetdblnr(tvksoptions* handle, int32_t number, double* dvalue);
WEXCORIN_API int32_t optgetdbl2nr(tvksoptions* handle, int32_t number, double* dvalue);

/* Sets the value of a double option. A NaN is always out of bounds. */
WEXCORIN_API int32_t optsetdblnr(tvksoptions* handle, int32_t number, double dvalue);
WEXCORIN_API int32_t optsetdbl2nr(tvksoptions* handle, int32_t number, double dvalue);

/* Gets the first value as text: integers and booleans in decimal, doubles with up to 15 significant digits.
 * The text is empty for multilist, strlist, macro and immediate options. Succeeds for every option that
 * exists. On failure svalue is empty. */
WEXCORIN_API int32_t optgetstrnr(tvksoptions* handle, int32_t number, optshortstring* svalue);
WEXCORIN_API int32_t coptgetstrnr(tvksoptions* handle, int32_t number, char* svalue);

/* Gets the second value as text. On failure svalue is empty. */
WEXCORIN_API int32_t optgetstr2nr(tvksoptions* handle, int32_t number, optshortstring* svalue);
WEXCORIN_API int32_t coptgetstr2nr(tvksoptions* handle, int32_t number, char* svalue);

/* Sets the first value of an option of any type from text, as a line of an option file does. The text is
 * converted to the type of the option, appended to the list of a strlist option, and passed on to the options
 * of a multilist or macro option. It has no effect on an immediate option. An option of sub-type
 * optsubNoValue becomes defined, and its text is ignored. For an option with two values the text is one value
 * and sets only the first. A text with a double quote in it is refused, except for sub-type optsubNoValue. */
WEXCORIN_API int32_t optsetstrnr(tvksoptions* handle, int32_t number, const optshortstring* svalue);
WEXCORIN_API int32_t coptsetstrnr(tvksoptions* handle, int32_t number, const char* svalue);

/* Sets the second value from text, which is one value. */
WEXCORIN_API int32_t optsetstr2nr(tvksoptions* handle, int32_t number, const optshortstring* svalue);
WEXCORIN_API int32_t coptsetstr2nr(tvksoptions* handle, int32_t number, const char* svalue);

/* --------------------------------------------------------------------------
 * Values by name
 */

/* Gets the first value of the option with this name or synonym as text, like optgetstrnr. Returns ok; on
 * failure value is empty. */
WEXCORIN_API int32_t optgetvalstr(tvksoptions* handle, const optshortstring* name, optshortstring* value);
WEXCORIN_API int32_t coptgetvalstr(tvksoptions* handle, const char* name, char* value);

/* Gets the second value as text, like optgetstr2nr. Returns ok; on failure value is empty. */
WEXCORIN_API int32_t optgetval2str(tvksoptions* handle, const optshortstring* name, optshortstring* value);
WEXCORIN_API int32_t coptgetval2str(tvksoptions* handle, const char* name, char* value);

/* --------------------------------------------------------------------------
 * Information
 *
 * These functions return ok, unless their comment says otherwise. They fail when there is no option, item,
 * synonym or group of the given number.
 */

/* Gets the defined bits, the recent bits (definedr), the reference number, the data type (optDataNone ...),
 * the option type (optTypeInteger ...) and the sub-type (optsubRequired ...). On failure they are 0, 0, 0,
 * -1, -1, -1. */
WEXCORIN_API int32_t optgetinfonr(tvksoptions* handle, int32_t number, int32_t* defined, int32_t* definedr,
                                  int32_t* refnr, int32_t* datatype, int32_t* opttype, int32_t* subtype);

/* Gets the defined bits. On failure defined is 0. */
WEXCORIN_API int32_t optgetdefinednr(tvksoptions* handle, int32_t number, int32_t* defined);

/* Gets the name of the option. In lookup mode Minos the name has blanks in place of its underscores, and
 * optfindstr does not find it; optgethelpnr returns a name to look up. On failure name is empty. */
WEXCORIN_API int32_t optgetnamenr(tvksoptions* handle, int32_t number, optshortstring* name);
WEXCORIN_API int32_t coptgetnamenr(tvksoptions* handle, int32_t number, char* name);

/* Gets the name of the option as it stands in the definition file, and its help text of one line. On failure
 * both are empty. */
WEXCORIN_API int32_t optgethelpnr(tvksoptions* handle, int32_t number, optshortstring* name,
                                  optshortstring* helptext);
WEXCORIN_API int32_t coptgethelpnr(tvksoptions* handle, int32_t number, char* name, char* helptext);

/* Gets the name of the option as optgetnamenr returns it, its help flag (above 0 when the help lists the
 * option) and the group number of its group (not its position). On failure they are empty, -1, -1. */
WEXCORIN_API int32_t optgetopthelpnr(tvksoptions* handle, int32_t number, optshortstring* name,
                                     int32_t* helpflag, int32_t* group);
WEXCORIN_API int32_t coptgetopthelpnr(tvksoptions* handle, int32_t number, char* name, int32_t* helpflag,
                                      int32_t* group);

/* Gets the default of a string option. Fails for all other types, also for enumstr. On failure text is
 * empty. */
WEXCORIN_API int32_t optgetdefaultstr(tvksoptions* handle, int32_t number, optshortstring* text);
WEXCORIN_API int32_t coptgetdefaultstr(tvksoptions* handle, int32_t number, char* text);

/* Gets the bounds, which are inclusive, and the default of an integer option. Fails for all other types. On
 * failure the three outputs are untouched. */
WEXCORIN_API int32_t optgetboundsint(tvksoptions* handle, int32_t number, int32_t* low, int32_t* high,
                                     int32_t* defaultvalue);

/* Does the same for a double option. */
WEXCORIN_API int32_t optgetboundsdbl(tvksoptions* handle, int32_t number, double* low, double* high,
                                     double* defaultvalue);

/* Gets the number of items of an enumstr or enumint option. Fails for all other types. On failure count is
 * -1. */
WEXCORIN_API int32_t optgetenumcount(tvksoptions* handle, int32_t number, int32_t* count);

/* Gets the help flag and the help text of an item. item is from 1 to optgetenumcount. On failure they are -1
 * and empty. */
WEXCORIN_API int32_t optgetenumhelp(tvksoptions* handle, int32_t number, int32_t item, int32_t* helpflag,
                                    optshortstring* helptext);
WEXCORIN_API int32_t coptgetenumhelp(tvksoptions* handle, int32_t number, int32_t item, int32_t* helpflag,
                                     char* helptext);

/* Gets the value of an item. item is from 1 to optgetenumcount. For an enumint option ivalue is the integer
 * and svalue the same as text; for an enumstr option ivalue is 0 and svalue the word. On failure they are -1
 * and empty. */
WEXCORIN_API int32_t optgetenumvalue(tvksoptions* handle, int32_t number, int32_t item, int32_t* ivalue,
                                     optshortstring* svalue);
WEXCORIN_API int32_t coptgetenumvalue(tvksoptions* handle, int32_t number, int32_t item, int32_t* ivalue,
                                      char* svalue);

/* Gets the first value of an enumstr option and the number of its item, which is 0 when the value is none of
 * the items. svalue is then empty when the value was set (see optnoboundsset); when it was not set, svalue is
 * a default that the definition does not list among the items. Fails for all other types. On failure the
 * outputs are empty and -1. */
WEXCORIN_API int32_t optgetenumstrnr(tvksoptions* handle, int32_t number, optshortstring* svalue,
                                     int32_t* item);
WEXCORIN_API int32_t coptgetenumstrnr(tvksoptions* handle, int32_t number, char* svalue, int32_t* item);

/* Gets a synonym and the name of its option. number is from 1 to optsynonymcount. name is empty when the
 * definition names an unknown option for the synonym. On failure both are empty. */
WEXCORIN_API int32_t optgetsynonym(tvksoptions* handle, int32_t number, optshortstring* synonym,
                                   optshortstring* name);
WEXCORIN_API int32_t coptgetsynonym(tvksoptions* handle, int32_t number, char* synonym, char* name);

/* Returns the group number of an option, or -1 when there is no option of that number. */
WEXCORIN_API int32_t optgetoptgroupnr(tvksoptions* handle, int32_t number);

/* Gets a group: its name, its group number, its help flag and its help text. position is from 1 to
 * optgroupcount. On failure they are empty, 0, 0, empty. */
WEXCORIN_API int32_t optgetgroupnr(tvksoptions* handle, int32_t position, optshortstring* name,
                                   int32_t* group, int32_t* helpflag, optshortstring* helptext);
WEXCORIN_API int32_t coptgetgroupnr(tvksoptions* handle, int32_t position, char* name, int32_t* group,
                                    int32_t* helpflag, char* helptext);

/* Returns the position, from 1, of the first group with this group number, or -1 when there is none. */
WEXCORIN_API int32_t optgetgroupgrpnr(tvksoptions* handle, int32_t group);

/* Gets the name of a constant of this header. group is 1 for data types, 2 for option types, 3 for sub-types
 * and 4 for message kinds; index is the value of the constant. Of the message kinds only 0 to 8 have names
 * here. On failure name is empty. */
WEXCORIN_API int32_t optgetconstname(tvksoptions* handle, int32_t group, int32_t index, optshortstring* name);
WEXCORIN_API int32_t coptgetconstname(tvksoptions* handle, int32_t group, int32_t index, char* name);

/* Gets the keyword of the definition file for an option type, from 0 to 9. On failure name is empty. */
WEXCORIN_API int32_t optgettypename(tvksoptions* handle, int32_t opttype, optshortstring* name);
WEXCORIN_API int32_t coptgettypename(tvksoptions* handle, int32_t opttype, char* name);

/* Gets the name, without its directories, of the file that was last given to optreaddefinition, whether it
 * could be opened or not. The name is empty before the first call. */
WEXCORIN_API void optdefinitionfile(tvksoptions* handle, optshortstring* filename);
WEXCORIN_API void coptdefinitionfile(tvksoptions* handle, char* filename);

/* Gets the version line of the library, which has 78 characters. */
WEXCORIN_API void optversion(tvksoptions* handle, optshortstring* line);
WEXCORIN_API void coptversion(tvksoptions* handle, char* line);

/* --------------------------------------------------------------------------
 * Counts
 */

/* Returns the number of options. A definition file adds options; so does a name with two dashes in option
 * text (--name) that is not an option yet, which becomes a strlist option. */
WEXCORIN_API int32_t optcount(tvksoptions* handle);

/* Returns the number of synonyms. */
WEXCORIN_API int32_t optsynonymcount(tvksoptions* handle);

/* Returns the number of groups. */
WEXCORIN_API int32_t optgroupcount(tvksoptions* handle);

/* Returns the number of dot entries. rejected is set to the number of entries that were discarded because
 * their line had an error. Once the list of messages is full, errors are not counted and entries with errors
 * are kept. */
WEXCORIN_API int32_t optdotoptcount(tvksoptions* handle, int32_t* rejected);

/* Does the same for indicators. Both numbers are 0 when the definition declares no indicator keyword. */
WEXCORIN_API int32_t optindicatorcount(tvksoptions* handle, int32_t* rejected);

/* --------------------------------------------------------------------------
 * String lists
 *
 * These functions are for strlist options. A result of -1 means that the option is not a strlist, -2 that
 * there is no option of that name.
 */

/* Returns the number of strings in the list, -1 or -2. */
WEXCORIN_API int32_t optlistcountstr(tvksoptions* handle, const optshortstring* name);
WEXCORIN_API int32_t coptlistcountstr(tvksoptions* handle, const char* name);

/* Removes the first string from the list and copies it into value. The result is 1 for success, 0 when the
 * list is empty, -1 or -2. value is empty for every result but 1. */
WEXCORIN_API int32_t optgetfromliststr(tvksoptions* handle, const optshortstring* name,
                                       optshortstring* value);
WEXCORIN_API int32_t coptgetfromliststr(tvksoptions* handle, const char* name, char* value);

/* Removes the first string from the first list that has one, and copies it into value and the name of the
 * option into name. When dashed is 0 only options whose name does not begin with "--" are searched, otherwise
 * only those whose name does. The result is 1 for success and 0 when no such list holds a string: value is
 * then untouched, and name is the last strlist option that holds strings at all, or untouched when there is
 * none. Emptying all lists takes time that grows with their number; a list that is given a string in between
 * makes the next call search all options once. */
WEXCORIN_API int32_t optgetfromanystrlist(tvksoptions* handle, int32_t dashed, optshortstring* name,
                                          optshortstring* value);
WEXCORIN_API int32_t coptgetfromanystrlist(tvksoptions* handle, int32_t dashed, char* name, char* value);

/* --------------------------------------------------------------------------
 * Dot options and indicators
 *
 * They are collected from option text, in the order in which they were read. The library gives them no
 * meaning. number is here the number of a dot entry, from 1 to optdotoptcount, or of an indicator, from 1 to
 * optindicatorcount. The functions return ok.
 */

/* Gets a dot entry: the name of the symbol, the number of the dot option, the number of its index elements
 * and its value. An entry has 0 to 20 elements; it may have more when the list of messages was full while it
 * was read. On failure the outputs are empty, 0, 0, 0. */
WEXCORIN_API int32_t optgetdotoptnr(tvksoptions* handle, int32_t number, optshortstring* name,
                                    int32_t* option, int32_t* dimensions, double* value);
WEXCORIN_API int32_t coptgetdotoptnr(tvksoptions* handle, int32_t number, char* name, int32_t* option,
                                     int32_t* dimensions, double* value);

/* Gets an index element of a dot entry: "*", which means all, or the text without its quotes. index is from 1
 * to the number of elements. On failure element is empty. */
WEXCORIN_API int32_t optgetdotoptuel(tvksoptions* handle, int32_t number, int32_t index,
                                     optshortstring* element);
WEXCORIN_API int32_t coptgetdotoptuel(tvksoptions* handle, int32_t number, int32_t index, char* element);

/* Gets an indicator: the names of its equation and its variable, the number of index elements of each and the
 * value, 0 or 1. On failure the outputs are empty, empty, 0, 0, 0. */
WEXCORIN_API int32_t optgetindicatornr(tvksoptions* handle, int32_t number, optshortstring* equation,
                                       optshortstring* variable, int32_t* equationdims, int32_t* variabledims,
                                       int32_t* value);
WEXCORIN_API int32_t coptgetindicatornr(tvksoptions* handle, int32_t number, char* equation, char* variable,
                                        int32_t* equationdims, int32_t* variabledims, int32_t* value);

/* Gets an index element of the equation of an indicator as it was written, with its quotes if it has any.
 * index is from 1 to the number of elements. On failure element is empty. */
WEXCORIN_API int32_t optgetequindicatornr(tvksoptions* handle, int32_t number, int32_t index,
                                          optshortstring* element);
WEXCORIN_API int32_t coptgetequindicatornr(tvksoptions* handle, int32_t number, int32_t index, char* element);

/* Does the same for the variable of an indicator. */
WEXCORIN_API int32_t optgetvarindicatornr(tvksoptions* handle, int32_t number, int32_t index,
                                          optshortstring* element);
WEXCORIN_API int32_t coptgetvarindicatornr(tvksoptions* handle, int32_t number, int32_t index, char* element);

/* --------------------------------------------------------------------------
 * Flags
 *
 * 0 switches a flag off, any other number switches it on.
 */

/* Switches echo: each line that is read is filed as messages of kind optMsgInputEcho, without a limit. Off at
 * first. */
WEXCORIN_API void optechoset(tvksoptions* handle, int32_t flag);

/* Switches the tolerance of values out of bounds: such values, and values that are not among the items of an
 * enumeration, are stored with a warning. Instead of a word that is not among the items of an enumstr option,
 * the empty text is stored. Off at first. An immediate option of kind optImmNoBounds switches this flag,
 * too. */
WEXCORIN_API void optnoboundsset(tvksoptions* handle, int32_t flag);

/* Switches recent tracking: setting a value sets its recent bit. On at first. */
WEXCORIN_API void optrecentenabledset(tvksoptions* handle, int32_t flag);

/* Switches end-of-line mode for the files and texts that are read later. When it is on, a line holds one
 * statement, and its value is the rest of the line. When it is off, a line may hold several statements, and a
 * value is one word. On at first. Returns the previous setting, 1 or 0. */
WEXCORIN_API int32_t opteolonlyset(tvksoptions* handle, int32_t flag);

/* Returns whether recent tracking is on, 1 or 0. */
WEXCORIN_API int32_t optrecentenabled(tvksoptions* handle);

/* --------------------------------------------------------------------------
 * Reference numbers
 *
 * Each option has a reference number for the client's own use. The definition file gives its first value. The
 * library never uses it.
 */

/* Sets the reference number of an option. Returns ok; fails when there is no option of that number. */
WEXCORIN_API int32_t optsetrefnr(tvksoptions* handle, int32_t number, int32_t refnr);

/* Sets the reference number of the option with this name or synonym. Returns ok; fails when there is none. */
WEXCORIN_API int32_t optsetrefnrstr(tvksoptions* handle, const optshortstring* name, int32_t refnr);
WEXCORIN_API int32_t coptsetrefnrstr(tvksoptions* handle, const char* name, int32_t refnr);

/* --------------------------------------------------------------------------
 * Load path
 *
 * The load path is one text for the whole process, kept for the clients. It is empty when the library is
 * loaded; the library itself never uses it. These functions are not thread-safe: no two threads may call them
 * at the same time.
 */

/* Copies the load path into path. */
WEXCORIN_API void optgetloadpath(optshortstring* path);
WEXCORIN_API void coptgetloadpath(char* path);

/* Sets the load path to the text of path. */
WEXCORIN_API void optsetloadpath(const optshortstring* path);
WEXCORIN_API void coptsetloadpath(const char* path);

/* --------------------------------------------------------------------------
 * Interface check
 *
 * A client that loads the library at run time calls these functions first, to check that this is the library
 * that the client was written for. They take no handle and are thread-safe.
 */

/* Compares version, which is WEXCORIN_INTERFACE_VERSION of the header that the client was compiled with, with
 * the version of the library. The result is 0 for a version below 1 and otherwise 1, also for a client that
 * is newer than the library. compat is set to one of:
 *   0  not compatible
 *   1  the same version
 *   2  the client is older
 *   3  the client is newer: functions that it knows may be missing
 * message says the same in words. */
WEXCORIN_API int32_t xapiversion(int32_t version, optshortstring* message, int32_t* compat);
WEXCORIN_API int32_t cxapiversion(int32_t version, char* message, int32_t* compat);

/* Compares the client's declaration of one function with the library's. name is the name of the function in
 * mixed case, such as optGetNameNr. count is the number of its arguments after the handle. signature is an
 * array of count + 1 codes, first that of the result, then those of the arguments in the optxxx form:
 *    0  no result               11  short string
 *    3  integer                 12  short string output
 *    4  integer output          13  double
 *   10  zero-terminated text    14  double output
 * The check knows the functions that take a handle, except xfree, by their optXxx names. For a coptxxx
 * function check the optXxx name. The result is 1 when name, count and codes agree, and message is then
 * empty. Otherwise the result is 0, and message reports the first of these that differs: the name, the number
 * of arguments (first the library's, then the client's), or the codes, naming each argument that differs by
 * its number; number 0 is the result. The library reads at most count + 1 codes, and none when the name is
 * unknown or the count differs; signature may then be null. */
WEXCORIN_API int32_t xcheck(const optshortstring* name, int32_t count, const int32_t* signature,
                            optshortstring* message);
WEXCORIN_API int32_t cxcheck(const char* name, int32_t count, const int32_t* signature, char* message);

#ifdef __cplusplus
}
#endif

#endif
