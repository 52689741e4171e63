// Growth and sorting of the lists.
#include "base/vksobj.h"

#include <limits>

namespace optcore {

std::int32_t growncapacity(std::int32_t capacity) {
  constexpr std::int32_t fastlimit = 0xFFFFF;
  if (capacity == 0) return 16;
  if (capacity <= fastlimit) return 8 * capacity;
  if (capacity > std::numeric_limits<std::int32_t>::max() - capacity / 4) throw std::bad_alloc();
  return capacity + capacity / 4;
}

// Splits the range around a pivot. `pivot` is its position, which is updated when an exchange moves it.
// Afterwards no item of range.lo .. result.hi belongs after an item of result.lo .. range.hi.
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

// Moves the item at `root` down in the heap until none of its children belongs after it.
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

// Of the two parts of a split, the smaller one is sorted first, so the stack stays shallow for every order of
// the items. An order that is made to meet bad pivots would take quadratic time; therefore a part that was
// split far more often than halving needs is sorted by heapsort.
void tquicksortclass::quicksort(std::int32_t lo, std::int32_t hi) {
  constexpr std::size_t deepest = 32;  // each part at most half as long as the one below it
  struct tpart {
    trange range;
    int splits;  // how often it may still be split
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

// The list grows before the text is allocated, so a failure to grow loses no text.
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
