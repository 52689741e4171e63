// Entry points: descriptions of options, values, groups and codes; counts. Each calls one method of the
// store, mostly that of the same name. The form for zero-terminated texts follows directly below.
#include "api/conversion.h"

using optcore::barrier;
using optcore::out;

// ---- info

int32_t optgetinfonr(tvksoptions* handle, int32_t number, int32_t* defined, int32_t* definedr, int32_t* refnr,
                     int32_t* datatype, int32_t* opttype, int32_t* subtype) {
  return barrier(handle, [&] {
    return handle->optgetinfonr(number, *defined, *definedr, *refnr, *datatype, *opttype, *subtype);
  });
}

int32_t optgetdefinednr(tvksoptions* handle, int32_t number, int32_t* defined) {
  return barrier(handle, [&] { return handle->optgetdefinednr(number, *defined); });
}

int32_t optgetnamenr(tvksoptions* handle, int32_t number, optshortstring* name) {
  return barrier(handle, [&] { return handle->optgetnamenr(number, out(name)); });
}
int32_t coptgetnamenr(tvksoptions* handle, int32_t number, char* name) {
  return barrier(handle, [&] { return handle->optgetnamenr(number, out(name)); });
}

int32_t optgethelpnr(tvksoptions* handle, int32_t number, optshortstring* name, optshortstring* helptext) {
  return barrier(handle, [&] { return handle->optgethelpnr(number, out(name), out(helptext)); });
}
int32_t coptgethelpnr(tvksoptions* handle, int32_t number, char* name, char* helptext) {
  return barrier(handle, [&] { return handle->optgethelpnr(number, out(name), out(helptext)); });
}

int32_t optgetopthelpnr(tvksoptions* handle, int32_t number, optshortstring* name, int32_t* helpflag,
                        int32_t* group) {
  return barrier(handle, [&] { return handle->optgetopthelpnr(number, out(name), *helpflag, *group); });
}
int32_t coptgetopthelpnr(tvksoptions* handle, int32_t number, char* name, int32_t* helpflag, int32_t* group) {
  return barrier(handle, [&] { return handle->optgetopthelpnr(number, out(name), *helpflag, *group); });
}

int32_t optgetdefaultstr(tvksoptions* handle, int32_t number, optshortstring* text) {
  return barrier(handle, [&] { return handle->optgetdefaultstr(number, out(text)); });
}
int32_t coptgetdefaultstr(tvksoptions* handle, int32_t number, char* text) {
  return barrier(handle, [&] { return handle->optgetdefaultstr(number, out(text)); });
}

int32_t optgetboundsint(tvksoptions* handle, int32_t number, int32_t* low, int32_t* high,
                        int32_t* defaultvalue) {
  return barrier(handle, [&] { return handle->optgetboundsint(number, *low, *high, *defaultvalue); });
}

int32_t optgetboundsdbl(tvksoptions* handle, int32_t number, double* low, double* high,
                        double* defaultvalue) {
  return barrier(handle, [&] { return handle->optgetboundsdbl(number, *low, *high, *defaultvalue); });
}

int32_t optgetenumcount(tvksoptions* handle, int32_t number, int32_t* count) {
  return barrier(handle, [&] { return handle->optgetenumcount(number, *count); });
}

int32_t optgetenumhelp(tvksoptions* handle, int32_t number, int32_t item, int32_t* helpflag,
                       optshortstring* helptext) {
  return barrier(handle, [&] { return handle->optgetenumhelp(number, item, *helpflag, out(helptext)); });
}
int32_t coptgetenumhelp(tvksoptions* handle, int32_t number, int32_t item, int32_t* helpflag,
                        char* helptext) {
  return barrier(handle, [&] { return handle->optgetenumhelp(number, item, *helpflag, out(helptext)); });
}

int32_t optgetenumvalue(tvksoptions* handle, int32_t number, int32_t item, int32_t* ivalue,
                        optshortstring* svalue) {
  return barrier(handle, [&] { return handle->optgetenumvalue(number, item, *ivalue, out(svalue)); });
}
int32_t coptgetenumvalue(tvksoptions* handle, int32_t number, int32_t item, int32_t* ivalue, char* svalue) {
  return barrier(handle, [&] { return handle->optgetenumvalue(number, item, *ivalue, out(svalue)); });
}

int32_t optgetenumstrnr(tvksoptions* handle, int32_t number, optshortstring* svalue, int32_t* item) {
  return barrier(handle, [&] { return handle->optgetenumstrnr(number, out(svalue), *item); });
}
int32_t coptgetenumstrnr(tvksoptions* handle, int32_t number, char* svalue, int32_t* item) {
  return barrier(handle, [&] { return handle->optgetenumstrnr(number, out(svalue), *item); });
}

int32_t optgetsynonym(tvksoptions* handle, int32_t number, optshortstring* synonym, optshortstring* name) {
  return barrier(handle, [&] { return handle->optgetsynonym(number, out(synonym), out(name)); });
}
int32_t coptgetsynonym(tvksoptions* handle, int32_t number, char* synonym, char* name) {
  return barrier(handle, [&] { return handle->optgetsynonym(number, out(synonym), out(name)); });
}

int32_t optgetoptgroupnr(tvksoptions* handle, int32_t number) {
  return barrier(handle, [&] { return handle->optgetoptgroupnr(number); });
}

int32_t optgetgroupnr(tvksoptions* handle, int32_t position, optshortstring* name, int32_t* group,
                      int32_t* helpflag, optshortstring* helptext) {
  return barrier(
      handle, [&] { return handle->optgetgroupnr(position, out(name), *group, *helpflag, out(helptext)); });
}
int32_t coptgetgroupnr(tvksoptions* handle, int32_t position, char* name, int32_t* group, int32_t* helpflag,
                       char* helptext) {
  return barrier(
      handle, [&] { return handle->optgetgroupnr(position, out(name), *group, *helpflag, out(helptext)); });
}

int32_t optgetgroupgrpnr(tvksoptions* handle, int32_t group) {
  return barrier(handle, -1, [&] { return handle->optgetgroupgrpnr(group); });
}

int32_t optgetconstname(tvksoptions* handle, int32_t group, int32_t index, optshortstring* name) {
  return barrier(handle, [&] { return handle->optgetconstname(group, index, out(name)); });
}
int32_t coptgetconstname(tvksoptions* handle, int32_t group, int32_t index, char* name) {
  return barrier(handle, [&] { return handle->optgetconstname(group, index, out(name)); });
}

int32_t optgettypename(tvksoptions* handle, int32_t opttype, optshortstring* name) {
  return barrier(handle, [&] { return handle->optgettypename(opttype, out(name)); });
}
int32_t coptgettypename(tvksoptions* handle, int32_t opttype, char* name) {
  return barrier(handle, [&] { return handle->optgettypename(opttype, out(name)); });
}

void optdefinitionfile(tvksoptions* handle, optshortstring* filename) {
  barrier(handle, [&] { handle->optdefinitionfile(out(filename)); });
}
void coptdefinitionfile(tvksoptions* handle, char* filename) {
  barrier(handle, [&] { handle->optdefinitionfile(out(filename)); });
}

void optversion(tvksoptions* handle, optshortstring* line) {
  barrier(handle, [&] { handle->optversion(out(line)); });
}
void coptversion(tvksoptions* handle, char* line) {
  barrier(handle, [&] { handle->optversion(out(line)); });
}

// ---- counts

int32_t optcount(tvksoptions* handle) {
  return barrier(handle, [&] { return handle->getcount(); });
}

int32_t optsynonymcount(tvksoptions* handle) {
  return barrier(handle, [&] { return handle->optsynonymcount(); });
}

int32_t optgroupcount(tvksoptions* handle) {
  return barrier(handle, [&] { return handle->getgroupcount(); });
}

int32_t optdotoptcount(tvksoptions* handle, int32_t* rejected) {
  return barrier(handle, [&] { return handle->optdotoptcount(*rejected); });
}

int32_t optindicatorcount(tvksoptions* handle, int32_t* rejected) {
  return barrier(handle, [&] { return handle->optindicatorcount(*rejected); });
}
