// Reset and growth of the name index.
#include "base/nameindex.h"

#include <new>
#include <span>

namespace optcore {

void tnameindex::reset() noexcept {
  std::vector<tslot>().swap(fslots);
  fused = 0;
  fentered = 0;
}

bool tnameindex::grow() noexcept {
  if (!readytothrow()) return false;
  try {
    std::vector<tslot> slots(fslots.empty() ? 32 : 2 * fslots.size());
    slots.swap(fslots);
    // First the used slots are moved together, without a branch that no processor could predict.
    std::size_t used = 0;
    for (std::size_t i = 0; i < slots.size(); ++i) {
      slots[used] = slots[i];
      used += slots[i].position >= 0 ? 1 : 0;
    }
    const std::size_t last = fslots.size() - 1;
    for (const tslot& slot : std::span(slots).first(used)) {
      std::size_t i = slot.hash & last;
      while (fslots[i].position >= 0) i = (i + 1) & last;
      fslots[i] = slot;
    }
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

}  // namespace optcore
