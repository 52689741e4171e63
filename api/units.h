// Start and stop of the library's units, the modules with state that all handles share. Loads are counted:
// the first one starts the units, and the last unload stops them.
#pragma once

namespace optcore {

void libraryload();
void libraryunload();

// Registers a procedure that is called at the last unload, before the units stop. Procedures are called in
// reverse order of registration. Returns false when 16 are registered already.
using texitprocedure = void (*)();
bool registerexitprocedure(texitprocedure procedure);

}  // namespace optcore
