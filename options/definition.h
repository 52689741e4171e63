// What a definition file defines, as one part of the store: the options with their synonyms and groups, how
// names are looked up, and which characters and keyword parameter text may use. Readers fill it, queries and
// writers read it. Positions count from 0 and are -1 for none.
#pragma once

#include <cassert>
#include <cstdint>
#include <memory>
#include <string_view>

#include "base/arena.h"
#include "base/strutilx.h"
#include "base/vksobj.h"
#include "options/lookup.h"
#include "options/toption.h"

namespace optcore {

class tdefinition {
 public:
  // ---- the file
  std::string_view filename() const noexcept { return ffilename.view(); }
  void setfilename(std::string_view filename) { strassign(ffilename, filename); }
  // The line at which a reading ended early, because no definition can begin like it; 0 if none did.
  std::int32_t earlyend() const noexcept { return fearlyend; }
  void setearlyend(std::int32_t line) noexcept { fearlyend = line; }

  // ---- options, in the order of the file
  std::int32_t getcount() const noexcept { return foptions.count(); }
  toption& option(std::int32_t index) const noexcept {
    assert(isindex(index));
    return *foptions.getobject(index);
  }
  // Null, and the empty name, for a position where no option is.
  toption* getobjects(std::int32_t index) const noexcept {
    return isindex(index) ? foptions.getobject(index) : nullptr;
  }
  std::string_view getstrings(std::int32_t index) const noexcept {
    return isindex(index) ? foptions.getobject(index)->name() : std::string_view();
  }
  // The name must be the option's.
  toption& addoption(std::unique_ptr<toption> option, const tsoughtname& name);

  // ---- finding options, by the lookup mode; none finds an option that is not added yet
  // Synonyms are not looked at.
  std::int32_t optlookup(const tsoughtname& name) const { return flookup.find(flookupmode, name); }
  std::int32_t optlookup(std::string_view name) const { return optlookup(tsoughtname(name)); }
  // By name or, failing that, by synonym.
  std::int32_t indexof(const tsoughtname& name) const {
    const std::int32_t index = optlookup(name);
    return index >= 0 ? index : synonymindex(name);
  }
  toption* optionasobj(const tsoughtname& name) const { return getobjects(indexof(name)); }
  toption* optionasobj(std::string_view name) const { return optionasobj(tsoughtname(name)); }
  // The first option of exactly this name, regardless of case and lookup mode.
  toption* exactoption(std::string_view name) const { return getobjects(foptions.indexof(name)); }

  // ---- synonyms, each with the position of its option, which may be negative
  const txstringlist<std::int32_t>& synonyms() const noexcept { return fsynonyms; }
  void addsynonym(std::string_view synonym, std::int32_t index) { fsynonyms.addobject(synonym, index); }
  // The option that the synonym at a position of the list stands for, or null.
  toption* synonymtarget(std::int32_t position) const noexcept {
    return getobjects(fsynonyms.getobject(position));
  }

  // ---- groups
  const txstringlistobj<tgroupobj>& groups() const noexcept { return fgroups; }
  void addgroup(std::string_view name, std::int32_t groupnumber, std::int32_t helpflag,
                std::string_view text);
  // The position of the first group with this number.
  std::int32_t groupwithnumber(std::int32_t groupnumber) const;

  // ---- how names are written and found
  tlookupmode lookupmode() const noexcept { return flookupmode; }
  void setlookupmode(tlookupmode mode) noexcept { flookupmode = mode; }
  // A name as it is handed out: with blanks for underscores in lookup mode "Minos", else as it is.
  shortstring nounderscore(std::string_view name) const;

  // ---- what parameter text may use
  // The characters that start a comment at the end of a line.
  const tcharset& eolcommset() const noexcept { return feolcommset; }
  void seteolcommset(const tcharset& set) noexcept { feolcommset = set; }
  // The keyword with which indicator lines begin; empty when there are none.
  std::string_view dotname() const noexcept { return fdotname.view(); }
  void setdotname(std::string_view keyword) { strassign(fdotname, keyword); }

  // Where options and their items are made, and their texts stored.
  tarena& arena() noexcept { return farena; }
  tstoredtext stored(std::string_view text) { return farena.text(text); }

 private:
  bool isindex(std::int32_t index) const noexcept { return index >= 0 && index < getcount(); }
  std::int32_t synonymindex(const tsoughtname& name) const;

  tarena farena;  // before what lies in it
  heapstring ffilename;
  tstoredlistobj<toption> foptions;
  tlookup flookup{foptions};
  txstringlist<std::int32_t> fsynonyms;
  txstringlistobj<tgroupobj> fgroups;
  mutable tnameindex fgroupindex;
  heapstring fdotname;
  tcharset feolcommset;
  std::int32_t fearlyend = 0;
  tlookupmode flookupmode = tlookupmode::normal;
};

}  // namespace optcore
