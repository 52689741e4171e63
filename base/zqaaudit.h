// Release data and the audit line: one fixed-width line that names the component, its release status and
// date, version, build and platform. All of it is module state that the start of the unit sets.
// zqaauditmore.h has the rest of the unit.
#pragma once

#include <string_view>

namespace optcore {

// The start sets every value and empties both audit lines; the stop empties all of it.
void zqaauditstart();
void zqaauditstop();

// The audit line as the library registers it: 77 characters, a mark of six characters at either end included.
std::string_view zqaauditregistration();

// Sets the library's line to what lies between the first six and the last six characters, padded with blanks
// or cut to 78.
void zqasetauditlinelib(std::string_view text);

// The audit line if one is set, else the library's.
std::string_view zqagetauditline();

}  // namespace optcore
