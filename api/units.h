// Start and stop of the library's units. The first load starts them, the last unload stops them.
#pragma once

namespace optcore {

void libraryload();
void libraryunload();

// A procedure to run at the last unload, before the units stop; the last one registered runs first. At most
// 16.
using texitprocedure = void (*)();
bool registerexitprocedure(texitprocedure procedure);

}  // namespace optcore
