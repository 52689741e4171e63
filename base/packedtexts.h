// An immutable list of texts, stored in one piece of an arena. It is meant for the elements of dot entries
// and indicators, of which there may be millions. ttextpacker collects the texts and packs them.
#pragma once

#include <cassert>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/arena.h"
#include "base/heapstring.h"

namespace optcore {

class tpackedtexts {
 public:
  tpackedtexts() noexcept = default;
  std::int32_t count() const noexcept {
    return fplaces == nullptr ? 0 : static_cast<std::int32_t>(fplaces[0]);
  }
  std::string_view get(std::int32_t index) const noexcept {
    assert(index >= 0 && index < count());
    return getstring(reinterpret_cast<const char*>(fplaces) + fplaces[index + 1]);
  }

 private:
  friend class ttextpacker;
  explicit tpackedtexts(const std::uint32_t* places) noexcept : fplaces(places) {}

  // The number of texts, the offset of each in bytes from fplaces, then the texts in the form of heap short
  // strings. Null for the empty list. The arena owns the memory.
  const std::uint32_t* fplaces = nullptr;
};

// Collects texts, each cut at 255 characters, and packs them. It keeps its memory for the next list.
class ttextpacker {
 public:
  void clear() noexcept {
    fplaces.clear();
    ftexts.clear();
  }
  void add(std::string_view text);
  std::int32_t count() const noexcept { return static_cast<std::int32_t>(fplaces.size()); }
  std::string_view get(std::int32_t index) const noexcept {
    assert(index >= 0 && index < count());
    return getstring(ftexts.data() + fplaces[static_cast<std::size_t>(index)]);
  }
  tpackedtexts pack(tarena& arena) const;

 private:
  std::vector<std::uint32_t> fplaces;  // the offset of each text in ftexts
  std::string ftexts;
};

}  // namespace optcore
