// Converts the definition in a store to plain values.
#include "tools/doc/reference.h"

#include <array>
#include <map>

#include "tools/reading/listedoptions.h"
#include "tools/text.h"

namespace tool {

namespace {

using namespace optcore;

constexpr const char* othertitle = "Further options";
constexpr const char* onlytitle = "Options";

std::vector<std::string> linesof(const txstrings* texts) {
  std::vector<std::string> result;
  for (std::int32_t i = 0; texts != nullptr && i < texts->count(); ++i) result.push_back(utf8(texts->get(i)));
  return result;
}

tnamestanding standingof(const toption& option, tdeprecation deprecated, tdeprecation obsolete,
                         std::string_view reason) {
  if (option.hasdeprecation(deprecated)) return {tstanding::deprecated, utf8(reason)};
  if (option.hasdeprecation(obsolete)) return {tstanding::obsolete, utf8(reason)};
  return {};
}

// Adds the values that depend on the type of the option.
void addtyped(const tvksoptions& store, const toption& option, toptionreference& result) {
  switch (option.opttype()) {
    case topttype::integer: {
      const auto& integer = as<tintoption>(option);
      result.defaultvalue = shown(integer.defaultvalue());
      result.low = shown(integer.lo());
      result.high = shown(integer.hi());
      break;
    }
    case topttype::dbl: {
      const auto& dbl = as<tdbloption>(option);
      result.defaultvalue = shown(dbl.defaultvalue());
      result.low = shown(dbl.lo());
      result.high = shown(dbl.hi());
      break;
    }
    case topttype::string: result.defaultvalue = shown(as<tstringoption>(option).defaultvalue()); break;
    case topttype::boolean:
      result.defaultvalue = shownboolean(as<tbooleanoption>(option).defaultvalue());
      break;
    case topttype::enumstr: {
      const auto& enumstr = as<tenumstroption>(option);
      result.defaultvalue = shown(enumstr.defaultvalue());
      for (std::int32_t i = 0; i < enumstr.items().count(); ++i) {
        const toptionx& item = *enumstr.items().getobject(i);
        result.values.push_back({shown(enumstr.items().getname(i)), utf8(item.helptext()), item.islisted()});
      }
      break;
    }
    case topttype::enumint: {
      const auto& enumint = as<tenumintoption>(option);
      result.defaultvalue = shownnumber(enumint.defaultvalue());
      for (std::int32_t i = 0; i < enumint.items().count(); ++i) {
        const tlistoptionx& item = *enumint.items().get(i);
        result.values.push_back({shownnumber(item.enumvalue()), utf8(item.helptext()), item.islisted()});
      }
      break;
    }
    case topttype::multilist: {
      const auto& members = as<tmultilistoption>(option).items();
      for (std::int32_t i = 0; i < members.count(); ++i)
        result.members.push_back(
            utf8(store.definition().nounderscore(store.definition().getstrings(members.get(i)))));
      break;
    }
    case topttype::macro: {
      const auto& members = as<tmacrooption>(option).items();
      for (std::int32_t i = 0; i < members.count(); ++i)
        result.members.push_back(utf8(members.get(i)->getname()));
      break;
    }
    case topttype::immediate:
      result.immediatekind = immkindnames[ordinal(as<timmediateoption>(option).immkind())];
      break;
    case topttype::strlist: break;
  }
}

constexpr auto typephrases =
    std::to_array<const char*>({"integer", "number", "text", "boolean", "choice", "choice of numbers",
                                "list of values for several options", "text, may be given repeatedly",
                                "sets several options", "acts when it is read"});
static_assert(typephrases.size() == opttypecount, "a phrase for each type");
constexpr std::array<const char*, 4> subtypephrases = {"", ", takes no value", ", the value may be left out",
                                                       ", two values"};

}  // namespace

toptionreference describeoption(const tvksoptions& store, std::int32_t index) {
  const toption& option = *store.definition().getobjects(index);
  toptionreference result = {
      .number = index + 1,
      .refnr = option.refnr(),
      .name = utf8(option.getname()),
      .type = option.opttype(),
      .subtype = option.subtype(),
      .group = option.groupnr(),
      .listed = islisted(store.definition(), option),
      .help = utf8(option.helptext()),
      .details = linesof(option.bigtext()),
      .standing =
          standingof(option, tdeprecation::deprecated, tdeprecation::obsolete, option.deprecatedmsg()),
      .synonyms = {},
      .synonymstanding = standingof(option, tdeprecation::deprecatedsynonym, tdeprecation::obsoletesynonym,
                                    option.deprecatedmsg2()),
      .defaultvalue = {},
      .low = {},
      .high = {},
      .values = {},
      .members = {},
      .immediatekind = {}};
  addtyped(store, option, result);
  return result;
}

std::vector<std::string> synonymsof(const tvksoptions& store, std::int32_t index) {
  const tdefinition& definition = store.definition();
  std::vector<std::string> result;
  for (std::int32_t i = 0; i < definition.synonyms().count(); ++i)
    if (definition.synonyms().getobject(i) == index)
      result.push_back(utf8(definition.nounderscore(definition.synonyms().getname(i))));
  return result;
}

treference describe(const tvksoptions& store, const std::string& definition) {
  treference result = {.definition = utf8(definition),
                       .title = {},
                       .release = {},
                       .lookupmode = store.definition().lookupmode(),
                       .commentcharacters = {},
                       .indicatorkeyword = utf8(store.definition().dotname()),
                       .groups = {},
                       .options = {}};
  for (std::size_t character = 0; character < store.definition().eolcommset().size(); ++character)
    if (store.definition().eolcommset()[character])
      result.commentcharacters.push_back(static_cast<char>(character));
  result.commentcharacters = utf8(result.commentcharacters);
  for (std::int32_t i = 0; i < store.definition().groups().count(); ++i) {
    const tgroupobj& group = *store.definition().groups().getobject(i);
    result.groups.push_back({group.groupnumber(), utf8(store.definition().groups().getname(i)),
                             utf8(group.helptext()), group.islisted()});
  }
  for (std::int32_t i = 0; i < store.getcount(); ++i) result.options.push_back(describeoption(store, i));
  for (std::int32_t i = 0; i < store.definition().synonyms().count(); ++i) {
    const std::int32_t target = store.definition().synonyms().getobject(i);
    if (target >= 0)
      result.options[static_cast<std::size_t>(target)].synonyms.push_back(
          utf8(store.definition().nounderscore(store.definition().synonyms().getname(i))));
  }
  return result;
}

std::vector<tchapter> chapters(const treference& reference) {
  std::vector<tchapter> result;
  std::map<std::int32_t, std::size_t> chapterofgroup;
  for (const tgroupreference& group : reference.groups)
    if (group.listed && chapterofgroup.try_emplace(group.number, result.size()).second)
      result.push_back({group.name, group.title, {}});
  result.push_back({"", othertitle, {}});
  for (const toptionreference& option : reference.options) {
    if (!option.listed) continue;
    const auto found = chapterofgroup.find(option.group);
    result[found != chapterofgroup.end() ? found->second : result.size() - 1].options.push_back(&option);
  }
  std::erase_if(result, [](const tchapter& chapter) { return chapter.options.empty(); });
  if (result.size() == 1 && result.front().group.empty()) result.front().title = onlytitle;
  return result;
}

std::string filename(const treference& reference) {
  if (reference.definition == "<stdin>") return "";
  return reference.definition.substr(reference.definition.find_last_of('/') + 1);
}

std::string titleof(const treference& reference) {
  if (!reference.title.empty()) return reference.title;
  const std::string file = filename(reference);
  return file.empty() ? "Options" : "Options of " + file;
}

std::string typephrase(const toptionreference& option) {
  return std::string(typephrases[ordinal(option.type)]) + subtypephrases[ordinal(option.subtype)];
}

std::string_view typeword(const toptionreference& option) { return opttypenames[ordinal(option.type)]; }

std::string rangephrase(const toptionreference& option) {
  return option.low.text.empty() ? "" : option.low.text + " to " + option.high.text;
}

}  // namespace tool
