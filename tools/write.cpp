// write: what option files and texts set, as one option file in the library's form.
#include <iostream>
#include <optional>

#include "api/handle.h"
#include "tools/commands.h"
#include "tools/inexpressible.h"
#include "tools/reading.h"

namespace tool {

namespace {

void write(treading& reading, const std::string& output) {
  const std::string name = output == "-" ? "<stdout>" : output;
  // options are read to the end of the line, where nobody asks for something else
  for (const tinexpressible& each : inexpressible(*reading.handle().get(), true))
    reading.add({.place = {name}, .severity = tseverity::warning, .text = each.text});
  if (output != "-") return reading.write(name, output);
  const ttemporaryfile file;
  reading.write(name, file.path());
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
