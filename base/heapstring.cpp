// Allocation of heap short strings.
#include "base/heapstring.h"

#include <cassert>
#include <cstring>
#include <new>

namespace optcore {

namespace {

// The size of the block for a text of `length` characters. The allocator would round to the same sizes, so no
// memory is lost. Texts with the same block size can use one block after the other, and the size need not be
// stored.
std::size_t blocksize(std::size_t length) noexcept {
  constexpr std::size_t step = 16;
  constexpr std::size_t smallest = 24;
  return length + 1 <= smallest ? smallest : smallest + (length + 1 - smallest + step - 1) / step * step;
}

}  // namespace

char* fillstring(char* block, std::string_view text) noexcept {
  assert(text.size() <= 255);
  std::memmove(block + 1, text.data(), text.size());
  block[0] = static_cast<char>(text.size());
  return block;
}

char* newstring(std::string_view text) {
  if (text.empty()) return nullptr;
  const std::string_view kept = shortened(text);
  return fillstring(static_cast<char*>(::operator new(blocksize(kept.size()))), kept);
}

void strassign(heapstring& target, std::string_view text) {
  text = shortened(text);
  if (!text.empty() && !target.empty() && blocksize(text.size()) == blocksize(target.view().size()))
    fillstring(target.fblock, text);
  else
    target = heapstring(text);
}

void disposestring(char* block) noexcept { ::operator delete(block); }

}  // namespace optcore
