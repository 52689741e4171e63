// Notes that help with an error of the library.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "options/observer.h"
#include "options/vksoptions.h"

namespace tool {

// What to write instead, or what the message means; empty if there is nothing to add.
std::string adviceon(const optcore::tmessage& message, const optcore::tvksoptions& store);

// Whether the text is a decimal integer of any size.
bool isinteger(std::string_view text);

// The types of options that an unknown word may stand for.
std::vector<std::string> typeslike(std::string_view word);

}  // namespace tool
