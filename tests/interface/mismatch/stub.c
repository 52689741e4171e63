/* stub.c: a library that is loaded before the real one and answers the interface check with "no".
 * STUB_COMPAT is its answer: 0, not at all, or 3, the program is newer.
 */
#include <string.h>

#include "wexcorin/wexcorin.h"

int32_t xapiversion(int32_t version, optshortstring* message, int32_t* compat) {
  (void)version;
  message->length = 5;
  memcpy(message->text, "Said.", 5);
  *compat = STUB_COMPAT;
  return STUB_COMPAT != 0;
}
