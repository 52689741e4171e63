// write: what option files and texts set, as one option file in the library's form.
#include <iostream>
#include <optional>

#include "tools/commands.h"
#include "tools/reading.h"

namespace tool {

namespace {

void write(treading& reading, const std::string& output) {
  if (output != "-") return reading.write(output, output);
  const ttemporaryfile file;
  reading.write("<stdout>", file.path());
  std::cout << file.contents();
}

}  // namespace

int run(const twritearguments& arguments) {
  treading reading;
  if (reading.readdefinition(arguments.inputs.definition) && reading.readoptions(arguments.inputs))
    write(reading, arguments.output);
  return reportproblems(reading.finish());
}

}  // namespace tool
