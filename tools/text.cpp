// Converts texts to UTF-8, escapes what could deceive a reader and adds colours.
#include "tools/text.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "base/textcase.h"
#include "tools/terminal.h"

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

char32_t codeof(std::string_view character) {
  const unsigned char first = byteat(character, 0);
  if (character.size() == 1) return first;
  char32_t code = first & (0x7FU >> character.size());
  for (std::size_t position = 1; position < character.size(); ++position)
    code = (code << 6) | (byteat(character, position) & 0x3F);
  return code;
}

struct trange {
  char32_t first, last;
};

// What controls a terminal, changes the order in which text is shown, or is not seen: the control characters,
// the characters with the property Default_Ignorable_Code_Point of Unicode, the separators of lines and
// paragraphs, and the marks of annotations.
constexpr auto deceiving = std::to_array<trange>({
    {0x00, 0x1F},        // control characters
    {0x7F, 0x9F},        // DEL and the further control characters
    {0xAD, 0xAD},        // soft hyphen
    {0x34F, 0x34F},      // combining grapheme joiner
    {0x61C, 0x61C},      // Arabic letter mark
    {0x115F, 0x1160},    // Hangul fillers
    {0x17B4, 0x17B5},    // Khmer inherent vowels
    {0x180B, 0x180F},    // Mongolian variation selectors and vowel separator
    {0x200B, 0x200F},    // zero-width characters and marks of direction
    {0x2028, 0x202E},    // line and paragraph separator, embeddings and overrides of direction
    {0x2060, 0x206F},    // word joiner, invisible operators, isolates of direction
    {0x3164, 0x3164},    // Hangul filler
    {0xFE00, 0xFE0F},    // variation selectors
    {0xFEFF, 0xFEFF},    // byte order mark
    {0xFFA0, 0xFFA0},    // halfwidth Hangul filler
    {0xFFF0, 0xFFFB},    // unassigned, and marks of annotations
    {0x1BCA0, 0x1BCA3},  // controls of shorthand
    {0x1D173, 0x1D17A},  // invisible marks of musical notes
    {0xE0000, 0xE0FFF},  // tags, which are invisible copies of ASCII, and further variation selectors
});

bool deceives(char32_t code) {
  if (code >= 0x20 && code < 0x7F) return false;  // as nearly all are
  return std::ranges::any_of(deceiving, [&](trange each) { return code >= each.first && code <= each.last; });
}

std::string digitsof(char32_t code, int count) {
  std::string result;
  for (int shift = 4 * (count - 1); shift >= 0; shift -= 4)
    result.push_back("0123456789abcdef"[(code >> shift) & 15]);
  return result;
}

// Replaces the characters of a text that deceive with what `escape` makes of their codes.
template <class tescape>
std::string withescapes(std::string_view text, std::string_view kept, const tescape& escape) {
  const std::string valid = utf8(text);
  std::string result;
  for (std::string_view rest = valid; !rest.empty();) {
    const std::string_view character = rest.substr(0, sequence(rest));
    rest.remove_prefix(character.size());
    const char32_t code = codeof(character);
    if (deceives(code) && !kept.starts_with(character))
      result += escape(code);
    else
      result += character;
  }
  return result;
}

std::string escapefortext(char32_t code) {
  if (code < 0x100) return "\\x" + digitsof(code, 2);
  return code < 0x10000 ? "\\u" + digitsof(code, 4) : "\\U" + digitsof(code, 8);
}

// A character beyond U+FFFF is a pair of escapes in JSON.
std::string escapeforjson(char32_t code) {
  if (code < 0x10000) return "\\u" + digitsof(code, 4);
  const char32_t rest = code - 0x10000;
  return "\\u" + digitsof(0xD800 + (rest >> 10), 4) + "\\u" + digitsof(0xDC00 + (rest & 0x3FF), 4);
}

tcolours& colours() {
  static tcolours when = tcolours::automatic;
  return when;
}

bool colourwanted(int descriptor) {
  if (colours() != tcolours::automatic) return colours() == tcolours::always;
  // NOLINTBEGIN(concurrency-mt-unsafe): the tool has one thread
  const char* forbidden = std::getenv("NO_COLOR");
  const char* terminal = std::getenv("TERM");
  // NOLINTEND(concurrency-mt-unsafe)
  return isshown(descriptor) && (forbidden == nullptr || *forbidden == '\0') && terminal != nullptr &&
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

std::string printable(std::string_view text) { return withescapes(text, {}, escapefortext); }
std::string printabletext(std::string_view text) { return withescapes(text, "\n", escapefortext); }
std::string printableprose(std::string_view text) { return withescapes(text, "\t", escapefortext); }
std::string printablejson(std::string_view text) { return withescapes(text, "\n", escapeforjson); }

std::size_t columns(std::string_view text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string hexdigits(char byte) { return digitsof(static_cast<unsigned char>(byte), 2); }

std::string percentcode(char byte) {
  std::string result = "%" + hexdigits(byte);
  for (char& c : result) c = optcore::upchar(c);
  return result;
}

std::string inquotes(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string counted(std::size_t count, std::string_view noun) {
  return std::to_string(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

void setcolours(tcolours when) { colours() = when; }

tpalette::tpalette(int descriptor) : fon(colourwanted(descriptor)) {}

std::string tpalette::paint(tcolour colour, std::string_view text) const {
  static constexpr std::array<std::string_view, 6> codes = {"",           "\033[1m",    "\033[1;31m",
                                                            "\033[1;32m", "\033[1;33m", "\033[1;36m"};
  if (!fon || colour == tcolour::none) return std::string(text);
  return std::string(codes[static_cast<std::size_t>(colour)]) + std::string(text) + "\033[0m";
}

}  // namespace tool
