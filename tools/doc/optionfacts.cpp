// Puts the facts into words.
#include "tools/doc/optionfacts.h"

#include <utility>

#include "tools/text.h"

namespace tool {

namespace {

using namespace optcore;

template <class T, class ttext>
std::string joined(const std::vector<T>& items, ttext textof) {
  std::string result;
  for (const T& item : items) result += (result.empty() ? "" : ", ") + textof(item);
  return result;
}

std::string grouptext(const tvksoptions& store, std::int32_t number) {
  const std::int32_t position = store.definition().groupwithnumber(number);
  if (position < 0) return "";
  const auto& groups = store.definition().groups();
  return utf8(std::string(groups.getname(position))) + ": " + utf8(groups.getobject(position)->helptext());
}

}  // namespace

std::string standingtext(const tnamestanding& standing) {
  if (standing.standing == tstanding::current) return "";
  return (standing.standing == tstanding::obsolete ? "obsolete; " : "deprecated; ") + standing.reason;
}

std::vector<toptionfact> factsof(const tvksoptions& store, std::int32_t index,
                                 const toptionreference& reference) {
  std::vector<toptionfact> result = {
      {"type", typephrase(reference)},
      {"range", rangephrase(reference)},
      {"values", joined(reference.values, [](const tvaluereference& value) { return value.value.text; })},
      {"default", reference.defaultvalue.text},
      {"members", joined(reference.members, [](const std::string& name) { return name; })},
      {"group", grouptext(store, reference.group)},
      {"synonyms", joined(synonymsof(store, index), [](const std::string& name) { return name; })},
      {"name", standingtext(reference.standing)},
      {"their state", standingtext(reference.synonymstanding)}};
  std::erase_if(result, [](const toptionfact& fact) { return fact.text.empty(); });
  return result;
}

}  // namespace tool
