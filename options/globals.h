// What one process shares among all handles: the load path and the separator of path lists. Unguarded.
#pragma once

#include <string_view>

namespace optcore {

// Registers the audit line, empties the load path and picks the separator for the operating-system family.
void vksoptionsstart();
void vksoptionsstop();

std::string_view loadpath();
void setloadpath(std::string_view path);

// The character that ends the words of a path list.
char charpath();

}  // namespace optcore
