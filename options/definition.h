// The contents of a definition, as one part of the store: options, synonyms, groups, the lookup mode, and the
// comment characters and indicator keyword of parameter text. The readers in input/ fill it; queries and the
// writers in output/ read it. Positions count from 0; -1 means that there is none.
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
  // `owner` is the store of which this is a part, and becomes the owner of the options.
  explicit tdefinition(tvksoptions& owner) noexcept : fowner(owner) {}

  // ---- the file
  std::string_view filename() const noexcept { return ffilename.view(); }
  void setfilename(std::string_view filename) { strassign(ffilename, filename); }
  // The number of the line (from 1) at which reading stopped, because no definition can begin with it; 0 if
  // the whole file was read.
  std::int32_t earlyend() const noexcept { return fearlyend; }
  void setearlyend(std::int32_t line) noexcept { fearlyend = line; }

  // ---- options, in the order of the file
  std::int32_t getcount() const noexcept { return foptions.count(); }
  const toption& option(std::int32_t index) const noexcept {
    assert(isindex(index));
    return *foptions.getobject(index);
  }
  toption& option(std::int32_t index) noexcept {
    assert(isindex(index));
    return *foptions.getobject(index);
  }
  // The option at a position, and its name; null and the empty name if there is none.
  const toption* getobjects(std::int32_t index) const noexcept {
    return isindex(index) ? &option(index) : nullptr;
  }
  toption* getobjects(std::int32_t index) noexcept { return isindex(index) ? &option(index) : nullptr; }
  std::string_view getstrings(std::int32_t index) const noexcept {
    return isindex(index) ? foptions.getobject(index)->name() : std::string_view();
  }
  // Makes an option, which is still to be added.
  template <class tclass, class... targuments>
  std::unique_ptr<tclass> make(const toptionhead& head, const targuments&... arguments) {
    return farena.make<tclass>(fowner, head, arguments...);
  }
  // Takes ownership of an option that this definition made. `name` must be its name.
  toption& addoption(std::unique_ptr<toption> option, const tsoughtname& name);

  // Each option is reset once, however many macros name it.
  void resetoptions();
  void clearrecent() noexcept;

  // ---- finding options that have been added, according to the lookup mode
  // By name alone, without the synonyms.
  std::int32_t optlookup(const tsoughtname& name) const { return flookup.find(flookupmode, name); }
  std::int32_t optlookup(std::string_view name) const { return flookup.find(flookupmode, name); }
  // By name or, failing that, by synonym.
  std::int32_t indexof(std::string_view name) const;
  std::int32_t indexof(const tsoughtname& name) const {
    const std::int32_t index = optlookup(name);
    return index >= 0 ? index : synonymindex(name);
  }
  const toption* optionasobj(std::string_view name) const { return getobjects(indexof(name)); }
  toption* optionasobj(std::string_view name) { return getobjects(indexof(name)); }
  // The first option with exactly this name, regardless of case and whatever the lookup mode is.
  const toption* exactoption(std::string_view name) const { return getobjects(foptions.indexof(name)); }
  toption* exactoption(std::string_view name) { return getobjects(foptions.indexof(name)); }

  // ---- synonyms, each with the position of its option, which is -1 for an undefined option
  const txstringlist<std::int32_t>& synonyms() const noexcept { return fsynonyms; }
  void addsynonym(std::string_view synonym, std::int32_t index) { fsynonyms.addobject(synonym, index); }
  // The option of the synonym at a position of synonyms(); null if it is undefined.
  const toption* synonymtarget(std::int32_t position) const noexcept {
    return getobjects(fsynonyms.getobject(position));
  }
  toption* synonymtarget(std::int32_t position) noexcept { return getobjects(fsynonyms.getobject(position)); }

  // ---- groups
  const txstringlistobj<tgroupobj>& groups() const noexcept { return fgroups; }
  void addgroup(std::string_view name, std::int32_t groupnumber, std::int32_t helpflag,
                std::string_view text);
  // The position of the first group with this number.
  std::int32_t groupwithnumber(std::int32_t groupnumber) const;

  // ---- how names are written and found
  tlookupmode lookupmode() const noexcept { return flookupmode; }
  void setlookupmode(tlookupmode mode) noexcept { flookupmode = mode; }
  // A name in the form that clients and listings show: with blanks for underscores in lookup mode "Minos",
  // otherwise unchanged.
  shortstring nounderscore(std::string_view name) const;

  // ---- what parameter text may use
  // The characters that start a comment up to the end of the line.
  const tcharset& eolcommset() const noexcept { return feolcommset; }
  void seteolcommset(const tcharset& set) noexcept { feolcommset = set; }
  // The keyword with which indicator lines begin; empty when there are none.
  std::string_view dotname() const noexcept { return fdotname.view(); }
  void setdotname(std::string_view keyword) { strassign(fdotname, keyword); }

  // ---- string lists
  // Before this position no list of the kind has texts. So emptying all lists takes linear time.
  std::int32_t& emptyupto(bool dashed) noexcept { return femptyupto[dashed ? 1 : 0]; }
  // A list was given a text.
  void listfilled() noexcept { femptyupto[0] = femptyupto[1] = 0; }

  // Where options and their items are made, and their texts stored.
  tarena& arena() noexcept { return farena; }
  tstoredtext stored(std::string_view text) { return farena.text(text); }

 private:
  bool isindex(std::int32_t index) const noexcept {
    return static_cast<std::uint32_t>(index) < static_cast<std::uint32_t>(getcount());
  }
  std::int32_t anyindexof(std::string_view name) const;
  template <class tname>
  std::int32_t synonymindex(const tname& name) const {
    const std::int32_t synonym = fsynonyms.indexof(name);
    return synonym >= 0 ? fsynonyms.getobject(synonym) : -1;
  }

  tvksoptions& fowner;
  tarena farena;  // declared first, because it must outlive what lies in it
  heapstring ffilename;
  tstoredlistobj<toption> foptions;
  tlookup flookup{foptions};
  txstringlist<std::int32_t> fsynonyms;
  txstringlistobj<tgroupobj> fgroups;
  mutable tnameindex fgroupindex;
  heapstring fdotname;
  tcharset feolcommset;
  std::int32_t fearlyend = 0;
  std::int32_t femptyupto[2] = {0, 0};
  tlookupmode flookupmode = tlookupmode::normal;
};

}  // namespace optcore
