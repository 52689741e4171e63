// Growth and sorting of the lists.
#include "base/vksobj.h"

#include <algorithm>
#include <limits>

namespace wexcorin {

std::int32_t growncapacity(std::int32_t capacity) {
  constexpr std::int32_t fastlimit = 0xFFFFF;
  if (capacity == 0) return 16;
  if (capacity <= fastlimit) return 8 * capacity;
  if (capacity > std::numeric_limits<std::int32_t>::max() - capacity / 4) throw std::bad_alloc();
  return capacity + capacity / 4;
}

// Splits the range around a pivot that is followed by its position. Items lo .. result.hi belong before items
// result.lo .. hi.
tquicksortclass::trange tquicksortclass::partition(trange range) {
  std::int32_t i = range.lo;
  std::int32_t j = range.hi;
  std::int32_t pivot = i + (j - i) / 2;
  do {
    while (compare(i, pivot) < 0) ++i;
    while (compare(j, pivot) > 0) --j;
    if (i > j) break;
    exchange(i, j);
    if (pivot == i)
      pivot = j;
    else if (pivot == j)
      pivot = i;
    ++i;
    --j;
  } while (i <= j);
  return {i, j};
}

// The parts of a split are sorted independently of each other, so the smaller one goes first and the stack
// stays shallow whatever the order of the items.
void tquicksortclass::quicksort(std::int32_t lo, std::int32_t hi) {
  constexpr std::size_t deepest = 32;  // each entry at most half as long as the one below it
  trange waiting[deepest];
  std::size_t depth = 0;
  trange range{lo, hi};
  for (;;) {
    while (range.lo < range.hi) {
      const trange split = partition(range);
      trange left{range.lo, split.hi};
      trange right{split.lo, range.hi};
      if (left.hi - left.lo > right.hi - right.lo) std::swap(left, right);
      waiting[depth++] = right;
      range = left;
    }
    if (depth == 0) return;
    range = waiting[--depth];
  }
}

void tquicksortclass::sortn(std::int32_t n) { quicksort(0, n - 1); }

std::int32_t txstrings::add(std::string_view text) {
  if (count() == capacity()) grow();
  return txlist<char*>::add(newstring(text));
}

std::int32_t txstrings::indexof(std::string_view text) const noexcept {
  for (std::int32_t i = 0; i < count(); ++i)
    if (struequal(get(i), text)) return i;
  return -1;
}

}  // namespace wexcorin
