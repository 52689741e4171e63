// wexcorin.hpp: the interface of the option library for C++17 and later, on top of wexcorin.h.
//
// Header only. The class wexcorin::options owns a handle. Texts are std::string, results that may be missing
// are std::optional, and numbered things are ranges that read one element at a time.
//
// wexcorin.h describes the functions and the conventions on texts, numbering and threads. A member function
// does what the function of the same name there does; the comments here say what differs. Throughout:
//
// - Numbers of options, messages and so on begin at 1; positions in a range begin at 0.
// - A function that returns std::optional returns no value where the C function fails, as for an option that
//   does not exist. A bool is true for "ok" where the C function returns that.
// - An error of the caller throws: std::length_error a text argument of more than 255 characters,
//   std::out_of_range a number that the option cannot hold, and wrong_type an option of a type that the
//   function is not for. So do the constructors, and std::string and std::vector when there is no memory.
// - A value that the option refuses, such as one out of bounds, throws nothing: it often comes from a user,
//   and the library has filed a message about it. The setter returns false then, and for an option that does
//   not exist. Setters are [[nodiscard]]: otherwise a program could go on with the old value unnoticed.
// - Texts hold bytes of the files as they are; convention 9 of wexcorin.h says what to replace before they are
//   shown to people.
// - An options object is used by one thread at a time. loadpath and setloadpath are not thread-safe.
//
//   wexcorin::options options("solver.def");
//   options.readparameterfile("solver.opt");
//   for (const wexcorin::problem& problem : options.problems())
//     std::cerr << problem.file << ':' << problem.line << ": " << problem.text << '\n';
//   int limit = options.integer("iteration_limit").value_or(1000);
#ifndef WEXCORIN_WEXCORIN_HPP
#define WEXCORIN_WEXCORIN_HPP

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
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

#include "wexcorin/elements.hpp"
#include "wexcorin/linkage.hpp"
#include "wexcorin/problems.hpp"
#include "wexcorin/range.hpp"
#include "wexcorin/text.hpp"
#include "wexcorin/wexcorin.h"

namespace wexcorin {

// Thrown when an option has a type that a function is not for: by integer for a double option, by integer2
// for an option with one value, by every setter for an immediate option. describe() returns the type.
class wrong_type : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

// Identifies an option by its number, or by its name or synonym, of which it keeps a copy. A name is looked
// up at each call.
class key {
 public:
  key(std::int32_t number) noexcept : fname(), fnumber(number) {}
  template <class tname, std::enable_if_t<std::is_convertible_v<const tname&, std::string_view>, int> = 0>
  key(const tname& name) : fname(std::string(std::string_view(name))), fnumber(0) {}

  // Returns the number of the option, or 0, which is no option, when there is none of that name.
  std::int32_t number(tvksoptions* handle) const {
    if (!fname) return fnumber;
    std::int32_t number = 0;
    std::int32_t refnr = 0;
    return optfindstr(handle, detail::textin(*fname), &number, &refnr) != 0 ? number : 0;
  }

 private:
  std::optional<std::string> fname;
  std::int32_t fnumber;
};

// A set of options with its messages. Owns the handle.
class options {
 public:
  // Throws interface_mismatch when the library found at run time does not suit this header or when another
  // library's xcreate or xfree is called in place of its own, and std::bad_alloc when there is no memory.
  options() {
    detail::requireownfunctions();
    detail::textout text;
    std::int32_t compat = 0;
    if (xapiversion(WEXCORIN_INTERFACE_VERSION, text, &compat) == 0 || compat == 3)
      throw interface_mismatch("wexcorin: " + text.str() + " The program needs interface version " +
                               std::to_string(WEXCORIN_INTERFACE_VERSION) + (compat == 3 ? " or later" : "") +
                               " of libwexcorin.");
    if (xcreate(&fhandle) == nullptr) throw std::bad_alloc();
  }
  // Also reads a definition file. Throws std::system_error when readdefinition returns an error code.
  // Mistakes in the file throw nothing: see problems().
  explicit options(std::string_view definitionfile) : options() {
    const std::int32_t code = readdefinition(definitionfile);
    if (code != 0) throw std::system_error(code, std::generic_category(), std::string(definitionfile));
  }
  // A moved-from object may only be destroyed, assigned to, or asked for get().
  options(options&& other) noexcept
      : fhandle(std::exchange(other.fhandle, nullptr)), freadings(std::move(other.freadings)) {}
  options& operator=(options&& other) noexcept {
    options moved(std::move(other));
    std::swap(fhandle, moved.fhandle);
    std::swap(freadings, moved.freadings);
    return *this;
  }
  options(const options&) = delete;
  options& operator=(const options&) = delete;
  ~options() { xfree(&fhandle); }

  // Returns the handle, for the functions of wexcorin.h. The object still owns it. Null in a moved-from
  // object.
  tvksoptions* get() const noexcept { return fhandle; }

  // ---- reading and writing; the result is 0 or the error code of the operating system. For a file that
  // could be opened but not read to its end it is 0, unless the list of messages is too full to report it.
  std::int32_t readdefinition(std::string_view file) {
    return noted(file, 0, [&] { return optreaddefinition(fhandle, detail::textin(file)); });
  }
  std::int32_t readparameterfile(std::string_view file) {
    return noted(file, 0, [&] { return optreadparameterfile(fhandle, detail::textin(file)); });
  }
  // Returns EIO when the file could be opened but not written to its end; the C function reports that by
  // messages only. Returns 0 instead when the list of messages is full: call clearmessages() before.
  std::int32_t writeparameterfile(std::string_view file) {
    const std::int32_t before = errorcount().errors;
    const std::int32_t code =
        noted(file, 0, [&] { return optwriteparameterfile(fhandle, detail::textin(file)); });
    return code == 0 && errorcount().errors != before ? EIO : code;
  }
  // Reads option text of any length and of any number of lines. Each line is a text of its own, as
  // optreadfrompchar reads it: a switch of end-of-line mode holds for the rest of its line, and a zero byte
  // ends the line. A line ends with a line feed, also behind a carriage return.
  void read(std::string_view text) {
    for (std::int32_t line = 1; line == 1 || !text.empty(); ++line) {
      const std::size_t end = std::min(text.find('\n'), text.size());
      const bool returns = end < text.size() && end > 0 && text[end - 1] == '\r';
      const std::string single(text.substr(0, returns ? end - 1 : end));
      noted("pchar", line, [&] { return optreadfrompchar(fhandle, single.c_str()), 0; });
      text.remove_prefix(std::min(end + 1, text.size()));
    }
  }
  // Files help as messages.
  void showhelp(std::string_view request) { optshowhelp(fhandle, detail::textin(request)); }

  // ---- messages
  range<message> messages() const { return numbered<message>(optmessagecount(fhandle), detail::readmessage); }
  // Returns the errors and warnings among the messages, with the file and line that each is about. The file
  // is known when this object has read it or an option file names it. A text ends where its message was cut.
  std::vector<problem> problems() const {
    detail::problemlist result(freadings);
    std::int32_t number = 0;
    for (const message& each : messages()) result.add(++number, each);
    return std::move(result).problems();
  }
  void addmessage(std::string_view text) { optaddmessage(fhandle, detail::textin(text)); }
  // A range of messages that was made before reads "Bad message number" afterwards: make a new one.
  void clearmessages() {
    optclearmessages(fhandle);
    freadings.clear();
  }
  counts errorcount() const {
    counts result{};
    opterrorcount(fhandle, &result.errors, &result.warnings);
    return result;
  }

  // ---- options; nothing, or an empty range, for a key without an option

  // Returns the number of the option with this name or synonym.
  std::optional<std::int32_t> find(std::string_view name) const { return found(number(name)); }
  // Returns all options, in the order of their numbers.
  range<option> all() const { return numbered<option>(optcount(fhandle), detail::readoption); }
  std::optional<option> describe(const key& which) const {
    option result = detail::readoption(fhandle, 0, number(which));
    return result.type >= 0 ? std::optional(std::move(result)) : std::nullopt;
  }
  std::optional<bounds<std::int32_t>> integerbounds(const key& which) const {
    bounds<std::int32_t> result{};
    const std::int32_t nr = number(which);
    const auto ok = optgetboundsint(fhandle, nr, &result.low, &result.high, &result.defaultvalue);
    return answered(ok, nr, "integerbounds") ? std::optional(result) : std::nullopt;
  }
  std::optional<bounds<double>> realbounds(const key& which) const {
    bounds<double> result{};
    const std::int32_t nr = number(which);
    const auto ok = optgetboundsdbl(fhandle, nr, &result.low, &result.high, &result.defaultvalue);
    return answered(ok, nr, "realbounds") ? std::optional(result) : std::nullopt;
  }
  // Returns the default of a string option.
  std::optional<std::string> defaulttext(const key& which) const {
    return text(optgetdefaultstr, which, "defaulttext");
  }
  // Returns the items of an enumstr or enumint option.
  range<enumvalue> enumvalues(const key& which) const {
    const std::int32_t outer = number(which);
    std::int32_t count = 0;
    if (!answered(optgetenumcount(fhandle, outer, &count), outer, "enumvalues")) count = 0;
    return numbered<enumvalue>(count, detail::readenumvalue, outer);
  }
  // Returns the number of the item that is the first value of an enumstr option; no value when it is none of
  // the items.
  std::optional<std::int32_t> enumitem(const key& which) const {
    detail::textout text;
    std::int32_t item = 0;
    const std::int32_t nr = number(which);
    return answered(optgetenumstrnr(fhandle, nr, text, &item), nr, "enumitem") ? found(item) : std::nullopt;
  }
  [[nodiscard]] bool setrefnr(const key& which, std::int32_t refnr) {
    return optsetrefnr(fhandle, number(which), refnr) != 0;
  }
  range<synonym> synonyms() const { return numbered<synonym>(optsynonymcount(fhandle), detail::readsynonym); }
  range<group> groups() const { return numbered<group>(optgroupcount(fhandle), detail::readgroup); }
  // Returns the first group with this group number, as option::group holds it.
  std::optional<group> findgroup(std::int32_t groupnumber) const {
    const std::int32_t position = optgetgroupgrpnr(fhandle, groupnumber);
    return position > 0 ? std::optional(detail::readgroup(fhandle, 0, position)) : std::nullopt;
  }

  // ---- values; nothing for a key without an option; 2: the second value

  // The value of an integer, boolean or enumint option.
  std::optional<std::int32_t> integer(const key& which) const {
    return value<std::int32_t>(optgetintnr, which, "integer");
  }
  std::optional<std::int32_t> integer2(const key& which) const {
    return value<std::int32_t>(optgetint2nr, which, "integer2");
  }
  // The value of a double option.
  std::optional<double> real(const key& which) const { return value<double>(optgetdblnr, which, "real"); }
  std::optional<double> real2(const key& which) const { return value<double>(optgetdbl2nr, which, "real2"); }
  // The value of an option as text. A strlist, multilist, macro or immediate option has none.
  std::optional<std::string> text(const key& which) const { return text(optgetstrnr, which, "text"); }
  std::optional<std::string> text2(const key& which) const { return text(optgetstr2nr, which, "text2"); }

  // Return true when the value was stored without an error message. A number is converted to the type of the
  // option where nothing is lost: 5 and 5.0 are the same for every option. An integer option refuses 2.5 with
  // a message. An integer with more digits than the option can hold throws std::out_of_range. For all other
  // types a number stands for its decimal text. An unscoped enumerator is an integer.
  template <class tinteger, class = detail::ifinteger<tinteger>>
  [[nodiscard]] bool set(const key& which, tinteger value) {
    return setnumber(which, detail::integral(value), firstvalue());
  }
  [[nodiscard]] bool set(const key& which, double value) { return setnumber(which, value, firstvalue()); }
  [[nodiscard]] bool set(const key& which, std::string_view value) {
    return settext(settable(which, firstvalue()), value, firstvalue());
  }
  template <class tinteger, class = detail::ifinteger<tinteger>>
  [[nodiscard]] bool set2(const key& which, tinteger value) {
    return setnumber(which, detail::integral(value), secondvalue());
  }
  [[nodiscard]] bool set2(const key& which, double value) { return setnumber(which, value, secondvalue()); }
  [[nodiscard]] bool set2(const key& which, std::string_view value) {
    return settext(settable(which, secondvalue()), value, secondvalue());
  }
  [[nodiscard]] bool reset(const key& which) { return optresetnr(fhandle, number(which)) != 0; }
  void resetall() { optresetall(fhandle); }
  void resetallrecent() { optresetallrecent(fhandle); }

  // Returns the texts of a strlist option as they are now; empty when there is no option of that name.
  std::vector<std::string> list(std::string_view name) const {
    const detail::textin key(name);
    detail::textout text;
    std::vector<std::string> result;
    std::int32_t code = 1;
    for (std::int32_t index = 1; (code = optreadfromliststr(fhandle, key, index, text)) == 1; ++index)
      result.push_back(text.str());
    if (code == notalist) throw wrongtype(number(name), "list");
    return result;
  }
  // Removes the first text from a list and returns it; nothing when there is none.
  std::optional<std::string> takefromlist(std::string_view name) {
    detail::textout text;
    const std::int32_t code = optgetfromliststr(fhandle, detail::textin(name), text);
    if (code == notalist) throw wrongtype(number(name), "takefromlist");
    return code == 1 ? std::optional(text.str()) : std::nullopt;
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
    return numbered<dotentry>(optdotoptcount(fhandle, &rejected), detail::readdotentry);
  }
  // Returns the index elements of an entry.
  range<std::string> indices(const dotentry& entry) const {
    return numbered<std::string>(entry.dimensions, detail::readtext<optgetdotoptuel>, entry.number);
  }
  range<indicator> indicators() const {
    std::int32_t rejected = 0;
    return numbered<indicator>(optindicatorcount(fhandle, &rejected), detail::readindicator);
  }
  range<std::string> equationelements(const indicator& item) const {
    return numbered<std::string>(item.equationdimensions, detail::readtext<optgetequindicatornr>,
                                 item.number);
  }
  range<std::string> variableelements(const indicator& item) const {
    return numbered<std::string>(item.variabledimensions, detail::readtext<optgetvarindicatornr>,
                                 item.number);
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
  std::int32_t number(const key& which) const { return which.number(fhandle); }

  static std::optional<std::int32_t> found(std::int32_t number) {
    return number > 0 ? std::optional(number) : std::nullopt;
  }

  // Remembers which messages a call files and what it reads.
  template <class tcall>
  std::int32_t noted(std::string_view file, std::int32_t line, tcall call) {
    const std::int32_t before = optmessagecount(fhandle);
    const std::int32_t code = call();
    freadings.add({before, optmessagecount(fhandle), std::string(file), line});
    return code;
  }

  // ---- types of options

  static constexpr std::int32_t notalist = -1;

  struct typeinfo {
    std::int32_t datatype = -1;
    std::int32_t type = -1;  // below 0 when there is no option of that number
    std::int32_t subtype = -1;
  };
  typeinfo infoof(std::int32_t nr) const {
    typeinfo result;
    std::int32_t defined = 0;
    std::int32_t recent = 0;
    std::int32_t refnr = 0;
    optgetinfonr(fhandle, nr, &defined, &recent, &refnr, &result.datatype, &result.type, &result.subtype);
    return result;
  }
  wrong_type wrongtype(std::int32_t nr, const char* function) const {
    const typeinfo info = infoof(nr);
    return wrong_type("wexcorin: Option \"" + detail::readoption(fhandle, 0, nr).name + "\" (" +
                      typekeyword(info.type).value_or("") +
                      (info.subtype == optsub2Values ? ", two values" : ", one value") + ") does not fit " +
                      function + "().");
  }
  // Whether a query was answered. Throws when the option exists and therefore has the wrong type.
  bool answered(std::int32_t ok, std::int32_t nr, const char* function) const {
    if (ok == 0 && infoof(nr).type >= 0) throw wrongtype(nr, function);
    return ok != 0;
  }

  // ---- values

  template <class tvalue>
  std::optional<tvalue> value(std::int32_t (*getter)(tvksoptions*, std::int32_t, tvalue*), const key& which,
                              const char* function) const {
    tvalue result{};
    const std::int32_t nr = number(which);
    return answered(getter(fhandle, nr, &result), nr, function) ? std::optional(result) : std::nullopt;
  }
  std::optional<std::string> text(std::int32_t (*getter)(tvksoptions*, std::int32_t, optshortstring*),
                                  const key& which, const char* function) const {
    detail::textout result;
    const std::int32_t nr = number(which);
    const std::int32_t datatype = infoof(nr).datatype;
    const bool hasvalue = datatype != optDataNone && datatype != optDataStrList;
    const std::int32_t ok = hasvalue ? getter(fhandle, nr, result) : 0;
    return answered(ok, nr, function) ? std::optional(result.str()) : std::nullopt;
  }

  // The setters of one of the two values.
  struct setters {
    std::int32_t (*integer)(tvksoptions*, std::int32_t, std::int32_t);
    std::int32_t (*real)(tvksoptions*, std::int32_t, double);
    std::int32_t (*text)(tvksoptions*, std::int32_t, const optshortstring*);
    bool second;
  };
  static setters firstvalue() { return {optsetintnr, optsetdblnr, optsetstrnr, false}; }
  static setters secondvalue() { return {optsetint2nr, optsetdbl2nr, optsetstr2nr, true}; }

  // Returns the number of the option, and 0 when there is none. Throws when it does not have such a value.
  std::int32_t settable(const key& which, const setters& functions) const {
    const std::int32_t nr = number(which);
    const typeinfo info = infoof(nr);
    if (info.type == optTypeImmediate ||
        (info.type >= 0 && functions.second && info.subtype != optsub2Values))
      throw wrongtype(nr, functions.second ? "set2" : "set");
    return nr;
  }
  bool settext(std::int32_t nr, std::string_view value, const setters& functions) {
    return functions.text(fhandle, nr, detail::textin(value)) != 0;
  }
  template <class tnumber>
  bool setnumber(const key& which, tnumber value, const setters& functions) {
    const std::int32_t nr = settable(which, functions);
    const std::int32_t datatype = infoof(nr).datatype;
    if (datatype == optDataInteger) {
      if (const auto exact = detail::exactint32(value)) return functions.integer(fhandle, nr, *exact) != 0;
      if constexpr (std::is_integral_v<tnumber>)
        throw std::out_of_range("wexcorin: an integer value has more than 32 bits");
    } else if (datatype == optDataDouble) {
      if (const auto exact = detail::exactdouble(value)) return functions.real(fhandle, nr, *exact) != 0;
      throw std::out_of_range("wexcorin: an integer value has more digits than a double holds");
    }
    return settext(nr, detail::decimal(value), functions);
  }

  // ---- elements of ranges
  template <class telement>
  range<telement> numbered(std::int32_t count, telement (*reader)(tvksoptions*, std::int32_t, std::int32_t),
                           std::int32_t outer = 0) const {
    return range<telement>(count, detail::source<telement>{fhandle, reader, outer});
  }

  tvksoptions* fhandle = nullptr;
  detail::readings freadings{};  // of the messages, for problems()
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
