// The settings that differ between option files, as tables and as JSON.
#pragma once

#include <string>
#include <vector>

#include "tools/tracing/settings.h"

namespace tool {

enum class treportform { text, json, markdown };

struct tsettingreport {
  std::string definition;
  std::vector<std::string> names;  // of what was compared
  std::vector<tsettingdifference> differences;
  // For each difference, where each of its values comes from; empty if that was not asked for.
  std::vector<std::vector<std::string>> origins;
};

// Prints a row for each setting and a column for each of the two that were compared.
void printpair(const tsettingreport& report, treportform form);
// Prints a row for each value of a setting, with the names that have it.
void printmatrix(const tsettingreport& report, treportform form);

}  // namespace tool
