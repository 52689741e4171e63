// Lays out an option file to start from.
#include "tools/doc/templatedocument.h"

#include "tools/text.h"

namespace tool {

namespace {

constexpr std::size_t width = 79;

// The text as comment lines, which are broken between words. The first begins with `first`, the others with
// as many blanks.
std::string comment(const std::string& first, std::string_view text) {
  const std::string valid = printableprose(text);
  const std::string next(first.size(), ' ');
  std::string result;
  std::string line = "* " + first;
  bool empty = true;
  for (std::string_view rest = valid; !rest.empty();) {
    const std::string_view word = rest.substr(0, rest.find_first_of(" \t"));
    rest.remove_prefix(std::min(word.size() + 1, rest.size()));
    if (word.empty()) continue;
    if (!empty && columns(line) + 1 + columns(word) > width) {
      result += line + "\n";
      line = "* " + next;
      empty = true;
    }
    line += (empty ? "" : " ") + std::string(word);
    empty = false;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return result + line + "\n";
}

std::string membersphrase(const toptionreference& option) {
  std::string result;
  for (const std::string& member : option.members) result += (result.empty() ? ": " : ", ") + member;
  return result;
}

// Type, range and default.
std::string facts(const toptionreference& option) {
  std::string result = typephrase(option);
  if (option.type == optcore::topttype::macro || option.type == optcore::topttype::multilist)
    result += membersphrase(option);
  if (const std::string range = rangephrase(option); !range.empty()) result += ", " + range;
  if (!option.defaultvalue.text.empty()) result += "; default " + option.defaultvalue.text;
  return result;
}

std::string standingtext(const toptionreference& option) {
  if (option.standing.standing == tstanding::current) return {};
  const std::string name = option.standing.standing == tstanding::deprecated ? "Deprecated" : "Obsolete";
  return comment("", option.standing.reason.empty() ? name : name + "; " + option.standing.reason);
}

std::string entry(const toptionreference& option, tsettinglines& lines) {
  std::string result = "\n" + comment("", option.name + (option.help.empty() ? "" : ": " + option.help));
  for (const std::string& detail : option.details) result += comment("  ", detail);
  result += comment("", facts(option));
  for (const tvaluereference& value : option.values)
    if (value.listed)
      result += comment("  ", value.value.text + (value.help.empty() ? "" : "  " + value.help));
  result += standingtext(option);
  const std::string line = lines.lineof(option.number - 1);
  return result + (line.empty()
                       ? comment("", "Each use of this option is reported, so there is no line for it.")
                       : "*" + line + "\n");
}

}  // namespace

std::string templatedocument(const treference& reference, tsettinglines& lines) {
  std::string result = comment("", "Options of " + reference.definition +
                                       ". To set an option, remove the asterisk in front of its line.");
  for (const tchapter& chapter : chapters(reference)) {
    result += "\n" + comment("", "---- " + chapter.title);
    for (const toptionreference* option : chapter.options) result += entry(*option, lines);
  }
  return result;
}

}  // namespace tool
