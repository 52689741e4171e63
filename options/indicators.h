// Indicators: an equation and a variable, each with optional elements, and a boolean value. The parameter
// reader collects them (input/symbollines.cpp); the queries are in symbolqueries.cpp.
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

// A symbol (an equation or a variable) and its elements as they were written, with their quotes.
class tsymbol {
 public:
  tsymbol(tstoredtext name, const tpackedtexts& elements) noexcept : fname(name), felements(elements) {}
  std::string_view name() const noexcept { return fname.view(); }
  const tpackedtexts& elements() const noexcept { return felements; }

 private:
  tstoredtext fname;
  tpackedtexts felements;
};

// Collects a symbol while it is read.
class tsymbolparts {
 public:
  void clear() noexcept;
  std::string_view name() const noexcept { return fname.view(); }
  void setname(std::string_view name) noexcept { fname.assign(name); }
  const ttextpacker& elements() const noexcept { return felements; }
  void addelement(std::string_view text) { felements.add(text); }
  // Whether the element was added. Unlike names, elements are compared with regard to case.
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

// The indicators of a store, in the order in which they were read. An item is collected part by part and
// enters the list only when it is kept. Problems with an identifier or element are filed as messages. The
// part is added nevertheless; the reader then drops the whole item.
class tindicatorlist {
 public:
  explicit tindicatorlist(tvksoptions& owner) noexcept : fowner(owner) {}

  std::int32_t count() const noexcept { return fitems.count(); }
  const tindicatoritem* get(std::int32_t index) const noexcept { return fitems[index]; }

  // Begins an item, to which the functions below refer.
  void addentry(std::string_view equation);
  std::string_view equation() const noexcept { return fequation.name(); }
  void addequdim(std::string_view text);
  void setvariable(std::string_view name) noexcept { fvariable.setname(name); }
  void addvardim(std::string_view text);
  void setvalue(bool value) noexcept { fvalue = value ? 1 : 0; }
  // Adds the item to the list; does nothing if none was begun.
  void keepitem();
  // Discards the item. Returns the number of discarded items: 1, or 0 if none was begun.
  std::int32_t dropitem() noexcept { return std::exchange(fbegun, false) ? 1 : 0; }

 private:
  tvksoptions& fowner;
  tarena farena;
  tgrowarray<const tindicatoritem*> fitems;
  // The item that was begun.
  bool fbegun = false;
  std::int32_t fvalue = 0;
  tsymbolparts fequation;
  tsymbolparts fvariable;
};

}  // namespace optcore
