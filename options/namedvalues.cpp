// Values and reference numbers by option name or synonym, and the texts of string-list options.
#include "options/vksoptions.h"

namespace optcore {

bool tvksoptions::optgetvalstr(std::string_view name, ttextout value) const {
  const toption* option = fdefinition.optionasobj(name);
  value.set(option != nullptr ? option->getasstring() : tvaluetext());
  return option != nullptr;
}

bool tvksoptions::optgetval2str(std::string_view name, ttextout value) const {
  const toption* option = fdefinition.optionasobj(name);
  const bool hastwo = option != nullptr && option->subtype() == tsubtype::twovalues;
  value.set(hastwo ? option->getasstring2() : tvaluetext());
  return hastwo;
}

tvaluetext tvksoptions::getasstring(std::string_view name) const {
  const toption* option = fdefinition.optionasobj(name);
  return option != nullptr ? option->getasstring() : tvaluetext();
}

void tvksoptions::setasstring(std::string_view name, std::string_view text) {
  const tcurrentname current(fmessages, name);
  if (toption* option = fdefinition.optionasobj(name)) option->setasstring(text);
}

bool tvksoptions::optsetrefnrstr(std::string_view name, std::int32_t refnr) {
  toption* option = fdefinition.optionasobj(name);
  if (option == nullptr) return false;
  option->setrefnr(refnr);
  return true;
}

// ---- string lists

namespace {

constexpr std::int32_t wrongtype = -1;
constexpr std::int32_t unknownname = -2;

std::int32_t notalist(const toption* option) { return option == nullptr ? unknownname : wrongtype; }

}  // namespace

std::int32_t tvksoptions::optlistcountstr(std::string_view name) const {
  const toption* option = fdefinition.optionasobj(name);
  const auto* list = ifis<tstrlistoption>(option);
  return list != nullptr ? list->itemcount() : notalist(option);
}

std::int32_t tvksoptions::optreadfromliststr(std::string_view name, std::int32_t index,
                                             ttextout value) const {
  const toption* option = fdefinition.optionasobj(name);
  const auto* list = ifis<tstrlistoption>(option);
  if (list != nullptr && index >= 1 && index <= list->itemcount()) {
    value.set(list->item(index - 1));
    return 1;
  }
  value.clear();
  return list != nullptr ? 0 : notalist(option);
}

std::int32_t tvksoptions::optgetfromliststr(std::string_view name, ttextout value) {
  toption* option = fdefinition.optionasobj(name);
  auto* list = ifis<tstrlistoption>(option);
  if (list != nullptr && list->itemcount() > 0) {
    value.set(list->takefirst());
    return 1;
  }
  value.clear();
  return list != nullptr ? 0 : notalist(option);
}

// A flag other than 0 asks for a list whose name begins with two dashes, 0 for any other list. The name that
// is returned is that of the last list that was examined, whether it matched or not. It is written only once:
// a longer name written before it would leave its end after the text in the buffer.
bool tvksoptions::optgetfromanystrlist(std::int32_t flag, ttextout name, ttextout value) {
  tstrlistoption* last = nullptr;
  bool found = false;
  for (std::int32_t i = 0; i < getcount() && !found; ++i) {
    auto* list = ifis<tstrlistoption>(&fdefinition.option(i));
    if (list == nullptr || list->itemcount() == 0) continue;
    last = list;
    found = (list->name().substr(0, 2) == "--") == (flag != 0);
  }
  if (last != nullptr) name.set(last->name());
  if (found) value.set(last->takefirst());
  return found;
}

}  // namespace optcore
