// Dot entries: values that parameter text gives for a symbol, a dot option and a list of indices. The
// parameter reader collects them (input/symbollines.cpp); the queries are in symbolqueries.h.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/arena.h"
#include "base/packedtexts.h"
#include "base/shortstring.h"
#include "base/vksobj.h"

namespace optcore {

class tdefinition;
class tmessagelist;

// The largest number of indices or elements of one identifier.
inline constexpr std::int32_t maxdimensions = 20;

// The largest number of characters of an identifier, and of an element without its quotes.
inline constexpr std::size_t maxidentifier = 63;

class tdotobj : public tinarena {
 public:
  tdotobj(tstoredtext name, std::int32_t optionindex, const tpackedtexts& indices, double value) noexcept
      : fname(name), findices(indices), fvalue(value), foptionindex(optionindex) {}
  std::string_view name() const noexcept { return fname.view(); }
  // Position of the dot option in the option list, counted from 0.
  std::int32_t optionindex() const noexcept { return foptionindex; }
  double value() const noexcept { return fvalue; }
  // The indices as they were written: "*", or a text with its quotes.
  const tpackedtexts& indices() const noexcept { return findices; }

 private:
  tstoredtext fname;
  tpackedtexts findices;
  double fvalue;
  std::int32_t foptionindex;
};

// The dot entries of a store, in the order in which they were read. An entry is collected part by part and
// enters the list only when it is kept.
class tdotobjlist {
 public:
  // Both must outlive the list. The entries are those of dot options of the definition.
  tdotobjlist(tdefinition& definition, tmessagelist& messages) noexcept
      : fdefinition(definition), fmessages(messages) {}

  std::int32_t count() const noexcept { return fentries.count(); }
  // The same, with the number of entries that were rejected.
  std::int32_t count(std::int32_t& rejected) const noexcept {
    rejected = frejected;
    return count();
  }
  const tdotobj* getobject(std::int32_t index) const noexcept { return fentries[index]; }

  // Begins an entry for the symbol `key`. An entry that was begun before and not kept is discarded.
  void addentry(std::string_view key, std::int32_t optionindex);
  // Adds an index as it was written. Returns false when the entry has too many indices; the index is added
  // nevertheless.
  bool addindex(std::string_view text);
  // Assigns the text to the entry's dot option. The value of the entry becomes that of the option, if it is a
  // number.
  void setvalue(std::string_view text);
  void keepentry();
  // Counts the entry as rejected.
  void rejectentry() noexcept { ++frejected; }

 private:
  bool requireentry(std::string_view without);

  tdefinition& fdefinition;
  tmessagelist& fmessages;
  tarena farena;
  tgrowarray<const tdotobj*> fentries;
  std::int32_t frejected = 0;
  // The entry that was begun.
  bool fbegun = false;
  std::int32_t foptionindex = 0;
  double fvalue = 0.0;
  shortstring fname;
  ttextpacker findices;
};

}  // namespace optcore
