// Whether a page is made of the markup that the table writer uses and of escaped texts alone.
#pragma once

#include <string_view>

namespace fuzzing {

// Ends the process at a character or tag that should have been escaped, a cell that is not ended, text
// outside of cells, or a page that is not complete. Rows are not looked at: the writer leaves some of them
// open.
void checkhtml(std::string_view page);

}  // namespace fuzzing
