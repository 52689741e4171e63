// The codes that the library, definition files and clients share: option types, data types, sub-types,
// message kinds, immediate kinds and lookup modes, each with its names in the order of the codes. Deprecation
// kinds and the two values of an option are for the library alone. The public header repeats the numbers.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace optcore {

enum class topttype : std::uint8_t {
  integer,
  dbl,
  string,
  boolean,
  enumstr,
  enumint,
  multilist,
  strlist,
  macro,
  immediate
};
// The number of option types. A table by type is made with std::to_array and has its size asserted against
// it, so a table that lacks an item does not compile.
inline constexpr std::size_t opttypecount = 10;
inline constexpr auto opttypenames =
    std::to_array<std::string_view>({"integer", "double", "string", "boolean", "enumstr", "enumint",
                                     "multilist", "strlist", "macro", "immediate"});
inline constexpr auto opttypeconstnames = std::to_array<std::string_view>(
    {"optTypeInteger", "optTypeDouble", "optTypeString", "optTypeBoolean", "optTypeEnumStr", "optTypeEnumInt",
     "optTypeMultiList", "optTypeStrList", "optTypeMacro", "optTypeImmediate"});

// The kind of value that an option has.
enum class tdatatype : std::uint8_t { none, integer, dbl, string, strlist };
inline constexpr std::array<std::string_view, 5> datatypeconstnames = {
    "optDataNone", "optDataInteger", "optDataDouble", "optDataString", "optDataStrList"};
inline constexpr auto datatypeofopttype = std::to_array<tdatatype>(
    {tdatatype::integer, tdatatype::dbl, tdatatype::string, tdatatype::integer, tdatatype::string,
     tdatatype::integer, tdatatype::none, tdatatype::strlist, tdatatype::none, tdatatype::none});

// hasusermap: whether the definition line of a type has a user map, which is the option's reference number.
// takesmodifier: whether the keyword of the type may have a modifier.
constexpr bool hasusermap(topttype type) {
  switch (type) {
    case topttype::integer:
    case topttype::dbl:
    case topttype::string:
    case topttype::boolean:
    case topttype::enumstr:
    case topttype::enumint:
    case topttype::multilist:
    case topttype::strlist: return true;
    case topttype::macro:
    case topttype::immediate: break;
  }
  return false;
}
constexpr bool takesmodifier(topttype type) {
  switch (type) {
    case topttype::integer:
    case topttype::dbl:
    case topttype::string:
    case topttype::boolean:
    case topttype::enumstr:
    case topttype::enumint: return true;
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return false;
}

// What must follow the key of an option in parameter text. In a definition file a modifier of the keyword
// selects it; the first one has no modifier.
enum class tsubtype : std::uint8_t { required, novalue, optional, twovalues };
inline constexpr std::array<std::string_view, 4> subtypeconstnames = {"optsubRequired", "optsubNoValue",
                                                                      "optsubOptional", "optsub2Values"};
inline constexpr std::array<std::string_view, 4> subtypemodifiers = {"", "NV", "OPT", "TWO"};

enum class tmsgkind : std::int32_t {
  inputecho,
  help,
  defineerror,
  valueerror,
  valuewarning,
  deprecated,
  fileenter,
  fileleave,
  toomanymsgs,
  usererror
};
inline constexpr std::array<std::string_view, 10> msgkindconstnames = {
    "optMsgInputEcho",  "optMsgHelp",      "optMsgDefineError", "optMsgValueError",  "optMsgValueWarning",
    "optMsgDeprecated", "optMsgFileEnter", "optMsgFileLeave",   "optMsgTooManyMsgs", "optMsgUserError"};

// What an immediate option does when it is read in parameter text.
enum class timmkind : std::uint8_t { eolflag, readfile, message, nobounds, help };
inline constexpr std::array<std::string_view, 5> immkindnames = {"EolFlag", "ReadFile", "Message", "NoBounds",
                                                                 "Help"};

// How the names of options are compared.
enum class tlookupmode : std::uint8_t { normal, path, minos };
inline constexpr std::array<std::string_view, 3> lookupmodenames = {"Normal", "Path", "Minos"};

// The deprecation marks of an option: for its own name, or for its synonyms.
enum class tdeprecation : std::uint8_t { deprecated, deprecatedsynonym, obsolete, obsoletesynonym };

template <class tcode>
constexpr std::size_t ordinal(tcode code) {
  return static_cast<std::size_t>(code);
}

// Which of an option's two values.
enum class twhich : std::uint8_t { first, second };

// Bits of the defined, defined-recently and out-of-bounds masks.
inline constexpr std::int32_t firstvaluebit = 1;
inline constexpr std::int32_t secondvaluebit = 2;
constexpr std::int32_t valuebit(twhich which) {
  return which == twhich::second ? secondvaluebit : firstvaluebit;
}

static_assert(opttypecount == ordinal(topttype::immediate) + 1, "the last type");
static_assert(opttypenames.size() == opttypecount, "a keyword for each type");
static_assert(opttypeconstnames.size() == opttypecount, "a constant name for each type");
static_assert(datatypeofopttype.size() == opttypecount, "a data type for each type");
static_assert(opttypeconstnames[ordinal(topttype::macro)] == "optTypeMacro");
static_assert(datatypeofopttype[ordinal(topttype::strlist)] == tdatatype::strlist);
static_assert(datatypeconstnames[ordinal(tdatatype::strlist)] == "optDataStrList");
static_assert(subtypeconstnames[ordinal(tsubtype::twovalues)] == "optsub2Values");
static_assert(subtypemodifiers[ordinal(tsubtype::twovalues)] == "TWO");
static_assert(msgkindconstnames[ordinal(tmsgkind::usererror)] == "optMsgUserError");
static_assert(immkindnames[ordinal(timmkind::help)] == "Help");
static_assert(lookupmodenames[ordinal(tlookupmode::minos)] == "Minos");

}  // namespace optcore
