// Collecting of dot entries.
#include "options/dotoptions.h"

#include <cassert>
#include <optional>

#include "options/definition.h"
#include "options/messages.h"

namespace optcore {

void tdotobjlist::addentry(std::string_view key, std::int32_t optionindex) {
  if (key.size() > maxidentifier)
    fmessages.addmessage(tmsgkind::usererror, concat(".Option ID too long ", quoted(key)), {key});
  fbegun = true;
  fname.assign(key);
  foptionindex = optionindex;
  fvalue = 0.0;
  findices.clear();
}

// Whether an entry was begun; if not, files the message `without`. The parameter reader begins an entry
// before it adds parts, so a missing one is an error of the library.
bool tdotobjlist::requireentry(std::string_view without) {
  if (!fbegun) fmessages.addmessage(tmsgkind::usererror, without);
  return fbegun;
}

bool tdotobjlist::addindex(std::string_view text) {
  if (!requireentry("Cannot AddIndex to DotObj")) return false;
  findices.add(text);
  return findices.count() <= maxdimensions;
}

namespace {

// The first value of an option, if it is a number.
std::optional<double> asnumber(const toption& option) {
  switch (option.opttype()) {
    case topttype::integer: return as<tintoption>(option).value(twhich::first);
    case topttype::dbl: return as<tdbloption>(option).getasdouble();
    case topttype::boolean: return as<tbooleanoption>(option).value(twhich::first);
    case topttype::enumint: return as<tenumintoption>(option).value(twhich::first);
    case topttype::string:
    case topttype::enumstr:
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return std::nullopt;
}

}  // namespace

void tdotobjlist::setvalue(std::string_view text) {
  if (!requireentry("Cannot SetValue to DotObj")) return;
  toption& option = fdefinition.option(foptionindex);
  const tcurrentname current(fmessages, option.name());
  option.setasstring(text);
  fvalue = asnumber(option).value_or(fvalue);
}

void tdotobjlist::keepentry() {
  assert(fbegun);
  const tstoredtext name = farena.text(fname);
  fentries.append(farena.make<tdotobj>(name, foptionindex, findices.pack(farena), fvalue));
  fbegun = false;
}

}  // namespace optcore
