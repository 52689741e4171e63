// Entry points: lookup, values by number and by name. Each calls the store's method of the same name. The
// form for zero-terminated texts follows directly below.
#include "api/conversion.h"

using optcore::allocating;
using optcore::barrier;
using optcore::guarded;
using optcore::in;
using optcore::out;

// ---- lookup

int32_t optfindstr(tvksoptions* handle, const optshortstring* name, int32_t* number, int32_t* refnr) {
  return barrier(handle, [&] { return handle->optfindstr(in(name), *number, *refnr); });
}
int32_t coptfindstr(tvksoptions* handle, const char* name, int32_t* number, int32_t* refnr) {
  return barrier(handle, [&] { return handle->optfindstr(in(name), *number, *refnr); });
}

int32_t optlookup(tvksoptions* handle, const optshortstring* name) {
  return barrier(handle, -1, [&] { return handle->optlookup(in(name)); });
}
int32_t coptlookup(tvksoptions* handle, const char* name) {
  return barrier(handle, -1, [&] { return handle->optlookup(in(name)); });
}

// ---- values by number

int32_t optgetvaluesnr(tvksoptions* handle, int32_t number, optshortstring* name, int32_t* ivalue,
                       double* dvalue, optshortstring* svalue) {
  return guarded(handle,
                 [&] { return handle->optgetvaluesnr(number, out(name), *ivalue, *dvalue, out(svalue)); });
}
int32_t coptgetvaluesnr(tvksoptions* handle, int32_t number, char* name, int32_t* ivalue, double* dvalue,
                        char* svalue) {
  return guarded(handle,
                 [&] { return handle->optgetvaluesnr(number, out(name), *ivalue, *dvalue, out(svalue)); });
}

int32_t optsetvaluesnr(tvksoptions* handle, int32_t number, int32_t ivalue, double dvalue,
                       const optshortstring* svalue) {
  return allocating(handle, [&] { return handle->optsetvaluesnr(number, ivalue, dvalue, in(svalue)); });
}
int32_t coptsetvaluesnr(tvksoptions* handle, int32_t number, int32_t ivalue, double dvalue,
                        const char* svalue) {
  return allocating(handle, [&] { return handle->optsetvaluesnr(number, ivalue, dvalue, in(svalue)); });
}

int32_t optsetvalues2nr(tvksoptions* handle, int32_t number, int32_t ivalue, double dvalue,
                        const optshortstring* svalue) {
  return allocating(handle, [&] { return handle->optsetvalues2nr(number, ivalue, dvalue, in(svalue)); });
}
int32_t coptsetvalues2nr(tvksoptions* handle, int32_t number, int32_t ivalue, double dvalue,
                         const char* svalue) {
  return allocating(handle, [&] { return handle->optsetvalues2nr(number, ivalue, dvalue, in(svalue)); });
}

int32_t optgetintnr(tvksoptions* handle, int32_t number, int32_t* ivalue) {
  return barrier(handle, [&] { return handle->optgetintnr(number, *ivalue); });
}

int32_t optgetint2nr(tvksoptions* handle, int32_t number, int32_t* ivalue) {
  return barrier(handle, [&] { return handle->optgetint2nr(number, *ivalue); });
}

int32_t optsetintnr(tvksoptions* handle, int32_t number, int32_t ivalue) {
  return barrier(handle, [&] { return handle->optsetintnr(number, ivalue); });
}

int32_t optsetint2nr(tvksoptions* handle, int32_t number, int32_t ivalue) {
  return barrier(handle, [&] { return handle->optsetint2nr(number, ivalue); });
}

int32_t optgetdblnr(tvksoptions* handle, int32_t number, double* dvalue) {
  return barrier(handle, [&] { return handle->optgetdblnr(number, *dvalue); });
}

int32_t optgetdbl2nr(tvksoptions* handle, int32_t number, double* dvalue) {
  return barrier(handle, [&] { return handle->optgetdbl2nr(number, *dvalue); });
}

int32_t optsetdblnr(tvksoptions* handle, int32_t number, double dvalue) {
  return guarded(handle, [&] { return handle->optsetdblnr(number, dvalue); });
}

int32_t optsetdbl2nr(tvksoptions* handle, int32_t number, double dvalue) {
  return guarded(handle, [&] { return handle->optsetdbl2nr(number, dvalue); });
}

int32_t optgetstrnr(tvksoptions* handle, int32_t number, optshortstring* svalue) {
  return barrier(handle, [&] { return handle->optgetstrnr(number, out(svalue)); });
}
int32_t coptgetstrnr(tvksoptions* handle, int32_t number, char* svalue) {
  return barrier(handle, [&] { return handle->optgetstrnr(number, out(svalue)); });
}

int32_t optgetstr2nr(tvksoptions* handle, int32_t number, optshortstring* svalue) {
  return barrier(handle, [&] { return handle->optgetstr2nr(number, out(svalue)); });
}
int32_t coptgetstr2nr(tvksoptions* handle, int32_t number, char* svalue) {
  return barrier(handle, [&] { return handle->optgetstr2nr(number, out(svalue)); });
}

int32_t optsetstrnr(tvksoptions* handle, int32_t number, const optshortstring* svalue) {
  return allocating(handle, [&] { return handle->optsetstrnr(number, in(svalue)); });
}
int32_t coptsetstrnr(tvksoptions* handle, int32_t number, const char* svalue) {
  return allocating(handle, [&] { return handle->optsetstrnr(number, in(svalue)); });
}

int32_t optsetstr2nr(tvksoptions* handle, int32_t number, const optshortstring* svalue) {
  return allocating(handle, [&] { return handle->optsetstr2nr(number, in(svalue)); });
}
int32_t coptsetstr2nr(tvksoptions* handle, int32_t number, const char* svalue) {
  return allocating(handle, [&] { return handle->optsetstr2nr(number, in(svalue)); });
}

// ---- values by name

int32_t optgetvalstr(tvksoptions* handle, const optshortstring* name, optshortstring* value) {
  return barrier(handle, [&] { return handle->optgetvalstr(in(name), out(value)); });
}
int32_t coptgetvalstr(tvksoptions* handle, const char* name, char* value) {
  return barrier(handle, [&] { return handle->optgetvalstr(in(name), out(value)); });
}

int32_t optgetval2str(tvksoptions* handle, const optshortstring* name, optshortstring* value) {
  return barrier(handle, [&] { return handle->optgetval2str(in(name), out(value)); });
}
int32_t coptgetval2str(tvksoptions* handle, const char* name, char* value) {
  return barrier(handle, [&] { return handle->optgetval2str(in(name), out(value)); });
}
