// A hash table of list positions that stands beside a list of names and finds the first of equal names without
// walking the list. It holds no names: the owner hashes them and compares through a callback.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace wexcorin {

class tnameindex {
 public:
  // The number of positions entered or passed over so far: the next one to enter.
  std::int32_t indexedcount() const noexcept { return fnext; }

  // The position that was entered under this hash and for which `same(position)` holds, or -1.
  template <class tsame>
  std::int32_t find(std::uint32_t hash, tsame same) const {
    if (fslots.empty()) return -1;
    for (std::size_t i = hash & mask();; i = (i + 1) & mask()) {
      const tslot& slot = fslots[i];
      if (slot.position < 0) return -1;
      if (slot.hash == hash && same(slot.position)) return slot.position;
    }
  }

  // Enters the next position; one whose name is there already is passed over, so that the first one is found.
  template <class tsame>
  void add(std::uint32_t hash, tsame same) {
    reserveone();
    const std::int32_t position = fnext++;
    if (find(hash, same) < 0) insert({hash, position});
  }

  // Passes over the next position, which no search may find.
  void skip() noexcept { ++fnext; }

  // Forgets everything and gives the memory back.
  void reset() noexcept;

 private:
  struct tslot {
    std::uint32_t hash = 0;
    std::int32_t position = -1;
  };

  std::size_t mask() const noexcept { return fslots.size() - 1; }
  void reserveone();
  void insert(tslot slot) noexcept;

  std::vector<tslot> fslots;  // a power of two of them, at most three quarters in use
  std::size_t fused = 0;
  std::int32_t fnext = 0;
};

}  // namespace wexcorin
