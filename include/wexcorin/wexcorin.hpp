// wexcorin.hpp: the interface of the option library for C++17 and later, on top of wexcorin.h.
//
// Header only. The class wexcorin::options owns a handle. Texts are std::string, results that may be missing
// are std::optional, and numbered things are ranges that read one element at a time.
//
// wexcorin.h describes the functions and the conventions on texts, numbering and threads. A member function
// does what the function of the same name there does; the comments here say what differs. Throughout:
//
// - Numbers of options, messages and so on begin at 1; positions in a range begin at 0.
// - A text argument of more than 255 characters throws std::length_error, and an integer value of more than
//   32 bits throws std::out_of_range. Otherwise only the constructors throw, and std::string and std::vector
//   when there is no memory.
// - A function that returns std::optional returns no value where the C function fails. A bool is true for
//   "ok" where the C function returns that.
// - An options object is used by one thread at a time. loadpath and setloadpath are not thread-safe.
//
//   wexcorin::options options("solver.def");
//   options.readparameterfile("solver.opt");
//   for (const wexcorin::message& message : options.messages()) std::cerr << message.text << '\n';
//   int limit = options.integer("iteration_limit").value_or(1000);
#ifndef WEXCORIN_WEXCORIN_HPP
#define WEXCORIN_WEXCORIN_HPP

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>
#include <utility>
#include <vector>

#include "wexcorin/range.hpp"
#include "wexcorin/wexcorin.h"

namespace wexcorin {

// Thrown when the library found at run time does not suit the header that the program was compiled with.
class interface_mismatch : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

namespace detail {

// A text argument. The library takes 255 characters; a longer text is an error of the caller and is not cut.
class textin : private optshortstring {
 public:
  explicit textin(std::string_view argument) {
    if (argument.size() > sizeof text)
      throw std::length_error("wexcorin: a text has more than 255 characters");
    length = static_cast<unsigned char>(argument.size());
    if (!argument.empty()) std::memcpy(text, argument.data(), argument.size());
  }
  operator const optshortstring*() const noexcept { return this; }
};

// A buffer for a text output.
class textout : private optshortstring {
 public:
  textout() noexcept { length = 0; }
  operator optshortstring*() noexcept { return this; }
  std::string str() const { return std::string(text, length); }
};

// Integer options hold 32 bits; a larger integer is an error of the caller and is not cut.
template <class tinteger>
std::int32_t int32(tinteger value) {
  const auto result = static_cast<std::int32_t>(value);
  if (static_cast<tinteger>(result) != value || (std::is_unsigned_v<tinteger> && result < 0))
    throw std::out_of_range("wexcorin: an integer value has more than 32 bits");
  return result;
}

}  // namespace detail

// Identifies an option by its number, or by its name or synonym. A name is looked up at each call. The key
// keeps a view of the name, not a copy.
class key {
 public:
  key(std::int32_t number) noexcept : fname(), fnumber(number) {}
  template <class tname, std::enable_if_t<std::is_convertible_v<const tname&, std::string_view>, int> = 0>
  key(const tname& name) : fname(std::string_view(name)), fnumber(0) {}

  // Returns the number of the option, or 0, which is no option, when there is none of that name.
  std::int32_t number(tvksoptions* handle) const {
    if (!fname) return fnumber;
    std::int32_t number = 0;
    std::int32_t refnr = 0;
    return optfindstr(handle, detail::textin(*fname), &number, &refnr) != 0 ? number : 0;
  }

 private:
  std::optional<std::string_view> fname;
  std::int32_t fnumber;
};

// A message as optgetmessage returns it.
struct message {
  std::int32_t kind;  // optMsgInputEcho ...
  std::string text;
};

// What optgetinfonr, optgethelpnr and optgetopthelpnr return for an option.
struct option {
  std::int32_t number;
  std::string name;       // as in the definition file: it can be looked up in every lookup mode
  std::int32_t datatype;  // optDataInteger ...
  std::int32_t type;      // optTypeInteger ...
  std::int32_t subtype;   // optsubRequired ...
  std::int32_t group;     // group number, see findgroup
  std::int32_t refnr;     // reference number
  std::int32_t helpflag;  // above 0: listed in the help
  std::int32_t defined;   // 1: the first value was set, 2: the second, 3: both
  std::int32_t recent;    // the same since the recent bits were cleared
  std::string help;
};

// An item of an enumstr or enumint option.
struct enumvalue {
  std::int32_t integer;  // 0 for enumstr
  std::string text;
  std::int32_t helpflag;
  std::string help;
};

// A text taken from a list, and the name of the strlist option that held it.
struct listtext {
  std::string option;
  std::string text;
};

// A synonym and the name of its option.
struct synonym {
  std::string name;
  std::string option;  // empty when the definition names an unknown option
};

// A group of options.
struct group {
  std::string name;
  std::int32_t number;
  std::int32_t helpflag;
  std::string help;
};

// A dot entry; its index elements are in options::indices.
struct dotentry {
  std::int32_t number;
  std::string symbol;
  std::int32_t option;      // number of the dot option
  std::int32_t dimensions;  // number of index elements
  double value;
};

// An indicator; its index elements are in options::equationelements and variableelements.
struct indicator {
  std::int32_t number;
  std::string equation;
  std::string variable;
  std::int32_t equationdimensions;
  std::int32_t variabledimensions;
  bool value;
};

// The inclusive bounds and the default of an integer or double option.
template <class tvalue>
struct bounds {
  tvalue low;
  tvalue high;
  tvalue defaultvalue;
};

// How many messages are errors and warnings, see opterrorcount.
struct counts {
  std::int32_t errors;
  std::int32_t warnings;
};

// A set of options with its messages. Owns the handle.
class options {
 public:
  // Throws interface_mismatch when the library found at run time does not suit this header, and
  // std::bad_alloc when there is no memory.
  options() {
    detail::textout text;
    std::int32_t compat = 0;
    if (xapiversion(WEXCORIN_INTERFACE_VERSION, text, &compat) == 0 || compat == 3)
      throw interface_mismatch("wexcorin: " + text.str() + " The program needs interface version " +
                               std::to_string(WEXCORIN_INTERFACE_VERSION) + (compat == 3 ? " or later" : "") +
                               " of libwexcorin.");
    if (xcreate(&fhandle) == nullptr) throw std::bad_alloc();
  }
  // Also reads a definition file. Throws std::system_error when readdefinition returns an error code.
  // Mistakes in the file throw nothing: see errorcount() and messages().
  explicit options(std::string_view definitionfile) : options() {
    const std::int32_t code = readdefinition(definitionfile);
    if (code != 0) throw std::system_error(code, std::generic_category(), std::string(definitionfile));
  }
  // A moved-from object may only be destroyed, assigned to, or asked for get().
  options(options&& other) noexcept : fhandle(std::exchange(other.fhandle, nullptr)) {}
  options& operator=(options&& other) noexcept {
    options moved(std::move(other));
    std::swap(fhandle, moved.fhandle);
    return *this;
  }
  options(const options&) = delete;
  options& operator=(const options&) = delete;
  ~options() { xfree(&fhandle); }

  // Returns the handle, for the functions of wexcorin.h. The object still owns it. Null in a moved-from
  // object.
  tvksoptions* get() const noexcept { return fhandle; }

  // ---- reading and writing; the result is 0 or the error code of the operating system. For a file that could
  // be opened but not read to its end it is 0, unless the list of messages is too full to report it.
  std::int32_t readdefinition(std::string_view file) {
    return optreaddefinition(fhandle, detail::textin(file));
  }
  std::int32_t readparameterfile(std::string_view file) {
    return optreadparameterfile(fhandle, detail::textin(file));
  }
  // Returns EIO when the file could be opened but not written to its end; the C function reports that by
  // messages only. Returns 0 instead when the list of messages is full: call clearmessages() before.
  std::int32_t writeparameterfile(std::string_view file) {
    const std::int32_t before = errorcount().errors;
    const std::int32_t code = optwriteparameterfile(fhandle, detail::textin(file));
    return code == 0 && errorcount().errors != before ? EIO : code;
  }
  // Reads option text of any length, up to the first zero byte or line feed, as optreadfrompchar does.
  void read(std::string_view text) { optreadfrompchar(fhandle, std::string(text).c_str()); }
  // Files help as messages.
  void showhelp(std::string_view request) { optshowhelp(fhandle, detail::textin(request)); }

  // ---- messages
  range<message> messages() const { return numbered<message>(optmessagecount(fhandle), readmessage); }
  void addmessage(std::string_view text) { optaddmessage(fhandle, detail::textin(text)); }
  // A range of messages that was made before reads "Bad message number" afterwards: make a new one.
  void clearmessages() { optclearmessages(fhandle); }
  counts errorcount() const {
    counts result{};
    opterrorcount(fhandle, &result.errors, &result.warnings);
    return result;
  }

  // ---- options; nothing, or an empty range, for a key without an option and for a type that does not fit

  // Returns the number of the option with this name or synonym.
  std::optional<std::int32_t> find(std::string_view name) const { return found(number(name)); }
  // Returns all options, in the order of their numbers.
  range<option> all() const { return numbered<option>(optcount(fhandle), readoption); }
  std::optional<option> describe(key which) const {
    option result = readoption(fhandle, 0, number(which));
    return result.type >= 0 ? std::optional(std::move(result)) : std::nullopt;
  }
  std::optional<bounds<std::int32_t>> integerbounds(key which) const {
    bounds<std::int32_t> result{};
    const auto ok = optgetboundsint(fhandle, number(which), &result.low, &result.high, &result.defaultvalue);
    return ok != 0 ? std::optional(result) : std::nullopt;
  }
  std::optional<bounds<double>> realbounds(key which) const {
    bounds<double> result{};
    const auto ok = optgetboundsdbl(fhandle, number(which), &result.low, &result.high, &result.defaultvalue);
    return ok != 0 ? std::optional(result) : std::nullopt;
  }
  // Returns the default of a string option.
  std::optional<std::string> defaulttext(key which) const { return text(optgetdefaultstr, which); }
  // Returns the items of an enumstr or enumint option.
  range<enumvalue> enumvalues(key which) const {
    const std::int32_t outer = number(which);
    std::int32_t count = 0;
    if (optgetenumcount(fhandle, outer, &count) == 0) count = 0;
    return numbered<enumvalue>(count, readenumvalue, outer);
  }
  // Returns the number of the item that is the first value of an enumstr option; no value when it is none of
  // the items.
  std::optional<std::int32_t> enumitem(key which) const {
    detail::textout text;
    std::int32_t item = 0;
    return optgetenumstrnr(fhandle, number(which), text, &item) != 0 ? found(item) : std::nullopt;
  }
  bool setrefnr(key which, std::int32_t refnr) { return optsetrefnr(fhandle, number(which), refnr) != 0; }
  range<synonym> synonyms() const { return numbered<synonym>(optsynonymcount(fhandle), readsynonym); }
  range<group> groups() const { return numbered<group>(optgroupcount(fhandle), readgroup); }
  // Returns the first group with this group number, as option::group holds it.
  std::optional<group> findgroup(std::int32_t groupnumber) const {
    const std::int32_t position = optgetgroupgrpnr(fhandle, groupnumber);
    return position > 0 ? std::optional(readgroup(fhandle, 0, position)) : std::nullopt;
  }

  // ---- values; nothing for a key without an option and for a type that does not fit; 2: the second value
  std::optional<std::int32_t> integer(key which) const { return value<std::int32_t>(optgetintnr, which); }
  std::optional<std::int32_t> integer2(key which) const { return value<std::int32_t>(optgetint2nr, which); }
  std::optional<double> real(key which) const { return value<double>(optgetdblnr, which); }
  std::optional<double> real2(key which) const { return value<double>(optgetdbl2nr, which); }
  std::optional<std::string> text(key which) const { return text(optgetstrnr, which); }
  std::optional<std::string> text2(key which) const { return text(optgetstr2nr, which); }

  // Returns true when the value was stored without an error message. The argument must fit the option: an
  // integer or unscoped enumerator, a floating-point number, or a text, which every option takes.
  template <class tinteger, class = std::enable_if_t<
                                (std::is_integral_v<tinteger> ||
                                 std::is_enum_v<tinteger>)&&std::is_convertible_v<tinteger, std::int64_t>>>
  bool set(key which, tinteger value) {
    return optsetintnr(fhandle, number(which), detail::int32(value)) != 0;
  }
  bool set(key which, double value) { return optsetdblnr(fhandle, number(which), value) != 0; }
  bool set(key which, std::string_view value) {
    return optsetstrnr(fhandle, number(which), detail::textin(value)) != 0;
  }
  template <class tinteger, class = std::enable_if_t<
                                (std::is_integral_v<tinteger> ||
                                 std::is_enum_v<tinteger>)&&std::is_convertible_v<tinteger, std::int64_t>>>
  bool set2(key which, tinteger value) {
    return optsetint2nr(fhandle, number(which), detail::int32(value)) != 0;
  }
  bool set2(key which, double value) { return optsetdbl2nr(fhandle, number(which), value) != 0; }
  bool set2(key which, std::string_view value) {
    return optsetstr2nr(fhandle, number(which), detail::textin(value)) != 0;
  }
  bool reset(key which) { return optresetnr(fhandle, number(which)) != 0; }
  void resetall() { optresetall(fhandle); }
  void resetallrecent() { optresetallrecent(fhandle); }

  // Returns the texts of a strlist option as they are now; empty when the name is not that of a strlist
  // option.
  std::vector<std::string> list(std::string_view name) const {
    const detail::textin key(name);
    detail::textout text;
    std::vector<std::string> result;
    for (std::int32_t index = 1; optreadfromliststr(fhandle, key, index, text) == 1; ++index)
      result.push_back(text.str());
    return result;
  }
  // Removes the first text from a list and returns it.
  std::optional<std::string> takefromlist(std::string_view name) {
    detail::textout text;
    if (optgetfromliststr(fhandle, detail::textin(name), text) != 1) return std::nullopt;
    return text.str();
  }
  // Does the same for the first list that has a text: when dashed is true among the options whose name begins
  // with "--", otherwise among the others.
  std::optional<listtext> takefromanylist(bool dashed) {
    detail::textout name;
    detail::textout text;
    if (optgetfromanystrlist(fhandle, dashed ? 1 : 0, name, text) != 1) return std::nullopt;
    return listtext{name.str(), text.str()};
  }

  // ---- dot entries and indicators
  range<dotentry> dotentries() const {
    std::int32_t rejected = 0;
    return numbered<dotentry>(optdotoptcount(fhandle, &rejected), readdotentry);
  }
  // Returns the index elements of an entry.
  range<std::string> indices(const dotentry& entry) const {
    return numbered<std::string>(entry.dimensions, readtext<optgetdotoptuel>, entry.number);
  }
  range<indicator> indicators() const {
    std::int32_t rejected = 0;
    return numbered<indicator>(optindicatorcount(fhandle, &rejected), readindicator);
  }
  range<std::string> equationelements(const indicator& item) const {
    return numbered<std::string>(item.equationdimensions, readtext<optgetequindicatornr>, item.number);
  }
  range<std::string> variableelements(const indicator& item) const {
    return numbered<std::string>(item.variabledimensions, readtext<optgetvarindicatornr>, item.number);
  }
  // Return how many entries or indicators were discarded because their line had an error.
  std::int32_t rejecteddotentries() const {
    std::int32_t rejected = 0;
    optdotoptcount(fhandle, &rejected);
    return rejected;
  }
  std::int32_t rejectedindicators() const {
    std::int32_t rejected = 0;
    optindicatorcount(fhandle, &rejected);
    return rejected;
  }

  // ---- names; nothing for a code that does not exist

  // Returns the name of a constant. `constants` is 1 for data types, 2 for option types, 3 for sub-types and
  // 4 for message kinds.
  std::optional<std::string> constantname(std::int32_t constants, std::int32_t code) const {
    detail::textout text;
    return optgetconstname(fhandle, constants, code, text) != 0 ? std::optional(text.str()) : std::nullopt;
  }
  // Returns the keyword of the definition file for an option type.
  std::optional<std::string> typekeyword(std::int32_t type) const {
    detail::textout text;
    return optgettypename(fhandle, type, text) != 0 ? std::optional(text.str()) : std::nullopt;
  }
  std::string definitionfile() const {
    detail::textout text;
    optdefinitionfile(fhandle, text);
    return text.str();
  }
  std::string version() const {
    detail::textout text;
    optversion(fhandle, text);
    return text.str();
  }

  // ---- switches
  void setecho(bool on) { optechoset(fhandle, on ? 1 : 0); }
  void setnobounds(bool on) { optnoboundsset(fhandle, on ? 1 : 0); }
  void setrecentenabled(bool on) { optrecentenabledset(fhandle, on ? 1 : 0); }
  bool recentenabled() const { return optrecentenabled(fhandle) != 0; }
  // Returns the previous setting.
  bool seteolonly(bool on) { return opteolonlyset(fhandle, on ? 1 : 0) != 0; }

 private:
  std::int32_t number(key which) const { return which.number(fhandle); }

  static std::optional<std::int32_t> found(std::int32_t number) {
    return number > 0 ? std::optional(number) : std::nullopt;
  }

  template <class tvalue>
  std::optional<tvalue> value(std::int32_t (*getter)(tvksoptions*, std::int32_t, tvalue*), key which) const {
    tvalue result{};
    return getter(fhandle, number(which), &result) != 0 ? std::optional(result) : std::nullopt;
  }
  std::optional<std::string> text(std::int32_t (*getter)(tvksoptions*, std::int32_t, optshortstring*),
                                  key which) const {
    detail::textout result;
    return getter(fhandle, number(which), result) != 0 ? std::optional(result.str()) : std::nullopt;
  }

  // ---- elements of ranges
  template <class telement>
  range<telement> numbered(std::int32_t count, telement (*reader)(tvksoptions*, std::int32_t, std::int32_t),
                           std::int32_t outer = 0) const {
    return range<telement>(count, detail::source<telement>{fhandle, reader, outer});
  }

  static message readmessage(tvksoptions* handle, std::int32_t, std::int32_t number) {
    detail::textout text;
    message result{};
    optgetmessage(handle, number, text, &result.kind);
    result.text = text.str();
    return result;
  }
  static synonym readsynonym(tvksoptions* handle, std::int32_t, std::int32_t number) {
    detail::textout name;
    detail::textout target;
    optgetsynonym(handle, number, name, target);
    return synonym{name.str(), target.str()};
  }
  static option readoption(tvksoptions* handle, std::int32_t, std::int32_t number) {
    option result{};
    detail::textout name;
    detail::textout blankname;  // not used: in lookup mode Minos it cannot be looked up
    detail::textout help;
    optgetinfonr(handle, number, &result.defined, &result.recent, &result.refnr, &result.datatype,
                 &result.type, &result.subtype);
    optgethelpnr(handle, number, name, help);
    optgetopthelpnr(handle, number, blankname, &result.helpflag, &result.group);
    result.number = number;
    result.name = name.str();
    result.help = help.str();
    return result;
  }
  static enumvalue readenumvalue(tvksoptions* handle, std::int32_t outer, std::int32_t item) {
    detail::textout text;
    detail::textout help;
    enumvalue result{};
    optgetenumvalue(handle, outer, item, &result.integer, text);
    optgetenumhelp(handle, outer, item, &result.helpflag, help);
    result.text = text.str();
    result.help = help.str();
    return result;
  }
  static group readgroup(tvksoptions* handle, std::int32_t, std::int32_t position) {
    detail::textout name;
    detail::textout help;
    group result{};
    optgetgroupnr(handle, position, name, &result.number, &result.helpflag, help);
    result.name = name.str();
    result.help = help.str();
    return result;
  }
  static dotentry readdotentry(tvksoptions* handle, std::int32_t, std::int32_t number) {
    detail::textout symbol;
    dotentry result{};
    optgetdotoptnr(handle, number, symbol, &result.option, &result.dimensions, &result.value);
    result.number = number;
    result.symbol = symbol.str();
    return result;
  }
  static indicator readindicator(tvksoptions* handle, std::int32_t, std::int32_t number) {
    detail::textout equation;
    detail::textout variable;
    indicator result{};
    std::int32_t value = 0;
    optgetindicatornr(handle, number, equation, variable, &result.equationdimensions,
                      &result.variabledimensions, &value);
    result.number = number;
    result.equation = equation.str();
    result.variable = variable.str();
    result.value = value != 0;
    return result;
  }
  template <std::int32_t (*getter)(tvksoptions*, std::int32_t, std::int32_t, optshortstring*)>
  static std::string readtext(tvksoptions* handle, std::int32_t outer, std::int32_t number) {
    detail::textout text;
    getter(handle, outer, number, text);
    return text.str();
  }

  tvksoptions* fhandle = nullptr;
};

// ---- the whole process

inline std::string loadpath() {
  detail::textout path;
  optgetloadpath(path);
  return path.str();
}
inline void setloadpath(std::string_view path) { optsetloadpath(detail::textin(path)); }

// Returns what is wrong with a declaration of one of the library's functions, see xcheck; no value when it is
// right. The signature is the code of the result, then those of the arguments after the handle.
inline std::optional<std::string> mismatch(std::string_view function,
                                           std::initializer_list<std::int32_t> signature) {
  detail::textout message;
  const auto count = static_cast<std::int32_t>(signature.size()) - 1;
  if (xcheck(detail::textin(function), count, signature.begin(), message) != 0) return std::nullopt;
  return message.str();
}

}  // namespace wexcorin

#endif
