// Puts what a line did into words.
#include "tools/tracing/touchtexts.h"

#include "tools/doc/shownvalue.h"
#include "tools/text.h"
#include "tools/tracing/origins.h"

namespace tool {

using namespace optcore;

namespace {

std::string quoted(const ttouch& touch, std::string_view what) {
  return std::string(what) + (touch.value.empty() ? "" : " " + touch.value);
}

std::string forcetext(const ttouches& touches, const toption& option, twhich which) {
  const ttouch* touch = touches.inforce(which);
  std::string value = currentvalue(option, which).text;
  if (touch != nullptr && option.opttype() == topttype::strlist) return value;
  return value +
         (touch == nullptr ? ", the default" : ", from " + placetext(touches, touch->source, touch->line));
}

}  // namespace

std::string resulttext(const ttouches& touches, const ttouch& touch) {
  const bool twovalues = touches.option() != nullptr && touches.option()->subtype() == tsubtype::twovalues;
  const std::string value = !twovalues                      ? ""
                            : touch.which == twhich::second ? " second value"
                                                            : " first value";
  std::string result;
  switch (touch.kind) {
    case ttouch::tkind::stored: result = quoted(touch, "stored" + value); break;
    case ttouch::tkind::outofbounds: result = quoted(touch, "accepted outside the bounds" + value); break;
    case ttouch::tkind::refused: result = "refused"; break;
    case ttouch::tkind::noted: result = "reported"; break;
    case ttouch::tkind::passedon: result = "passed its text on to its members"; break;
    case ttouch::tkind::acted: result = "acted"; break;
    case ttouch::tkind::kept: result = quoted(touch, "entry kept with value"); break;
  }
  result += linkstext(touches.links(touch.links));
  if (!touch.message.empty()) result += ": " + utf8(touch.message);
  return result + (touch.overridden ? "; overridden later" : "");
}

std::vector<std::string> forcetexts(const ttouches& touches) {
  const toption* option = touches.option();
  if (option == nullptr || currentvalue(*option, twhich::first).json.is_null()) return {};
  std::vector<std::string> result = {forcetext(touches, *option, twhich::first)};
  if (option->subtype() == tsubtype::twovalues) result.push_back(forcetext(touches, *option, twhich::second));
  return result;
}

}  // namespace tool
