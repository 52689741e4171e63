// The contents of a definition: adding and resetting options, adding groups, finding synonyms and groups.
#include "options/definition.h"

namespace optcore {

toption& tdefinition::addoption(std::unique_ptr<toption> option, const tsoughtname& name) {
  assert(struequal(option->name(), name.text));
  const tstoredtext storedname = option->storedname();
  foptions.addstored(storedname, std::move(option), name);
  return *foptions.getobject(getcount() - 1);
}

// Most names are those of options, and are found without a call.
std::int32_t tdefinition::indexof(std::string_view name) const {
  if (flookupmode != tlookupmode::normal || !foptions.hasindex()) return anyindexof(name);
  const std::int32_t index = foptions.indexofentered(name);
  return index >= 0 ? index : synonymindex(name);
}

std::int32_t tdefinition::anyindexof(std::string_view name) const {
  const std::int32_t index = optlookup(name);
  return index >= 0 ? index : synonymindex(name);
}

// Macros are reset without their members, which are in the option list themselves.
void tdefinition::resetoptions() {
  for (std::int32_t i = 0; i < getcount(); ++i) {
    if (option(i).opttype() == topttype::macro)
      option(i).toption::reset();
    else
      option(i).reset();
  }
}

void tdefinition::clearrecent() noexcept {
  for (std::int32_t i = 0; i < getcount(); ++i) option(i).clearrecent();
}

void tdefinition::addgroup(std::string_view name, std::int32_t groupnumber, std::int32_t helpflag,
                           std::string_view text) {
  fgroups.addobject(name, farena.make<tgroupobj>(groupnumber, helpflag, stored(text)));
}

std::int32_t tdefinition::groupwithnumber(std::int32_t groupnumber) const {
  const auto keyat = [this](std::int32_t i) { return tnumberkey{fgroups.getobject(i)->groupnumber()}; };
  return fgroupindex.find(fgroups.count(), tnumberkey{groupnumber}, keyat);
}

shortstring tdefinition::nounderscore(std::string_view name) const {
  return flookupmode == tlookupmode::minos ? replacechar('_', ' ', name) : shortstring(name);
}

}  // namespace optcore
