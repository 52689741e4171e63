// The operating system's text for an error code, in English whatever the process locale.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/shortstring.h"

namespace optcore {

std::string_view systemerrortext(std::int32_t code) noexcept;

// What messages say of a code: its number and its text.
shortstring errorcodetext(std::int32_t code) noexcept;

}  // namespace optcore
