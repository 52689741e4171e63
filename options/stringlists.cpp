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

// The name is written only once: a longer name written before it would leave its end after the text in the
// buffer.
bool getfromanylist(tdefinition& definition, std::int32_t flag, ttextout& name, ttextout& text) {
  tstrlistoption* last = nullptr;
  bool found = false;
  for (std::int32_t i = 0; i < definition.getcount() && !found; ++i) {
    auto* list = ifis<tstrlistoption>(&definition.option(i));
    if (list == nullptr || list->itemcount() == 0) continue;
    last = list;
    found = (list->name().substr(0, 2) == "--") == (flag != 0);
  }
  if (last != nullptr) name.set(last->name());
  if (found) text.set(last->takefirst());
  return found;
}

}  // namespace optcore
