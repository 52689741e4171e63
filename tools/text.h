// How the tool prints: always as UTF-8. Texts of the library are bytes; what is not valid UTF-8 in them is
// taken as ISO 8859-1, character by character. Colours appear on terminals only.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tool {

std::string utf8(std::string_view text);

// As utf8, with control characters other than the tab written as \x1b, so that no text can steer a terminal.
std::string printable(std::string_view text);

// The number of columns that a valid UTF-8 text takes, one per character.
std::size_t columns(std::string_view text);

// The two hexadecimal digits of a byte.
std::string hexdigits(char byte);

// In double quotes.
std::string inquotes(std::string_view text);

// "1 error", "2 errors"
std::string counted(std::size_t count, std::string_view noun);

enum class tcolour { none, bold, red, yellow, cyan };

// Puts the colour around text when the stream with this descriptor is a terminal that should have colours.
class tpalette {
 public:
  explicit tpalette(int descriptor);
  std::string paint(tcolour colour, std::string_view text) const;

 private:
  bool fon;
};

}  // namespace tool
