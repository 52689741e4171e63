// Indicators: an equation and a variable, each with optional elements, and a boolean value.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "base/arena.h"
#include "base/nameindex.h"
#include "base/packedtexts.h"
#include "base/shortstring.h"
#include "base/vksobj.h"

namespace optcore {

class tvksoptions;

// A symbol and its elements, as they were written: quotes included.
class tsymbol {
 public:
  tsymbol(tstoredtext name, const tpackedtexts& elements) noexcept : fname(name), felements(elements) {}
  std::string_view name() const noexcept { return fname.view(); }
  const tpackedtexts& elements() const noexcept { return felements; }

 private:
  tstoredtext fname;
  tpackedtexts felements;
};

// A symbol that is being read.
class tsymbolparts {
 public:
  void clear() noexcept;
  std::string_view name() const noexcept { return fname.view(); }
  void setname(std::string_view name) noexcept { fname.assign(name); }
  const ttextpacker& elements() const noexcept { return felements; }
  void addelement(std::string_view text) { felements.add(text); }
  // Elements are texts as written: unlike names, they are compared with regard to case.
  bool haselement(std::string_view text);
  tsymbol pack(tarena& arena) const;

 private:
  shortstring fname;
  ttextpacker felements;
  tnameindex findex;
};

class tindicatoritem : public tinarena {
 public:
  tindicatoritem(const tsymbol& equation, const tsymbol& variable, std::int32_t value) noexcept
      : fequation(equation), fvariable(variable), fvalue(value) {}
  const tsymbol& equation() const noexcept { return fequation; }
  const tsymbol& variable() const noexcept { return fvariable; }
  std::int32_t value() const noexcept { return fvalue; }

 private:
  tsymbol fequation;
  tsymbol fvariable;
  std::int32_t fvalue;
};

// The indicators of a store in the order of reading. An item is collected from its parts and in the list
// only when it is kept. Whatever is wrong with an identifier or element becomes a message; it is added all
// the same, and the reader then drops the whole item.
class tindicatorlist {
 public:
  explicit tindicatorlist(tvksoptions& owner) noexcept : fowner(owner) {}

  std::int32_t count() const noexcept { return fitems.count(); }
  const tindicatoritem* get(std::int32_t index) const noexcept { return fitems[index]; }

  // Begins an item. What follows is about the one that was begun.
  void addentry(std::string_view equation);
  std::string_view equation() const noexcept { return fequation.name(); }
  void addequdim(std::string_view text);
  void setvariable(std::string_view name) noexcept { fvariable.setname(name); }
  void addvardim(std::string_view text);
  void setvalue(bool value) noexcept { fvalue = value ? 1 : 0; }
  // Does nothing if none was begun.
  void keepitem();
  // Returns the number of items dropped: none or one.
  std::int32_t dropitem() noexcept { return std::exchange(fbegun, false) ? 1 : 0; }

 private:
  tvksoptions& fowner;
  tarena farena;
  tgrowarray<const tindicatoritem*> fitems;
  // What is known of the item that was begun.
  bool fbegun = false;
  std::int32_t fvalue = 0;
  tsymbolparts fequation;
  tsymbolparts fvariable;
};

}  // namespace optcore
