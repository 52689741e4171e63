// A library that is linked with the system's library, as a solver's is that is loaded into a modelling
// system. Two of it are made.
#include <cstring>

#include "host/job.h"

// Does the job; the result is its length, of which as much as there is room for is copied to `text`. With
// null as `written` it only makes a handle and frees it.
extern "C" __attribute__((visibility("default"))) std::size_t runclient(const char* written, char* text,
                                                                        std::size_t size) {
  if (written == nullptr) {
    tvksoptions* handle = nullptr;
    xcreate(&handle);
    coptreadfromstr(handle, "help 3 --list x");
    xfree(&handle);
    return 0;
  }
  const std::string result = host::dojob(written);
  std::memcpy(text, result.data(), result.size() < size ? result.size() : size);
  return result.size();
}
