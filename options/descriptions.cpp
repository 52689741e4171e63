// Queries by number that describe options, enumeration items, synonyms and groups; the names of codes.
#include <optional>
#include <span>

#include "base/zqaaudit.h"
#include "options/vksoptions.h"

namespace optcore {

// ---- options

bool tvksoptions::optgetinfonr(std::int32_t nr, std::int32_t& defined, std::int32_t& definedr,
                               std::int32_t& refnr, std::int32_t& datatype, std::int32_t& opttype,
                               std::int32_t& subtype) const {
  const toption* option = optionat(nr);
  defined = option != nullptr ? option->defined() : 0;
  definedr = option != nullptr ? option->definedr() : 0;
  refnr = option != nullptr ? option->refnr() : 0;
  datatype = option != nullptr ? static_cast<std::int32_t>(option->datatype()) : -1;
  opttype = option != nullptr ? static_cast<std::int32_t>(option->opttype()) : -1;
  subtype = option != nullptr ? static_cast<std::int32_t>(option->subtype()) : -1;
  return option != nullptr;
}

bool tvksoptions::optgetdefinednr(std::int32_t nr, std::int32_t& defined) const {
  const toption* option = optionat(nr);
  defined = option != nullptr ? option->defined() : 0;
  return option != nullptr;
}

bool tvksoptions::optgetnamenr(std::int32_t nr, ttextout name) const {
  const toption* option = optionat(nr);
  name.set(option != nullptr ? option->getname() : shortstring());
  return option != nullptr;
}

bool tvksoptions::optgethelpnr(std::int32_t nr, ttextout name, ttextout help) const {
  const toption* option = optionat(nr);
  name.set(option != nullptr ? option->name() : std::string_view());
  help.set(option != nullptr ? option->helptext() : std::string_view());
  return option != nullptr;
}

bool tvksoptions::optgetopthelpnr(std::int32_t nr, ttextout name, std::int32_t& helpflag,
                                  std::int32_t& group) const {
  const toption* option = optionat(nr);
  name.set(option != nullptr ? option->getname() : shortstring());
  helpflag = option != nullptr ? option->helpflag() : -1;
  group = option != nullptr ? option->groupnr() : -1;
  return option != nullptr;
}

std::int32_t tvksoptions::optgetoptgroupnr(std::int32_t nr) const {
  const toption* option = optionat(nr);
  return option != nullptr ? option->groupnr() : -1;
}

bool tvksoptions::optgetdefaultstr(std::int32_t nr, ttextout defaultvalue) const {
  const auto* option = ifis<tstringoption>(optionat(nr));
  defaultvalue.set(option != nullptr ? option->defaultvalue() : std::string_view());
  return option != nullptr;
}

bool tvksoptions::optgetboundsint(std::int32_t nr, std::int32_t& lo, std::int32_t& hi,
                                  std::int32_t& defaultvalue) const {
  const auto* option = ifis<tintoption>(optionat(nr));
  if (option == nullptr) return false;
  lo = option->lo();
  hi = option->hi();
  defaultvalue = option->defaultvalue();
  return true;
}

bool tvksoptions::optgetboundsdbl(std::int32_t nr, double& lo, double& hi, double& defaultvalue) const {
  const auto* option = ifis<tdbloption>(optionat(nr));
  if (option == nullptr) return false;
  lo = option->lo();
  hi = option->hi();
  defaultvalue = option->defaultvalue();
  return true;
}

// ---- enumeration items

namespace {

// An item of either kind of enumeration. The number of an enumstr item is 0.
struct tenumitem {
  const toptionx* help;
  std::int32_t number;
  tvaluetext text;
};

tenumitem itemof(const tenumstroption& option, std::int32_t index) {
  return {option.items().getobject(index), 0, option.items().getname(index)};
}
tenumitem itemof(const tenumintoption& option, std::int32_t index) {
  const tlistoptionx* item = option.items().get(index);
  return {item, item->enumvalue(), inttostr(item->enumvalue())};
}

// Item `index`, counted from 1, if it exists.
template <class toptionclass>
std::optional<tenumitem> itemat(const toption& option, std::int32_t index) {
  const auto& enumeration = as<toptionclass>(option);
  if (index < 1 || index > enumeration.items().count()) return std::nullopt;
  return itemof(enumeration, index - 1);
}

std::optional<tenumitem> enumitem(const toption* option, std::int32_t index) {
  if (option == nullptr) return std::nullopt;
  switch (option->opttype()) {
    case topttype::enumstr: return itemat<tenumstroption>(*option, index);
    case topttype::enumint: return itemat<tenumintoption>(*option, index);
    case topttype::integer:
    case topttype::dbl:
    case topttype::string:
    case topttype::boolean:
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return std::nullopt;
}

// The number of items; -1 if the option is not an enumeration.
std::int32_t enumcount(const toption* option) {
  if (option == nullptr) return -1;
  switch (option->opttype()) {
    case topttype::enumstr: return as<tenumstroption>(*option).items().count();
    case topttype::enumint: return as<tenumintoption>(*option).items().count();
    case topttype::integer:
    case topttype::dbl:
    case topttype::string:
    case topttype::boolean:
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return -1;
}

}  // namespace

bool tvksoptions::optgetenumcount(std::int32_t nr, std::int32_t& count) const {
  count = enumcount(optionat(nr));
  return count >= 0;
}

bool tvksoptions::optgetenumvalue(std::int32_t nr, std::int32_t index, std::int32_t& ival,
                                  ttextout sval) const {
  const std::optional<tenumitem> item = enumitem(optionat(nr), index);
  ival = item ? item->number : -1;
  sval.set(item ? item->text : tvaluetext());
  return item.has_value();
}

bool tvksoptions::optgetenumhelp(std::int32_t nr, std::int32_t index, std::int32_t& helpflag,
                                 ttextout help) const {
  const std::optional<tenumitem> item = enumitem(optionat(nr), index);
  helpflag = item ? item->help->helpflag() : -1;
  help.set(item ? item->help->helptext() : std::string_view());
  return item.has_value();
}

// The index is 0 if the current value is none of the items.
bool tvksoptions::optgetenumstrnr(std::int32_t nr, ttextout value, std::int32_t& index) const {
  const auto* option = ifis<tenumstroption>(optionat(nr));
  index = option != nullptr ? option->items().indexof(option->value(twhich::first)) + 1 : -1;
  value.set(option != nullptr ? option->value(twhich::first) : std::string_view());
  return option != nullptr;
}

// ---- synonyms and groups

bool tvksoptions::optgetsynonym(std::int32_t nr, ttextout synonym, ttextout name) const {
  const auto& synonyms = fdefinition.synonyms();
  const bool found = nr >= 1 && nr <= synonyms.count();
  synonym.set(found ? synonyms.getname(nr - 1) : std::string_view());
  name.set(found ? fdefinition.getstrings(synonyms.getobject(nr - 1)) : std::string_view());
  return found;
}

bool tvksoptions::optgetgroupnr(std::int32_t nr, ttextout name, std::int32_t& groupnumber,
                                std::int32_t& helpflag, ttextout help) const {
  const auto& groups = fdefinition.groups();
  const tgroupobj* group = nr >= 1 && nr <= groups.count() ? groups.getobject(nr - 1) : nullptr;
  name.set(group != nullptr ? groups.getname(nr - 1) : std::string_view());
  groupnumber = group != nullptr ? group->groupnumber() : 0;
  helpflag = group != nullptr ? group->helpflag() : 0;
  help.set(group != nullptr ? group->helptext() : std::string_view());
  return group != nullptr;
}

std::int32_t tvksoptions::optgetgroupgrpnr(std::int32_t groupnumber) const {
  const std::int32_t position = fdefinition.groupwithnumber(groupnumber);
  return position >= 0 ? position + 1 : -1;
}

// ---- names of codes

namespace {

bool namefrom(std::span<const std::string_view> names, std::int32_t index, ttextout& name) {
  const bool found = index >= 0 && static_cast<std::size_t>(index) < names.size();
  name.set(found ? names[static_cast<std::size_t>(index)] : std::string_view());
  return found;
}

}  // namespace

bool tvksoptions::optgetconstname(std::int32_t group, std::int32_t index, ttextout name) {
  switch (group) {
    case 1: return namefrom(datatypeconstnames, index, name);
    case 2: return namefrom(opttypeconstnames, index, name);
    case 3: return namefrom(subtypeconstnames, index, name);
    case 4:  // the last kind is left out
      return namefrom(std::span(msgkindconstnames).first(ordinal(tmsgkind::usererror)), index, name);
    default: name.clear(); return false;
  }
}

bool tvksoptions::optgettypename(std::int32_t opttype, ttextout name) {
  return namefrom(opttypenames, opttype, name);
}

// ---- the definition and the library

void tvksoptions::optdefinitionfile(ttextout filename) const {
  const std::string_view path = fdefinition.filename();
  filename.set(path.substr(path.rfind('/') + 1));
}

void tvksoptions::optversion(ttextout auditline) { auditline.set(zqagetauditline()); }

}  // namespace optcore
