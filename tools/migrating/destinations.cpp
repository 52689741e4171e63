// Decides where migrated files are written, and writes them.
#include "tools/migrating/destinations.h"

#include <algorithm>
#include <filesystem>
#include <map>

#include "base/systemerror.h"
#include "tools/writing/outputfile.h"

namespace tool {

namespace {

using tpath = std::filesystem::path;

tpath withoutlinks(const tpath& path) {
  std::error_code problem;
  tpath result = std::filesystem::weakly_canonical(path, problem);
  return problem ? path : result;
}

// The way from the folder to the file; empty if the file is not in it.
tpath within(const tpath& folder, const tpath& file) {
  const tpath relative = withoutlinks(file).lexically_relative(withoutlinks(folder));
  return relative.empty() || *relative.begin() == ".." ? tpath() : relative;
}

tpath folderof(const std::string& name) {
  const tpath parent = tpath(name).parent_path();
  return parent.empty() ? tpath(".") : parent;
}

bool isoneof(const std::string& path, const tfilemarks& files) { return toutputfile(path).isoneof(files); }

// The lines that include the file lead to its new version only if their path, seen from the folder, is its
// place there.
bool leadsto(const std::string& name, const tpath& place) {
  return tpath(name).is_relative() && tpath(name).lexically_normal() == place.lexically_normal();
}

}  // namespace

tdestinations destinationsin(const std::string& folder, std::deque<tmigratedfile>& files,
                             const tfilemarks& read) {
  tdestinations result;
  std::map<tpath, const tmigratedfile*> taken;
  for (tmigratedfile& file : files) {
    if (!file.isread) continue;
    const tpath place = within(folderof(file.root), file.name);
    if (place.empty()) {
      result.problems.push_back(file.name + ": it is outside of the folder of " + file.root +
                                "; use --in-place");
      continue;
    }
    const tpath path = tpath(folder) / place;
    if (!taken.try_emplace(withoutlinks(path), &file).second)
      result.problems.push_back(path.string() + ": two files would be written there");
    else if (isoneof(path.string(), read))
      result.problems.push_back(path.string() + ": it is one of the files that are read");
    if (file.isincluded && !leadsto(file.name, place))
      file.notes.add(
          0, {taction::left,
              {},
              "Lines that include it still read " + file.name + "; the migrated file is " + path.string(),
              true});
    result.files.push_back({&file, path.string()});
  }
  return result;
}

tdestinations destinationsinplace(const std::deque<tmigratedfile>& files, const tfilemarks& definitions,
                                  bool backups) {
  tdestinations result;
  tfilemarks read = definitions;
  for (const tmigratedfile& file : files) read.add(file.name);
  for (const tmigratedfile& file : files) {
    if (!file.isread || file.after == file.before) continue;
    const std::string backup = file.name + "~";
    if (backups && isoneof(backup, read))
      result.problems.push_back(backup + ": the backup would replace a file that is read");
    if (isoneof(file.name, definitions))
      result.problems.push_back(file.name + ": it is also one of the definitions");
    if (backups) result.files.push_back({&file, backup, true});
    result.files.push_back({&file, file.name});
  }
  return result;
}

bool deliver(const tdestinations& destinations, tfindinglist& findings) {
  for (const tdestination& each : destinations.files) {
    std::error_code problem;
    const tpath parent = tpath(each.path).parent_path();
    if (!parent.empty()) std::filesystem::create_directories(parent, problem);
    // A copy is for the same people as its file, a file that was there for the same as before.
    const bool iscopy = each.isbackup || !std::filesystem::exists(each.path, problem);
    const std::int32_t code = toutputfile(each.path).write(
        each.isbackup ? each.file->before : each.file->after, iscopy ? each.file->name : "");
    if (code == 0) continue;
    findings.begin({.place = {each.path},
                    .severity = tseverity::error,
                    .rule = "not-written",
                    .text = "cannot write the file: " + std::string(optcore::systemerrortext(code)),
                    .unusable = true});
    findings.end();
    return false;
  }
  return true;
}

}  // namespace tool
