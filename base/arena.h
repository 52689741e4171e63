// An arena: memory for objects and texts that live as long as their owner, such as the contents of a
// definition. It is allocated in large blocks and freed as a whole when the arena is destroyed. The arena
// does not call destructors.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

#include "base/heapstring.h"

namespace optcore {

// A text in an arena, in the form of heapstring.h: a length byte and the characters, or no block for the
// empty text. The arena owns the block.
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

  // Makes an object in the arena. The result is a unique_ptr, which runs the destructor, or a plain pointer
  // if the destructor does nothing. Throws std::bad_alloc.
  template <class tobject>
  using tmade =
      std::conditional_t<std::is_trivially_destructible_v<tobject>, tobject*, std::unique_ptr<tobject>>;
  template <class tobject, class... targuments>
  tmade<tobject> make(targuments&&... arguments) {
    static_assert(alignof(tobject) <= alignment);
    return tmade<tobject>(new (*this) tobject(std::forward<targuments>(arguments)...));
  }
  // Returns `size` bytes, aligned for every type that is made here. Throws std::bad_alloc.
  void* allocate(std::size_t size) {
    fnext += -reinterpret_cast<std::uintptr_t>(fnext) % alignment;
    return take(size);
  }
  // Stores a copy of the first 255 characters. Throws std::bad_alloc.
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
  char* fnext = nullptr;  // the unused part of the newest block, up to fend
  char* fend = nullptr;
};

// The base class of objects in an arena. Deleting one runs its destructor; its memory is freed with the
// arena.
class tinarena {
 public:
  // There is no matching operator delete: when a constructor throws, the memory stays in the arena.
  static void* operator new(std::size_t size, tarena& arena) {  // NOLINT(cert-dcl54-cpp)
    return arena.allocate(size);
  }
  static void operator delete(void*) noexcept {}  // NOLINT(cert-dcl54-cpp): there is no new without arena

 protected:
  tinarena() noexcept = default;
  ~tinarena() = default;
};

}  // namespace optcore
