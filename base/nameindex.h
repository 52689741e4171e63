// A hash table of list positions that stands beside a list and finds the first item of a key without walking
// the list. It holds no keys: it asks the owner for the key of a position. Keys have hash() and ==.
//
// The index is never more than a shortcut. It is made on the first search, grows with the list, and is thrown
// away when positions change; short lists are walked, and so is a list for which there is no memory.
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string_view>
#include <vector>

#include "base/textcase.h"

namespace optcore {

// A name, of which the case does not count.
struct tnamekey {
  std::string_view text;
  std::uint32_t hash() const noexcept { return struhash(text); }
  bool operator==(const tnamekey& other) const noexcept { return struequal(text, other.text); }
};

// A name that is looked for, in more than one list or before it is added: its hash is taken once, when it is
// first asked for.
class tsoughtname : public tnamekey {
 public:
  explicit tsoughtname(std::string_view name) noexcept : tnamekey{name} {}
  std::uint32_t hash() const noexcept {
    if (!fishashed) fhash = tnamekey::hash();
    fishashed = true;
    return fhash;
  }

 private:
  mutable std::uint32_t fhash = 0;
  mutable bool fishashed = false;
};

struct tnumberkey {
  std::int32_t number;
  std::uint32_t hash() const noexcept { return inthash(number); }
  bool operator==(const tnumberkey& other) const noexcept { return number == other.number; }
};

class tnameindex {
 public:
  // The first of the positions 0 .. count - 1 with this key, or -1. `keyat(position)` gives the key of a
  // position; items that were there at the last search must not have changed since, unless by reset.
  template <class tkey, class tkeyat>
  std::int32_t find(std::int32_t count, const tkey& key, tkeyat keyat) {
    assert(fentered <= count);
    if (count <= walkedcount || (fentered < count && !enter(count, keyat))) return walk(count, key, keyat);
    return fslots[slotof(key, key.hash(), keyat)].position;
  }

  // Enters the item that was just added, which makes `count`, if those before it are: with its key at hand
  // that is cheaper than by the next search.
  template <class tkey, class tkeyat>
  void added(std::int32_t count, const tkey& key, tkeyat keyat) {
    assert(count > 0 && keyat(count - 1) == key);
    if (count > walkedcount && fentered == count - 1 && reserveone()) enternext(key, keyat);
  }

  // To be called when positions change other than by adding at the end.
  void reset() noexcept;

 private:
  // Up to this count a walk is as quick as the index and costs no memory.
  static constexpr std::int32_t walkedcount = 8;

  struct tslot {
    std::uint32_t hash = 0;
    std::int32_t position = -1;
  };

  template <class tkey, class tkeyat>
  static std::int32_t walk(std::int32_t count, const tkey& key, tkeyat keyat);

  // The slot of the key, or the empty one where it belongs. There must be an empty one.
  template <class tkey, class tkeyat>
  std::size_t slotof(const tkey& key, std::uint32_t hash, tkeyat keyat) const {
    assert(fused < fslots.size());
    std::size_t i = hash & mask();
    while (fslots[i].position >= 0 && !(fslots[i].hash == hash && keyat(fslots[i].position) == key))
      i = (i + 1) & mask();
    return i;
  }

  // Enters the positions that are not entered yet; of equal keys only the first. False without memory.
  template <class tkeyat>
  bool enter(std::int32_t count, tkeyat keyat);
  // Enters the first position that is not entered yet; there must be room.
  template <class tkey, class tkeyat>
  void enternext(const tkey& key, tkeyat keyat) {
    assert(4 * (fused + 1) <= 3 * fslots.size());
    const std::uint32_t hash = key.hash();
    tslot& slot = fslots[slotof(key, hash, keyat)];
    if (slot.position < 0) {
      slot = {hash, fentered};
      ++fused;
    }
    ++fentered;
  }

  std::size_t mask() const noexcept { return fslots.size() - 1; }
  bool reserveone() noexcept { return 4 * (fused + 1) <= 3 * fslots.size() || grow(); }
  bool grow() noexcept;

  std::vector<tslot> fslots;  // a power of two of them, at most three quarters in use
  std::size_t fused = 0;
  std::int32_t fentered = 0;
};

// Out of the class, so that every search that finds does not hold a copy of them.

template <class tkey, class tkeyat>
std::int32_t tnameindex::walk(std::int32_t count, const tkey& key, tkeyat keyat) {
  for (std::int32_t i = 0; i < count; ++i)
    if (keyat(i) == key) return i;
  return -1;
}

template <class tkeyat>
bool tnameindex::enter(std::int32_t count, tkeyat keyat) {
  while (fentered < count) {
    if (!reserveone()) return false;
    enternext(keyat(fentered), keyat);
  }
  return true;
}

}  // namespace optcore
