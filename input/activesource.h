// Makes a scanner the one that a store is being read with, for as long as this object lives; readings may
// nest.
#pragma once

#include "options/vksoptions.h"

namespace optcore {

class tactivesource {
 public:
  tactivesource(tvksoptions& store, tlinesource& source) noexcept
      : fstore(store), fprevious(store.exchangesource(&source)) {
    source.setincluder(fprevious);
  }
  tactivesource(const tactivesource&) = delete;
  tactivesource& operator=(const tactivesource&) = delete;
  ~tactivesource() { fstore.exchangesource(fprevious); }

 private:
  tvksoptions& fstore;
  tlinesource* fprevious;
};

}  // namespace optcore
