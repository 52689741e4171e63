// The out-of-line forms of comparison and hashing, and the seed of the hashes.
#include "base/textcase.h"

#include <sys/auxv.h>

#include <algorithm>
#include <cstring>

#include "base/textblocks.h"

namespace optcore {

namespace {

// The seed of the hashes, from random bytes that the system gives to each process. The address of the library
// would not do: without address randomisation it is always the same. The C library makes secrets of its own
// from these bytes, so the seed holds only half of what is in them. It has no effect on any result.
detail::thashseed makeseed() noexcept {
  constexpr std::uint64_t factor = 0x9E3779B97F4A7C15ULL;
  std::uint64_t random[2] = {};
  // NOLINTNEXTLINE(performance-no-int-to-ptr) ; the system gives the address as a number
  if (const auto* bytes = reinterpret_cast<const char*>(::getauxval(AT_RANDOM)))
    std::memcpy(random, bytes, sizeof random);
  const std::uint64_t half = detail::multiplied(0x243F6A8885A308D3ULL ^ random[0], factor);
  const std::uint64_t first = detail::multiplied(half ^ random[1], factor);
  return {first, detail::multiplied(first ^ 0x13198A2E03707344ULL, factor)};
}

}  // namespace

const detail::thashseed detail::hashseed = makeseed();  // needed only after the library was loaded

std::int32_t strucmp(std::string_view a, std::string_view b) noexcept {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const std::int32_t difference = upcode(a[i]) - upcode(b[i]);
    if (difference != 0) return difference;
  }
  return static_cast<std::int32_t>(a.size()) - static_cast<std::int32_t>(b.size());
}

bool detail::equalfolded(const char* a, const char* b, std::size_t count) noexcept {
  return allequal(a, b, count,
                  [](tblock x, tblock y) { return _mm_cmpeq_epi8(upperblock(x), upperblock(y)); });
}

std::uint32_t struhash(std::string_view text) noexcept { return hashanycase(text); }

std::uint32_t inthash(std::int32_t number) noexcept {
  const auto code = static_cast<std::uint32_t>(number);
  const std::uint64_t state = detail::multiplied(detail::hashseed.first ^ code, detail::hashseed.second);
  return static_cast<std::uint32_t>(state ^ (state >> 32));
}

}  // namespace optcore
