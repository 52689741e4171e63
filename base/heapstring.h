// Heap short strings: a length byte and at most 255 characters in a heap block. The empty text is a null
// pointer, never an empty block. Lists own their blocks and use newstring, disposestring and getstring
// directly. Other classes hold a heapstring by value, which frees its block in its destructor.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "base/textcase.h"

namespace optcore {

// The text of a block; the empty text for null.
inline std::string_view getstring(const char* block) noexcept {
  if (block == nullptr) return "";
  return {block + 1, static_cast<unsigned char>(block[0])};
}

// The first 255 characters.
inline std::string_view shortened(std::string_view text) noexcept { return text.substr(0, 255); }

// Writes a text of at most 255 characters to a block, which must have room for it, and returns the block. The
// text may lie in the block.
char* fillstring(char* block, std::string_view text) noexcept;

// Allocates a block with the first 255 characters of the text; null for the empty text. Throws
// std::bad_alloc.
char* newstring(std::string_view text);

// Frees a block of newstring; null is ignored.
void disposestring(char* block) noexcept;

// Compare the texts of two blocks regardless of case, like strucmp and struequal.
inline std::int32_t pstrucmp(const char* a, const char* b) noexcept {
  return strucmp(getstring(a), getstring(b));
}
inline bool pstruequal(const char* a, const char* b) noexcept {
  return struequal(getstring(a), getstring(b));
}

class heapstring {
 public:
  heapstring() noexcept = default;
  explicit heapstring(std::string_view text) : fblock(newstring(text)) {}
  heapstring& operator=(heapstring&& other) noexcept {
    std::swap(fblock, other.fblock);
    return *this;
  }
  heapstring(const heapstring&) = delete;
  heapstring& operator=(const heapstring&) = delete;
  ~heapstring() { disposestring(fblock); }

  std::string_view view() const noexcept { return getstring(fblock); }
  bool empty() const noexcept { return fblock == nullptr; }

  // Replaces the text. The block is reused when the new text needs one of the same size. The new text may be
  // the old one or a part of it.
  friend void strassign(heapstring& target, std::string_view text);

 private:
  char* fblock = nullptr;
};

}  // namespace optcore
