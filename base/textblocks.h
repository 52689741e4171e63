// Comparison and hashing regardless of case, sixteen characters at a time. These are the inline forms of
// struequal and struhash, for the few places where names are searched for.
#pragma once

#include <emmintrin.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "base/textcase.h"

namespace optcore {

namespace detail {

using tblock = __m128i;  // sixteen characters
inline constexpr std::size_t blockbytes = sizeof(tblock);

inline tblock each(int code) noexcept { return _mm_set1_epi8(static_cast<char>(code)); }

inline tblock loadblock(const char* text) noexcept {
  return _mm_loadu_si128(reinterpret_cast<const tblock*>(text));
}

template <class tinteger>
long long load(const char* text) noexcept {
  tinteger integer;
  std::memcpy(&integer, text, sizeof integer);
  return static_cast<long long>(integer);
}

// The first characters of the text and its last ones; they may overlap.
template <class tinteger>
tblock loadends(const char* text, std::size_t count) noexcept {
  return _mm_set_epi64x(load<tinteger>(text + count - sizeof(tinteger)), load<tinteger>(text));
}

// Packs a text of less than a block into a block. Some characters may be loaded twice. For texts of the same
// length, equal blocks mean equal texts.
inline tblock loadfew(const char* text, std::size_t count) noexcept {
  if (count >= sizeof(std::uint64_t)) return loadends<std::uint64_t>(text, count);
  if (count >= sizeof(std::uint32_t)) return loadends<std::uint32_t>(text, count);
  if (count >= sizeof(std::uint16_t)) return loadends<std::uint16_t>(text, count);
  return count != 0 ? loadends<std::uint8_t>(text, count) : _mm_setzero_si128();
}

// All bits where the block has a letter from a to z, which become the lowest signed numbers.
inline tblock islower(tblock block) noexcept {
  return _mm_cmplt_epi8(_mm_add_epi8(block, each(-128 - 'a')), each(-128 + 26));
}

inline tblock upperblock(tblock block) noexcept {
  return _mm_sub_epi8(block, _mm_and_si128(islower(block), each('a' - 'A')));
}

// Whether equal(block of a, block of b) has all bits set for all blocks of two texts with the same length.
template <class tequal>
[[gnu::always_inline]] inline bool allequal(const char* a, const char* b, std::size_t count,
                                            tequal equal) noexcept {
  tblock result;
  if (count < blockbytes) {
    result = equal(loadfew(a, count), loadfew(b, count));
  } else {
    const std::size_t last = count - blockbytes;
    result = equal(loadblock(a + last), loadblock(b + last));
    std::size_t i = 0;
    do {
      result = _mm_and_si128(result, equal(loadblock(a + i), loadblock(b + i)));
      i += blockbytes;
    } while (i < last);
  }
  return _mm_movemask_epi8(result) == 0xFFFF;
}

// Two secret numbers of the process, see textcase.cpp.
struct thashseed {
  std::uint64_t first, second;
};
extern const thashseed hashseed;

inline std::uint64_t multiplied(std::uint64_t a, std::uint64_t b) noexcept {
  __extension__ using twide = unsigned __int128;
  const twide product = static_cast<twide>(a) * b;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

// Both factors hold a part of the secret, so nobody can choose texts that give equal products.
inline std::uint64_t mixblock(std::uint64_t state, tblock block) noexcept {
  const auto first = static_cast<std::uint64_t>(_mm_cvtsi128_si64(block));
  const auto last = static_cast<std::uint64_t>(_mm_cvtsi128_si64(_mm_unpackhi_epi64(block, block)));
  return multiplied(first ^ state, last ^ hashseed.second);
}

}  // namespace detail

// `sought` is the text at hand. Its length alone decides how the texts are compared, because the other text
// may have to be fetched from memory. Names are usually written in the case of their definition, so case is
// folded only when they are not.
[[gnu::always_inline]] inline bool equalanycase(std::string_view text, std::string_view sought) noexcept {
  using namespace detail;
  if (sought.size() != text.size()) return false;
  const auto equal = [](tblock a, tblock b) { return _mm_cmpeq_epi8(a, b); };
  const auto folded = [](tblock a, tblock b) { return _mm_cmpeq_epi8(upperblock(a), upperblock(b)); };
  return allequal(sought.data(), text.data(), sought.size(), equal) ||
         allequal(sought.data(), text.data(), sought.size(), folded);
}

// Whether the character, which is not zero, occurs in the text. Most texts are short.
inline bool contains(std::string_view text, char character) noexcept {
  using namespace detail;
  if (text.size() >= blockbytes) return text.find(character) != std::string_view::npos;
  return _mm_movemask_epi8(_mm_cmpeq_epi8(loadfew(text.data(), text.size()), each(character))) != 0;
}

[[gnu::always_inline]] inline std::uint32_t hashanycase(std::string_view text) noexcept {
  using namespace detail;
  const std::size_t count = text.size();
  const char* const characters = text.data();
  std::uint64_t state = hashseed.first + count;
  if (count < blockbytes) {
    state = mixblock(state, upperblock(loadfew(characters, count)));
  } else {
    const std::size_t last = count - blockbytes;
    std::size_t i = 0;
    do {
      state = mixblock(state, upperblock(loadblock(characters + i)));
      i += blockbytes;
    } while (i < last);
    state = mixblock(state, upperblock(loadblock(characters + last)));
  }
  return static_cast<std::uint32_t>(state ^ (state >> 32));
}

}  // namespace optcore
