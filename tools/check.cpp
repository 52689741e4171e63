// The check command: prints what is wrong in a definition and in option files.
#include <unistd.h>

#include <iostream>
#include <map>
#include <optional>

#include "tools/commands.h"
#include "tools/reading/finddefinition.h"
#include "tools/reading/reading.h"
#include "tools/report/report.h"

namespace tool {

namespace {

class tchecking {
 public:
  explicit tchecking(const tcheckarguments& arguments) : farguments(arguments) {
    prepare(freport.findings);
    if (farguments.separately) freport.separate = farguments.inputs.optionfiles.size();
  }

  treport run() {
    const tinputs& inputs = farguments.inputs;
    if (freport.separate == 0) {
      together();
    } else {
      for (const std::string& file : inputs.optionfiles) alone(file);
    }
    return std::move(freport);
  }

 private:
  template <class T>
  void prepare(T& findings) const {
    findings.setlimit(farguments.limit);
    for (const std::string& rule : farguments.allowed) findings.allow(rule);
  }

  void begin(treading& reading) const {
    reading.watch();
    prepare(reading);
  }

  // The definition of the option file; nothing, with a finding, if it is not found.
  std::optional<treport::tdefinition> definitionof(const std::string& optionfile);
  // Reads the definition. Returns false if it cannot be opened.
  bool checkdefinition(treading& reading, const treport::tdefinition& definition);
  void together();
  void alone(const std::string& optionfile);
  void checkfiles(treading& reading, const tinputs& inputs);

  const tcheckarguments& farguments;
  std::map<std::string, std::optional<treading>> fdefinitions;  // none if they cannot be opened
  treport freport;
};

std::optional<treport::tdefinition> tchecking::definitionof(const std::string& optionfile) {
  if (!farguments.inputs.definition.empty()) return treport::tdefinition{farguments.inputs.definition, {}};
  tfounddefinition found = finddefinition(optionfile);
  if (!found.problem) return treport::tdefinition{found.path, found.how};
  freport.findings.begin(std::move(*found.problem));
  freport.findings.end();
  return std::nullopt;
}

bool tchecking::checkdefinition(treading& reading, const treport::tdefinition& definition) {
  freport.definitions.push_back(definition);
  begin(reading);
  const bool opened = reading.readdefinition(definition.path);
  if (opened) reading.checkdefinition();
  return opened;
}

void tchecking::checkfiles(treading& reading, const tinputs& inputs) {
  reading.watchassignments();
  reading.readoptions(inputs);
  reading.checklines();
}

std::int32_t setoptions(const optcore::tvksoptions& store) {
  std::int32_t result = 0;
  for (std::int32_t i = 0; i < store.getcount(); ++i)
    if (store.definition().option(i).defined() != 0) ++result;
  return result;
}

// All option files are for the definition of the first one.
void tchecking::together() {
  const tinputs& inputs = farguments.inputs;
  const auto definition = definitionof(inputs.optionfiles.empty() ? "" : inputs.optionfiles.front());
  if (!definition) return;
  treading reading;
  if (checkdefinition(reading, *definition)) checkfiles(reading, inputs);
  freport.options = reading.store().getcount();
  freport.set = setoptions(reading.store());
  freport.findings.append(reading.findings(), {});
}

// A definition is checked once, however many option files it is for.
void tchecking::alone(const std::string& optionfile) {
  const auto definition = definitionof(optionfile);
  if (!definition) return;
  const auto [at, isnew] = fdefinitions.try_emplace(definition->path);
  if (isnew) {
    treading& reading = at->second.emplace();
    const bool opened = checkdefinition(reading, *definition);
    freport.options += reading.store().getcount();
    freport.findings.append(reading.findings(), {});
    if (!opened) at->second.reset();
  }
  if (!at->second) return;
  treading reading;
  begin(reading);
  reading.readdefinitionof(*at->second);
  checkfiles(reading, {definition->path, {optionfile}, farguments.inputs.texts});
  freport.set += setoptions(reading.store());
  freport.findings.append(reading.findings(), displayname(optionfile));
}

// Findings about the call, not about what was checked, are reported on standard error.
void reportunopened(const tfindings& findings) {
  const tpalette palette(STDERR_FILENO);
  for (const tfinding& finding : findings)
    if (ismistakeincall(finding)) writefinding(std::cerr, finding, palette);
}

void print(const treport& report, tcheckformat format) {
  switch (format) {
    case tcheckformat::text: return printtext(report);
    case tcheckformat::json: return printjson(report);
    case tcheckformat::sarif: return printsarif(report);
    case tcheckformat::github: return printgithub(report);
  }
}

}  // namespace

int run(const tcheckarguments& arguments) {
  const treport report = tchecking(arguments).run();
  reportunopened(report.findings.kept());
  print(report, arguments.format);
  return exitcode(report.findings.kept(), arguments.warningsaserrors);
}

}  // namespace tool
