// A text result: writes to the caller's buffer of 256 bytes, in either of the two text forms of the
// interface. The bytes after the text stay unchanged: a short string is written as its length byte and
// characters, a zero-terminated text as its characters and the zero byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "base/shortstring.h"

namespace optcore {

class ttextout {
 public:
  enum class tform : std::uint8_t { shortstring, zeroterminated };

  ttextout(tform form, char* buffer) noexcept
      : fbuffer(buffer), fform(form), fwritten(form == tform::shortstring) {}
  ttextout(const ttextout&) = delete;
  ttextout& operator=(const ttextout&) = delete;
  // A result that was not set becomes the empty text in the zero-terminated form.
  ~ttextout() {
    if (!fwritten) fbuffer[0] = '\0';
  }

  // The text may lie in the buffer itself.
  void set(std::string_view text) noexcept {
    const std::size_t length = text.size() < shortstring::capacity ? text.size() : shortstring::capacity;
    char* characters = fform == tform::zeroterminated ? fbuffer : fbuffer + 1;
    if (length != 0) std::memmove(characters, text.data(), length);
    if (fform == tform::zeroterminated)
      fbuffer[length] = '\0';
    else
      fbuffer[0] = static_cast<char>(length);
    fwritten = true;
  }
  void clear() noexcept { set({}); }

 private:
  char* fbuffer;
  tform fform;
  bool fwritten;  // always true for a short string, which may stay untouched
};

}  // namespace optcore
