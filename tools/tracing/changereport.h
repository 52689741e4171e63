// The changes between two definitions as text for people, as JSON and as Markdown.
#pragma once

#include <string>
#include <vector>

#include "tools/tracing/definitionchanges.h"

namespace tool {

// Prints the changes on standard output, the breaking ones first, then a summary.
void printchanges(const std::vector<tchange>& changes);
void printchangesjson(const std::string& older, const std::string& newer,
                      const std::vector<tchange>& changes);
void printchangesmarkdown(const std::vector<tchange>& changes);

}  // namespace tool
