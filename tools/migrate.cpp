// The migrate command: brings option files of an older definition, or in another syntax, up to date.
#include <unistd.h>

#include <filesystem>
#include <iostream>

#include "tools/commands.h"
#include "tools/migrating/destinations.h"
#include "tools/migrating/importing.h"
#include "tools/migrating/migrationreport.h"

namespace tool {

namespace {

// Errors in a definition end the migration.
bool areusable(const tdefinitions& definitions, bool read) {
  tfindinglist all;
  all.append(definitions.older.findings(), {});
  all.append(definitions.newer.findings(), {});
  reportproblems(all);
  return read;
}

// Devices and pipes can be read only once, and cannot be replaced. Files that do not exist are reported later.
bool areregular(const std::vector<std::string>& names) {
  bool result = true;
  for (const std::string& name : names) {
    std::error_code problem;
    const std::filesystem::file_status status = std::filesystem::status(name, problem);
    if (!std::filesystem::is_other(status)) continue;
    std::cerr << printable(name) << ": error: it is no regular file\n";
    result = false;
  }
  return result;
}

// Reads and rewrites all files. Returns false if one of them cannot be read.
bool migrateall(const tmigratearguments& arguments, tdefinitions& definitions,
                std::deque<tmigratedfile>& files) {
  bool result = true;
  if (arguments.syntax == toptionsyntax::assignments) {
    for (const std::string& name : arguments.files)
      result &= importassignments(name, definitions, arguments.clamp, files);
    return result;
  }
  tmigration migration(definitions, arguments.pin, contentsof);
  for (const std::string& name : arguments.files) result &= migration.run(name);
  migration.finish();
  files = migration.takefiles();
  return result;
}

int write(const tmigratearguments& arguments, const tdefinitions& definitions,
          std::deque<tmigratedfile>& files, tdestinations& destinations) {
  tfilemarks read = definitions.older.filesread();
  read.add(definitions.newer.filesread());
  if (arguments.inplace) {
    destinations = destinationsinplace(files, read, !arguments.nobackup);
  } else if (!arguments.output.empty()) {
    for (const tmigratedfile& file : files) read.add(file.name);
    destinations = destinationsin(arguments.output, files, read);
  }
  for (const std::string& problem : destinations.problems) std::cerr << printable(problem) << '\n';
  if (!destinations.problems.empty()) {
    std::cerr << "wexcorin migrate: nothing was written\n";
    return exitunusable;
  }
  tfindinglist findings;
  if (deliver(destinations, findings)) return exitclean;
  return reportproblems(findings);
}

}  // namespace

int run(const tmigratearguments& arguments) {
  tdefinitions definitions(arguments.clamp);
  const bool imports = arguments.syntax != toptionsyntax::wexcorin;
  if (!areusable(definitions, definitions.read(imports ? "" : arguments.from, arguments.to)))
    return exitunusable;
  std::deque<tmigratedfile> files;
  if (!areregular(arguments.files) || !migrateall(arguments, definitions, files)) {
    std::cerr << "wexcorin migrate: nothing was written\n";
    return exitunusable;
  }
  tdestinations destinations;
  if (const int code = write(arguments, definitions, files, destinations); code != exitclean) return code;
  if (arguments.dryrun && !arguments.json) printmigrationdiff(files);
  if (arguments.json)
    printmigrationjson(arguments.from, arguments.to, files, arguments.dryrun);
  else if (arguments.dryrun)
    printmigration(std::cerr, STDERR_FILENO, files);
  else
    printmigration(std::cout, STDOUT_FILENO, files);
  return totalsof(files).decisions == 0 ? exitclean : exitproblems;
}

}  // namespace tool
