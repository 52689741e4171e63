// The type behind a client's handle. The public header declares it as an opaque type in the global namespace;
// here it is defined as the option store.
#pragma once

#include "options/vksoptions.h"
#include "wexcorin/wexcorin.h"

struct tvksoptions final : optcore::tvksoptions {};

// The public header repeats the codes for clients.
static_assert(optTypeImmediate == optcore::ordinal(optcore::topttype::immediate));
static_assert(optDataStrList == optcore::ordinal(optcore::tdatatype::strlist));
static_assert(optsub2Values == optcore::ordinal(optcore::tsubtype::twovalues));
static_assert(optMsgUserError == optcore::ordinal(optcore::tmsgkind::usererror));
static_assert(optTypeImmediate + 1 == optcore::opttypecount, "a constant optTypeXxx for each type");
