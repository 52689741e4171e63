// The texts of string lists.
#include "options/stringlists.h"

namespace optcore {

namespace {

constexpr std::int32_t wrongtype = -1;
constexpr std::int32_t unknownname = -2;

std::int32_t notalist(const toption* option) { return option == nullptr ? unknownname : wrongtype; }

}  // namespace

std::int32_t listcount(const toption* option) {
  const auto* list = ifis<tstrlistoption>(option);
  return list != nullptr ? list->itemcount() : notalist(option);
}

std::int32_t readfromlist(const toption* option, std::int32_t index, ttextout& text) {
  const auto* list = ifis<tstrlistoption>(option);
  if (list != nullptr && index >= 1 && index <= list->itemcount()) {
    text.set(list->item(index - 1));
    return 1;
  }
  text.clear();
  return list != nullptr ? 0 : notalist(option);
}

std::int32_t getfromlist(toption* option, ttextout& text) {
  auto* list = ifis<tstrlistoption>(option);
  if (list != nullptr && list->itemcount() > 0) {
    text.set(list->takefirst());
    return 1;
  }
  text.clear();
  return list != nullptr ? 0 : notalist(option);
}

bool getfromanylist(tdefinition& definition, std::int32_t flag, ttextout& name, ttextout& text) {
  const bool dashed = flag != 0;
  const auto filledlist = [&definition](std::int32_t i) {
    auto* list = ifis<tstrlistoption>(&definition.option(i));
    return list != nullptr && list->itemcount() > 0 ? list : nullptr;
  };
  for (std::int32_t& i = definition.emptyupto(dashed); i < definition.getcount(); ++i) {
    tstrlistoption* list = filledlist(i);
    if (list == nullptr || (list->name().substr(0, 2) == "--") != dashed) continue;
    name.set(list->name());
    text.set(list->takefirst());
    return true;
  }
  for (std::int32_t i = definition.getcount() - 1; i >= 0; --i) {
    const tstrlistoption* list = filledlist(i);
    if (list == nullptr) continue;
    name.set(list->name());
    break;
  }
  return false;
}

}  // namespace optcore
