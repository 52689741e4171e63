// Sees to it that running out of memory does not end the process. The C++ runtime reports it by an exception,
// and keeps a few bytes about exceptions for each thread. When it was loaded by dlopen, the system allocates
// these bytes at the first exception of a thread, and ends the process if it cannot.
#pragma once

namespace optcore {

// Whether the calling thread can throw. Allocates what that needs, so it is called before the work that may run
// out of memory. Once the result is true, it stays true for the thread. With false, nothing may throw.
bool readytothrow() noexcept;

}  // namespace optcore
