// The state that all handles of a process share: the load path and the separator of path lists. There are no
// locks.
#pragma once

#include <string_view>

namespace optcore {

// vksoptionsstart registers the audit line, clears the load path and sets the separator of the operating
// system. vksoptionsstop clears the load path and the separator.
void vksoptionsstart();
void vksoptionsstop();

std::string_view loadpath();
void setloadpath(std::string_view path);

// The character that separates the words of a path list.
char charpath();

}  // namespace optcore
