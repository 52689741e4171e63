// Release data and the audit line, a line of fixed width that names the component, its release status and
// date, version, build and platform. Both are global state, which zqaauditstart sets. The other routines of
// this unit are in zqaauditmore.h.
#pragma once

#include <string_view>

namespace optcore {

// zqaauditstart sets the release data and clears both audit lines; zqaauditstop clears everything.
void zqaauditstart();
void zqaauditstop();

// The audit line as the library registers it: 77 characters, including a mark of six characters at each end.
std::string_view zqaauditregistration();

// Sets the library's audit line to the text without its first six and its last six characters, padded with
// blanks or cut to 78 characters.
void zqasetauditlinelib(std::string_view text);

// The line that zqasetauditline set (see zqaauditmore.h), or else the library's.
std::string_view zqagetauditline();

}  // namespace optcore
