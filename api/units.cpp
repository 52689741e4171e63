// Start and stop of the library's units. Only units with state are listed here. Text conversion, string
// routines, lists and the scanner have none and need no start.
#include "api/units.h"

#include <array>
#include <cstddef>

#include "base/zqaaudit.h"
#include "options/globals.h"

namespace optcore {

namespace {

struct tunit {
  void (*start)();
  void (*stop)();
};

// In the order of the start: a unit may use those before it. They are stopped in reverse order.
constexpr std::array<tunit, 2> units = {{
    {zqaauditstart, zqaauditstop},
    {vksoptionsstart, vksoptionsstop},
}};

int loadcount = 0;
std::array<texitprocedure, 16> exitprocedures{};
std::size_t exitcount = 0;

}  // namespace

void libraryload() {
  if (loadcount++ > 0) return;
  for (const tunit& unit : units) unit.start();
}

void libraryunload() {
  if (--loadcount > 0) return;
  while (exitcount > 0) exitprocedures[--exitcount]();
  for (std::size_t i = units.size(); i-- > 0;) units[i].stop();
}

bool registerexitprocedure(texitprocedure procedure) {
  if (exitcount == exitprocedures.size()) return false;
  exitprocedures[exitcount++] = procedure;
  return true;
}

namespace {

// The dynamic loader constructs this object when it loads the library and destroys it on unload.
struct tlibrary {
  tlibrary() noexcept { libraryload(); }
  ~tlibrary() { libraryunload(); }
};
const tlibrary library;

}  // namespace

}  // namespace optcore
