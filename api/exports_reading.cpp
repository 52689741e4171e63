// Entry points: lifecycle, reading, writing, messages, resetting. Except for the lifecycle, each calls the
// store's method of the same name. The form for zero-terminated texts follows directly below.
#include <pthread.h>

#include <cerrno>

#include "api/conversion.h"

using optcore::allocating;
using optcore::guarded;
using optcore::in;
using optcore::out;

namespace {

// The calls of the system that open, read and write are the places where a thread is cancelled. It would
// unwind through the library, which ends the process. So it is cancelled after the call.
class tuncancelled {
 public:
  tuncancelled() noexcept { pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &fstate); }
  ~tuncancelled() { pthread_setcancelstate(fstate, nullptr); }
  tuncancelled(const tuncancelled&) = delete;
  tuncancelled& operator=(const tuncancelled&) = delete;

 private:
  int fstate = 0;
};

template <class tcall>
auto withfiles(tvksoptions* handle, tcall call) noexcept {
  const tuncancelled scope;
  return allocating(handle, ENOMEM, call);
}

}  // namespace

// ---- lifecycle

tvksoptions* xcreate(tvksoptions** handle) {
  *handle = nullptr;
  if (!optcore::readytothrow()) return nullptr;
  try {
    *handle = new tvksoptions;
  } catch (...) {
    return nullptr;
  }
  return *handle;
}

void xfree(tvksoptions** handle) {
  delete *handle;
  *handle = nullptr;
}

// ---- reading

int32_t optreaddefinition(tvksoptions* handle, const optshortstring* filename) {
  return withfiles(handle, [&] { return handle->optreaddefinition(in(filename)); });
}
int32_t coptreaddefinition(tvksoptions* handle, const char* filename) {
  return withfiles(handle, [&] { return handle->optreaddefinition(in(filename)); });
}

int32_t optreadparameterfile(tvksoptions* handle, const optshortstring* filename) {
  return withfiles(handle, [&] { return handle->optreadparameterfile(in(filename)); });
}
int32_t coptreadparameterfile(tvksoptions* handle, const char* filename) {
  return withfiles(handle, [&] { return handle->optreadparameterfile(in(filename)); });
}

void optreadfromstr(tvksoptions* handle, const optshortstring* text) {
  withfiles(handle, [&] { handle->optreadfromstr(in(text)); });
}
void coptreadfromstr(tvksoptions* handle, const char* text) {
  withfiles(handle, [&] { handle->optreadfromstr(in(text)); });
}

void optreadfrompchar(tvksoptions* handle, const char* text) {
  withfiles(handle, [&] { handle->optreadfrompchar(text); });
}

int32_t optreadfromliststr(tvksoptions* handle, const optshortstring* name, int32_t index,
                           optshortstring* value) {
  return guarded(handle, [&] { return handle->optreadfromliststr(in(name), index, out(value)); });
}
int32_t coptreadfromliststr(tvksoptions* handle, const char* name, int32_t index, char* value) {
  return guarded(handle, [&] { return handle->optreadfromliststr(in(name), index, out(value)); });
}

// ---- writing

int32_t optwriteparameterfile(tvksoptions* handle, const optshortstring* filename) {
  return withfiles(handle, [&] { return handle->optwriteparameterfile(in(filename)); });
}
int32_t coptwriteparameterfile(tvksoptions* handle, const char* filename) {
  return withfiles(handle, [&] { return handle->optwriteparameterfile(in(filename)); });
}

void optshowhelp(tvksoptions* handle, const optshortstring* request) {
  withfiles(handle, [&] { handle->optshowhelp(in(request)); });
}
void coptshowhelp(tvksoptions* handle, const char* request) {
  withfiles(handle, [&] { handle->optshowhelp(in(request)); });
}

// ---- messages

void optaddmessage(tvksoptions* handle, const optshortstring* text) {
  guarded(handle, [&] { handle->optaddmessage(in(text)); });
}
void coptaddmessage(tvksoptions* handle, const char* text) {
  guarded(handle, [&] { handle->optaddmessage(in(text)); });
}

void optgetmessage(tvksoptions* handle, int32_t number, optshortstring* text, int32_t* kind) {
  guarded(handle, [&] { handle->optgetmessage(number, out(text), *kind); });
}
void coptgetmessage(tvksoptions* handle, int32_t number, char* text, int32_t* kind) {
  guarded(handle, [&] { handle->optgetmessage(number, out(text), *kind); });
}

void optclearmessages(tvksoptions* handle) {
  guarded(handle, [&] { handle->optclearmessages(); });
}

int32_t optmessagecount(tvksoptions* handle) {
  return guarded(handle, [&] { return handle->optmessagecount(); });
}

void opterrorcount(tvksoptions* handle, int32_t* errors, int32_t* warnings) {
  guarded(handle, [&] { handle->opterrorcount(*errors, *warnings); });
}

// ---- resetting

void optresetall(tvksoptions* handle) {
  allocating(handle, [&] { handle->optresetall(); });
}

void optresetallrecent(tvksoptions* handle) {
  guarded(handle, [&] { handle->optresetallrecent(); });
}

void optresetrecentchanges(tvksoptions* handle) {
  guarded(handle, [&] { handle->optresetrecentchanges(); });
}

int32_t optresetnr(tvksoptions* handle, int32_t number) {
  return allocating(handle, [&] { return handle->optresetnr(number); });
}
