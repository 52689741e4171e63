// Memory for what definitions say: texts and objects that stay as long as the store that they belong to. It
// is taken from the system in large blocks and given back as a whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

#include "base/heapstring.h"

namespace optcore {

// A text in an arena, in the form of heap short strings: the empty text is no block.
class tstoredtext {
 public:
  tstoredtext() noexcept = default;
  explicit tstoredtext(char* block) noexcept : fblock(block) {}
  std::string_view view() const noexcept { return getstring(fblock); }
  char* block() const noexcept { return fblock; }

 private:
  char* fblock = nullptr;
};

class tarena {
 public:
  tarena() noexcept = default;
  tarena(const tarena&) = delete;
  tarena& operator=(const tarena&) = delete;
  ~tarena();

  // An object that is made here, as whoever takes it must hold it: with its owner, or as a plain pointer if
  // there is nothing to destroy. Throws std::bad_alloc.
  template <class tobject>
  using tmade =
      std::conditional_t<std::is_trivially_destructible_v<tobject>, tobject*, std::unique_ptr<tobject>>;
  template <class tobject, class... targuments>
  tmade<tobject> make(targuments&&... arguments) {
    return tmade<tobject>(new (*this) tobject(std::forward<targuments>(arguments)...));
  }
  // Room that is aligned for any of them. Throws std::bad_alloc.
  void* allocate(std::size_t size) {
    fnext += -reinterpret_cast<std::uintptr_t>(fnext) % alignment;
    return take(size);
  }
  // A copy of the first 255 characters. Throws std::bad_alloc.
  tstoredtext text(std::string_view text);

 private:
  static constexpr std::size_t alignment = alignof(double);
  struct tblock {
    tblock* previous;
  };

  char* take(std::size_t size) {
    if (size > static_cast<std::size_t>(fend - fnext)) addblock(size);
    char* room = fnext;
    fnext += size;
    return room;
  }
  void addblock(std::size_t size);

  tblock* fblocks = nullptr;
  std::size_t fblocksize = 0;
  char* fnext = nullptr;  // the room that is left
  char* fend = nullptr;
};

// The base of objects that are made in an arena. They are deleted like any others, but their memory stays.
class tinarena {
 public:
  // When a constructor throws there is nothing to give back: the arena keeps the memory.
  static void* operator new(std::size_t size, tarena& arena) {  // NOLINT(cert-dcl54-cpp)
    return arena.allocate(size);
  }
  static void operator delete(void*) noexcept {}  // NOLINT(cert-dcl54-cpp): there is no new without arena

 protected:
  tinarena() noexcept = default;
  ~tinarena() = default;
};

}  // namespace optcore
