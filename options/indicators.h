// Indicators: an equation and a variable, each with optional elements, and a boolean value. The parameter
// reader collects them (input/symbollines.cpp); the queries are in symbolqueries.h.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

#include "base/arena.h"
#include "base/nameindex.h"
#include "base/packedtexts.h"
#include "base/shortstring.h"
#include "base/vksobj.h"

namespace optcore {

class tmessagelist;

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
  // The message list must outlive this list.
  explicit tindicatorlist(tmessagelist& messages) noexcept : fmessages(messages) {}

  std::int32_t count() const noexcept { return fcontents != nullptr ? fcontents->items.count() : 0; }
  // The same, with the number of items that were rejected.
  std::int32_t count(std::int32_t& rejected) const noexcept {
    rejected = frejected;
    return count();
  }
  const tindicatoritem* get(std::int32_t index) const noexcept { return fcontents->items[index]; }

  // Begins an item, to which the functions below refer.
  void addentry(std::string_view equation);
  std::string_view equation() const noexcept { return fcontents->equation.name(); }
  void addequdim(std::string_view text);
  void setvariable(std::string_view name) noexcept { fcontents->variable.setname(name); }
  void addvardim(std::string_view text);
  void setvalue(bool value) noexcept { fcontents->value = value ? 1 : 0; }
  // Adds the item to the list. Does nothing and returns false if none was begun.
  bool keepitem();
  // Discards the item. Returns whether one was begun.
  bool dropitem() noexcept { return std::exchange(fbegun, false); }
  // The same for an item that has an error; counts it as rejected.
  void rejectitem() noexcept { frejected += dropitem() ? 1 : 0; }
  // Removes all items. The count of rejected ones stays.
  void clear() noexcept {
    fbegun = false;
    fcontents.reset();
  }

 private:
  struct tcontents {
    tarena arena;
    tgrowarray<const tindicatoritem*> items;
    // The parts of the item that was begun.
    tsymbolparts equation;
    tsymbolparts variable;
    std::int32_t value = 0;
  };

  tmessagelist& fmessages;
  std::unique_ptr<tcontents> fcontents;  // made with the first item, because few stores have indicators
  std::int32_t frejected = 0;
  bool fbegun = false;
};

}  // namespace optcore
