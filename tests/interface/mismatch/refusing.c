/* refusing.c: a library that is loaded before the real one and answers the interface check with "no".
 * REFUSING_COMPAT is its answer: 0, not at all, or 3, the program is newer.
 */
#include <string.h>

#include "wexcorin/wexcorin.h"

int32_t xapiversion(int32_t version, optshortstring* message, int32_t* compat) {
  (void)version;
  message->length = 5;
  memcpy(message->text, "Said.", 5);
  *compat = REFUSING_COMPAT;
  return REFUSING_COMPAT != 0;
}
