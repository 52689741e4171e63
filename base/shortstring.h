// Short strings: values of 256 bytes, a length byte and up to 255 characters, which is exactly the layout of
// texts at the interface. Appended text is cut at 255 characters. They serve as buffers at the interface and
// for building one message or line; all other code passes std::string_view.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace optcore {

class shortstring {
 public:
  static constexpr std::size_t capacity = 255;

  // cppcheck-suppress uninitMemberVar ; only the first flength characters are read
  shortstring() noexcept : flength(0) {}
  shortstring(std::string_view text) noexcept : flength(0) { append(text); }
  shortstring(const shortstring& other) noexcept : flength(0) { append(other.view()); }
  shortstring& operator=(const shortstring& other) noexcept { return assign(other.view()); }
  ~shortstring() = default;

  // The text may lie within this string itself.
  shortstring& assign(std::string_view text) noexcept {
    const std::size_t length = text.size() < capacity ? text.size() : capacity;
    if (length != 0) std::memmove(ftext, text.data(), length);
    flength = static_cast<unsigned char>(length);
    return *this;
  }

  shortstring& append(std::string_view text) noexcept {
    const std::size_t room = capacity - flength;
    const std::size_t length = text.size() < room ? text.size() : room;
    if (length != 0) std::memcpy(ftext + flength, text.data(), length);
    flength = static_cast<unsigned char>(flength + length);
    return *this;
  }
  shortstring& append(std::size_t count, char character) noexcept {
    while (count-- != 0 && flength < capacity) ftext[flength++] = character;
    return *this;
  }

  void clear() noexcept { flength = 0; }
  std::size_t size() const noexcept { return flength; }
  bool empty() const noexcept { return flength == 0; }
  bool full() const noexcept { return flength == capacity; }
  std::string_view view() const noexcept { return {ftext, flength}; }
  operator std::string_view() const noexcept { return view(); }

 private:
  unsigned char flength;
  char ftext[capacity];
};

static_assert(sizeof(shortstring) == 256);

// A piece of a message that is written in double quotes.
struct tquoted {
  std::string_view text;
};
inline tquoted quoted(std::string_view text) { return {text}; }

inline void appendpiece(shortstring& target, std::string_view piece) { target.append(piece); }
inline void appendpiece(shortstring& target, tquoted piece) {
  target.append("\"").append(piece.text).append("\"");
}

// Joins the pieces of one message or line, cut at 255 characters.
template <class... tpieces>
shortstring concat(const tpieces&... pieces) {
  shortstring result;
  (appendpiece(result, pieces), ...);
  return result;
}

}  // namespace optcore
