// Finding options by name in the three lookup modes.
//
// Normal: the whole name counts. Path: every "_"-separated word counts with its first three characters, and a
// word of fewer matches nothing. Minos: the first three characters of the name count, and four of each later
// word. Case never counts, and the first option that matches is found.
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

// What counts of a name in mode Path or Minos, in a form in which names match exactly when they are equal.
class tsignificantkey {
 public:
  tsignificantkey(tlookupmode mode, std::string_view name) noexcept;
  std::uint32_t hash() const noexcept { return struhash(view()); }
  // A name with too short a word matches no name, not even itself.
  bool operator==(const tsignificantkey& other) const noexcept {
    return fmatchable && other.fmatchable && view() == other.view();
  }

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

  // The position (from 0) of the first option that matches, or -1. Options may be added between calls, not
  // removed or moved.
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
