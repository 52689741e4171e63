// Reset and growth of the name index.
#include "base/nameindex.h"

#include <new>

namespace optcore {

void tnameindex::reset() noexcept {
  std::vector<tslot>().swap(fslots);
  fused = 0;
  fentered = 0;
}

bool tnameindex::grow() noexcept {
  try {
    std::vector<tslot> slots(fslots.empty() ? 32 : 2 * fslots.size());
    slots.swap(fslots);
    const std::size_t last = fslots.size() - 1;
    for (const tslot& slot : slots) {
      if (slot.position < 0) continue;
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
