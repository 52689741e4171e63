// Finding options by name in the three lookup modes.
//
// Words of a name are separated by "_". Normal: the whole name counts. Path: the first three characters of
// each word count, and a name with a shorter word matches nothing. Minos: the first three characters of the
// name count, and the first four of each later word. Case never counts. If several options match, the first
// one is found.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/nameindex.h"
#include "base/vksobj.h"
#include "options/codes.h"

namespace optcore {

class toption;

// The characters of a name that count in mode Path or Minos. Two names match exactly when their keys are
// equal and matchable.
class tsignificantkey {
 public:
  tsignificantkey(tlookupmode mode, std::string_view name) noexcept;
  std::uint32_t hash() const noexcept { return struhash(view()); }
  bool operator==(const tsignificantkey& other) const noexcept {
    return fmatchable == other.fmatchable && view() == other.view();
  }
  // False for a name with too short a word in mode Path: it matches no name, not even itself. The keys of
  // such names are equal nevertheless, so that an index has one entry for a name that comes many times.
  bool matchable() const noexcept { return fmatchable; }

 private:
  std::string_view view() const noexcept { return {fcharacters.data(), flength}; }
  void addpath(std::string_view name) noexcept;
  void addminos(std::string_view name) noexcept;
  void append(std::string_view text) noexcept;

  std::array<char, 264> fcharacters;  // a name of 255 characters gives 259 at most
  std::size_t flength = 0;
  bool fmatchable = true;
};

class tlookup {
 public:
  explicit tlookup(const txstringlistobj<toption>& options) noexcept : foptions(options) {}

  // The position (from 0) of the first option that matches, or -1. Between calls, options may be added but
  // not removed or moved.
  std::int32_t find(tlookupmode mode, std::string_view name) const {
    return mode == tlookupmode::normal ? foptions.indexof(name) : findsignificant(mode, name);
  }
  std::int32_t find(tlookupmode mode, const tsoughtname& name) const {
    return mode == tlookupmode::normal ? foptions.indexof(name) : findsignificant(mode, name.text);
  }

 private:
  std::int32_t findsignificant(tlookupmode mode, std::string_view name) const;

  const txstringlistobj<toption>& foptions;
  mutable tnameindex fpathindex;
  mutable tnameindex fminosindex;
};

}  // namespace optcore
