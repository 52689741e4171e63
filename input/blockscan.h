// Finds the end of a token, sixteen characters at a time. Each search begins in a line and ends at the latest at
// its end; up to `blockpadding` bytes behind the end may be read, so there must be so many.
#pragma once

#include <bit>
#include <cstddef>

#include "base/textblocks.h"

namespace optcore {

inline constexpr std::size_t blockpadding = detail::blockbytes - 1;

// The first character for which matches(block) has its bits set.
template <class tmatches>
char* findinblocks(char* text, tmatches matches) noexcept {
  for (;; text += detail::blockbytes) {
    const auto found = static_cast<unsigned>(_mm_movemask_epi8(matches(detail::loadblock(text))));
    if (found != 0) return text + std::countr_zero(found);
  }
}

// The first character that is no letter, digit or underscore.
inline char* identifierend(char* text) noexcept {
  using namespace detail;
  return findinblocks(text, [](tblock block) {
    const tblock isletter = islower(_mm_or_si128(block, each('a' - 'A')));
    const tblock isdigit = _mm_cmplt_epi8(_mm_add_epi8(block, each(-128 - '0')), each(-128 + 10));
    const tblock belongs = _mm_or_si128(_mm_or_si128(isletter, isdigit), _mm_cmpeq_epi8(block, each('_')));
    return _mm_cmpeq_epi8(belongs, _mm_setzero_si128());
  });
}

// The first character that is one of these.
template <class... tcharacters>
char* findanyof(char* text, tcharacters... characters) noexcept {
  using namespace detail;
  return findinblocks(text, [=](tblock block) {
    tblock found = _mm_setzero_si128();
    ((found = _mm_or_si128(found, _mm_cmpeq_epi8(block, each(characters)))), ...);
    return found;
  });
}

}  // namespace optcore
