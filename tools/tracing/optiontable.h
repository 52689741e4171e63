// A record for each of some options. It is found with one access to memory, because that is done for each line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "options/toption.h"

namespace tool {

template <class trecord>
class toptiontable {
 public:
  // The record of the option, which is made if there is none. It holds until the next one is made.
  trecord& operator[](const optcore::toption& option) {
    if (2 * (fcount + 1) > fslots.size()) grow();
    tslot& slot = fslots[find(option)];
    if (slot.option == nullptr) {
      slot.option = &option;
      ++fcount;
    }
    return slot.record;
  }
  // The same; null if there is none.
  const trecord* at(const optcore::toption& option) const {
    if (fslots.empty()) return nullptr;
    const tslot& slot = fslots[find(option)];
    return slot.option != nullptr ? &slot.record : nullptr;
  }

 private:
  struct tslot {
    const optcore::toption* option = nullptr;
    trecord record{};
  };

  // The slot of the option, or the free one where it belongs. The number of slots is a power of two.
  std::size_t find(const optcore::toption& option) const {
    const auto address = reinterpret_cast<std::uintptr_t>(&option);
    std::size_t slot = (address / alignof(optcore::toption) * 0x9E3779B97F4A7C15U) >> 20U;
    while (true) {
      slot &= fslots.size() - 1;
      if (fslots[slot].option == nullptr || fslots[slot].option == &option) return slot;
      ++slot;
    }
  }

  void grow() {
    const std::vector<tslot> before =
        std::exchange(fslots, std::vector<tslot>(fslots.empty() ? 64 : 2 * fslots.size()));
    for (const tslot& slot : before)
      if (slot.option != nullptr) fslots[find(*slot.option)] = slot;
  }

  std::vector<tslot> fslots;
  std::size_t fcount = 0;
};

}  // namespace tool
