// Converts texts for output, which is always UTF-8. Texts of the library are bytes; each byte that is not
// part of valid UTF-8 is read as a character of ISO 8859-1. Colours are used on terminals only.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tool {

std::string utf8(std::string_view text);

// Makes a text safe for people; whatever the tool prints of a file passes through it. Like utf8, but control
// characters, marks that change the order in which text is shown, and characters that are not seen are written
// in the forms \x1b, \u202e and \U000e0041: no text can control a terminal or hide a part of itself. Letters
// that look like others, and blanks of other widths, stay.
std::string printable(std::string_view text);
// The same for a text of several lines, of which the line ends stay.
std::string printabletext(std::string_view text);
// The same for documents that are laid out anew, in which a tab is a blank like others.
std::string printableprose(std::string_view text);
// The same for JSON that has been written: the escapes are those of JSON, so its values stay the same.
std::string printablejson(std::string_view text);

// The width of a valid UTF-8 text on a terminal, counted as one column for each character.
std::size_t columns(std::string_view text);

// The two hexadecimal digits of a byte.
std::string hexdigits(char byte);
// "%3A" for a colon, as in addresses.
std::string percentcode(char byte);

// The text in double quotes.
std::string inquotes(std::string_view text);

// "1 error", "2 errors"
std::string counted(std::size_t count, std::string_view noun);

enum class tcolour { none, bold, red, green, yellow, cyan };

enum class tcolours {
  automatic,  // on terminals, unless NO_COLOR is set and not empty, or TERM is unset or "dumb"
  always,
  never
};
// Chooses when palettes that are made from now on colour texts.
void setcolours(tcolours when);

// Colours the texts for one output stream, given by its descriptor, or leaves them as they are.
class tpalette {
 public:
  explicit tpalette(int descriptor);
  std::string paint(tcolour colour, std::string_view text) const;

 private:
  bool fon;
};

}  // namespace tool
