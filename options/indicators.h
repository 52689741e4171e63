// Indicators: an equation and a variable, each with optional elements, and a boolean value.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/heapstring.h"
#include "base/vksobj.h"
#include "options/dotoptions.h"

namespace wexcorin {

class tvksoptions;

// A symbol and its elements, as they were written: quotes included.
class tsymbol {
 public:
  std::string_view name() const noexcept { return fname.view(); }
  void setname(std::string_view name) { strassign(fname, name); }
  const txstrings& elements() const noexcept { return felements; }
  void addelement(std::string_view text) { felements.add(text); }
  // Elements are texts as written: unlike names, they are compared with regard to case.
  bool haselement(std::string_view text) const;

 private:
  heapstring fname;
  telements felements;
  mutable tnameindex findex;
};

class tindicatoritem {
 public:
  explicit tindicatoritem(std::string_view equation) { fequation.setname(equation); }

  const tsymbol& equation() const noexcept { return fequation; }
  const tsymbol& variable() const noexcept { return fvariable; }
  tsymbol& equation() noexcept { return fequation; }
  tsymbol& variable() noexcept { return fvariable; }
  std::int32_t value() const noexcept { return fvalue; }
  void setvalue(bool value) noexcept { fvalue = value ? 1 : 0; }

 private:
  tsymbol fequation;
  tsymbol fvariable;
  std::int32_t fvalue = 0;
};

// The indicators of a store in the order of reading. Whatever is wrong with an identifier or element becomes
// a message; it is added all the same, and the reader then drops the whole item.
class tindicatorlist final : public txlistobj<tindicatoritem> {
 public:
  explicit tindicatorlist(tvksoptions& owner) noexcept : fowner(owner) {}

  // A new item, which becomes the current one.
  void addentry(std::string_view equation);
  // The item being built: the last one. There must be one.
  tindicatoritem& current() noexcept { return *get(count() - 1); }

  // Add an element to the current item's equation or variable.
  void addequdim(std::string_view text);
  void addvardim(std::string_view text);

 private:
  tvksoptions& fowner;
};

}  // namespace wexcorin
