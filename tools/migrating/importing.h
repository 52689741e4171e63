// Brings a file of assignments, name = value, into the syntax of option files.
#pragma once

#include <deque>
#include <string>

#include "tools/migrating/migration.h"

namespace tool {

// Adds the file to the list. Returns false, with a message on standard error, if it cannot be read.
bool importassignments(const std::string& name, tdefinitions& definitions, bool clamps,
                       std::deque<tmigratedfile>& files);

}  // namespace tool
