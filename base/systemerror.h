// Texts for the operating system's error codes (errno), in English whatever the locale of the process is.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/shortstring.h"

namespace optcore {

std::string_view systemerrortext(std::int32_t code) noexcept;

// The explaining line of a message: the number of the code and its text.
shortstring errorcodetext(std::int32_t code) noexcept;

}  // namespace optcore
