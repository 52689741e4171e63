// Writes an option's default as a line, and tries the line.
#include "tools/doc/settinglines.h"

#include <algorithm>
#include <vector>

#include "base/numtext.h"
#include "output/parameterwriter.h"

namespace tool {

using namespace optcore;

namespace {

std::string immediateword(timmkind kind) {
  switch (kind) {
    case timmkind::eolflag: return "on";
    case timmkind::nobounds: return "off";
    case timmkind::readfile: return "/dev/null";
    default: return "1";
  }
}

// The default as text: the value of an option that is not set. Empty for options that set others.
std::string defaultof(const toption& option) {
  switch (option.opttype()) {
    case topttype::integer: return std::string(inttostrex(as<tintoption>(option).value(twhich::first)));
    case topttype::dbl: {
      const double value = as<tdbloption>(option).value(twhich::first);
      return std::string(value == maxdouble || value == mindouble ? dbltostrex(value) : dbltostrexact(value));
    }
    case topttype::immediate: return immediateword(as<timmediateoption>(option).immkind());
    case topttype::strlist: return "text";
    default: return std::string(option.getasstring().view());
  }
}

// A macro passes one text to all its members, a multilist a word to each.
std::string valueof(const tvksoptions& store, const toption& option) {
  if (const auto* macro = ifis<tmacrooption>(&option))
    return macro->items().count() == 0 ? "" : defaultof(*macro->items().get(0));
  const auto* list = ifis<tmultilistoption>(&option);
  if (list == nullptr) return defaultof(option);
  std::string result;
  for (std::int32_t i = 0; i < list->items().count(); ++i)
    if (const std::int32_t member = list->items().get(i); member >= 0)
      result += (result.empty() ? "" : ":") + defaultof(store.definition().option(member));
  return result;
}

// The key as it is typed. A dot option stands behind a symbol of the model.
std::string keyof(const toption& option) {
  const std::string name(option.getname());
  return name.starts_with('.') ? "symbol" + name : name;
}

}  // namespace

void tsettinglines::filed(const tmessage& message) {
  if (message.kind != tmsgkind::fileenter && message.kind != tmsgkind::fileleave) freported = true;
}

void tsettinglines::assigned(const toption& option, std::int32_t) { fassigned.emplace_back(option.name()); }

// Reads the line and takes back what it has set.
tsettinglines::toutcome tsettinglines::tried(const toption& option, const std::string& line) {
  const std::string before(option.getasstring().view());
  freported = false;
  fstore.optreadfromstr(line);
  const bool same = option.getasstring().view() == before;
  for (const std::string& name : fassigned)
    if (toption* changed = fstore.definition().exactoption(name)) changed->reset();
  fassigned.clear();
  fstore.optclearmessages();
  return freported ? toutcome::reported : same ? toutcome::clean : toutcome::othervalue;
}

std::string tsettinglines::lineof(std::int32_t index) {
  const toption& option = fstore.definition().option(index);
  const std::string value = valueof(fstore, option);
  const bool two = option.subtype() == tsubtype::twovalues;
  const auto twice = [&](const std::string& text) { return two ? text + " " + text : text; };
  const auto endsline = [&](char c) {
    return fstore.definition().eolcommset()[static_cast<unsigned char>(c)];
  };
  std::vector<std::string> lines = {keyof(option) + " = " + twice('"' + value + '"')};
  const std::string shorter = keyof(option) + " = " + twice(strexternal(value));
  lines.insert(std::ranges::any_of(value, endsline) ? lines.end() : lines.begin(), shorter);
  lines.push_back(keyof(option));  // for an option that takes no value
  for (const toutcome enough : {toutcome::clean, toutcome::othervalue})
    for (const std::string& line : lines)
      if (tried(option, line) >= enough) return line;
  return {};
}

}  // namespace tool
