// The type behind a client's handle. The public header declares it as an opaque type in the global namespace;
// here it is defined as the option store.
#pragma once

#include "options/vksoptions.h"
#include "wexcorin/wexcorin.h"

struct tvksoptions final : optcore::tvksoptions {};
