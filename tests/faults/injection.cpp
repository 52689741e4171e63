// The replaced functions. Each asks whether it is its turn to fail, and else does what the original does.
#include "faults/injection.h"

#include <poll.h>
#include <sys/types.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <new>

namespace faults {

namespace {

toperation plannedoperation = toperation::allocation;
teffect plannedeffect = teffect::fails;
int plannednumber = 0;
int count = 0;
bool armed = false;

bool isturn(toperation operation) {
  if (!armed || operation != plannedoperation) return false;
  ++count;
  return plannedeffect == teffect::failsforgood ? count >= plannednumber : count == plannednumber;
}

ssize_t failed(int error) {
  errno = error;
  return -1;
}

void* allocated(std::size_t size) {
  void* block = isturn(toperation::allocation) ? nullptr : std::malloc(std::max<std::size_t>(size, 1));
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

}  // namespace

void plan(toperation operation, teffect effect, int which) {
  plannedoperation = operation;
  plannedeffect = effect;
  plannednumber = which;
  count = 0;
}

int met() { return count; }
bool happened() { return plannednumber > 0 && count >= plannednumber; }

tarmed::tarmed() { armed = true; }
tarmed::~tarmed() { armed = false; }

}  // namespace faults

using namespace faults;

void* operator new(std::size_t size) { return allocated(size); }
void* operator new[](std::size_t size) { return allocated(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }

// The linker's names for the functions that calls are handed to, and for the originals.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

void* __real_realloc(void*, std::size_t);
void* __wrap_realloc(void* block, std::size_t size) {
  return isturn(toperation::allocation) ? nullptr : __real_realloc(block, size);
}

int __real_open(const char*, int, mode_t);
int __wrap_open(const char* name, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const auto mode = static_cast<mode_t>(va_arg(arguments, unsigned));
  va_end(arguments);
  if (isturn(toperation::open))
    return static_cast<int>(failed(plannedeffect == teffect::fails ? EMFILE : EINTR));
  return __real_open(name, flags, mode);
}

ssize_t __real_read(int, void*, std::size_t);
ssize_t __wrap_read(int descriptor, void* buffer, std::size_t size) {
  if (!isturn(toperation::read)) return __real_read(descriptor, buffer, size);
  if (plannedeffect == teffect::fails) return failed(EIO);
  return plannednumber % 2 == 0 ? failed(EINTR)
                                : __real_read(descriptor, buffer, std::min<std::size_t>(size, 3));
}

ssize_t __real_write(int, const void*, std::size_t);
ssize_t __wrap_write(int descriptor, const void* buffer, std::size_t size) {
  if (!isturn(toperation::write)) return __real_write(descriptor, buffer, size);
  if (plannedeffect == teffect::fails) return plannednumber % 2 == 0 ? 0 : failed(ENOSPC);
  return plannednumber % 2 == 0 ? failed(EINTR)
                                : __real_write(descriptor, buffer, std::min<std::size_t>(size, 3));
}

// The descriptor is gone in any case.
int __real_close(int);
int __wrap_close(int descriptor) {
  const bool turn = isturn(toperation::close);
  const int result = __real_close(descriptor);
  return turn ? static_cast<int>(failed(plannedeffect == teffect::fails ? EIO : EINTR)) : result;
}

// Fails by its time being over.
int __real_poll(pollfd*, nfds_t, int);
int __wrap_poll(pollfd* requests, nfds_t length, int patience) {
  if (!isturn(toperation::poll)) return __real_poll(requests, length, patience);
  return plannedeffect == teffect::fails ? 0 : static_cast<int>(failed(EINTR));
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
