// Walks through the folders.
#include "tools/lsp/workspace.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tool::lsp {

namespace {

constexpr std::size_t mostfiles = 20'000;
constexpr std::size_t mostentries = 500'000;
constexpr int deepest = 24;

// Folders of version control and of packages hold nothing that a user edits.
bool isleftout(const std::filesystem::path& folder) {
  const std::string name = folder.filename().string();
  return name.starts_with('.') || name == "node_modules" || name == "__pycache__";
}

void walk(const std::string& folder, tfolderfiles& found, const std::function<bool()>& iscancelled) {
  using std::filesystem::recursive_directory_iterator;
  std::error_code problem;
  std::size_t seen = 0;
  recursive_directory_iterator each(folder, std::filesystem::directory_options::skip_permission_denied,
                                    problem);
  for (; !problem && each != recursive_directory_iterator(); each.increment(problem)) {
    if (++seen > mostentries || found.optionfiles.size() + found.definitions.size() > mostfiles) return;
    if (seen % 256 == 0 && iscancelled()) return;
    std::error_code unknown;
    if (each->is_directory(unknown)) {
      if (each.depth() >= deepest || isleftout(each->path())) each.disable_recursion_pending();
      continue;
    }
    const std::filesystem::path extension = each->path().extension();
    const bool isoptions = extension == ".opt";
    if ((isoptions || extension == ".def") && each->is_regular_file(unknown))
      (isoptions ? found.optionfiles : found.definitions).push_back(each->path().string());
  }
}

void makeunique(std::vector<std::string>& paths) {
  std::ranges::sort(paths);
  paths.erase(std::unique(paths.begin(), paths.end()), paths.end());
}

}  // namespace

tfolderfiles findfiles(const std::vector<std::string>& folders, const std::function<bool()>& iscancelled) {
  tfolderfiles result;
  for (const std::string& folder : folders) walk(folder, result, iscancelled);
  makeunique(result.optionfiles);
  makeunique(result.definitions);
  return result;
}

}  // namespace tool::lsp
