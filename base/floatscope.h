// The floating-point settings of the calling thread while the library works. A host may round in any
// direction, trap exceptions, even those of inexact results, or flush subnormal numbers to zero. No number
// may depend on that, and no trap may be sprung. The routines of the system's library compute in places where
// one does not expect it, such as the growth of a hash table.
#pragma once

#include <xmmintrin.h>

namespace optcore {

// While this object exists the settings are the usual ones: nothing is trapped, results are rounded to
// nearest, subnormal numbers are kept. Afterwards the settings and the flags of exceptions are as before.
// Functions that compute must not be inlined beside this object, because compilers move arithmetic across it.
//
// All arithmetic of doubles is that of the SSE unit, so its control register is all that matters. The older
// unit, which only long doubles use, is left alone.
class tfloatscope {
 public:
  tfloatscope() noexcept {
    if ((fcallers & ~flags) != usual) _mm_setcsr(usual);
  }
  ~tfloatscope() {
    if (_mm_getcsr() != fcallers) _mm_setcsr(fcallers);
  }
  tfloatscope(const tfloatscope&) = delete;
  tfloatscope& operator=(const tfloatscope&) = delete;

 private:
  static constexpr unsigned flags = 0x003F;
  static constexpr unsigned usual = 0x1F80;  // all exceptions are masked, all other bits are 0
  const unsigned fcallers = _mm_getcsr();
};

}  // namespace optcore
