// Queries that describe options, enumeration items, synonyms and groups; the names of codes.
#include "options/descriptions.h"

#include <optional>
#include <span>

namespace optcore {

// ---- options

bool setrefnr(toption* option, std::int32_t refnr) {
  if (option != nullptr) option->setrefnr(refnr);
  return option != nullptr;
}

bool getinfo(const toption* option, std::int32_t& defined, std::int32_t& definedr, std::int32_t& refnr,
             std::int32_t& datatype, std::int32_t& opttype, std::int32_t& subtype) {
  defined = option != nullptr ? option->defined() : 0;
  definedr = option != nullptr ? option->definedr() : 0;
  refnr = option != nullptr ? option->refnr() : 0;
  datatype = option != nullptr ? static_cast<std::int32_t>(option->datatype()) : -1;
  opttype = option != nullptr ? static_cast<std::int32_t>(option->opttype()) : -1;
  subtype = option != nullptr ? static_cast<std::int32_t>(option->subtype()) : -1;
  return option != nullptr;
}

bool getdefined(const toption* option, std::int32_t& defined) {
  defined = option != nullptr ? option->defined() : 0;
  return option != nullptr;
}

bool getname(const toption* option, ttextout& name) {
  name.set(option != nullptr ? option->getname() : shortstring());
  return option != nullptr;
}

bool gethelp(const toption* option, ttextout& name, ttextout& help) {
  name.set(option != nullptr ? option->name() : std::string_view());
  help.set(option != nullptr ? option->helptext() : std::string_view());
  return option != nullptr;
}

bool getopthelp(const toption* option, ttextout& name, std::int32_t& helpflag, std::int32_t& group) {
  name.set(option != nullptr ? option->getname() : shortstring());
  helpflag = option != nullptr ? option->helpflag() : -1;
  group = option != nullptr ? option->groupnr() : -1;
  return option != nullptr;
}

std::int32_t getgroupof(const toption* option) { return option != nullptr ? option->groupnr() : -1; }

bool getdefault(const toption* option, ttextout& defaultvalue) {
  const auto* text = ifis<tstringoption>(option);
  defaultvalue.set(text != nullptr ? text->defaultvalue() : std::string_view());
  return text != nullptr;
}

bool getbounds(const toption* option, std::int32_t& lo, std::int32_t& hi, std::int32_t& defaultvalue) {
  const auto* integer = ifis<tintoption>(option);
  if (integer == nullptr) return false;
  lo = integer->lo();
  hi = integer->hi();
  defaultvalue = integer->defaultvalue();
  return true;
}

bool getbounds(const toption* option, double& lo, double& hi, double& defaultvalue) {
  const auto* dbl = ifis<tdbloption>(option);
  if (dbl == nullptr) return false;
  lo = dbl->lo();
  hi = dbl->hi();
  defaultvalue = dbl->defaultvalue();
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

bool getenumcount(const toption* option, std::int32_t& count) {
  count = enumcount(option);
  return count >= 0;
}

bool getenumvalue(const toption* option, std::int32_t index, std::int32_t& ival, ttextout& sval) {
  const std::optional<tenumitem> item = enumitem(option, index);
  ival = item ? item->number : -1;
  sval.set(item ? item->text : tvaluetext());
  return item.has_value();
}

bool getenumhelp(const toption* option, std::int32_t index, std::int32_t& helpflag, ttextout& help) {
  const std::optional<tenumitem> item = enumitem(option, index);
  helpflag = item ? item->help->helpflag() : -1;
  help.set(item ? item->help->helptext() : std::string_view());
  return item.has_value();
}

bool getenumstr(const toption* option, ttextout& value, std::int32_t& index) {
  const auto* enumeration = ifis<tenumstroption>(option);
  index = enumeration != nullptr ? enumeration->items().indexof(enumeration->value(twhich::first)) + 1 : -1;
  value.set(enumeration != nullptr ? enumeration->value(twhich::first) : std::string_view());
  return enumeration != nullptr;
}

// ---- synonyms and groups

bool getsynonym(const tdefinition& definition, std::int32_t nr, ttextout& synonym, ttextout& name) {
  const auto& synonyms = definition.synonyms();
  const bool found = nr >= 1 && nr <= synonyms.count();
  synonym.set(found ? synonyms.getname(nr - 1) : std::string_view());
  name.set(found ? definition.getstrings(synonyms.getobject(nr - 1)) : std::string_view());
  return found;
}

bool getgroup(const tdefinition& definition, std::int32_t nr, ttextout& name, std::int32_t& groupnumber,
              std::int32_t& helpflag, ttextout& help) {
  const auto& groups = definition.groups();
  const tgroupobj* group = nr >= 1 && nr <= groups.count() ? groups.getobject(nr - 1) : nullptr;
  name.set(group != nullptr ? groups.getname(nr - 1) : std::string_view());
  groupnumber = group != nullptr ? group->groupnumber() : 0;
  helpflag = group != nullptr ? group->helpflag() : 0;
  help.set(group != nullptr ? group->helptext() : std::string_view());
  return group != nullptr;
}

std::int32_t getgroupgrpnr(const tdefinition& definition, std::int32_t groupnumber) {
  const std::int32_t position = definition.groupwithnumber(groupnumber);
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

bool getconstname(std::int32_t group, std::int32_t index, ttextout& name) {
  switch (group) {
    case 1: return namefrom(datatypeconstnames, index, name);
    case 2: return namefrom(opttypeconstnames, index, name);
    case 3: return namefrom(subtypeconstnames, index, name);
    case 4:  // the last kind is left out
      return namefrom(std::span(msgkindconstnames).first(ordinal(tmsgkind::usererror)), index, name);
    default: name.clear(); return false;
  }
}

bool gettypename(std::int32_t opttype, ttextout& name) { return namefrom(opttypenames, opttype, name); }

// ---- the definition

void getdefinitionfile(const tdefinition& definition, ttextout& filename) {
  const std::string_view path = definition.filename();
  filename.set(path.substr(path.rfind('/') + 1));
}

}  // namespace optcore
