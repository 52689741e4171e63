// doc json: the whole definition as JSON, for dialogs, completion and bindings. Its schema is
// docs/definition.schema.json.
#include <array>

#include "tools/doc/documents.h"
#include "tools/jsontext.h"

namespace tool {

namespace {

using namespace optcore;
using nlohmann::ordered_json;

constexpr std::array<const char*, 4> subtypewords = {"required", "none", "optional", "two"};

ordered_json textornull(const std::string& text) {
  return text.empty() ? ordered_json() : ordered_json(text);
}

ordered_json standingjson(const tnamestanding& standing) {
  switch (standing.standing) {
    case tstanding::current: break;
    case tstanding::deprecated: return {{"kind", "deprecated"}, {"reason", standing.reason}};
    case tstanding::obsolete: return {{"kind", "obsolete"}, {"reason", standing.reason}};
  }
  return nullptr;
}

ordered_json valuejson(const tvaluereference& value) {
  return {{"value", value.value.json}, {"help", value.help}, {"listed", value.listed}};
}

// Adds the members that only options of some types have.
void addtyped(const toptionreference& option, ordered_json& result) {
  if (!option.defaultvalue.json.is_null()) result["default"] = option.defaultvalue.json;
  if (!option.low.json.is_null()) {
    result["low"] = option.low.json;
    result["high"] = option.high.json;
  }
  if (option.type == topttype::enumstr || option.type == topttype::enumint) {
    result["values"] = ordered_json::array();
    for (const tvaluereference& value : option.values) result["values"].push_back(valuejson(value));
  }
  if (option.type == topttype::multilist || option.type == topttype::macro) {
    result["members"] = ordered_json::array();
    for (const std::string& member : option.members) result["members"].push_back(textornull(member));
  }
  if (option.type == topttype::immediate) result["action"] = option.immediatekind;
}

ordered_json optionjson(const toptionreference& option) {
  ordered_json result = {{"number", option.number},
                         {"reference", option.refnr},
                         {"name", option.name},
                         {"type", opttypenames[ordinal(option.type)]},
                         {"argument", subtypewords[ordinal(option.subtype)]}};
  addtyped(option, result);
  result["listed"] = option.listed;
  result["group"] = option.group;
  result["help"] = option.help;
  result["details"] = option.details;
  result["deprecation"] = standingjson(option.standing);
  result["synonyms"] = option.synonyms;
  result["synonym_deprecation"] = standingjson(option.synonymstanding);
  return result;
}

}  // namespace

std::string jsondocument(const treference& reference) {
  ordered_json groups = ordered_json::array();
  for (const tgroupreference& group : reference.groups)
    groups.push_back(
        {{"number", group.number}, {"name", group.name}, {"title", group.title}, {"listed", group.listed}});
  ordered_json options = ordered_json::array();
  for (const toptionreference& option : reference.options) options.push_back(optionjson(option));
  const ordered_json document = {{"definition", reference.definition},
                                 {"lookup", lookupmodenames[ordinal(reference.lookupmode)]},
                                 {"comment_characters", reference.commentcharacters},
                                 {"indicator_keyword", textornull(reference.indicatorkeyword)},
                                 {"groups", groups},
                                 {"options", options}};
  return jsondocumenttext(document);
}

}  // namespace tool
