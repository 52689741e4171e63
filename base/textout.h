// A text result: the caller's buffer in either of the two text forms of the interface, 256 bytes long. Of a
// short string only the length byte and the characters are written, of a zero-terminated text the characters
// and the zero byte.
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
  // A text that was left untouched comes back empty in the zero-terminated form.
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
  bool fwritten;  // or need not be
};

}  // namespace optcore
