// Writes the result of a command.
#include "tools/writing/deliver.h"

namespace tool {

namespace {

bool failed(const toutputfile& output, std::string_view reason, treading& reading) {
  reading.add({.place = {output.name()},
               .severity = tseverity::error,
               .rule = "not-written",
               .text = "cannot write the file: " + std::string(reason),
               .unusable = true});
  return false;
}

}  // namespace

tfilemarks filesof(const tinputs& inputs) {
  tfilemarks result;
  const auto add = [&](const std::string& name) {
    name == "-" ? result.addstandardinput() : result.add(name);
  };
  add(inputs.definition);
  for (const std::string& name : inputs.optionfiles) add(name);
  return result;
}

bool sparesfiles(const toutputfile& output, const tfilemarks& files, treading& reading) {
  return !output.isoneof(files) || failed(output, "it is one of the files that are read", reading);
}

bool deliver(const toutputfile& output, std::string_view contents, treading& reading) {
  if (!sparesfiles(output, reading.filesread(), reading)) return false;
  const std::int32_t code = output.write(contents);
  return code == 0 || failed(output, writeproblem(code), reading);
}

}  // namespace tool
