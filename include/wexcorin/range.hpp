// range.hpp: the numbered things of the library as ranges, for C++17 and later. Part of wexcorin.hpp.
#ifndef WEXCORIN_RANGE_HPP
#define WEXCORIN_RANGE_HPP

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>
#if __cplusplus >= 202002L
#include <ranges>
#endif

#include "wexcorin/wexcorin.h"

namespace wexcorin {

namespace detail {

// Reads the element of a number, from 1. `outer` is the number of what contains the element, such as the
// option of an item, or 0.
template <class telement>
struct source {
  tvksoptions* handle;
  telement (*read)(tvksoptions* handle, std::int32_t outer, std::int32_t number);
  std::int32_t outer;

  telement operator()(std::int32_t number) const { return read(handle, outer, number); }
};

// The result of operator-> on an iterator that makes an element each time it is dereferenced.
template <class telement>
struct arrow {
  telement element;
  telement* operator->() noexcept { return &element; }
};

}  // namespace detail

// A random access range over things that the library numbers from 1; positions in the range begin at 0. It is
// a view: it can be copied, and its iterators may outlive it. It stays valid when the options object is
// moved, and becomes invalid when that object is destroyed. Its size is the count at the time when it was
// made. An element is read each time an iterator to it is dereferenced, so make a new range after elements
// were cleared or removed.
template <class telement>
class range {
 public:
  using value_type = telement;

  class iterator {
   public:
    using iterator_concept = std::random_access_iterator_tag;
    using iterator_category = std::input_iterator_tag;  // stronger ones must return references in C++17
    using value_type = telement;
    using difference_type = std::ptrdiff_t;
    using pointer = detail::arrow<telement>;
    using reference = telement;

    iterator() = default;
    iterator(const detail::source<telement>& elements, std::int32_t number)
        : fsource(elements), fnumber(number) {}
    reference operator*() const { return fsource(fnumber); }
    pointer operator->() const { return pointer{**this}; }
    reference operator[](difference_type offset) const { return *(*this + offset); }

    iterator& operator+=(difference_type offset) {
      fnumber += static_cast<std::int32_t>(offset);
      return *this;
    }
    iterator& operator-=(difference_type offset) { return *this += -offset; }
    iterator& operator++() { return *this += 1; }
    iterator& operator--() { return *this += -1; }
    iterator operator++(int) { return std::exchange(*this, *this + 1); }
    iterator operator--(int) { return std::exchange(*this, *this - 1); }
    friend iterator operator+(iterator it, difference_type offset) { return it += offset; }
    friend iterator operator+(difference_type offset, iterator it) { return it += offset; }
    friend iterator operator-(iterator it, difference_type offset) { return it -= offset; }
    friend difference_type operator-(const iterator& a, const iterator& b) {
      return difference_type{a.fnumber} - b.fnumber;
    }
    friend bool operator==(const iterator& a, const iterator& b) { return a.fnumber == b.fnumber; }
    friend bool operator!=(const iterator& a, const iterator& b) { return a.fnumber != b.fnumber; }
    friend bool operator<(const iterator& a, const iterator& b) { return a.fnumber < b.fnumber; }
    friend bool operator>(const iterator& a, const iterator& b) { return a.fnumber > b.fnumber; }
    friend bool operator<=(const iterator& a, const iterator& b) { return a.fnumber <= b.fnumber; }
    friend bool operator>=(const iterator& a, const iterator& b) { return a.fnumber >= b.fnumber; }

   private:
    detail::source<telement> fsource{};
    std::int32_t fnumber = 0;
  };
  using const_iterator = iterator;

  range() = default;
  range(std::int32_t size, const detail::source<telement>& elements) : fsource(elements), fsize(size) {}
  iterator begin() const { return iterator(fsource, 1); }
  iterator end() const { return iterator(fsource, fsize + 1); }
  telement operator[](std::size_t position) const { return fsource(static_cast<std::int32_t>(position) + 1); }
  std::size_t size() const { return static_cast<std::size_t>(fsize); }
  bool empty() const { return fsize == 0; }

 private:
  detail::source<telement> fsource{};
  std::int32_t fsize = 0;
};

}  // namespace wexcorin

#ifdef __cpp_lib_ranges
template <class telement>
inline constexpr bool std::ranges::enable_view<wexcorin::range<telement>> = true;
template <class telement>
inline constexpr bool std::ranges::enable_borrowed_range<wexcorin::range<telement>> = true;
#endif

#endif
