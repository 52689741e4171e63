// Allocation of heap short strings.
#include "base/heapstring.h"

#include <cstring>
#include <new>

#include "base/shortstring.h"

namespace wexcorin {

char* newstring(std::string_view text) {
  if (text.empty()) return nullptr;
  const std::string_view kept = text.substr(0, shortstring::capacity);
  char* block = static_cast<char*>(::operator new(kept.size() + 1));
  block[0] = static_cast<char>(kept.size());
  std::memcpy(block + 1, kept.data(), kept.size());
  return block;
}

void disposestring(char* block) noexcept { ::operator delete(block); }

}  // namespace wexcorin
