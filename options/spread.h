// Words of a text that a multilist hands to its members.
#pragma once

#include <cstddef>
#include <string_view>

namespace wexcorin {

// Finds the next word from `position` (counted from 0) on, which moves behind the word and its separator.
// Words are ended by the path-list separator, not by blanks; a leading double quote makes the next double
// quote end the word too. False when there is no further word.
bool nextlistword(std::string_view text, char separator, std::size_t& position,
                  std::string_view& word) noexcept;

}  // namespace wexcorin
