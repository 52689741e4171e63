// wexcorin.hpp: the interface of the option library for C++17 and later, on top of wexcorin.h.
//
// Header only. One class owns a handle; texts are std::string, results that may be missing are std::optional, and
// what is numbered comes as ranges that read one element at a time. What a function does, and which rules hold for
// texts, numbers and threads, is told in wexcorin.h at the function of the same name; here stands what differs.
//
//   wexcorin::options options("solver.def");
//   options.readparameterfile("solver.opt");
//   for (const wexcorin::message& message : options.messages()) std::cerr << message.text << '\n';
//   int limit = options.integer("iteration_limit").value_or(1000);
#ifndef WEXCORIN_WEXCORIN_HPP
#define WEXCORIN_WEXCORIN_HPP

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "wexcorin/wexcorin.h"

namespace wexcorin {

// The library found at run time does not go with the header that the program was compiled with.
class interface_mismatch : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

namespace detail {

// A text argument. The library takes 255 characters; a longer text is an error of the caller, not to be cut.
class textin {
 public:
  explicit textin(std::string_view text) {
    if (text.size() > sizeof ftext.text)
      throw std::length_error("wexcorin: a text has more than 255 characters");
    ftext.length = static_cast<unsigned char>(text.size());
    if (!text.empty()) std::memcpy(ftext.text, text.data(), text.size());
  }
  operator const optshortstring*() const noexcept { return &ftext; }

 private:
  optshortstring ftext;
};

class textout {
 public:
  textout() noexcept { ftext.length = 0; }
  operator optshortstring*() noexcept { return &ftext; }
  std::string text() const { return std::string(ftext.text, ftext.length); }

 private:
  optshortstring ftext;
};

// The elements 1 .. size of something that the library numbers; `get(number)` reads one. The source must outlive the
// range, and numbers may shift when what is numbered changes.
template <class tget>
class range {
 public:
  using value_type = decltype(std::declval<const tget&>()(std::int32_t()));

  class iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = typename range::value_type;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = value_type;

    iterator(const tget* get, std::int32_t number) : fget(get), fnumber(number) {}
    value_type operator*() const { return (*fget)(fnumber); }
    iterator& operator++() {
      ++fnumber;
      return *this;
    }
    iterator operator++(int) { return iterator(fget, fnumber++); }
    bool operator==(const iterator& other) const { return fnumber == other.fnumber; }
    bool operator!=(const iterator& other) const { return fnumber != other.fnumber; }

   private:
    const tget* fget;
    std::int32_t fnumber;
  };

  range(std::int32_t size, tget get) : fsize(size), fget(std::move(get)) {}
  iterator begin() const { return iterator(&fget, 1); }
  iterator end() const { return iterator(&fget, fsize + 1); }
  std::size_t size() const { return static_cast<std::size_t>(fsize); }
  bool empty() const { return fsize == 0; }

 private:
  std::int32_t fsize;
  tget fget;
};

}  // namespace detail

struct message {
  std::int32_t kind;  // optMsgInputEcho ...
  std::string text;
};

struct option {
  std::int32_t number;
  std::string name;
  std::int32_t type;     // optTypeInteger ...
  std::int32_t subtype;  // optsubRequired ...
  std::int32_t group;
  std::int32_t refnr;
  std::int32_t helpflag;
  std::int32_t defined;  // bit 1: the first value was set, bit 2: the second
  std::int32_t recent;   // the same since the recent bits were cleared
  std::string help;
};

struct enumvalue {
  std::int32_t integer;
  std::string text;
  std::int32_t helpflag;
  std::string help;
};

struct synonym {
  std::string name;
  std::string option;
};

struct group {
  std::string name;
  std::int32_t number;
  std::int32_t helpflag;
  std::string help;
};

struct dotentry {
  std::int32_t number;
  std::string symbol;
  std::int32_t option;
  std::int32_t dimensions;
  double value;
};

struct indicator {
  std::int32_t number;
  std::string equation;
  std::string variable;
  std::int32_t equationdimensions;
  std::int32_t variabledimensions;
  bool value;
};

template <class tvalue>
struct bounds {
  tvalue low;
  tvalue high;
  tvalue defaultvalue;
};

struct counts {
  std::int32_t errors;
  std::int32_t warnings;
};

class options {
 public:
  // Throws interface_mismatch when the library found at run time does not suit, std::bad_alloc without memory.
  options() {
    detail::textout text;
    std::int32_t compat = 0;
    if (xapiversion(WEXCORIN_INTERFACE_VERSION, text, &compat) == 0 || compat == 3)
      throw interface_mismatch("wexcorin: " + text.text());
    if (xcreate(&fhandle) == nullptr) throw std::bad_alloc();
  }
  // Reads a definition file as well; throws std::system_error when it cannot be opened.
  explicit options(std::string_view definitionfile) : options() {
    const std::int32_t code = readdefinition(definitionfile);
    if (code != 0) throw std::system_error(code, std::generic_category(), std::string(definitionfile));
  }
  options(options&& other) noexcept : fhandle(std::exchange(other.fhandle, nullptr)) {}
  options& operator=(options&& other) noexcept {
    std::swap(fhandle, other.fhandle);
    return *this;
  }
  options(const options&) = delete;
  options& operator=(const options&) = delete;
  ~options() { xfree(&fhandle); }

  // The handle itself, for the functions of wexcorin.h; it stays owned here. Null only after a move.
  tvksoptions* get() const noexcept { return fhandle; }

  // ---- reading and writing; 0 or the operating system's code
  std::int32_t readdefinition(std::string_view file) {
    return optreaddefinition(fhandle, detail::textin(file));
  }
  std::int32_t readparameterfile(std::string_view file) {
    return optreadparameterfile(fhandle, detail::textin(file));
  }
  std::int32_t writeparameterfile(std::string_view file) {
    return optwriteparameterfile(fhandle, detail::textin(file));
  }
  // Text of any length, up to the first zero byte.
  void read(const std::string& text) { optreadfrompchar(fhandle, text.c_str()); }
  void showhelp(std::string_view request) { optshowhelp(fhandle, detail::textin(request)); }

  // ---- messages
  auto messages() const {
    return detail::range(optmessagecount(fhandle), [handle = fhandle](std::int32_t number) {
      detail::textout text;
      message result{};
      optgetmessage(handle, number, text, &result.kind);
      result.text = text.text();
      return result;
    });
  }
  void addmessage(std::string_view text) { optaddmessage(fhandle, detail::textin(text)); }
  void clearmessages() { optclearmessages(fhandle); }
  counts errorcount() const {
    counts result{};
    opterrorcount(fhandle, &result.errors, &result.warnings);
    return result;
  }

  // ---- options
  std::optional<std::int32_t> find(std::string_view name) const {
    std::int32_t number = 0;
    std::int32_t refnr = 0;
    if (optfindstr(fhandle, detail::textin(name), &number, &refnr) == 0) return std::nullopt;
    return number;
  }
  std::optional<option> describe(std::int32_t number) const {
    option result{};
    std::int32_t datatype = 0;
    if (optgetinfonr(fhandle, number, &result.defined, &result.recent, &result.refnr, &datatype, &result.type,
                     &result.subtype) == 0)
      return std::nullopt;
    detail::textout name;
    detail::textout help;
    optgethelpnr(fhandle, number, name, help);
    optgetopthelpnr(fhandle, number, name, &result.helpflag, &result.group);
    result.number = number;
    result.name = name.text();
    result.help = help.text();
    return result;
  }
  auto all() const {
    return detail::range(optcount(fhandle), [this](std::int32_t number) { return *describe(number); });
  }
  auto enumvalues(std::int32_t number) const {
    std::int32_t count = 0;
    if (optgetenumcount(fhandle, number, &count) == 0) count = 0;
    return detail::range(count, [handle = fhandle, number](std::int32_t item) {
      detail::textout text;
      detail::textout help;
      enumvalue result{};
      optgetenumvalue(handle, number, item, &result.integer, text);
      optgetenumhelp(handle, number, item, &result.helpflag, help);
      result.text = text.text();
      result.help = help.text();
      return result;
    });
  }
  std::optional<bounds<std::int32_t>> integerbounds(std::int32_t number) const {
    bounds<std::int32_t> result{};
    if (optgetboundsint(fhandle, number, &result.low, &result.high, &result.defaultvalue) == 0)
      return std::nullopt;
    return result;
  }
  std::optional<bounds<double>> realbounds(std::int32_t number) const {
    bounds<double> result{};
    if (optgetboundsdbl(fhandle, number, &result.low, &result.high, &result.defaultvalue) == 0)
      return std::nullopt;
    return result;
  }
  auto synonyms() const {
    return detail::range(optsynonymcount(fhandle), [handle = fhandle](std::int32_t number) {
      detail::textout name;
      detail::textout target;
      optgetsynonym(handle, number, name, target);
      return synonym{name.text(), target.text()};
    });
  }
  auto groups() const {
    return detail::range(optgroupcount(fhandle), [handle = fhandle](std::int32_t position) {
      detail::textout name;
      detail::textout help;
      group result{};
      optgetgroupnr(handle, position, name, &result.number, &result.helpflag, help);
      result.name = name.text();
      result.help = help.text();
      return result;
    });
  }

  // ---- values; nothing for a name, number or type that does not fit
  std::optional<std::int32_t> integer(std::int32_t number) const {
    std::int32_t value = 0;
    return optgetintnr(fhandle, number, &value) != 0 ? std::optional(value) : std::nullopt;
  }
  std::optional<std::int32_t> integer2(std::int32_t number) const {
    std::int32_t value = 0;
    return optgetint2nr(fhandle, number, &value) != 0 ? std::optional(value) : std::nullopt;
  }
  std::optional<double> real(std::int32_t number) const {
    double value = 0.0;
    return optgetdblnr(fhandle, number, &value) != 0 ? std::optional(value) : std::nullopt;
  }
  std::optional<double> real2(std::int32_t number) const {
    double value = 0.0;
    return optgetdbl2nr(fhandle, number, &value) != 0 ? std::optional(value) : std::nullopt;
  }
  std::optional<std::string> text(std::int32_t number) const {
    detail::textout value;
    return optgetstrnr(fhandle, number, value) != 0 ? std::optional(value.text()) : std::nullopt;
  }
  std::optional<std::string> text2(std::int32_t number) const {
    detail::textout value;
    return optgetstr2nr(fhandle, number, value) != 0 ? std::optional(value.text()) : std::nullopt;
  }
  std::optional<std::int32_t> integer(std::string_view name) const { return integer(find(name).value_or(0)); }
  std::optional<double> real(std::string_view name) const { return real(find(name).value_or(0)); }
  std::optional<std::string> text(std::string_view name) const { return text(find(name).value_or(0)); }

  // True when the value was taken without an error message.
  bool set(std::int32_t number, std::int32_t value) { return optsetintnr(fhandle, number, value) != 0; }
  bool set(std::int32_t number, double value) { return optsetdblnr(fhandle, number, value) != 0; }
  bool set(std::int32_t number, std::string_view value) {
    return optsetstrnr(fhandle, number, detail::textin(value)) != 0;
  }
  bool set2(std::int32_t number, std::int32_t value) { return optsetint2nr(fhandle, number, value) != 0; }
  bool set2(std::int32_t number, double value) { return optsetdbl2nr(fhandle, number, value) != 0; }
  bool set2(std::int32_t number, std::string_view value) {
    return optsetstr2nr(fhandle, number, detail::textin(value)) != 0;
  }
  bool reset(std::int32_t number) { return optresetnr(fhandle, number) != 0; }
  void resetall() { optresetall(fhandle); }

  // The texts of a string list; empty for a name that is none. Taking one removes it.
  auto list(std::string_view name) const {
    const std::int32_t count = optlistcountstr(fhandle, detail::textin(name));
    return detail::range(count > 0 ? count : 0,
                         [handle = fhandle, name = std::string(name)](std::int32_t index) {
                           detail::textout text;
                           optreadfromliststr(handle, detail::textin(name), index, text);
                           return text.text();
                         });
  }
  std::optional<std::string> takefromlist(std::string_view name) {
    detail::textout text;
    if (optgetfromliststr(fhandle, detail::textin(name), text) != 1) return std::nullopt;
    return text.text();
  }

  // ---- dot entries and indicators
  auto dotentries() const {
    std::int32_t rejected = 0;
    return detail::range(optdotoptcount(fhandle, &rejected), [handle = fhandle](std::int32_t number) {
      detail::textout symbol;
      dotentry result{};
      optgetdotoptnr(handle, number, symbol, &result.option, &result.dimensions, &result.value);
      result.number = number;
      result.symbol = symbol.text();
      return result;
    });
  }
  auto indices(const dotentry& entry) const {
    return detail::range(entry.dimensions, [handle = fhandle, number = entry.number](std::int32_t dimension) {
      detail::textout text;
      optgetdotoptuel(handle, number, dimension, text);
      return text.text();
    });
  }
  auto indicators() const {
    std::int32_t rejected = 0;
    return detail::range(optindicatorcount(fhandle, &rejected), [handle = fhandle](std::int32_t number) {
      detail::textout equation;
      detail::textout variable;
      indicator result{};
      std::int32_t value = 0;
      optgetindicatornr(handle, number, equation, variable, &result.equationdimensions,
                        &result.variabledimensions, &value);
      result.number = number;
      result.equation = equation.text();
      result.variable = variable.text();
      result.value = value != 0;
      return result;
    });
  }
  auto equationelements(const indicator& item) const {
    return detail::range(item.equationdimensions,
                         [handle = fhandle, number = item.number](std::int32_t dimension) {
                           detail::textout text;
                           optgetequindicatornr(handle, number, dimension, text);
                           return text.text();
                         });
  }
  auto variableelements(const indicator& item) const {
    return detail::range(item.variabledimensions,
                         [handle = fhandle, number = item.number](std::int32_t dimension) {
                           detail::textout text;
                           optgetvarindicatornr(handle, number, dimension, text);
                           return text.text();
                         });
  }

  // ---- switches
  void setecho(bool on) { optechoset(fhandle, on ? 1 : 0); }
  void setnobounds(bool on) { optnoboundsset(fhandle, on ? 1 : 0); }
  void setrecentenabled(bool on) { optrecentenabledset(fhandle, on ? 1 : 0); }
  // Returns the previous setting.
  bool seteolonly(bool on) { return opteolonlyset(fhandle, on ? 1 : 0) != 0; }

 private:
  tvksoptions* fhandle = nullptr;
};

}  // namespace wexcorin

#endif
