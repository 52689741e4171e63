// Dot entries: values that parameter text gives for a symbol, a dot option and a list of indices.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/arena.h"
#include "base/packedtexts.h"
#include "base/shortstring.h"
#include "base/vksobj.h"

namespace optcore {

class tvksoptions;

// Most indices or elements that an identifier may carry.
inline constexpr std::int32_t maxdimensions = 20;

// Most characters of an identifier or of a quoted element without its quotes.
inline constexpr std::size_t maxidentifier = 63;

class tdotobj : public tinarena {
 public:
  tdotobj(tstoredtext name, std::int32_t optionindex, const tpackedtexts& indices, double value) noexcept
      : fname(name), findices(indices), fvalue(value), foptionindex(optionindex) {}
  std::string_view name() const noexcept { return fname.view(); }
  // Position of the dot option in the option list, counted from 0.
  std::int32_t optionindex() const noexcept { return foptionindex; }
  double value() const noexcept { return fvalue; }
  // As they were written: "*", or a text with its quotes.
  const tpackedtexts& indices() const noexcept { return findices; }

 private:
  tstoredtext fname;
  tpackedtexts findices;
  double fvalue;
  std::int32_t foptionindex;
};

// The dot entries of a store in the order of reading, each under its symbol's name. An entry is collected
// from its parts and in the list only when it is kept.
class tdotobjlist {
 public:
  explicit tdotobjlist(tvksoptions& owner) noexcept : fowner(owner) {}

  std::int32_t count() const noexcept { return fentries.count(); }
  std::string_view getname(std::int32_t index) const noexcept { return fentries[index]->name(); }
  const tdotobj* getobject(std::int32_t index) const noexcept { return fentries[index]; }

  // Begins an entry; one that was not kept is forgotten.
  void addentry(std::string_view key, std::int32_t optionindex);
  // False when the entry held the most indices already; the index is added all the same.
  bool addindex(std::string_view text);
  // Assigns the text to the entry's dot option and takes the option's number over as the entry's value.
  void setvalue(std::string_view text);
  void keepentry();

 private:
  bool hasentry(std::string_view without);

  tvksoptions& fowner;
  tarena farena;
  tgrowarray<const tdotobj*> fentries;
  // What is known of the entry that was begun.
  bool fbegun = false;
  std::int32_t foptionindex = 0;
  double fvalue = 0.0;
  shortstring fname;
  ttextpacker findices;
};

}  // namespace optcore
