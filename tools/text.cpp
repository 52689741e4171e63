// Converts texts to UTF-8, escapes control characters and adds colours.
#include "tools/text.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace tool {

namespace {

unsigned char byteat(std::string_view text, std::size_t position) {
  return static_cast<unsigned char>(text[position]);
}

bool continues(std::string_view text, std::size_t position, unsigned char low, unsigned char high) {
  return position < text.size() && byteat(text, position) >= low && byteat(text, position) <= high;
}

// Returns the length of the valid UTF-8 sequence at the start of the text, 0 if there is none. The text must
// not be empty. The range of the second byte excludes overlong forms, surrogates and codes above U+10FFFF.
std::size_t sequence(std::string_view text) {
  const unsigned char first = byteat(text, 0);
  if (first < 0x80) return 1;
  if (first < 0xC2 || first > 0xF4) return 0;
  const unsigned char low = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
  const unsigned char high = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
  if (!continues(text, 1, low, high)) return 0;
  const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  for (std::size_t position = 2; position < length; ++position)
    if (!continues(text, position, 0x80, 0xBF)) return 0;
  return length;
}

// Whether a UTF-8 character is a control character other than the tab. U+0080 to U+009F are control
// characters, too; the last byte of their sequence is their code.
bool iscontrol(std::string_view character) {
  const unsigned char first = byteat(character, 0);
  if (character.size() == 1) return (first < 0x20 && first != '\t') || first == 0x7F;
  return first == 0xC2 && byteat(character, 1) < 0xA0;
}

bool colourwanted(int descriptor) {
  // NOLINTBEGIN(concurrency-mt-unsafe): the tool has one thread
  const char* forbidden = std::getenv("NO_COLOR");
  const char* terminal = std::getenv("TERM");
  // NOLINTEND(concurrency-mt-unsafe)
  return isatty(descriptor) == 1 && (forbidden == nullptr || *forbidden == '\0') && terminal != nullptr &&
         std::string_view(terminal) != "dumb";
}

}  // namespace

std::string utf8(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::size_t length = sequence(text);
    if (length != 0) {
      result.append(text.substr(0, length));
    } else {
      const unsigned char latin = byteat(text, 0);
      result.push_back(static_cast<char>(0xC0 | (latin >> 6)));
      result.push_back(static_cast<char>(0x80 | (latin & 0x3F)));
    }
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return result;
}

std::string printable(std::string_view text) {
  const std::string valid = utf8(text);
  std::string result;
  for (std::string_view rest = valid; !rest.empty();) {
    const std::string_view character = rest.substr(0, sequence(rest));
    rest.remove_prefix(character.size());
    if (iscontrol(character))
      result.append("\\x").append(hexdigits(character.back()));
    else
      result.append(character);
  }
  return result;
}

std::size_t columns(std::string_view text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string hexdigits(char byte) {
  static constexpr std::string_view digits = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(byte);
  return {digits[code >> 4], digits[code & 15]};
}

std::string inquotes(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string counted(std::size_t count, std::string_view noun) {
  return std::to_string(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

tpalette::tpalette(int descriptor) : fon(colourwanted(descriptor)) {}

std::string tpalette::paint(tcolour colour, std::string_view text) const {
  static constexpr std::array<std::string_view, 5> codes = {"", "\033[1m", "\033[1;31m", "\033[1;33m",
                                                            "\033[1;36m"};
  if (!fon || colour == tcolour::none) return std::string(text);
  return std::string(codes[static_cast<std::size_t>(colour)]) + std::string(text) + "\033[0m";
}

}  // namespace tool
