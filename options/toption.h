// The option objects: one class per option type. The type code chooses the behaviour, by one switch per
// operation; only destruction and reset are virtual. Setting values, with its checks and messages, is in
// setters.cpp and spread.cpp.
#pragma once

#include <cassert>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/numtext.h"
#include "options/codes.h"
#include "options/toptionx.h"

namespace optcore {

class tvksoptions;

// The text of a value: a number's own text, or a view of a text that the option holds. Empty at first.
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

// What every option has besides its value.
struct toptionhead {
  std::string_view name;
  tvksoptions* owner;
  std::int32_t refnr;
  std::int32_t helpflag;
  std::int32_t groupnr;
  std::string_view helptext;
};

class toption : public toptionx, public tinarena {
 public:
  std::string_view name() const noexcept { return fname.view(); }
  tstoredtext storedname() const noexcept { return fname; }
  // The name as it is handed out: with blanks for underscores in lookup mode "Minos".
  shortstring getname() const;

  tvksoptions& owner() const noexcept { return *fowner; }
  topttype opttype() const noexcept { return fopttype; }
  tdatatype datatype() const noexcept { return datatypeofopttype[ordinal(fopttype)]; }
  tsubtype subtype() const noexcept { return fsubtype; }
  void setsubtype(tsubtype subtype) noexcept { fsubtype = subtype; }
  // 0 or less: the option belongs to no group.
  std::int32_t groupnr() const noexcept { return fgroupnr; }
  // The client's own number; never interpreted here.
  std::int32_t refnr() const noexcept { return frefnr; }
  void setrefnr(std::int32_t refnr) noexcept { frefnr = refnr; }

  // Masks of firstvaluebit and secondvaluebit: set at all, set since the recent bits were cleared, accepted
  // outside the bounds.
  std::int32_t defined() const noexcept { return fdefined; }
  std::int32_t definedr() const noexcept { return fdefinedr; }
  std::int32_t outofbounds() const noexcept { return foutofbounds; }
  bool isdefined(std::int32_t bits) const noexcept { return (fdefined & bits) != 0; }
  // Adds bits to the defined masks; 0 clears them.
  void setdefined(std::int32_t bits);
  void clearrecent() noexcept { fdefinedr = 0; }
  void clearoutofbounds() noexcept { foutofbounds = 0; }
  void addoutofbounds(std::int32_t bits) noexcept { foutofbounds |= bits; }

  void setdeprecated(tdeprecation kind, std::string_view text);
  bool hasdeprecation() const noexcept { return fdeprecation != 0; }
  bool hasdeprecation(tdeprecation kind) const noexcept { return (fdeprecation & deprecationbit(kind)) != 0; }
  // Why the option's own name, or its synonyms, are on their way out.
  std::string_view deprecatedmsg() const noexcept { return fdeprecatedmsg.view(); }
  std::string_view deprecatedmsg2() const noexcept { return fdeprecatedmsg2.view(); }

  // Back to the default state, for list options without their items.
  virtual void reset();

  // The value as text: the value that was set, else the default; empty for types without a value.
  tvaluetext getasstring() const { return getasstring12(twhich::first); }
  tvaluetext getasstring2() const { return getasstring12(twhich::second); }
  tvaluetext getasstring12(twhich which) const;
  // The value as a number, if the option holds an integer.
  std::optional<std::int32_t> getasinteger() const { return getasinteger12(twhich::first); }
  std::optional<std::int32_t> getasinteger2() const { return getasinteger12(twhich::second); }
  std::optional<std::int32_t> getasinteger12(twhich which) const;

  // Makes the default the first value; does nothing for types without a default.
  void usedefined();

  // Takes a text as the first or second value; what is wrong with it is filed as messages.
  void setasstring(std::string_view text);
  void setasstring2(std::string_view text);

 protected:
  toption(const toptionhead& head, topttype opttype);
  // A copy that stays as long as the option.
  tstoredtext stored(std::string_view text) const;

 private:
  toption(const toptionhead& head, topttype opttype, tstoredtext name);
  static constexpr std::uint8_t deprecationbit(tdeprecation kind) {
    return static_cast<std::uint8_t>(1U << ordinal(kind));
  }
  void setvaluefromtext(twhich which, std::string_view text);

  tvksoptions* fowner;
  tstoredtext fname;
  tstoredtext fdeprecatedmsg;
  tstoredtext fdeprecatedmsg2;
  std::int32_t fgroupnr;
  std::int32_t frefnr;
  std::int32_t fdefined = 0;
  std::int32_t fdefinedr = 0;
  std::int32_t foutofbounds = 0;
  topttype fopttype;
  tsubtype fsubtype = tsubtype::required;
  std::uint8_t fdeprecation = 0;
};

// Default, first and second value of an option whose values are plain numbers.
template <class tvalue>
struct tnumbervalues {
  tvalue fdefault;
  tvalue fvalue = 0;
  tvalue fvalue2 = 0;

  void storedefault() noexcept { fvalue = fdefault; }
  void store(twhich which, tvalue value) noexcept { (which == twhich::second ? fvalue2 : fvalue) = value; }
  tvalue current(const toption& option, twhich which) const noexcept {
    return !option.isdefined(valuebit(which)) ? fdefault : which == twhich::second ? fvalue2 : fvalue;
  }
};

// The same for texts.
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

class tintoption final : public toption {
 public:
  static constexpr topttype type = topttype::integer;
  tintoption(const toptionhead& head, std::int32_t defaultvalue, std::int32_t lo, std::int32_t hi)
      : toption(head, type), fvalues{defaultvalue}, flo(lo), fhi(hi) {}
  std::int32_t defaultvalue() const noexcept { return fvalues.fdefault; }
  std::int32_t lo() const noexcept { return flo; }
  std::int32_t hi() const noexcept { return fhi; }
  std::int32_t value(twhich which) const noexcept { return fvalues.current(*this, which); }
  void setasinteger(std::int32_t value) { setasinteger12(twhich::first, value); }
  void setasinteger2(std::int32_t value) { setasinteger12(twhich::second, value); }
  void setasinteger12(twhich which, std::int32_t value);
  void setasstring12(twhich which, std::string_view text);
  void storedefault() { fvalues.storedefault(); }

 private:
  tnumbervalues<std::int32_t> fvalues;
  std::int32_t flo;
  std::int32_t fhi;
};

class tdbloption final : public toption {
 public:
  static constexpr topttype type = topttype::dbl;
  tdbloption(const toptionhead& head, double defaultvalue, double lo, double hi)
      : toption(head, type), fvalues{defaultvalue}, flo(lo), fhi(hi) {}
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
  tnumbervalues<double> fvalues;
  double flo;
  double fhi;
};

class tstringoption final : public toption {
 public:
  static constexpr topttype type = topttype::string;
  tstringoption(const toptionhead& head, std::string_view defaultvalue)
      : toption(head, type), fvalues{stored(defaultvalue), {}, {}} {}
  std::string_view defaultvalue() const noexcept { return fvalues.fdefault.view(); }
  std::string_view value(twhich which) const noexcept { return fvalues.current(*this, which); }
  void setasstring12(twhich which, std::string_view text);
  void storedefault() { fvalues.storedefault(); }

 private:
  ttextvalues fvalues;
};

class tbooleanoption final : public toption {
 public:
  static constexpr topttype type = topttype::boolean;
  tbooleanoption(const toptionhead& head, std::int32_t defaultvalue)
      : toption(head, type), fvalues{defaultvalue} {}
  std::int32_t defaultvalue() const noexcept { return fvalues.fdefault; }
  std::int32_t value(twhich which) const noexcept { return fvalues.current(*this, which); }
  void setasinteger(std::int32_t value) { setasinteger12(twhich::first, value); }
  void setasinteger2(std::int32_t value) { setasinteger12(twhich::second, value); }
  void setasinteger12(twhich which, std::int32_t value);
  void setasstring12(twhich which, std::string_view text);
  void storedefault() { fvalues.storedefault(); }

 private:
  tnumbervalues<std::int32_t> fvalues;
};

class tenumstroption final : public toption {
 public:
  static constexpr topttype type = topttype::enumstr;
  tenumstroption(const toptionhead& head, std::string_view defaultvalue)
      : toption(head, type), fvalues{stored(defaultvalue), {}, {}} {}
  std::string_view defaultvalue() const noexcept { return fvalues.fdefault.view(); }
  std::string_view value(twhich which) const noexcept { return fvalues.current(*this, which); }
  // The permitted values and their help, in definition order.
  const txstringlistobj<toptionx>& items() const noexcept { return fitems; }
  void additem(std::string_view value, std::int32_t helpflag, std::string_view helptext);
  void setasstring12(twhich which, std::string_view text);
  void storedefault() { fvalues.storedefault(); }

 private:
  ttextvalues fvalues;
  tstoredlistobj<toptionx> fitems;
};

class tenumintoption final : public toption {
 public:
  static constexpr topttype type = topttype::enumint;
  tenumintoption(const toptionhead& head, std::int32_t defaultvalue)
      : toption(head, type), fvalues{defaultvalue} {}
  std::int32_t defaultvalue() const noexcept { return fvalues.fdefault; }
  std::int32_t value(twhich which) const noexcept { return fvalues.current(*this, which); }
  // The permitted values and their help, in definition order.
  const txlistobj<tlistoptionx>& items() const noexcept { return fitems; }
  void additem(std::int32_t value, std::int32_t helpflag, std::string_view helptext);
  bool hasitem(std::int32_t value) const;
  void setasinteger(std::int32_t value) { setasinteger12(twhich::first, value); }
  void setasinteger2(std::int32_t value) { setasinteger12(twhich::second, value); }
  void setasinteger12(twhich which, std::int32_t value);
  void setasstring12(twhich which, std::string_view text);
  void storedefault() { fvalues.storedefault(); }

 private:
  tnumbervalues<std::int32_t> fvalues;
  txlistobj<tlistoptionx> fitems;
  mutable tnameindex fitemindex;
};

// Hands its words to a list of options, one word each.
class tmultilistoption final : public toption {
 public:
  static constexpr topttype type = topttype::multilist;
  explicit tmultilistoption(const toptionhead& head) : toption(head, type) {}
  ~tmultilistoption() override { fitems.clear(); }
  // Positions in the option list, counted from 0; -1 for a member that the definition names but nowhere
  // defines.
  const txlist<std::int32_t>& items() const noexcept { return fitems; }
  void additem(std::int32_t index) { fitems.add(index); }
  void setasstring(std::string_view text);
  void reset() override;

 private:
  txlist<std::int32_t> fitems;
};

// Collects texts.
class tstrlistoption final : public toption {
 public:
  static constexpr topttype type = topttype::strlist;
  explicit tstrlistoption(const toptionhead& head) : toption(head, type) {}
  std::int32_t itemcount() const noexcept { return fitems.count() - ftaken; }
  std::string_view item(std::int32_t index) const noexcept {
    assert(index >= 0 && index < itemcount());
    return fitems.get(ftaken + index);
  }
  // The number of texts in decimal, where every option's own form gives the empty text.
  tvaluetext getasstring() const { return inttostr(itemcount()); }
  void setasstring(std::string_view text);
  // Takes the first text out of the list, which must hold one.
  shortstring takefirst();
  void reset() override;

 private:
  txstrings fitems;
  // So many at the front are taken out but still in fitems, to take many in linear time.
  std::int32_t ftaken = 0;
};

// Hands its text to each of a list of options.
class tmacrooption final : public toption {
 public:
  static constexpr topttype type = topttype::macro;
  explicit tmacrooption(const toptionhead& head) : toption(head, type) {}
  // The options that it stands for; they belong to the option list.
  const txlist<toption*>& items() const noexcept { return fitems; }
  void additem(toption* option) { fitems.add(option); }
  void setasstring(std::string_view text);
  void reset() override;

 private:
  txlist<toption*> fitems;
};

class timmediateoption final : public toption {
 public:
  static constexpr topttype type = topttype::immediate;
  timmediateoption(const toptionhead& head, timmkind immkind) : toption(head, type), fimmkind(immkind) {}
  timmkind immkind() const noexcept { return fimmkind; }

 private:
  timmkind fimmkind;
};

// The option as its class, which its type must be that of.
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

// Here, because clients that ask for a number by number do so often.
inline std::optional<std::int32_t> toption::getasinteger12(twhich which) const {
  switch (fopttype) {
    case topttype::integer: return as<tintoption>(*this).value(which);
    case topttype::boolean: return as<tbooleanoption>(*this).value(which);
    case topttype::enumint: return as<tenumintoption>(*this).value(which);
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

// The option as its class if it is of that class, else null; null stays null.
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
