// Allocation of heap short strings.
#include "base/heapstring.h"

#include <cstring>
#include <new>

#include "base/shortstring.h"

namespace wexcorin {

namespace {

// Blocks come in these sizes, which are those that the allocator would round to; so a block can take any text
// of its size later, without holding its size.
std::size_t blocksize(std::size_t length) noexcept {
  constexpr std::size_t step = 16;
  constexpr std::size_t smallest = 24;
  return length + 1 <= smallest ? smallest : smallest + (length + 1 - smallest + step - 1) / step * step;
}

char* fill(char* block, std::string_view text) noexcept {
  std::memmove(block + 1, text.data(), text.size());
  block[0] = static_cast<char>(text.size());
  return block;
}

}  // namespace

char* newstring(std::string_view text) {
  if (text.empty()) return nullptr;
  const std::string_view kept = text.substr(0, shortstring::capacity);
  return fill(static_cast<char*>(::operator new(blocksize(kept.size()))), kept);
}

void strassign(heapstring& target, std::string_view text) {
  text = text.substr(0, shortstring::capacity);
  if (!text.empty() && !target.empty() && blocksize(text.size()) == blocksize(target.view().size()))
    fill(target.fblock, text);
  else
    target = heapstring(text);
}

void disposestring(char* block) noexcept { ::operator delete(block); }

}  // namespace wexcorin
