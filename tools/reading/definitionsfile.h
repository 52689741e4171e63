// Reads a file wexcorin.json, which names the definitions of the option files in its folder and those below:
//   {"definitions": [{"files": "*.opt", "definition": "solver.def"}]}
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tool {

struct tdefinitionentry {
  std::string files;       // a pattern for the names of option files
  std::string definition;  // a path, which is relative to the folder of wexcorin.json
  std::int32_t line = 0;   // the line on which the entry ends
};

struct tdefinitionsfile {
  std::vector<tdefinitionentry> entries;
  std::string problem;    // what is wrong with the file; empty if nothing is
  std::int32_t line = 0;  // and where
};

tdefinitionsfile readdefinitionsfile(const std::string& path);

}  // namespace tool
