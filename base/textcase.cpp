// Case-insensitive comparison and hashing, eight characters at a time where the length allows it.
#include "base/textcase.h"

#include <sys/auxv.h>

#include <algorithm>
#include <cstring>

namespace optcore {

namespace {

using tword = std::uint64_t;
__extension__ using twideword = unsigned __int128;

// Converts the eight characters of a word to upper case at once. In each byte, the first sum sets the top bit
// if the character is at least 'a', the second if it is above 'z'. Where only the first is set, and the
// character is below 128, it is a lower-case letter.
tword upperword(tword word) {
  constexpr tword each = 0x0101010101010101ULL;
  const tword low = word & (each * 0x7f);
  const tword atleasta = low + each * (0x80 - 'a');
  const tword abovez = low + each * (0x7f - 'z');
  const tword lowercase = ~word & (each * 0x80) & (atleasta ^ abovez);
  return word - (lowercase >> 2);
}

tword loadword(const char* text) {
  tword word;
  std::memcpy(&word, text, sizeof word);
  return word;
}

// Packs a text of `count` characters, 1 to 7, into a word. Some characters may be loaded twice. For texts of
// the same length, equal words mean equal texts.
tword loadfew(const char* text, std::size_t count) {
  if (count >= 4) {
    std::uint32_t first;
    std::uint32_t last;
    std::memcpy(&first, text, sizeof first);
    std::memcpy(&last, text + count - sizeof last, sizeof last);
    return (tword{first} << 32) | last;
  }
  const auto code = [text](std::size_t i) { return tword{static_cast<unsigned char>(text[i])}; };
  return (code(0) << 16) | (code(count / 2) << 8) | code(count - 1);
}

// Loads the characters that follow the full words of a text of `count` characters. After a full word, the
// result overlaps that word.
inline tword loadrest(const char* text, std::size_t count) {
  return count > sizeof(tword) ? loadword(text + count - sizeof(tword)) : loadfew(text, count);
}

tword mix(tword state, tword word) noexcept {
  const auto product = static_cast<twideword>(state ^ word) * 0x9E3779B97F4A7C15ULL;
  return static_cast<tword>(product) ^ static_cast<tword>(product >> 64);
}

// The seed of the hashes, from random bytes that the system gives to each process. The address of the library
// would not do: without address randomisation it is always the same. The C library makes secrets of its own
// from these bytes, so the seed holds only half of what is in them. It has no effect on any result.
tword makeseed() noexcept {
  tword random[2] = {};
  // NOLINTNEXTLINE(performance-no-int-to-ptr) ; the system gives the address as a number
  if (const auto* bytes = reinterpret_cast<const char*>(::getauxval(AT_RANDOM)))
    std::memcpy(random, bytes, sizeof random);
  return mix(mix(0x243F6A8885A308D3ULL, random[0]), random[1]);
}

const tword seed = makeseed();  // hashes are needed only after the library was loaded

std::uint32_t folded(tword state) { return static_cast<std::uint32_t>(state ^ (state >> 32)); }

}  // namespace

std::int32_t strucmp(std::string_view a, std::string_view b) noexcept {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const std::int32_t difference = upcode(a[i]) - upcode(b[i]);
    if (difference != 0) return difference;
  }
  return static_cast<std::int32_t>(a.size()) - static_cast<std::int32_t>(b.size());
}

namespace {

bool equalanycase(const char* a, const char* b, std::size_t count) {
  std::size_t i = 0;
  for (; i + sizeof(tword) <= count; i += sizeof(tword))
    if (upperword(loadword(a + i)) != upperword(loadword(b + i))) return false;
  return i == count || upperword(loadrest(a, count)) == upperword(loadrest(b, count));
}

}  // namespace

// Compares the characters as they are first: most equal names are written the same way, and most different
// names differ in more than case.
bool detail::equalcharacters(const char* a, const char* b, std::size_t count) noexcept {
  constexpr tword casebits = 0x2020202020202020ULL;
  std::size_t i = 0;
  tword difference = 0;
  for (; i + sizeof(tword) <= count && difference == 0; i += sizeof(tword))
    difference = loadword(a + i) ^ loadword(b + i);
  if (difference == 0 && i != count) difference = loadrest(a, count) ^ loadrest(b, count);
  return difference == 0 || ((difference & ~casebits) == 0 && equalanycase(a, b, count));
}

std::uint32_t struhash(std::string_view text) noexcept {
  tword state = seed + text.size();
  std::size_t i = 0;
  for (; i + sizeof(tword) <= text.size(); i += sizeof(tword))
    state = mix(state, upperword(loadword(text.data() + i)));
  if (i < text.size()) state = mix(state, upperword(loadrest(text.data(), text.size())));
  return folded(state);
}

std::uint32_t inthash(std::int32_t number) noexcept { return folded(mix(seed, static_cast<tword>(number))); }

}  // namespace optcore
