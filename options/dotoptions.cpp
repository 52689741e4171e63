// Dot entries.
#include "options/dotoptions.h"

#include "options/vksoptions.h"

namespace optcore {

void tdotobjlist::addentry(std::string_view key, std::int32_t optionindex) {
  if (key.size() > maxidentifier)
    fowner.addmessage(tmsgkind::usererror, concat(".Option ID too long ", quoted(key)), {key});
  fbegun = true;
  fname.assign(key);
  foptionindex = optionindex;
  fvalue = 0.0;
  findices.clear();
}

// The parameter reader begins an entry before its parts, so its absence is an error inside the library.
bool tdotobjlist::hasentry(std::string_view without) {
  if (!fbegun) fowner.addmessage(tmsgkind::usererror, without);
  return fbegun;
}

bool tdotobjlist::addindex(std::string_view text) {
  if (!hasentry("Cannot AddIndex to DotObj")) return false;
  findices.add(text);
  return findices.count() <= maxdimensions;
}

void tdotobjlist::setvalue(std::string_view text) {
  if (!hasentry("Cannot SetValue to DotObj")) return;
  toption& option = fowner.definition().option(foptionindex);
  const tcurrentname current(fowner, option.name());
  option.setasstring(text);
  if (option.opttype() == topttype::dbl)
    fvalue = as<tdbloption>(option).getasdouble();
  else if (const auto integer = option.getasinteger())
    fvalue = *integer;
}

void tdotobjlist::keepentry() {
  if (fentries.full()) fentries.setcapacity(growncapacity(fentries.capacity()));
  const tstoredtext name = farena.text(fname);
  fentries.insert(count(), farena.make<tdotobj>(name, foptionindex, findices.pack(farena), fvalue));
  fbegun = false;
}

}  // namespace optcore
