// Heap short strings: a length byte and at most 255 characters in a block of their own. The empty
// text is held as no pointer, never as an empty block. newstring, disposestring, strassign and getstring are
// the primitives; classes hold a heapstring by value, so that their destructors write themselves.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "base/textcase.h"

namespace optcore {

// The text of a block; empty for no block.
inline std::string_view getstring(const char* block) noexcept {
  if (block == nullptr) return "";
  return {block + 1, static_cast<unsigned char>(block[0])};
}

// The first 255 characters.
inline std::string_view shortened(std::string_view text) noexcept { return text.substr(0, 255); }

// Makes the text, of at most 255 characters, that of a block with room for it, which the text may lie in.
char* fillstring(char* block, std::string_view text) noexcept;

// A new block with the first 255 characters of text, or null for the empty text. Throws std::bad_alloc.
char* newstring(std::string_view text);

// Frees a block of newstring; null is ignored.
void disposestring(char* block) noexcept;

// Comparison of two blocks regardless of case, as strucmp and struequal.
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

  // Replaces the text held, in its block if that is of the right size. The new text may be the old one or a
  // part of it.
  friend void strassign(heapstring& target, std::string_view text);

 private:
  char* fblock = nullptr;
};

}  // namespace optcore
