// The write command: writes the settings of option files and --set texts as one option file. It reads back
// what it is going to write and warns about each setting that differs. The library makes the text.
#include <iostream>

#include "tools/commands.h"
#include "tools/reading/readback.h"
#include "tools/reading/reading.h"
#include "tools/writing/deliver.h"

namespace tool {

namespace {

// Adds a warning for each setting that the written file does not hold as it was set.
void warnofchanges(treading& reading, const std::string& name, const ttemporaryfile& file) {
  const auto warn = [&](const std::string& text, const std::vector<std::string>& details) {
    reading.add({.place = {name},
                 .severity = tseverity::warning,
                 .rule = "not-read-back",
                 .text = text,
                 .details = details});
  };
  optcore::tvksoptions fresh;
  const bool hasdefinition = reading.readdefinitionagain(fresh);
  treadback readback(fresh);
  if (fresh.optreadparameterfile(file.path()) != 0 || !hasdefinition)
    return warn("the file cannot be read back, so it is not known whether it holds all that was set", {});
  for (const tdifference& each : readback.differences(reading.store())) warn(each.text, each.details);
}

void write(treading& reading, const twritearguments& arguments, const toutputfile& output) {
  const ttemporaryfile file;
  if (!reading.write(output.name(), file.path(), arguments.exact)) return;
  if (deliver(output, file.contents(), reading)) warnofchanges(reading, output.name(), file);
}

}  // namespace

int run(const twritearguments& arguments) {
  const toutputfile output(arguments.output);
  treading reading;
  reading.keepdefinition();
  if (!sparesfiles(output, filesof(arguments.inputs), reading)) return reportproblems(reading.findings());
  const bool opened =
      reading.readdefinition(arguments.inputs.definition) && reading.readoptions(arguments.inputs);
  const bool refused = !arguments.force && reading.findings().count(tseverity::error) != 0;
  if (opened && !refused) write(reading, arguments, output);
  const int code = reportproblems(reading.findings());
  if (opened && refused)
    std::cerr << "wexcorin: nothing is written because of these errors; with --force it is\n";
  return code;
}

}  // namespace tool
