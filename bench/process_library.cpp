// A whole run with the library as a process of its own. It creates a handle, reads a definition file and an
// option file, gets the value of every option and frees the handle. The exit code is 0 when twenty options
// were set without an error.
#include <cstdint>

#include "wexcorin/wexcorin.h"

int main(int count, char** arguments) {
  if (count != 3) return 2;
  tvksoptions* handle = nullptr;
  xcreate(&handle);
  if (coptreaddefinition(handle, arguments[1]) != 0 || coptreadparameterfile(handle, arguments[2]) != 0)
    return 3;
  int set = 0;
  for (std::int32_t number = 1; number <= optcount(handle); ++number) {
    char name[WEXCORIN_TEXT_SIZE];
    char value[WEXCORIN_TEXT_SIZE];
    std::int32_t defined = 0;
    optgetdefinednr(handle, number, &defined);
    coptgetnamenr(handle, number, name);
    if (coptgetvalstr(handle, name, value) == 1 && defined != 0) ++set;
  }
  const bool good = set == 20 && optcount(handle) == 501 && optmessagecount(handle) == 0;
  xfree(&handle);
  return good ? 0 : 1;
}
