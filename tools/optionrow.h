// One option as `show` lists it: every value as text for the table and as JSON.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/handle.h"
#include "tools/shownvalue.h"

namespace tool {

struct toptionrow {
  std::int32_t number;
  std::string name;
  std::string type;
  bool set;
  tshownvalue value;
  tshownvalue value2;  // of options with two values
  tshownvalue defaultvalue;
  tshownvalue low, high;            // integer and double options
  std::vector<tshownvalue> values;  // boolean options and enumerations
};

// The first value of each option, by number less 1. Before anything is set these are the defaults.
std::vector<tshownvalue> firstvalues(const thandle& handle);

toptionrow describeoption(const thandle& handle, std::int32_t number, const tshownvalue& defaultvalue);

}  // namespace tool
