// Matches the entries of which the library tells with the options of the definition.
#include "tools/reading/definitionlines.h"

namespace tool {

using namespace optcore;

void tdefinitionlines::add(const tentry& entry) {
  switch (entry.kind) {
    case tentry::tkind::option: foptions.push_back({std::string(entry.name), entry.line}); break;
    case tentry::tkind::value: foptions.back().values.push_back(entry.line); break;
    case tentry::tkind::synonym: fsynonyms.push_back(entry.line); break;
    case tentry::tkind::group: fgroups.push_back(entry.line); break;
  }
}

// Options are added to the definition in the order of the file. Some that were told of are never added.
const tdefinitionlines::toptionlines* tdefinitionlines::find(const tdefinition& definition,
                                                             std::int32_t index) {
  for (; fnext < foptions.size(); ++fnext) {
    const auto position = static_cast<std::int32_t>(fmatching.size()) + 1;
    if (definition.getstrings(position) == foptions[fnext].name) fmatching.push_back(fnext);
  }
  const auto known = static_cast<std::size_t>(index - 1);  // beyond all for the option that no line defines
  return known < fmatching.size() ? &foptions[fmatching[known]] : nullptr;
}

std::int32_t tdefinitionlines::ofoption(const tdefinition& definition, std::int32_t index) {
  const toptionlines* lines = find(definition, index);
  return lines == nullptr ? 0 : lines->line;
}

std::int32_t tdefinitionlines::ofvalue(const tdefinition& definition, std::int32_t index,
                                       std::int32_t value) {
  const toptionlines* lines = find(definition, index);
  return lines == nullptr ? 0 : at(lines->values, value);
}

}  // namespace tool
