// Converts texts for output, which is always UTF-8. Texts of the library are bytes; each byte that is not
// part of valid UTF-8 is read as a character of ISO 8859-1. Colours are used on terminals only.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tool {

std::string utf8(std::string_view text);

// Like utf8, but control characters other than the tab are written in the form \x1b, so that no text can
// control a terminal.
std::string printable(std::string_view text);

// The width of a valid UTF-8 text on a terminal, counted as one column for each character.
std::size_t columns(std::string_view text);

// The two hexadecimal digits of a byte.
std::string hexdigits(char byte);

// The text in double quotes.
std::string inquotes(std::string_view text);

// "1 error", "2 errors"
std::string counted(std::size_t count, std::string_view noun);

enum class tcolour { none, bold, red, yellow, cyan };

// Colours the texts for one output stream, given by its descriptor. Does nothing if the stream is not a
// terminal, if NO_COLOR is set and not empty, or if TERM is unset or "dumb".
class tpalette {
 public:
  explicit tpalette(int descriptor);
  std::string paint(tcolour colour, std::string_view text) const;

 private:
  bool fon;
};

}  // namespace tool
