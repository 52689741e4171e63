// Gives an option, a synonym or a group another name, wherever it is used.
#include <algorithm>

#include "base/strutilx.h"
#include "tools/lsp/features.h"
#include "tools/lsp/renaming.h"

namespace tool::lsp {

namespace {

// The name as definitions have it, whichever way it was typed.
std::string namefrom(const trenamed& renamed, const std::string& typed) {
  std::string result(optcore::trim(typed));
  if (renamed.index->mode() == optcore::tlookupmode::minos) std::ranges::replace(result, ' ', '_');
  const bool isdotted = renamed.entry->name.starts_with('.');
  return isdotted && !result.starts_with('.') ? "." + result : result;
}

}  // namespace

tanswer preparerename(const trequest& request) {
  const std::optional<trenamed> renamed = renamedat(request);
  if (!renamed) return json();
  const ttext& text = *request.document()->text();
  return json{{"range", rangejson(text, renamed->span, request.encoding())},
              {"placeholder", utf8(text.part(renamed->span))}};
}

tanswer rename(const trequest& request) {
  const std::optional<trenamed> renamed = renamedat(request);
  if (!renamed) return terror{tcode::requestfailed, "There is no option, synonym or group here to rename"};
  const std::string name = namefrom(*renamed, textof(member(request.params, "newName")));
  if (std::string problem = problemofname(*renamed, name); !problem.empty())
    return terror{tcode::invalidparams, problem};
  trenaming result = renaming(request, *renamed, name);
  if (auto* problem = std::get_if<terror>(&result)) return std::move(*problem);
  return workspaceeditjson(std::get<tworkspaceedits>(result), request.workspace);
}

}  // namespace tool::lsp
