// The option objects: one class for each option type. The definition makes them (tdefinition::make). The type
// code chooses the behaviour, by one switch for each operation; only destruction and reset are virtual. The
// setters, with their checks and messages, are in setters.cpp and spread.cpp, and values as text in
// optionvalue.cpp.
#pragma once

#include <cassert>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "base/numtext.h"
#include "base/textout.h"
#include "options/codes.h"
#include "options/toptionx.h"

namespace optcore {

class tvksoptions;

// A value as text: the text of a number, stored here, or a view of a text that the option owns. Empty by
// default.
class tvaluetext {
 public:
  tvaluetext() noexcept = default;
  tvaluetext(const tnumbertext& number) noexcept : fnumber(number) {}
  tvaluetext(std::string_view text) noexcept : ftext(text) {}
  std::string_view view() const noexcept { return ftext ? *ftext : fnumber.view(); }
  operator std::string_view() const noexcept { return view(); }

 private:
  tnumbertext fnumber;
  std::optional<std::string_view> ftext;
};

// The constructor arguments that all option types share, beside the owner. The texts are copied into the
// definition's arena.
struct toptionhead {
  std::string_view name;
  std::int32_t refnr;
  std::int32_t helpflag;
  std::int32_t groupnr;
  std::string_view helptext;
};

class toption : public toptionx, public tinarena {
 public:
  std::string_view name() const noexcept { return fname.view(); }
  tstoredtext storedname() const noexcept { return fname; }
  // The name in the form that clients and listings show: with blanks for underscores in lookup mode "Minos".
  shortstring getname() const;

  tvksoptions& owner() const noexcept { return *fowner; }
  topttype opttype() const noexcept { return fopttype; }
  tdatatype datatype() const noexcept { return datatypeofopttype[ordinal(fopttype)]; }
  tsubtype subtype() const noexcept { return fsubtype; }
  void setsubtype(tsubtype subtype) noexcept { fsubtype = subtype; }
  // 0 or less if the option belongs to no group.
  std::int32_t groupnr() const noexcept { return fgroupnr; }
  // The reference number: it belongs to the client and is never interpreted here.
  std::int32_t refnr() const noexcept { return frefnr; }
  void setrefnr(std::int32_t refnr) noexcept { frefnr = refnr; }

  // Masks of firstvaluebit and secondvaluebit: the values that were set, those that were set since the recent
  // bits were cleared, and those that are illegal but were stored with bound checking off.
  std::int32_t defined() const noexcept { return fdefined; }
  std::int32_t definedr() const noexcept { return fdefinedr; }
  std::int32_t outofbounds() const noexcept { return foutofbounds; }
  bool isdefined(std::int32_t bits) const noexcept { return (fdefined & bits) != 0; }
  // Adds bits to the defined mask and, unless that is switched off, to the recent mask, and notifies the
  // observer. 0 clears both masks.
  void setdefined(std::int32_t bits);
  void clearrecent() noexcept { fdefinedr = 0; }
  void clearoutofbounds() noexcept { foutofbounds = 0; }
  void addoutofbounds(std::int32_t bits) noexcept { addbits(foutofbounds, bits); }

  void setdeprecated(tdeprecation kind, std::string_view text);
  bool hasdeprecation() const noexcept { return fdeprecation != 0; }
  bool hasdeprecation(tdeprecation kind) const noexcept { return (fdeprecation & deprecationbit(kind)) != 0; }
  // The texts of the deprecation marks, for the option's own name and for its synonyms.
  std::string_view deprecatedmsg() const noexcept { return frare ? frare->deprecatedmsg.view() : ""; }
  std::string_view deprecatedmsg2() const noexcept { return frare ? frare->deprecatedmsg2.view() : ""; }

  // The lines of the long help text; null when there are none.
  const txstrings* bigtext() const noexcept {
    return frare && frare->bigtext.count() > 0 ? &frare->bigtext : nullptr;
  }
  void addbigtext(std::string_view line);

  // Marks all values as not set. A string list also loses its texts and a multilist its members; a macro also
  // resets its members.
  virtual void reset();

  // The value as text: the value that was set, or else the default; empty for types without a value.
  tvaluetext getasstring() const { return getasstring12(twhich::first); }
  tvaluetext getasstring2() const { return getasstring12(twhich::second); }
  tvaluetext getasstring12(twhich which) const;
  // Passes the value as text to the result.
  void gettext12(twhich which, ttextout& result) const;
  // The same as a number, for the types whose value is an integer.
  std::optional<std::int32_t> getasinteger() const { return getasinteger12(twhich::first); }
  std::optional<std::int32_t> getasinteger2() const { return getasinteger12(twhich::second); }
  std::optional<std::int32_t> getasinteger12(twhich which) const;

  // Sets the first value to the default; does nothing for types without a default.
  void usedefined();

  // Set the first or second value from a text. Problems are filed as messages.
  void setasstring(std::string_view text);
  void setasstring2(std::string_view text);

 protected:
  toption(tvksoptions& owner, const toptionhead& head, topttype opttype);
  // Copies a text into the definition's arena, where it lives as long as the option.
  tstoredtext stored(std::string_view text) const;

 private:
  toption(tvksoptions& owner, const toptionhead& head, topttype opttype, tstoredtext name);
  static constexpr std::uint8_t deprecationbit(tdeprecation kind) {
    return static_cast<std::uint8_t>(1U << ordinal(kind));
  }
  static void addbits(std::uint8_t& mask, std::int32_t bits) noexcept {
    mask = static_cast<std::uint8_t>(mask | bits);
  }
  void setvaluefromtext(twhich which, std::string_view text);
  template <class ttake>
  void taketext(twhich which, ttake take) const;

  // What few options have. It is kept apart, because a file may make millions of options.
  struct trare {
    tstoredtext deprecatedmsg, deprecatedmsg2;
    txstrings bigtext;
  };
  trare& rare();

  std::int32_t fgroupnr;
  tvksoptions* fowner;
  tstoredtext fname;
  std::unique_ptr<trare> frare;
  std::int32_t frefnr;
  std::uint8_t fdefined = 0;
  std::uint8_t fdefinedr = 0;
  std::uint8_t foutofbounds = 0;
  topttype fopttype;
  tsubtype fsubtype = tsubtype::required;
  std::uint8_t fdeprecation = 0;
};

// Default, first and second value of an option whose values are numbers, or texts that lie in the definition.
template <class tvalue>
struct tplainvalues {
  tvalue fdefault;
  tvalue fvalue{};
  tvalue fvalue2{};

  void storedefault() noexcept { fvalue = fdefault; }
  void store(twhich which, tvalue value) noexcept { (which == twhich::second ? fvalue2 : fvalue) = value; }
  tvalue current(const toption& option, twhich which) const noexcept {
    return !option.isdefined(valuebit(which)) ? fdefault : which == twhich::second ? fvalue2 : fvalue;
  }
};

// The same for texts of its own.
struct ttextvalues {
  tstoredtext fdefault;
  heapstring fvalue;
  heapstring fvalue2;

  void storedefault() { strassign(fvalue, fdefault.view()); }
  void store(twhich which, std::string_view value) {
    strassign(which == twhich::second ? fvalue2 : fvalue, value);
  }
  std::string_view current(const toption& option, twhich which) const noexcept {
    if (!option.isdefined(valuebit(which))) return fdefault.view();
    return (which == twhich::second ? fvalue2 : fvalue).view();
  }
};

// What the types whose value is an integer share.
class tintegervalued : public toption {
 public:
  std::int32_t defaultvalue() const noexcept { return fvalues.fdefault; }
  std::int32_t value(twhich which) const noexcept { return fvalues.current(*this, which); }
  void storedefault() { fvalues.storedefault(); }

 protected:
  tintegervalued(tvksoptions& owner, const toptionhead& head, topttype opttype, std::int32_t defaultvalue)
      : toption(owner, head, opttype), fvalues{defaultvalue} {}

  tplainvalues<std::int32_t> fvalues;
};

class tintoption final : public tintegervalued {
 public:
  static constexpr topttype type = topttype::integer;
  tintoption(tvksoptions& owner, const toptionhead& head, std::int32_t defaultvalue, std::int32_t lo,
             std::int32_t hi)
      : tintegervalued(owner, head, type, defaultvalue), flo(lo), fhi(hi) {}
  std::int32_t lo() const noexcept { return flo; }
  std::int32_t hi() const noexcept { return fhi; }
  void setasinteger(std::int32_t value) { setasinteger12(twhich::first, value); }
  void setasinteger2(std::int32_t value) { setasinteger12(twhich::second, value); }
  void setasinteger12(twhich which, std::int32_t value);
  void setasstring12(twhich which, std::string_view text);

 private:
  std::int32_t flo;
  std::int32_t fhi;
};

class tdbloption final : public toption {
 public:
  static constexpr topttype type = topttype::dbl;
  tdbloption(tvksoptions& owner, const toptionhead& head, double defaultvalue, double lo, double hi)
      : toption(owner, head, type), fvalues{defaultvalue}, flo(lo), fhi(hi) {}
  double defaultvalue() const noexcept { return fvalues.fdefault; }
  double lo() const noexcept { return flo; }
  double hi() const noexcept { return fhi; }
  double value(twhich which) const noexcept { return fvalues.current(*this, which); }
  double getasdouble() const noexcept { return value(twhich::first); }
  double getasdouble2() const noexcept { return value(twhich::second); }
  void setasdouble(double value) { setasdouble12(twhich::first, value); }
  void setasdouble2(double value) { setasdouble12(twhich::second, value); }
  void setasdouble12(twhich which, double value);
  void setasstring12(twhich which, std::string_view text);
  void storedefault() { fvalues.storedefault(); }

 private:
  tplainvalues<double> fvalues;
  double flo;
  double fhi;
};

class tstringoption final : public toption {
 public:
  static constexpr topttype type = topttype::string;
  tstringoption(tvksoptions& owner, const toptionhead& head, std::string_view defaultvalue)
      : toption(owner, head, type), fvalues{stored(defaultvalue), {}, {}} {}
  std::string_view defaultvalue() const noexcept { return fvalues.fdefault.view(); }
  std::string_view value(twhich which) const noexcept { return fvalues.current(*this, which); }
  void setasstring12(twhich which, std::string_view text);
  void storedefault() { fvalues.storedefault(); }

 private:
  ttextvalues fvalues;
};

class tbooleanoption final : public tintegervalued {
 public:
  static constexpr topttype type = topttype::boolean;
  tbooleanoption(tvksoptions& owner, const toptionhead& head, std::int32_t defaultvalue)
      : tintegervalued(owner, head, type, defaultvalue) {}
  void setasinteger(std::int32_t value) { setasinteger12(twhich::first, value); }
  void setasinteger2(std::int32_t value) { setasinteger12(twhich::second, value); }
  void setasinteger12(twhich which, std::int32_t value);
  void setasstring12(twhich which, std::string_view text);
};

class tenumstroption final : public toption {
 public:
  static constexpr topttype type = topttype::enumstr;
  tenumstroption(tvksoptions& owner, const toptionhead& head, std::string_view defaultvalue)
      : toption(owner, head, type), fvalues{stored(defaultvalue)} {}
  std::string_view defaultvalue() const noexcept { return fvalues.fdefault.view(); }
  std::string_view value(twhich which) const noexcept { return fvalues.current(*this, which).view(); }
  // The legal values and their help, in definition order.
  const txstringlistobj<toptionx>& items() const noexcept { return fitems; }
  void additem(std::string_view value, std::int32_t helpflag, std::string_view helptext);
  void setasstring12(twhich which, std::string_view text);
  void storedefault() { fvalues.storedefault(); }

 private:
  tplainvalues<tstoredtext> fvalues;  // a value is the text of its item
  tstoredlistobj<toptionx> fitems;
};

class tenumintoption final : public tintegervalued {
 public:
  static constexpr topttype type = topttype::enumint;
  tenumintoption(tvksoptions& owner, const toptionhead& head, std::int32_t defaultvalue)
      : tintegervalued(owner, head, type, defaultvalue) {}
  // The legal values and their help, in definition order.
  const txlistobj<tlistoptionx>& items() const noexcept { return fitems; }
  void additem(std::int32_t value, std::int32_t helpflag, std::string_view helptext);
  bool hasitem(std::int32_t value) const;
  void setasinteger(std::int32_t value) { setasinteger12(twhich::first, value); }
  void setasinteger2(std::int32_t value) { setasinteger12(twhich::second, value); }
  void setasinteger12(twhich which, std::int32_t value);
  void setasstring12(twhich which, std::string_view text);

 private:
  txlistobj<tlistoptionx> fitems;
  mutable tnameindex fitemindex;
};

// Passes the words of its text to a list of options, one word to each.
class tmultilistoption final : public toption {
 public:
  static constexpr topttype type = topttype::multilist;
  tmultilistoption(tvksoptions& owner, const toptionhead& head) : toption(owner, head, type) {}
  ~tmultilistoption() override { fitems.clear(); }
  // The members as positions in the option list, counted from 0; -1 for a member that was not defined when
  // its name was read.
  const txlist<std::int32_t>& items() const noexcept { return fitems; }
  void additem(std::int32_t index);
  void setasstring(std::string_view text);
  void reset() override;

 private:
  txlist<std::int32_t> fitems;
};

// Collects texts in a list.
class tstrlistoption final : public toption {
 public:
  static constexpr topttype type = topttype::strlist;
  tstrlistoption(tvksoptions& owner, const toptionhead& head) : toption(owner, head, type) {}
  std::int32_t itemcount() const noexcept { return fitems.count() - ftaken; }
  std::string_view item(std::int32_t index) const noexcept {
    assert(index >= 0 && index < itemcount());
    return fitems.get(ftaken + index);
  }
  // The number of texts in decimal. This hides toption::getasstring, which returns the empty text for a list.
  tvaluetext getasstring() const { return inttostr(itemcount()); }
  void setasstring(std::string_view text);
  // Removes the first text from the list, which must not be empty, and returns it.
  shortstring takefirst();
  void reset() override;

 private:
  // The number of texts at the front of fitems that were taken. They are removed many at a time, so taking
  // all texts needs linear time.
  std::int32_t ftaken = 0;
  txstrings fitems;
};

// Passes its text to each of a list of options.
class tmacrooption final : public toption {
 public:
  static constexpr topttype type = topttype::macro;
  tmacrooption(tvksoptions& owner, const toptionhead& head) : toption(owner, head, type) {}
  // The members, which the option list owns.
  const txlist<toption*>& items() const noexcept { return fitems; }
  void additem(toption* option);
  void setasstring(std::string_view text);
  void reset() override;

 private:
  txlist<toption*> fitems;
};

class timmediateoption final : public toption {
 public:
  static constexpr topttype type = topttype::immediate;
  timmediateoption(tvksoptions& owner, const toptionhead& head, timmkind immkind)
      : toption(owner, head, type), fimmkind(immkind) {}
  timmkind immkind() const noexcept { return fimmkind; }

 private:
  timmkind fimmkind;
};

// Casts the option to its class. Its type must be that of the class.
template <class tclass>
tclass& as(toption& option) noexcept {
  assert(option.opttype() == tclass::type);
  return static_cast<tclass&>(option);
}
template <class tclass>
const tclass& as(const toption& option) noexcept {
  assert(option.opttype() == tclass::type);
  return static_cast<const tclass&>(option);
}

// Defined inline, because clients that query integers by option number do so often.
inline std::optional<std::int32_t> toption::getasinteger12(twhich which) const {
  switch (fopttype) {
    case topttype::integer:
    case topttype::boolean:
    case topttype::enumint:
      // NOLINTNEXTLINE(cppcoreguidelines-pro-type-static-cast-downcast): the type is known
      return static_cast<const tintegervalued&>(*this).value(which);
    case topttype::dbl:
    case topttype::string:
    case topttype::enumstr:
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return std::nullopt;
}

// Casts the option to a class if its type is that of the class; otherwise, and for null, the result is null.
template <class tclass>
tclass* ifis(toption* option) noexcept {
  return option != nullptr && option->opttype() == tclass::type ? static_cast<tclass*>(option) : nullptr;
}
template <class tclass>
const tclass* ifis(const toption* option) noexcept {
  return option != nullptr && option->opttype() == tclass::type ? static_cast<const tclass*>(option)
                                                                : nullptr;
}

}  // namespace optcore
