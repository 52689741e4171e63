// Decides where migrated files are written, and writes them.
#include "tools/migrating/destinations.h"

#include <algorithm>
#include <filesystem>
#include <map>

#include "tools/writing/outputfile.h"
#include "tools/writing/replacement.h"

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

// The file is outside of the folder of the file on the command line through which it was reached.
std::string outside(const tmigratedfile& file, std::string_view advice) {
  return (file.isincluded ? placetext(file.includedat) : file.name) + ": " + file.name +
         " is outside of the folder of " + file.root + "; " + std::string(advice);
}

// Why the file, which is not named on the command line, may not be written; empty if it may. Whoever sends a
// folder could have put a link there that leads to any file.
std::string obstacleat(const std::string& path) {
  std::error_code problem;
  const auto status = std::filesystem::symlink_status(path, problem);
  if (std::filesystem::is_symlink(status)) return path + ": it is a symbolic link";
  const bool isfree = !std::filesystem::exists(status) || std::filesystem::is_regular_file(status);
  return isfree ? "" : path + ": it is no regular file";
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
      result.problems.push_back(outside(file, "use --in-place and name it"));
      continue;
    }
    const tpath path = tpath(folder) / place;
    if (!taken.try_emplace(withoutlinks(path), &file).second)
      result.problems.push_back(path.string() + ": two files would be written there");
    else if (isoneof(path.string(), read))
      result.problems.push_back(path.string() + ": it is one of the files that are read");
    else if (std::string obstacle = obstacleat(path.string()); !obstacle.empty())
      result.problems.push_back(std::move(obstacle));
    else if (within(folder, path).empty())
      result.problems.push_back(path.string() + ": a symbolic link leads outside of " + folder);
    // The lines that include it lead to its new version only if their path, seen from the folder, is its place.
    if (file.isincluded && tpath(file.name).lexically_normal() != place)
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
    if (!file.isnamed && within(folderof(file.root), file.name).empty())
      result.problems.push_back(outside(file, "it is changed only if it is named on the command line"));
    const std::string backup = file.name + "~";
    if (std::string obstacle = backups ? obstacleat(backup) : ""; !obstacle.empty())
      result.problems.push_back(obstacle + ", and would be replaced by the backup");
    else if (backups && isoneof(backup, read))
      result.problems.push_back(backup + ": the backup would replace a file that is read");
    if (isoneof(file.name, definitions))
      result.problems.push_back(file.name + ": it is also one of the definitions");
    if (backups) result.files.push_back({&file, backup, true});
    result.files.push_back({.file = &file, .path = file.name, .isinplace = true});
  }
  return result;
}

bool deliver(const tdestinations& destinations, tfindinglist& findings) {
  for (const tdestination& each : destinations.files) {
    std::error_code problem;
    std::filesystem::create_directories(tpath(each.path).parent_path(), problem);
    // A copy is for the same people as its file, a file that was there for the same as before.
    const bool iscopy = each.isbackup || !std::filesystem::exists(each.path, problem);
    const std::string& contents = each.isbackup ? each.file->before : each.file->after;
    const std::string model = iscopy ? each.file->name : "";
    const std::int32_t code = each.isinplace ? toutputfile(each.path).write(contents, model)
                                             : replacefile(each.path, contents, model);
    if (code == 0) continue;
    findings.begin({.place = {each.path},
                    .severity = tseverity::error,
                    .rule = "not-written",
                    .text = "cannot write the file: " + std::string(writeproblem(code)),
                    .unusable = true});
    findings.end();
    return false;
  }
  return true;
}

}  // namespace tool
