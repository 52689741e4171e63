// The write command: writes the settings of option files and --set texts as one option file. It reads the
// file back and warns about each setting that differs. The library does the writing.
#include <filesystem>
#include <iostream>

#include "tools/commands.h"
#include "tools/reading/readback.h"
#include "tools/reading/reading.h"

namespace tool {

namespace {

// Writes the output. Returns the name of a regular file with the same contents, empty if writing failed.
std::string written(treading& reading, const std::string& output, const std::string& name,
                    const ttemporaryfile& copy) {
  const bool isstandard = output == "-";
  if (!isstandard && !reading.write(name, output)) return {};
  std::error_code unknown;
  if (!isstandard && std::filesystem::is_regular_file(output, unknown)) return output;
  if (!reading.write(name, copy.path())) return {};
  if (isstandard) std::cout << copy.contents();
  return copy.path();
}

void write(treading& reading, const std::string& output) {
  const std::string name = output == "-" ? "<stdout>" : output;
  const auto warn = [&](const std::string& text, const std::vector<std::string>& details) {
    reading.add({.place = {name},
                 .severity = tseverity::warning,
                 .rule = "not-read-back",
                 .text = text,
                 .details = details});
  };
  // The definition is read again before writing, because the output may overwrite its file.
  optcore::tvksoptions fresh;
  const bool hasdefinition = reading.readdefinitionagain(fresh);
  const ttemporaryfile copy;
  const std::string file = written(reading, output, name, copy);
  if (file.empty()) return;
  treadback readback(fresh);
  const std::int32_t code = fresh.optreadparameterfile(file);
  if (!hasdefinition || code != 0)
    return warn("the file cannot be read back, so it is not known whether it holds all that was set", {});
  for (const tdifference& each : readback.differences(reading.store())) warn(each.text, each.details);
}

}  // namespace

int run(const twritearguments& arguments) {
  treading reading;
  reading.keepdefinition();
  if (reading.readdefinition(arguments.inputs.definition) && reading.readoptions(arguments.inputs))
    write(reading, arguments.output);
  return reportproblems(reading.findings());
}

}  // namespace tool
