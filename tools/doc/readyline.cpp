// Makes lines of an option file.
#include "tools/doc/readyline.h"

#include <algorithm>

namespace tool {

namespace {

using namespace optcore;

bool isimmediate(const toptionreference& option, timmkind kind) {
  return option.immediatekind == immkindnames[ordinal(kind)];
}

}  // namespace

treadylines::treadylines(const treference& reference) : freference(reference) {
  for (const toptionreference& option : reference.options)
    fdefaults.try_emplace(option.name, option.defaultvalue.text);
}

std::string treadylines::lineof(const toptionreference& option, const std::string& value) const {
  const std::string key = (option.name.starts_with('.') ? "symbol" : "") + option.name;
  return value.empty() ? key : key + " " + withoutcomment(value);
}

std::string treadylines::readyline(const toptionreference& option) const {
  if (option.standing.standing != tstanding::current || !istyped(option.name)) return "";
  if (option.subtype == tsubtype::novalue || isimmediate(option, timmkind::help)) return lineof(option, "");
  const std::string value = readyvalue(option);
  if (value.empty()) return "";
  const std::string line = lineof(option, value);
  return option.subtype == tsubtype::twovalues ? line + " " + withoutcomment(value) : line;
}

std::string treadylines::readyvalue(const toptionreference& option) const {
  switch (option.type) {
    case topttype::strlist: return "text";
    case topttype::multilist: return membervalues(option);
    case topttype::macro: return commonvalue(option);
    case topttype::immediate:
      return isimmediate(option, timmkind::eolflag) || isimmediate(option, timmkind::nobounds) ? "1" : "";
    case topttype::integer:
    case topttype::dbl:
    case topttype::string:
    case topttype::boolean:
    case topttype::enumstr:
    case topttype::enumint: break;
  }
  return option.defaultvalue.text;
}

std::string treadylines::defaultof(const std::string& name) const {
  const auto found = fdefaults.find(name);
  return found == fdefaults.end() ? "" : found->second;
}

// One word for each member, separated by colons; empty if a member has no such word.
std::string treadylines::membervalues(const toptionreference& option) const {
  std::string result;
  for (const std::string& member : option.members) {
    const std::string value = defaultof(member);
    if (value.empty() || value.find_first_of(":\" ") != std::string::npos) return "";
    result += (result.empty() ? "" : ":") + value;
  }
  return result;
}

// The default that all members have; empty if there is none.
std::string treadylines::commonvalue(const toptionreference& option) const {
  if (option.members.empty()) return "";
  const std::string value = defaultof(option.members.front());
  const bool common = std::ranges::all_of(
      option.members, [&](const std::string& member) { return defaultof(member) == value; });
  return common ? value : "";
}

// In double quotes if it contains a character that would begin a comment.
std::string treadylines::withoutcomment(const std::string& value) const {
  const bool cut = value.find_first_of(freference.commentcharacters) != std::string::npos;
  return cut && !value.starts_with('"') ? '"' + value + '"' : value;
}

// In lookup mode Minos a key has at most four words, so that a longer name cannot be typed.
bool treadylines::istyped(const std::string& name) const {
  return freference.lookupmode != tlookupmode::minos || std::ranges::count(name, ' ') < 4;
}

}  // namespace tool
