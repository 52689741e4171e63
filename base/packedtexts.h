// Texts that belong together and no longer change, in one piece of an arena: for what there may be millions
// of.
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

  // Their number, the place of each, counted from here in bytes, and the texts in the form of heap short
  // strings; null for none.
  const std::uint32_t* fplaces = nullptr;
};

// Collects texts, each cut at 255 characters, and packs them. Its room is kept for the next ones.
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
  std::vector<std::uint32_t> fplaces;  // in ftexts
  std::string ftexts;
};

}  // namespace optcore
