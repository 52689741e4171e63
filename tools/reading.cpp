// Reading the sources of one command.
#include "tools/reading.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <utility>

#include "tools/commands.h"
#include "tools/suggest.h"

namespace tool {

namespace {

constexpr const char* standardinputname = "<stdin>";

std::string displayname(const std::string& filename) {
  return filename == "-" ? standardinputname : filename;
}

}  // namespace

bool treading::readdefinition(const std::string& filename) {
  const std::string& path = pathof(filename);
  fdefinition = displayname(filename);
  return collect(fdefinition, true, [&] { return fhandle.readdefinition(path); });
}

bool treading::readoptions(const tinputs& inputs) {
  bool result = true;
  for (const std::string& filename : inputs.optionfiles) {
    const std::string& path = pathof(filename);
    result &= collect(displayname(filename), true, [&] { return fhandle.readparameterfile(path); });
  }
  for (const std::string& text : inputs.texts)
    collect("--set '" + text + "'", false, [&] {
      fhandle.readtext(text);
      return 0;
    });
  return result;
}

void treading::showhelp(const std::string& request) {
  collect(fdefinition, false, [&] {
    fhandle.showhelp(request);
    return 0;
  });
}

void treading::write(const std::string& name, const std::string& path) {
  collect(name, false, [&] { return fhandle.writeparameterfile(path); });
}

void treading::add(tfinding finding) {
  if (fsource.empty()) return ffindings.push_back(std::move(finding));
  // notes of entering files may still be taken back
  std::int32_t last = fhandle.messagecount();
  while (last > 0 && fhandle.message(last).kind == optMsgFileEnter) --last;
  finsertions.push_back({last + 1, std::move(finding)});
}

std::string treading::filename(std::string_view name) const {
  return fstandardinput && name == fstandardinput->path() ? standardinputname : std::string(name);
}

const tfindings& treading::finish() {
  addsuggestions(fhandle, ffindings);
  return ffindings;
}

bool treading::collect(const std::string& name, bool numbered, const std::function<std::int32_t()>& action) {
  fsource = name;
  const bool opened = action() == 0;
  fsource.clear();
  tfindings findings = collectfindings(fhandle, name, numbered, finsertions);
  fhandle.clearmessages();
  finsertions.clear();
  for (tfinding& finding : findings) finding.unopened = !opened;
  std::ranges::move(findings, std::back_inserter(ffindings));
  return opened;
}

const std::string& treading::pathof(const std::string& filename) {
  if (filename != "-") return filename;
  const std::string bytes = readstandardinput();
  fstandardinput.emplace().write(bytes);
  return fstandardinput->path();
}

int exitcode(const tfindings& findings, bool warningsaserrors) {
  if (std::ranges::any_of(findings, &tfinding::unopened)) return exitunusable;
  const bool problems = countof(findings, tseverity::error) != 0 ||
                        (warningsaserrors && countof(findings, tseverity::warning) != 0);
  return problems ? exitproblems : exitclean;
}

int reportproblems(const tfindings& findings) {
  const tpalette palette(STDERR_FILENO);
  for (const tfinding& finding : findings) writefinding(std::cerr, finding, palette);
  return exitcode(findings, false);
}

}  // namespace tool
