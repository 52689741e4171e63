// Collects the names.
#include "tools/lsp/nametable.h"

#include <algorithm>

#include "tools/reading/listedoptions.h"
#include "tools/reading/nearnames.h"

namespace tool::lsp {

using namespace optcore;

tnametable::tnametable(const tvksoptions& store) {
  const tdefinition& definition = store.definition();
  const auto isoffered = [&](const toption& option) {
    return !option.name().starts_with("--") && islisted(definition, option);
  };
  // With short forms of names, one may be the short form of another option, or be too short for any.
  const auto finds = [&](std::string_view name, std::int32_t option) {
    return definition.indexof(name) == option;
  };
  for (std::int32_t i = 0; i < definition.getcount(); ++i) {
    const toption& option = definition.option(i);
    if (isoffered(option) && finds(option.name(), i))
      fnames.push_back(
          {folded(option.name()), i, -1,
           option.hasdeprecation(tdeprecation::deprecated) || option.hasdeprecation(tdeprecation::obsolete)});
  }
  for (std::int32_t i = 0; i < definition.synonyms().count(); ++i) {
    const toption* option = definition.synonymtarget(i);
    if (option != nullptr && isoffered(*option) &&
        finds(definition.synonyms().getname(i), definition.synonyms().getobject(i)))
      fnames.push_back({folded(definition.synonyms().getname(i)), definition.synonyms().getobject(i), i,
                        option->hasdeprecation(tdeprecation::deprecatedsynonym) ||
                            option->hasdeprecation(tdeprecation::obsoletesynonym)});
  }
  fbykey.reserve(fnames.size());
  for (const tname& each : fnames) fbykey.push_back(&each);
  std::ranges::stable_sort(fbykey, {}, [](const tname* each) -> const std::string& { return each->key; });
}

}  // namespace tool::lsp
