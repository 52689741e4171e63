// What a client's handle points to: the option store itself.
#pragma once

#include "options/vksoptions.h"
#include "wexcorin/wexcorin.h"

struct tvksoptions final : optcore::tvksoptions {};
