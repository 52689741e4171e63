// The names that are offered for a key: of the options that help lists, and their synonyms. Made once for each
// definition, because there may be very many.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "options/vksoptions.h"

namespace tool::lsp {

class tnametable {
 public:
  struct tname {
    std::string key;  // as names are compared; of a dot option with the period
    std::int32_t option;
    std::int32_t synonym;  // its position; -1 for the name of the option itself
    bool deprecated;       // or obsolete
  };

  explicit tnametable(const optcore::tvksoptions& store);

  // In the order of the definition, the synonyms last.
  const std::vector<tname>& names() const { return fnames; }
  // The same in the order of their keys.
  const std::vector<const tname*>& bykey() const { return fbykey; }

 private:
  std::vector<tname> fnames;
  std::vector<const tname*> fbykey;
};

}  // namespace tool::lsp
