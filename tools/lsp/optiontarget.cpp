// Where the definition has the option or the value under the cursor, and which file a line includes.
#include <filesystem>
#include <system_error>

#include "base/textcase.h"
#include "tools/lsp/features.h"
#include "tools/lsp/optionlines.h"
#include "tools/lsp/optiontexts.h"
#include "tools/lsp/uri.h"
#include "tools/lsp/uses.h"

namespace tool::lsp {

namespace {

using namespace optcore;

std::int32_t valueposition(const toption& option, std::string_view typed) {
  if (const auto* words = ifis<tenumstroption>(&option)) return words->items().indexof(typed);
  const auto* numbers = ifis<tenumintoption>(&option);
  for (std::int32_t i = 0; numbers != nullptr && i < numbers->items().count(); ++i)
    if (std::to_string(numbers->items().get(i)->enumvalue()) == typed) return i;
  return -1;
}

json valuetarget(const tworkspace& workspace, const tdefinitionstate& definition, const toptionline& line,
                 const toption& option, std::string_view typed) {
  const std::int32_t position = valueposition(option, typed);
  const std::int32_t number = position < 0
                                  ? 0
                                  : definition.lines().ofvalue(definition.store().definition(),
                                                               indexof(*line.store, option), position);
  if (number == 0 || definition.text == nullptr) return {};
  return locationof({definition.key, definition.text, firstword(*definition.text, number)}, workspace);
}

// A relative path counts from the folder of the process. The file may be one that is not saved yet.
json filetarget(const tworkspace& workspace, std::string_view typed) {
  std::string name(typed);
  if (name.starts_with('"')) {
    name.erase(0, 1);
    if (name.ends_with('"')) name.pop_back();
  }
  const std::string key = keyof(name);
  std::error_code problem;
  if (workspace.documents.withkey(key) == nullptr && !std::filesystem::is_regular_file(name, problem))
    return {};
  const ttext none("");
  return {{"uri", workspace.documents.uriof(key)}, {"range", rangejson(none, {}, workspace.client.encoding)}};
}

}  // namespace

tanswer optiontarget(const trequest& request) {
  const tdocument& document = *request.document();
  const std::size_t offset = request.offset();
  const std::optional<toptionline> line = optionlineat(document, offset);
  const std::optional<tpartat> part = line ? partat(*line, offset) : std::nullopt;
  const toption* option = part ? part->statement->option : nullptr;
  if (option == nullptr || part->kind == tpartat::tkind::symbol) return json();
  const tdefinitionstate& definition = *document.snapshot()->definition;
  const std::string_view typed = document.text()->part(part->span);
  if (part->kind == tpartat::tkind::value) {
    const auto* immediate = ifis<timmediateoption>(option);
    if (immediate != nullptr && immediate->immkind() == timmkind::readfile)
      return filetarget(request.workspace, typed);
    return valuetarget(request.workspace, definition, *line, *option, typed);
  }
  const std::int32_t index = indexof(*line->store, *option);
  const std::optional<tuse> declaration = index < 0 ? std::nullopt : declarationof(definition, index);
  return declaration ? locationof(*declaration, request.workspace) : json();
}

}  // namespace tool::lsp
