// How commands write their result: what goes wrong becomes a finding.
#pragma once

#include <string_view>

#include "tools/arguments.h"
#include "tools/reading/reading.h"
#include "tools/writing/outputfile.h"

namespace tool {

// The files that a command line names to be read.
tfilemarks filesof(const tinputs& inputs);

// Returns false, with a finding, if writing would destroy one of the files.
bool sparesfiles(const toutputfile& output, const tfilemarks& files, treading& reading);

// Writes the contents, unless a file that was read would be destroyed. Returns false, with a finding, if
// nothing was written.
bool deliver(const toutputfile& output, std::string_view contents, treading& reading);

}  // namespace tool
