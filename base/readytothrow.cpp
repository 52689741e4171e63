// Prepares threads for exceptions.
#include "base/readytothrow.h"

#include <limits.h>
#include <pthread.h>

#include <cxxabi.h>
#include <cstddef>
#include <cstdlib>

namespace optcore {

namespace {

// Remembers the threads that are ready. A variable of each thread would not do: it is allocated in the same way.
class tthreads {
 public:
  tthreads() noexcept {
    if (pthread_key_create(&fkey, nullptr) != 0) fkey = PTHREAD_KEYS_MAX;  // none is remembered then
  }
  ~tthreads() { pthread_key_delete(fkey); }
  tthreads(const tthreads&) = delete;
  tthreads& operator=(const tthreads&) = delete;

  bool hasthis() const noexcept { return pthread_getspecific(fkey) != nullptr; }
  void addthis() const noexcept { pthread_setspecific(fkey, this); }

 private:
  pthread_key_t fkey = PTHREAD_KEYS_MAX;
};

const tthreads readythreads;

// More than the runtime's bytes and the system's table of a thousand libraries with variables of threads.
constexpr std::size_t enough = 20'000;

[[gnu::noinline, gnu::cold]] bool makeready() noexcept {
  void* volatile block = std::malloc(enough);  // volatile, or the compiler would leave out these calls
  if (block == nullptr) return false;
  std::free(block);
  block = abi::__cxa_get_globals();  // takes its memory from what has just been freed
  readythreads.addthis();
  return true;
}

}  // namespace

bool readytothrow() noexcept { return readythreads.hasthis() || makeready(); }

}  // namespace optcore
