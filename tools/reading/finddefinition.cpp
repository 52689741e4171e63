// Each place where a definition can be named has one function, which tells what is there if that is no
// definition.
#include "tools/reading/finddefinition.h"

#include <fnmatch.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "base/strutilx.h"
#include "tools/reading/definitionsfile.h"
#include "tools/reading/filelooks.h"

namespace tool {

namespace {

using std::filesystem::path;

constexpr const char* configname = "wexcorin.json";
constexpr std::size_t firstlinecount = 10;

// What one place has: a definition, a mistake there, or a note that there is neither.
struct tanswer {
  tfounddefinition found{};
  std::string note{};
};

tfinding unusable(tplace place, std::string_view rule, std::string text,
                  std::vector<std::string> details = {}) {
  return {.place = std::move(place),
          .severity = tseverity::error,
          .rule = rule,
          .text = std::move(text),
          .details = std::move(details),
          .unusable = true};
}

// ---- the comment

// The path in a comment "* definition: PATH"; empty if the line is none.
std::string_view pathincomment(std::string_view line) {
  constexpr std::string_view head = "definition:";
  if (!line.starts_with('*')) return {};
  line = optcore::trim(line.substr(1));
  if (!optcore::struequal(line.substr(0, head.size()), head)) return {};
  return optcore::trim(line.substr(head.size()));
}

tanswer bycomment(const path& file, ttextsource& source) {
  const std::vector<std::string> lines = firstlines(source.pathof(file.string()));
  for (std::size_t i = 0; i < std::min(lines.size(), firstlinecount); ++i)
    if (const path named = pathincomment(lines[i]); !named.empty()) {
      const tplace place = {file.string(), static_cast<std::int32_t>(i + 1)};
      return {{(file.parent_path() / named).string(), "named in " + placetext(place), {}}};
    }
  return {{}, "No comment \"* definition: PATH\" is in its first ten lines"};
}

// ---- wexcorin.json

bool matches(const std::string& pattern, const path& relative) {
  const auto match = [&](const path& name) { return fnmatch(pattern.c_str(), name.c_str(), 0) == 0; };
  return match(relative) || match(relative.filename());
}

// The file as people would name it from here.
std::string fromhere(const path& file) {
  std::error_code problem;
  const path here = std::filesystem::current_path(problem);
  return (problem ? file : file.lexically_proximate(here)).string();
}

tanswer byconfig(const path& file, ttextsource& source) {
  std::error_code problem;
  const path folder = std::filesystem::canonical(file.has_parent_path() ? file.parent_path() : ".", problem);
  path above = folder;
  while (!std::filesystem::exists(above / configname, problem) && above.has_relative_path())
    above = above.parent_path();
  if (!std::filesystem::exists(above / configname, problem))
    return {{}, std::string("No ") + configname + " is in its folder or those above"};
  const std::string config = fromhere(above / configname);
  const tdefinitionsfile read = readdefinitionsfile(source.pathof(config));
  if (!read.problem.empty()) return {{{}, {}, unusable({config, read.line}, "unusable-file", read.problem)}};
  const path relative = (folder / file.filename()).lexically_relative(above);
  for (const tdefinitionentry& entry : read.entries)
    if (matches(entry.files, relative)) {
      const bool isabsolute = path(entry.definition).is_absolute();
      return {{isabsolute ? entry.definition : fromhere(above / entry.definition),
               "named in " + placetext({config, entry.line}),
               {}}};
    }
  return {{}, "No entry of " + config + " matches its name"};
}

// ---- the files beside it

std::vector<path> definitionsin(const path& folder) {
  std::error_code problem;
  std::vector<path> result;
  for (std::filesystem::directory_iterator each(folder, problem), end; each != end; each.increment(problem))
    if (each->path().extension() == ".def" && each->is_regular_file(problem)) result.push_back(each->path());
  std::ranges::sort(result);
  return result;
}

tanswer bybeside(const path& file, ttextsource& /*source*/) {
  const std::string own = file.stem().string() + ".def";
  const std::vector<path> all = definitionsin(file.has_parent_path() ? file.parent_path() : path("."));
  const auto same = std::ranges::find(all, own, [](const path& each) { return each.filename().string(); });
  if (same != all.end())
    return {{(file.parent_path() / own).string(), "which has its name from " + file.filename().string(), {}}};
  if (all.size() == 1)
    return {{(file.parent_path() / all[0].filename()).string(), "the only one beside " + file.string(), {}}};
  if (all.empty()) return {{}, "No file whose name ends in .def is beside it"};
  return {{},
          "Beside it are " + std::to_string(all.size()) + " files whose names end in .def, but no " + own};
}

}  // namespace

bool isoptionfile(const std::string& filename) {
  const path extension = path(filename).extension();
  return extension == ".opt" || (extension != ".def" && looksof(filename) == tlooks::options);
}

tfounddefinition finddefinition(const std::string& optionfile, ttextsource& source) {
  if (optionfile == "-")
    return {{},
            {},
            unusable({"<stdin>"}, "no-definition", "The definition of standard input is not known",
                     {"Name it with --definition"})};
  std::error_code problem;
  if (const auto status = std::filesystem::status(source.pathof(optionfile), problem);
      !std::filesystem::exists(status))
    return {{}, {}, unusable({optionfile}, "unusable-file", "There is no such file")};
  std::vector<std::string> notes;
  for (const auto& place : {bycomment, byconfig, bybeside}) {
    tanswer answer = place(optionfile, source);
    if (answer.found.path.size() > maxfilename)
      answer.note = "The definition is " + answer.found.how + ", but its path has more than " +
                    std::to_string(maxfilename) + " characters";
    else if (!answer.found.path.empty() || answer.found.problem)
      return std::move(answer.found);
    notes.push_back(std::move(answer.note));
  }
  notes.emplace_back("Name it with --definition");
  return {{},
          {},
          unusable({optionfile}, "no-definition", "The definition of this option file is not found",
                   std::move(notes))};
}

}  // namespace tool
