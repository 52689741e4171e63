// A hash index for a list: it finds the position of the first item with a key, as a linear search would. It
// stores positions and hashes but no keys; its user supplies the key of a position. A key type has hash() and
// ==.
//
// The index is built on the first search, grows with the list, and is discarded when positions change. Short
// lists are searched linearly. When there is no memory for the index, lists of some hundred items are, too.
// For a longer one the search fails then, because a linear search for each of many names would take hours.
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string_view>
#include <vector>

#include "base/readytothrow.h"
#include "base/shortstring.h"
#include "base/textblocks.h"
#include "base/textcase.h"

namespace optcore {

// A name, compared regardless of case.
struct tnamekey {
  std::string_view text;
  std::uint32_t hash() const noexcept { return hashanycase(text); }
  [[gnu::always_inline]] bool operator==(const tnamekey& other) const noexcept {
    return equalanycase(text, other.text);
  }
};

// A name that is searched for in several lists, or before it is added to a list. Its hash is computed once. The
// text is not owned.
class tsoughtname : public tnamekey {
 public:
  explicit tsoughtname(std::string_view name) noexcept : tnamekey{name}, fhash(tnamekey::hash()) {}
  explicit tsoughtname(shortstring&& name) = delete;  // it would be gone before it is looked for
  std::uint32_t hash() const noexcept { return fhash; }

 private:
  std::uint32_t fhash;
};

struct tnumberkey {
  std::int32_t number;
  std::uint32_t hash() const noexcept { return inthash(number); }
  bool operator==(const tnumberkey& other) const noexcept { return number == other.number; }
};

class tnameindex {
 public:
  // Returns the first of the positions 0 .. count - 1 with this key, or -1. `keyat(position)` returns the key
  // of a position. Between two searches, items may be added at the end; after any other change of positions
  // or keys, reset must be called first. Throws std::bad_alloc.
  template <class tkey, class tkeyat>
  [[gnu::noinline]] std::int32_t find(std::int32_t count, tkey key, tkeyat keyat) {
    if (iscomplete(count) || (count > walkedcount && enter(count, keyat))) [[likely]]
      return findentered(key, keyat);
    return walk(count, key, keyat);
  }

  // Whether all positions below `count` are entered. Then findentered finds what find does, without a call.
  bool iscomplete(std::int32_t count) const noexcept {
    assert(fentered <= count);
    return fentered == count && count != 0;
  }
  template <class tkey, class tkeyat>
  [[gnu::always_inline]] std::int32_t findentered(const tkey& key, tkeyat keyat) const {
    return fslots[slotof(key, key.hash(), keyat)].position;
  }

  // Enters the item that was just added at position count - 1, if all items before it are entered. This is
  // cheaper than leaving it to the next search, because the hash of `key` may be known already.
  template <class tkey, class tkeyat>
  void added(std::int32_t count, const tkey& key, tkeyat keyat) {
    assert(count > 0 && keyat(count - 1) == key && keyat(count - 1).hash() == key.hash());
    if (count > walkedcount && fentered == count - 1 && reserveone()) enternext(key, keyat);
  }

  // Discards the index.
  void reset() noexcept;

 private:
  // Up to this count a linear search is as fast as the index and needs no memory.
  static constexpr std::int32_t walkedcount = 8;
  // Up to this count it is bearable.
  static constexpr std::int32_t walkedinneed = 500;

  struct tslot {
    std::uint32_t hash = 0;
    std::int32_t position = -1;
  };

  template <class tkey, class tkeyat>
  [[gnu::noinline]] static std::int32_t walk(std::int32_t count, tkey key, tkeyat keyat);

  // Returns the slot of the key, or the empty slot where it belongs. At least one slot must be empty.
  template <class tkey, class tkeyat>
  [[gnu::always_inline]] std::size_t slotof(const tkey& key, std::uint32_t hash, tkeyat keyat) const {
    assert(fused < fslots.size());
    const tslot* const slots = fslots.data();
    const std::size_t last = fslots.size() - 1;
    std::size_t i = hash & last;
    while (slots[i].position >= 0 && !(slots[i].hash == hash && keyat(slots[i].position) == key))
      i = (i + 1) & last;
    return i;
  }

  // Enters all positions below `count` that are not entered yet. Only the first of several equal keys gets a
  // slot. Without memory, returns false for a list that can be walked, and throws std::bad_alloc for a longer
  // one.
  template <class tkeyat>
  [[gnu::noinline]] bool enter(std::int32_t count, tkeyat keyat);
  // Enters the position fentered, whose key is given. There must be room for it, see reserveone.
  template <class tkey, class tkeyat>
  void enternext(const tkey& key, tkeyat keyat) {
    assert(2 * (fused + 1) <= fslots.size());
    const std::uint32_t hash = key.hash();
    tslot& slot = fslots[slotof(key, hash, keyat)];
    if (slot.position < 0) {
      slot = {hash, fentered};
      ++fused;
    }
    ++fentered;
  }

  bool reserveone() noexcept { return 2 * (fused + 1) <= fslots.size() || grow(); }
  bool grow() noexcept;

  std::vector<tslot> fslots;  // their number is a power of two; at most half of them are in use
  std::size_t fused = 0;      // slots in use
  std::int32_t fentered = 0;  // positions below this are entered
};

template <class tkey, class tkeyat>
std::int32_t tnameindex::walk(std::int32_t count, tkey key, tkeyat keyat) {
  for (std::int32_t i = 0; i < count; ++i)
    if (keyat(i) == key) return i;
  return -1;
}

template <class tkeyat>
bool tnameindex::enter(std::int32_t count, tkeyat keyat) {
  while (fentered < count) {
    if (!reserveone()) {
      if (count > walkedinneed && readytothrow()) throw std::bad_alloc();
      return false;
    }
    enternext(keyat(fentered), keyat);
  }
  return true;
}

}  // namespace optcore
