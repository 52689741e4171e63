// Reads the sources of a command and makes findings of the messages.
#include "tools/reading/reading.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <utility>

#include "tools/commands.h"

namespace tool {

namespace {

using namespace optcore;

constexpr const char* standardinputname = "<stdin>";

std::string displayname(const std::string& filename) {
  return filename == "-" ? standardinputname : filename;
}

// Whether the file is a pipe or a device, which may deliver its contents only once.
bool givesonce(const std::string& filename) {
  std::error_code problem;
  const std::filesystem::file_status status = std::filesystem::status(filename, problem);
  return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status) &&
         !std::filesystem::is_directory(status);
}

tseverity severityof(tmsgkind kind) {
  switch (kind) {
    case tmsgkind::inputecho:
    case tmsgkind::help: return tseverity::plain;
    case tmsgkind::valuewarning:
    case tmsgkind::deprecated: return tseverity::warning;
    case tmsgkind::defineerror:
    case tmsgkind::valueerror:
    case tmsgkind::usererror:
    case tmsgkind::toomanymsgs:
    case tmsgkind::fileenter:
    case tmsgkind::fileleave: break;
  }
  return tseverity::error;
}

bool issame(const tfinding& a, const tfinding& b) {
  return a.severity != tseverity::plain && a.severity == b.severity && a.place == b.place &&
         a.text == b.text && a.details == b.details;
}

}  // namespace

// ---- what is read

bool treading::readdefinition(const std::string& filename) {
  fdefinition = displayname(filename);
  fdefinitionpath = pathof(filename, fkeepsdefinition);
  return collect(fdefinition, [&] { return fstore.optreaddefinition(fdefinitionpath); });
}

bool treading::readdefinitionagain(tvksoptions& other) const {
  const bool opened = other.optreaddefinition(fdefinitionpath) == 0;
  other.optclearmessages();
  return opened;
}

bool treading::readoptions(const tinputs& inputs) {
  bool result = true;
  for (const std::string& filename : inputs.optionfiles) {
    const std::string& path = pathof(filename, false);
    result &= collect(displayname(filename), [&] { return fstore.optreadparameterfile(path); });
  }
  for (const std::string& text : inputs.texts)
    collect("--set '" + text + "'", [&] {
      fstore.optreadfrompchar(text.c_str());
      return 0;
    });
  return result;
}

void treading::showhelp(const std::string& request) {
  collect(fdefinition, [&] {
    fstore.optshowhelp(request);
    return 0;
  });
}

// Writing reports one problem at most. It is listed however many findings there are.
bool treading::write(const std::string& name, const std::string& path) {
  const std::size_t before = ffindings.size();
  fmost = before + 1;
  collect(name, [&] { return fstore.optwriteparameterfile(path); });
  fmost = mostfindings;
  return ffindings.size() == before;
}

bool treading::collect(const std::string& name, const std::function<std::int32_t()>& action) {
  fsource = name;
  ffirst = ffindings.size();
  // with a full list of messages, the code may be that of a file that was opened but not read to its end
  const bool opened = action() == 0 || !fstore.messages().hasroom();
  fstore.optclearmessages();
  droprepetition();
  for (std::size_t i = ffirst; i < ffindings.size(); ++i) ffindings[i].unopened = !opened;
  return opened;
}

// The path under which the library opens a file on the command line: that of a copy for standard input and,
// if the file is read again, for a pipe or a device.
const std::string& treading::pathof(const std::string& filename, bool readagain) {
  if (filename == "-") {
    fcopies.emplace_back().write(readstandardinput());
    return fcopies.back().path();
  }
  if (readagain && givesonce(filename) && fcopies.emplace_back().copylines(filename))
    return fcopies.back().path();
  return filename;
}

// ---- what the store reports

void treading::filed(const tmessage& message) {
  if (message.kind == tmsgkind::fileenter || message.kind == tmsgkind::fileleave) return;
  if (message.explains && ffindings.size() > ffirst) {
    const std::size_t text = std::min(message.text.find_first_not_of(' '), message.text.size());
    if (fkept) ffindings.back().details.emplace_back(message.text.substr(text));
    return;
  }
  keep({.place = placeof(message.source, message.line),
        .severity = severityof(message.kind),
        .text = std::string(message.text),
        .suggestions = fsuggester.suggestionsfor(message.subject)});
}

void treading::assigned(const toption& option, std::int32_t bits) {
  if (!fassignments) return;
  const tlinesource* source = fstore.messages().activesource();
  const tplace place = placeof(source, source != nullptr ? source->linenr() : 0);
  if (std::optional<tfinding> warning = fassignments->warning(option, bits, place)) keep(std::move(*warning));
}

void treading::keep(tfinding finding) {
  droprepetition();
  fkept = ffindings.size() < fmost;
  if (fkept)
    ffindings.push_back(std::move(finding));
  else
    ++fdropped;
}

// Drops the last finding if it is the same as the one before: a macro files the same message for each of its
// members. Called when the last finding has got all its details.
void treading::droprepetition() {
  const std::size_t count = ffindings.size();
  if (fdropped == 0 && count >= ffirst + 2 && issame(ffindings[count - 1], ffindings[count - 2]))
    ffindings.pop_back();
}

// A source on the command line keeps the name that it has there; an included file has its own name.
tplace treading::placeof(const tlinesource* source, std::int32_t line) const {
  const bool included = source != nullptr && source->includer() != nullptr;
  return {included ? std::string(source->sourcename()) : fsource, line};
}

// ---- what is found

const tfindings& treading::findings() {
  if (const std::size_t dropped = std::exchange(fdropped, 0); dropped != 0)
    add({.place = {fsource},
         .severity = tseverity::error,
         .text = counted(dropped, "further finding") + " not listed"});
  return ffindings;
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
