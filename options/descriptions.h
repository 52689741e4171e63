// Queries that describe options, enumeration items, synonyms and groups, and the names of codes. What can be
// found by number or by name is passed as the option that was found, which is null if there is none.
//
// The result of each query says whether what it asks for exists. If not, numbers become -1 or 0 and texts
// empty, but the bounds stay unchanged.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/textout.h"
#include "options/definition.h"

namespace optcore {

// ---- options
// Inline, because clients find options often.
inline bool findoption(const tdefinition& definition, std::string_view name, std::int32_t& nr,
                       std::int32_t& refnr) {
  const std::int32_t index = definition.indexof(name);
  const bool found = index >= 0;
  nr = found ? index + 1 : -1;
  refnr = found ? definition.option(index).refnr() : -1;
  return found;
}
bool setrefnr(toption* option, std::int32_t refnr);
bool getinfo(const toption* option, std::int32_t& defined, std::int32_t& definedr, std::int32_t& refnr,
             std::int32_t& datatype, std::int32_t& opttype, std::int32_t& subtype);
bool getdefined(const toption* option, std::int32_t& defined);
bool getname(const toption* option, ttextout& name);
// The name is returned as it is defined, without blanks for underscores.
bool gethelp(const toption* option, ttextout& name, ttextout& help);
bool getopthelp(const toption* option, ttextout& name, std::int32_t& helpflag, std::int32_t& group);
std::int32_t getgroupof(const toption* option);
// Only string options have a default here.
bool getdefault(const toption* option, ttextout& defaultvalue);
// Integer options and double options have bounds.
bool getbounds(const toption* option, std::int32_t& lo, std::int32_t& hi, std::int32_t& defaultvalue);
bool getbounds(const toption* option, double& lo, double& hi, double& defaultvalue);

// ---- items of enumerations of both kinds, counted from 1
bool getenumcount(const toption* option, std::int32_t& count);
bool getenumhelp(const toption* option, std::int32_t index, std::int32_t& helpflag, ttextout& help);
// The number of an item of an enumstr option is 0.
bool getenumvalue(const toption* option, std::int32_t index, std::int32_t& ival, ttextout& sval);
// The current value of an enumstr option and its index, which is 0 if the value is none of the items.
bool getenumstr(const toption* option, ttextout& value, std::int32_t& index);

// ---- synonyms and groups, counted from 1
bool getsynonym(const tdefinition& definition, std::int32_t nr, ttextout& synonym, ttextout& name);
bool getgroup(const tdefinition& definition, std::int32_t nr, ttextout& name, std::int32_t& groupnumber,
              std::int32_t& helpflag, ttextout& help);
// The position of the first group with this number, or -1.
std::int32_t getgroupgrpnr(const tdefinition& definition, std::int32_t groupnumber);

// ---- names of codes
bool getconstname(std::int32_t group, std::int32_t index, ttextout& name);
bool gettypename(std::int32_t opttype, ttextout& name);

// ---- the definition: the name of its file without the path
void getdefinitionfile(const tdefinition& definition, ttextout& filename);

}  // namespace optcore
