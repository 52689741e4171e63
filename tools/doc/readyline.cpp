// Makes lines of an option file.
#include "tools/doc/readyline.h"

#include <algorithm>
#include <string_view>

#include "base/textcase.h"

namespace tool {

namespace {

using namespace optcore;

std::string defaultof(const std::string& name, const treference& reference) {
  const auto found = std::ranges::find_if(
      reference.options, [&](const toptionreference& option) { return struequal(option.name, name); });
  return found == reference.options.end() ? "" : found->defaultvalue.text;
}

// One word for each member, separated by colons; empty if a member has no such word.
std::string membervalues(const toptionreference& option, const treference& reference) {
  std::string result;
  for (const std::string& member : option.members) {
    const std::string value = defaultof(member, reference);
    if (value.empty() || value.find_first_of(":\" ") != std::string::npos) return "";
    result += (result.empty() ? "" : ":") + value;
  }
  return result;
}

// The default that all members have; empty if there is none.
std::string commonvalue(const toptionreference& option, const treference& reference) {
  if (option.members.empty()) return "";
  const std::string value = defaultof(option.members.front(), reference);
  const bool common = std::ranges::all_of(
      option.members, [&](const std::string& member) { return defaultof(member, reference) == value; });
  return common ? value : "";
}

// In double quotes if it contains a character that would begin a comment.
std::string withoutcomment(const std::string& value, const treference& reference) {
  const bool cut = value.find_first_of(reference.commentcharacters) != std::string::npos;
  return cut && !value.starts_with('"') ? '"' + value + '"' : value;
}

// In lookup mode Minos a key has at most four words, so that a longer name cannot be typed.
bool istyped(const std::string& name, const treference& reference) {
  return reference.lookupmode != tlookupmode::minos || std::ranges::count(name, ' ') < 4;
}

}  // namespace

std::string lineof(const toptionreference& option, const std::string& value, const treference& reference) {
  const std::string key = (option.name.starts_with('.') ? "symbol" : "") + option.name;
  return value.empty() ? key : key + " " + withoutcomment(value, reference);
}

std::string readyline(const toptionreference& option, const treference& reference) {
  if (option.standing.standing != tstanding::current || !istyped(option.name, reference)) return "";
  if (option.subtype == tsubtype::novalue) return lineof(option, "", reference);
  std::string value = option.defaultvalue.text;
  switch (option.type) {
    case topttype::strlist: value = "text"; break;
    case topttype::multilist: value = membervalues(option, reference); break;
    case topttype::macro: value = commonvalue(option, reference); break;
    case topttype::immediate:
      if (option.immediatekind == immkindnames[ordinal(timmkind::help)]) return lineof(option, "", reference);
      if (option.immediatekind == immkindnames[ordinal(timmkind::eolflag)] ||
          option.immediatekind == immkindnames[ordinal(timmkind::nobounds)])
        value = "1";
      break;
    default: break;
  }
  if (value.empty()) return "";
  const std::string line = lineof(option, value, reference);
  return option.subtype == tsubtype::twovalues ? line + " " + withoutcomment(value, reference) : line;
}

}  // namespace tool
