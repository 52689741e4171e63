// Collecting and packing of texts.
#include "base/packedtexts.h"

#include <cstring>

namespace optcore {

void ttextpacker::add(std::string_view text) {
  const std::string_view kept = shortened(text);
  fplaces.push_back(static_cast<std::uint32_t>(ftexts.size()));
  ftexts.append(1, static_cast<char>(kept.size())).append(kept);
}

tpackedtexts ttextpacker::pack(tarena& arena) const {
  if (fplaces.empty()) return {};
  const std::size_t texts = (1 + fplaces.size()) * sizeof(std::uint32_t);
  auto* places = static_cast<std::uint32_t*>(arena.allocate(texts + ftexts.size()));
  std::memcpy(reinterpret_cast<char*>(places) + texts, ftexts.data(), ftexts.size());
  places[0] = static_cast<std::uint32_t>(fplaces.size());
  for (std::size_t i = 0; i < fplaces.size(); ++i)
    places[i + 1] = static_cast<std::uint32_t>(texts) + fplaces[i];
  return tpackedtexts(places);
}

}  // namespace optcore
