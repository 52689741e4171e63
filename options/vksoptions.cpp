// The option store: creation, lookup, resetting and messages. The queries are in
// numberedvalues.cpp, namedvalues.cpp, descriptions.cpp and symbolqueries.cpp.
#include "options/vksoptions.h"

namespace optcore {

tvksoptions::tvksoptions() : toptionx(0, {}) {}
tvksoptions::~tvksoptions() = default;

// ---- lookup

bool tvksoptions::optfindstr(std::string_view name, std::int32_t& nr, std::int32_t& refnr) const {
  const std::int32_t index = fdefinition.indexof(tsoughtname(name));
  const toption* option = fdefinition.getobjects(index);
  nr = option != nullptr ? index + 1 : -1;
  refnr = option != nullptr ? option->refnr() : -1;
  return option != nullptr;
}

bool tvksoptions::optsetrefnr(std::int32_t nr, std::int32_t refnr) {
  toption* option = optionat(nr);
  if (option == nullptr) return false;
  option->setrefnr(refnr);
  return true;
}

// ---- resetting

// Macros are reset without their members, which are in the option list themselves. So each option is reset
// once.
void tvksoptions::optresetall() {
  for (std::int32_t i = 0; i < getcount(); ++i) {
    toption& option = fdefinition.option(i);
    if (option.opttype() == topttype::macro)
      option.toption::reset();
    else
      option.reset();
  }
}

void tvksoptions::optresetallrecent() {
  for (std::int32_t i = 0; i < getcount(); ++i) fdefinition.option(i).clearrecent();
}

bool tvksoptions::optresetnr(std::int32_t nr) {
  toption* option = optionat(nr);
  if (option != nullptr) option->reset();
  return option != nullptr;
}

// ---- messages

void tvksoptions::optgetmessage(std::int32_t nr, ttextout text, std::int32_t& kind) const {
  text.set(fmessages.decorated(nr));
  kind = static_cast<std::int32_t>(fmessages.kind(nr));
}

void tvksoptions::opterrorcount(std::int32_t& errors, std::int32_t& warnings) const noexcept {
  errors = fmessages.errors();
  warnings = fmessages.warnings();
}

}  // namespace optcore
