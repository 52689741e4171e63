// Dot entries.
#include "options/dotoptions.h"

#include <memory>

#include "options/vksoptions.h"

namespace wexcorin {

void tdotobjlist::addentry(std::string_view key, std::int32_t optionindex) {
  if (key.size() > maxidentifier)
    fowner.addmessage(tmsgkind::usererror, concat(".Option ID too long ", quoted(key)));
  auto entry = std::make_unique<tdotobj>(optionindex);
  addobject(key, entry.get());
  static_cast<void>(entry.release());
}

// The entry being built. The parameter reader adds one first, so its absence is an error inside the library.
tdotobj* tdotobjlist::last(std::string_view without) {
  if (count() > 0) return getobject(count() - 1);
  fowner.addmessage(tmsgkind::usererror, without);
  return nullptr;
}

bool tdotobjlist::addindex(std::string_view text) {
  tdotobj* entry = last("Cannot AddIndex to DotObj");
  if (entry == nullptr) return false;
  entry->addindex(text);
  return entry->indices().count() <= maxdimensions;
}

void tdotobjlist::setvalue(std::string_view text) {
  tdotobj* entry = last("Cannot SetValue to DotObj");
  if (entry == nullptr) return;
  toption& option = *fowner.getobjects(entry->optionindex());
  fowner.setcuroptname(option.name());
  option.setasstring(text);
  if (option.opttype() == topttype::dbl)
    entry->setvalue(as<tdbloption>(option).getasdouble());
  else if (option.holdsinteger())
    entry->setvalue(option.getasinteger());
}

}  // namespace wexcorin
