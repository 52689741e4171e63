// Dot entries: values that parameter text gives for a symbol, a dot option and a list of indices.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/vksobj.h"

namespace wexcorin {

class tvksoptions;

// Most indices or elements that an identifier may carry.
inline constexpr std::int32_t maxdimensions = 20;

// Most characters of an identifier or of a quoted element without its quotes.
inline constexpr std::size_t maxidentifier = 63;

// The indices or elements of one identifier: mostly one or two, of which there may be millions.
class telements final : public txstrings {
 public:
  void grow() override {
    if (capacity() == 0)
      setcapacity(2);
    else
      txstrings::grow();
  }
};

class tdotobj {
 public:
  explicit tdotobj(std::int32_t optionindex) noexcept : foptionindex(optionindex) {}

  // Position of the dot option in the option list, counted from 0.
  std::int32_t optionindex() const noexcept { return foptionindex; }
  double value() const noexcept { return fvalue; }
  void setvalue(double value) noexcept { fvalue = value; }
  // As they were written: "*", or a text with its quotes.
  const txstrings& indices() const noexcept { return findices; }
  void addindex(std::string_view text) { findices.add(text); }

 private:
  std::int32_t foptionindex;
  double fvalue = 0.0;
  telements findices;
};

// The dot entries of a store in the order of reading, each under its symbol's name.
class tdotobjlist final : public txstringlistobj<tdotobj> {
 public:
  explicit tdotobjlist(tvksoptions& owner) noexcept : fowner(owner) {}

  void addentry(std::string_view key, std::int32_t optionindex);
  // Adds to the last entry. False when it held the most indices already; the index is added all the same.
  bool addindex(std::string_view text);
  // Assigns the text to the last entry's dot option and takes the option's number over as the entry's value.
  void setvalue(std::string_view text);

 private:
  tdotobj* last(std::string_view without);

  tvksoptions& fowner;
};

}  // namespace wexcorin
