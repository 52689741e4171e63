// Collects the settings of a store.
#include "tools/tracing/settings.h"

#include <algorithm>
#include <set>

#include "base/textcase.h"
#include "tools/doc/entrytext.h"
#include "tools/doc/reference.h"
#include "tools/doc/shownvalue.h"
#include "tools/jsontext.h"
#include "tools/text.h"

namespace tool {

using namespace optcore;
using nlohmann::ordered_json;

namespace {

// Of an option that was set: both values if it has two. An option without a value can tell only that it was
// named.
tsetting valueof(const toption& option) {
  if (option.subtype() == tsubtype::novalue) return {"set", true};
  const tshownvalue first = currentvalue(option, twhich::first);
  // in quotes, because a list without texts is shown as none
  if (option.opttype() == topttype::strlist && first.text == "none")
    return {inquotes(first.text), first.json};
  if (option.subtype() != tsubtype::twovalues) return {first.text, first.json};
  const tshownvalue second = currentvalue(option, twhich::second);
  return {first.text + " " + second.text, ordered_json::array({first.json, second.json})};
}

// Words of an enumeration are the same in upper and lower case.
bool samevalue(const toption& option, const tsetting& a, const tsetting& b) {
  return option.opttype() == topttype::enumstr ? struequal(a.text, b.text) : a.text == b.text;
}

void addoptions(const tvksoptions& store, std::int32_t defined, tsettings& result) {
  for (std::int32_t i = 0; i < store.getcount(); ++i) {
    const toption& option = store.definition().option(i);
    if (option.defined() == 0 || option.datatype() == tdatatype::none) continue;
    tsettingkey key{tsettingkey::tkind::option, i, utf8(option.getname())};
    if (i >= defined) key = {tsettingkey::tkind::list, 0, utf8(option.getname())};
    tsetting value = valueof(option);
    value.entries = {i};
    if (!samevalue(option, value, defaultsetting(store, key))) result.emplace(key, value);
  }
}

void addentry(tsettings& result, const tsettingkey& key, std::int32_t position, const std::string& text,
              const ordered_json& value) {
  tsetting& setting = result[key];
  setting.text += (setting.text.empty() ? "" : ", ") + text;
  if (setting.json.is_null()) setting.json = ordered_json::array();
  setting.json.push_back(value);
  setting.entries.push_back(position);
}

}  // namespace

std::string plainkey(const tvksoptions& store, const tdotobj& entry) {
  std::string result = std::string(entry.name()).append(store.definition().getstrings(entry.optionindex()));
  for (std::int32_t i = 0; i < entry.indices().count(); ++i) {
    const std::string_view index = entry.indices().get(i);
    result.append(i == 0 ? "(" : ",");
    if (index == "*")
      result.append(index);
    else
      result.append("'").append(index.substr(1, index.size() - 2)).append("'");
  }
  return utf8(entry.indices().count() == 0 ? result : result + ")");
}

// The order counts, too, because a client that reads the entries one by one may let later ones prevail.
tsettings settingsof(const tvksoptions& store, std::int32_t defined) {
  tsettings result;
  addoptions(store, defined, result);
  for (std::int32_t i = 0; i < store.dotoptions().count(); ++i) {
    const tdotobj& entry = *store.dotoptions().getobject(i);
    const std::string name = plainkey(store, entry);
    addentry(result, {tsettingkey::tkind::dotentry, 0, name}, i, numbertext(entry.value()), entry.value());
    addentry(result, {tsettingkey::tkind::dotorder, 0, "order of dot lines"}, i, name, name);
  }
  for (std::int32_t i = 0; i < store.indicators().count(); ++i) {
    const tindicatoritem& item = *store.indicators().get(i);
    const std::string name = utf8(keytext(store, item));
    addentry(result, {tsettingkey::tkind::indicator, 0, name}, i, std::to_string(item.value()), item.value());
    addentry(result, {tsettingkey::tkind::indicatororder, 0, "order of indicators"}, i, name, name);
  }
  return result;
}

tsetting defaultsetting(const tvksoptions& store, const tsettingkey& key) {
  if (key.kind != tsettingkey::tkind::option) return {"none", nullptr};
  const toption& option = store.definition().option(key.position);
  if (option.opttype() == topttype::strlist) return {"none", ordered_json::array()};
  if (option.subtype() == tsubtype::novalue) return {"not set", false};
  const tshownvalue value = describeoption(store, key.position).defaultvalue;
  if (option.subtype() != tsubtype::twovalues) return {value.text, value.json};
  return {value.text + " " + value.text, ordered_json::array({value.json, value.json})};
}

namespace {

// What the entries of a symbol say again.
bool repeats(const tsettingdifference& difference, const std::set<tsettingkey::tkind>& kinds) {
  switch (difference.key.kind) {
    case tsettingkey::tkind::option:
      return difference.key.name.starts_with('.') && kinds.contains(tsettingkey::tkind::dotentry);
    case tsettingkey::tkind::dotorder: return kinds.contains(tsettingkey::tkind::dotentry);
    case tsettingkey::tkind::indicatororder: return kinds.contains(tsettingkey::tkind::indicator);
    case tsettingkey::tkind::list:
    case tsettingkey::tkind::dotentry:
    case tsettingkey::tkind::indicator: break;
  }
  return false;
}

}  // namespace

std::vector<tsettingdifference> differences(const tvksoptions& store, const std::vector<tsettings>& lists) {
  std::set<tsettingkey> keys;
  for (const tsettings& list : lists)
    for (const auto& [key, setting] : list) keys.insert(key);
  std::vector<tsettingdifference> result;
  std::set<tsettingkey::tkind> kinds;
  for (const tsettingkey& key : keys) {
    tsettingdifference difference{key, {}};
    difference.values.reserve(lists.size());
    for (const tsettings& list : lists) {
      const auto found = list.find(key);
      difference.values.push_back(found != list.end() ? found->second : defaultsetting(store, key));
    }
    const auto differs = [&](const tsetting& setting) {
      return setting.text != difference.values.front().text;
    };
    if (std::ranges::none_of(difference.values, differs)) continue;
    kinds.insert(key.kind);
    result.push_back(std::move(difference));
  }
  std::erase_if(result, [&](const tsettingdifference& difference) { return repeats(difference, kinds); });
  return result;
}

}  // namespace tool
