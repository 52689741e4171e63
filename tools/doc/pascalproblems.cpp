// doc pascal: what keeps the include file from compiling. It uses the names of the options as they are.
#include <algorithm>
#include <map>

#include "base/textcase.h"
#include "tools/doc/documents.h"
#include "tools/text.h"

namespace tool {

namespace {

using namespace optcore;

// What the compiler compares of a name: 127 characters, regardless of case.
std::string compared(std::string_view name) {
  constexpr std::size_t mostcharacters = 127;
  std::string result(name.substr(0, mostcharacters));
  std::ranges::transform(result, result.begin(), lowchar);
  return result;
}

// The options that the include file leaves out have no enumerator.
bool haskey(topttype type) {
  return type != topttype::multilist && type != topttype::strlist && type != topttype::immediate;
}

// The name of the array that maps the options of this type to their numbers.
std::string_view mapof(topttype type) {
  switch (type) {
    case topttype::integer:
    case topttype::boolean:
    case topttype::enumint: return "pfintegermap";
    case topttype::dbl: return "pfrealmap";
    case topttype::string:
    case topttype::enumstr: return "pfstringmap";
    case topttype::multilist:
    case topttype::strlist:
    case topttype::macro:
    case topttype::immediate: break;
  }
  return "pfmap";
}

bool isidentifier(std::string_view name) {
  return std::ranges::all_of(name, [](char c) { return isletter(c) || isdigit(c) || c == '_'; });
}

}  // namespace

std::vector<std::string> pascalproblems(const tdefinition& definition) {
  std::vector<std::string> result;
  std::map<std::string, std::string> origins;  // what each identifier stands for
  for (std::int32_t i = 0; i < definition.getcount(); ++i)
    if (const topttype type = definition.getobjects(i)->opttype(); haskey(type))
      origins.try_emplace(std::string(mapof(type)), "the array of option numbers");
  if (origins.empty())
    result.emplace_back("no option has a type that the Pascal file lists, and an empty one does not compile");
  for (std::int32_t i = 0; i < definition.getcount(); ++i) {
    if (!haskey(definition.getobjects(i)->opttype())) continue;
    const std::string name(definition.getstrings(i));
    const std::string origin = "option " + inquotes(name);
    if (!isidentifier(name)) {
      result.push_back(origin + " would be called " + inquotes("pf" + name) +
                       " in Pascal, which is no name there");
      continue;
    }
    const auto [place, added] = origins.try_emplace(compared("pf" + name), origin);
    if (!added)
      result.push_back(place->second + " and " + origin + " would both be called " + inquotes("pf" + name) +
                       " in Pascal; rename one of them");
  }
  return result;
}

}  // namespace tool
