// Writes settings.
#include "tools/migrating/settingtexts.h"

#include <algorithm>

#include "tools/text.h"

namespace tool {

using namespace optcore;

std::string writtenvalue(const tdefinition& definition, const std::string& text) {
  const auto needsquotes = [&](char character) {
    return character == ' ' || character == '\t' || character == ',' ||
           definition.eolcommset().test(static_cast<unsigned char>(character));
  };
  return text.empty() || std::ranges::any_of(text, needsquotes) ? inquotes(text) : text;
}

namespace {

// Both values of an option with two stand behind its name.
std::string valuesof(const tdefinition& definition, const std::vector<titem>& items, std::size_t at) {
  const titem& item = items[at];
  std::string value = writtenvalue(definition, valuetext(item.value));
  const bool hadtwo = item.subtype == tsubtype::twovalues;  // otherwise the only value sets both
  if (item.option == nullptr || item.option->subtype() != tsubtype::twovalues || !hadtwo) return value;
  if (item.which == twhich::second) return "* " + value;
  const bool hassecond =
      at + 1 < items.size() && items[at + 1].option == item.option && items[at + 1].which == twhich::second;
  return value + " " + (hassecond ? writtenvalue(definition, valuetext(items[at + 1].value)) : "*");
}

}  // namespace

std::optional<std::vector<std::string>> settingtexts(const tdefinition& definition, const toutcome& outcome,
                                                     bool eolonly) {
  std::vector<std::string> result;
  const std::vector<titem>& items = outcome.items;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const titem& item = items[i];
    if (item.kind == teffect::tkind::dotentry || item.kind == teffect::tkind::indicator) return std::nullopt;
    const bool iswritten = i > 0 && item.which == twhich::second && item.option != nullptr &&
                           items[i - 1].option == item.option && items[i - 1].which == twhich::first;
    if (iswritten) continue;
    const std::string name = item.option != nullptr ? writtenname(definition, *item.option) : item.symbol;
    if (name.empty()) return std::nullopt;
    if (item.option == nullptr && eolonly) {  // the text is what stands there
      result.push_back(name + " = " + valuetext(item.value));
      continue;
    }
    const bool isflag = item.option != nullptr && item.option->subtype() == tsubtype::novalue;
    result.push_back(isflag ? name : name + " " + valuesof(definition, items, i));
  }
  if (result.empty()) return std::nullopt;
  return result;
}

namespace {

template <class tbounded, class tnumber>
bool moved(const tbounded& option, tnumber& number) {
  const tnumber before = number;
  number = std::clamp(number, static_cast<tnumber>(option.lo()), static_cast<tnumber>(option.hi()));
  return number != before;
}

// Integers and doubles each take the numbers of the other type that are values of their own.
bool clampvalue(const toption& option, tvalue& value) {
  double number = 0;
  if (const auto* integer = std::get_if<std::int32_t>(&value))
    number = *integer;
  else if (const auto* dbl = std::get_if<double>(&value))
    number = *dbl;
  else
    return false;
  if (const auto* integer = ifis<tintoption>(&option)) {
    if (!moved(*integer, number)) return false;
    value = static_cast<std::int32_t>(number);
    return true;
  }
  const auto* dbl = ifis<tdbloption>(&option);
  if (dbl == nullptr || !moved(*dbl, number)) return false;
  value = number;
  return true;
}

}  // namespace

std::vector<std::string> clamp(toutcome& outcome) {
  std::vector<std::string> result;
  for (titem& item : outcome.items) {
    const std::string before = valuetext(item.value);
    if (item.option == nullptr || item.option->subtype() == tsubtype::novalue) continue;
    if (clampvalue(*item.option, item.value))
      result.push_back(std::string(item.option->name()) + " moved from " + before + " to the bound " +
                       valuetext(item.value));
  }
  return result;
}

}  // namespace tool
