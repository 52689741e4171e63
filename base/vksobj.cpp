// Growth and sorting of the lists.
#include "base/vksobj.h"

#include <algorithm>
#include <limits>

namespace optcore {

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
  while (i <= j) {
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
  }
  return {i, j};
}

// Moves the item at `root` of the heap lo .. hi down until none below belongs behind it.
void tquicksortclass::siftdown(trange heap, std::int32_t root) {
  while (root - heap.lo < heap.hi - root) {
    const std::int32_t left = root + (root - heap.lo) + 1;
    const std::int32_t child = left < heap.hi && compare(left, left + 1) < 0 ? left + 1 : left;
    if (compare(root, child) >= 0) return;
    exchange(root, child);
    root = child;
  }
}

void tquicksortclass::heapsort(trange range) {
  for (std::int32_t root = range.lo + (range.hi - range.lo) / 2; root >= range.lo; --root)
    siftdown(range, root);
  while (range.lo < range.hi) {
    exchange(range.lo, range.hi);
    --range.hi;
    siftdown(range, range.lo);
  }
}

// The parts of a split are sorted independently of each other, so the smaller one goes first and the stack
// stays shallow whatever the order of the items. An order made to meet bad pivots would take quadratic time:
// what has been split far more often than halving needs goes to the heap sort.
void tquicksortclass::quicksort(std::int32_t lo, std::int32_t hi) {
  constexpr std::size_t deepest = 32;  // each part at most half as long as the one below it
  struct tpart {
    trange range;
    int splits;  // that are left
  } waiting[deepest];
  std::size_t depth = 0;
  tpart part{{lo, hi}, 4 * std::numeric_limits<std::int32_t>::digits};
  for (;;) {
    while (part.range.lo < part.range.hi) {
      if (part.splits-- == 0) {
        heapsort(part.range);
        break;
      }
      const trange split = partition(part.range);
      trange left{part.range.lo, split.hi};
      trange right{split.lo, part.range.hi};
      if (left.hi - left.lo > right.hi - right.lo) std::swap(left, right);
      waiting[depth++] = {right, part.splits};
      part.range = left;
    }
    if (depth == 0) return;
    part = waiting[--depth];
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

}  // namespace optcore
