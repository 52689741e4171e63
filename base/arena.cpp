// Allocation of the arena's blocks, and storing of texts.
#include "base/arena.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace optcore {

tarena::~tarena() {
  while (fblocks != nullptr) {
    tblock* block = fblocks;
    fblocks = block->previous;
    ::operator delete(block);
  }
}

// Block sizes double, so that few blocks are needed, up to a limit that keeps the unused memory small.
void tarena::addblock(std::size_t size) {
  constexpr std::size_t smallest = 1024;
  constexpr std::size_t largest = 16 * 1024;
  // the end of a block is aligned, so that aligning fnext never moves it past the end
  const std::size_t wanted = (sizeof(tblock) + size + alignment - 1) / alignment * alignment;
  const std::size_t blocksize = std::max(wanted, std::clamp(2 * fblocksize, smallest, largest));
  fblocks = ::new (::operator new(blocksize)) tblock{fblocks};
  fblocksize = blocksize;
  fnext = reinterpret_cast<char*>(fblocks + 1);
  fend = reinterpret_cast<char*>(fblocks) + blocksize;
}

tstoredtext tarena::text(std::string_view text) {
  if (text.empty()) return {};
  const std::string_view kept = shortened(text);
  char* const block = take(kept.size() + 1);
  block[0] = static_cast<char>(kept.size());
  std::memcpy(block + 1, kept.data(), kept.size());
  return tstoredtext(block);
}

}  // namespace optcore
