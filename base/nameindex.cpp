// Growth of the name index.
#include "base/nameindex.h"

namespace wexcorin {

void tnameindex::reset() noexcept {
  std::vector<tslot>().swap(fslots);
  fused = 0;
  fentered = 0;
}

void tnameindex::insert(tslot slot) noexcept {
  std::size_t i = slot.hash & mask();
  while (fslots[i].position >= 0) i = (i + 1) & mask();
  fslots[i] = slot;
  ++fused;
}

bool tnameindex::reserveone() noexcept {
  if (4 * (fused + 1) <= 3 * fslots.size()) return true;
  try {
    std::vector<tslot> old(fslots.empty() ? 32 : 2 * fslots.size());
    old.swap(fslots);
    fused = 0;
    for (const tslot& slot : old)
      if (slot.position >= 0) insert(slot);
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

}  // namespace wexcorin
