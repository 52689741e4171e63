// Entry points: string lists, dot options and indicators, switches, reference numbers, load path. Each calls
// the store's method of the same name; the load path is global and uses no handle. The form for
// zero-terminated texts follows directly below.
#include "api/conversion.h"
#include "options/globals.h"

using optcore::barrier;
using optcore::in;
using optcore::out;

// ---- string lists

int32_t optlistcountstr(tvksoptions* handle, const optshortstring* name) {
  return barrier(handle, [&] { return handle->optlistcountstr(in(name)); });
}
int32_t coptlistcountstr(tvksoptions* handle, const char* name) {
  return barrier(handle, [&] { return handle->optlistcountstr(in(name)); });
}

int32_t optgetfromliststr(tvksoptions* handle, const optshortstring* name, optshortstring* value) {
  return barrier(handle, [&] { return handle->optgetfromliststr(in(name), out(value)); });
}
int32_t coptgetfromliststr(tvksoptions* handle, const char* name, char* value) {
  return barrier(handle, [&] { return handle->optgetfromliststr(in(name), out(value)); });
}

int32_t optgetfromanystrlist(tvksoptions* handle, int32_t dashed, optshortstring* name,
                             optshortstring* value) {
  return barrier(handle, [&] { return handle->optgetfromanystrlist(dashed, out(name), out(value)); });
}
int32_t coptgetfromanystrlist(tvksoptions* handle, int32_t dashed, char* name, char* value) {
  return barrier(handle, [&] { return handle->optgetfromanystrlist(dashed, out(name), out(value)); });
}

// ---- dot options and indicators

int32_t optgetdotoptnr(tvksoptions* handle, int32_t number, optshortstring* name, int32_t* option,
                       int32_t* dimensions, double* value) {
  return barrier(handle,
                 [&] { return handle->optgetdotoptnr(number, out(name), *option, *dimensions, *value); });
}
int32_t coptgetdotoptnr(tvksoptions* handle, int32_t number, char* name, int32_t* option, int32_t* dimensions,
                        double* value) {
  return barrier(handle,
                 [&] { return handle->optgetdotoptnr(number, out(name), *option, *dimensions, *value); });
}

int32_t optgetdotoptuel(tvksoptions* handle, int32_t number, int32_t index, optshortstring* element) {
  return barrier(handle, [&] { return handle->optgetdotoptuel(number, index, out(element)); });
}
int32_t coptgetdotoptuel(tvksoptions* handle, int32_t number, int32_t index, char* element) {
  return barrier(handle, [&] { return handle->optgetdotoptuel(number, index, out(element)); });
}

int32_t optgetindicatornr(tvksoptions* handle, int32_t number, optshortstring* equation,
                          optshortstring* variable, int32_t* equdims, int32_t* vardims, int32_t* value) {
  return barrier(handle, [&] {
    return handle->optgetindicatornr(number, out(equation), out(variable), *equdims, *vardims, *value);
  });
}
int32_t coptgetindicatornr(tvksoptions* handle, int32_t number, char* equation, char* variable,
                           int32_t* equdims, int32_t* vardims, int32_t* value) {
  return barrier(handle, [&] {
    return handle->optgetindicatornr(number, out(equation), out(variable), *equdims, *vardims, *value);
  });
}

int32_t optgetequindicatornr(tvksoptions* handle, int32_t number, int32_t index, optshortstring* element) {
  return barrier(handle, [&] { return handle->optgetequindicatornr(number, index, out(element)); });
}
int32_t coptgetequindicatornr(tvksoptions* handle, int32_t number, int32_t index, char* element) {
  return barrier(handle, [&] { return handle->optgetequindicatornr(number, index, out(element)); });
}

int32_t optgetvarindicatornr(tvksoptions* handle, int32_t number, int32_t index, optshortstring* element) {
  return barrier(handle, [&] { return handle->optgetvarindicatornr(number, index, out(element)); });
}
int32_t coptgetvarindicatornr(tvksoptions* handle, int32_t number, int32_t index, char* element) {
  return barrier(handle, [&] { return handle->optgetvarindicatornr(number, index, out(element)); });
}

// ---- switches

void optechoset(tvksoptions* handle, int32_t flag) {
  barrier(handle, [&] { handle->optechoset(flag != 0); });
}

void optnoboundsset(tvksoptions* handle, int32_t flag) {
  barrier(handle, [&] { handle->optnoboundsset(flag != 0); });
}

void optrecentenabledset(tvksoptions* handle, int32_t flag) {
  barrier(handle, [&] { handle->optrecentenabledset(flag != 0); });
}

int32_t opteolonlyset(tvksoptions* handle, int32_t flag) {
  return barrier(handle, [&] { return handle->opteolonlyset(flag != 0); });
}

int32_t optrecentenabled(tvksoptions* handle) {
  return barrier(handle, [&] { return handle->optrecentenabled(); });
}

// ---- reference numbers

int32_t optsetrefnr(tvksoptions* handle, int32_t number, int32_t refnr) {
  return barrier(handle, [&] { return handle->optsetrefnr(number, refnr); });
}

int32_t optsetrefnrstr(tvksoptions* handle, const optshortstring* name, int32_t refnr) {
  return barrier(handle, [&] { return handle->optsetrefnrstr(in(name), refnr); });
}
int32_t coptsetrefnrstr(tvksoptions* handle, const char* name, int32_t refnr) {
  return barrier(handle, [&] { return handle->optsetrefnrstr(in(name), refnr); });
}

// ---- load path

void optgetloadpath(optshortstring* path) { out(path).set(optcore::loadpath()); }
void coptgetloadpath(char* path) { out(path).set(optcore::loadpath()); }

void optsetloadpath(const optshortstring* path) { optcore::setloadpath(in(path)); }
void coptsetloadpath(const char* path) { optcore::setloadpath(in(path)); }
