// The tables of keywords and fields.
#include "tools/reading/definitionfields.h"

#include <algorithm>
#include <array>

#include "base/numtext.h"
#include "base/textcase.h"
#include "options/codes.h"

namespace tool {

using namespace optcore;

namespace {

constexpr tfield reference{"reference number", tform::integer,
                           "A number for the client's own use: the library stores it and returns it."};
constexpr tfield flag{"help flag", tform::helpflag,
                      "1 when help lists the option; 0 hides it from the help, but it can be used."};
constexpr tfield groupnumber{
    "group", tform::groupnumber,
    "The number of the group under which help lists the option; 0 for no group, which also hides it."};
constexpr tfield valueflag{"help flag", tform::helpflag, "1 when help lists the value; 0 hides it."};
constexpr std::string_view value = "The value that the option has until another one is set.";

std::vector<tfield> bounded(tform form) {
  return {reference,
          {"default", form, value},
          {"lowest value", form, "The lowest value that is permitted."},
          {"highest value", form, "The highest value that is permitted."},
          flag,
          groupnumber};
}
std::vector<tfield> withdefault(tform form, std::string_view meaning = value) {
  return {reference, {"default", form, meaning}, flag, groupnumber};
}

struct tkeyword {
  std::string_view word, meaning;
  std::vector<tfield> fields{};  // between the keyword and the text
  std::string_view text{};       // what the rest of the line means
};

const std::vector<tkeyword>& table() {
  constexpr std::string_view help = "The help text: the rest of the line.";
  static const std::vector<tkeyword> result = {
      {"integer", "An option whose value is an integer within its bounds.", bounded(tform::integer), help},
      {"double", "An option whose value is a number within its bounds.", bounded(tform::number), help},
      {"string", "An option whose value is a text without double quotes.", withdefault(tform::word), help},
      {"boolean", "An option whose value is a yes or no word, kept as 1 or 0.",
       withdefault(tform::zeroorone, "1 for yes or 0 for no."), help},
      {"enumstr", "An option whose value is one of the texts on the lines below it.",
       withdefault(tform::word), help},
      {"enumint", "An option whose value is one of the integers on the lines below it.",
       withdefault(tform::integer), help},
      {"multilist",
       "An option that sets each of its members to one word of its value.",
       {reference, flag, groupnumber},
       help},
      {"strlist",
       "An option that collects texts: each use of its name adds one.",
       {reference, flag, groupnumber},
       help},
      {"macro", "An option that sets all of its members to its value.", {flag, groupnumber}, help},
      {"immediate",
       "An option that acts when it is read.",
       {{"kind", tform::immediatekind, "What the option does: EolFlag, ReadFile, Message, NoBounds or Help."},
        flag,
        groupnumber},
       help},
      {"synonym", "Another name for an option that stands earlier in the file."},
      {"group",
       "A group, which collects options in the help.",
       {{"number", tform::integer, "The number by which options name the group."},
        {"help flag", tform::helpflag, "1 when help lists the group; 0 hides it with its options."}},
       "The title of the group: the rest of the line."},
      {"deprecated", "The names on the lines below still work, but their use is reported."},
      {"obsolete", "The names on the lines below no longer work; their use is reported."},
      {"indicator", "The name is the keyword with which indicator lines of option files begin."},
      {"lookup", "The name says how names are found: Normal, Path or Minos."},
      {"eolcomm",
       "The characters that start a comment at the end of a line of an option file.",
       {},
       "The characters, one after the other without blanks."}};
  return result;
}

const tkeyword& rowof(std::string_view word) {
  static const tkeyword none;
  for (const tkeyword& each : table())
    if (each.word.size() == word.size() && upchar(each.word.front()) == upchar(word.front()) &&
        struequal(each.word, word))
      return each;
  return none;
}

}  // namespace

bool isfield(tform form, std::string_view word) {
  std::int32_t integer = 0;
  double number = 0;
  switch (form) {
    case tform::word: return true;
    case tform::integer:
    case tform::helpflag:
    case tform::groupnumber:
    case tform::zeroorone: return strasintex(word, integer);
    case tform::number: return strasdoubleex(word, number);
    case tform::immediatekind: break;
  }
  return std::ranges::any_of(immkindnames, [&](std::string_view kind) { return struequal(kind, word); });
}

std::string_view keywordof(std::string_view word) { return rowof(word).word; }

const std::vector<std::string_view>& keywords() {
  static const std::vector<std::string_view> result = [] {
    std::vector<std::string_view> names;
    names.reserve(table().size());
    for (const tkeyword& each : table()) names.push_back(each.word);
    return names;
  }();
  return result;
}

std::string_view meaningof(std::string_view keyword) { return rowof(keyword).meaning; }
std::string_view meaningoftext(std::string_view keyword) { return rowof(keyword).text; }
const std::vector<tfield>& fieldsbetween(std::string_view keyword) { return rowof(keyword).fields; }

std::string_view meaningofmodifier(std::string_view modifier) {
  if (struequal(modifier, "NV")) return "The option takes no value: its name sets the default as the value.";
  if (struequal(modifier, "OPT")) return "The value may be left out: the name alone sets the default.";
  if (struequal(modifier, "TWO")) return "The option takes two values; a single one sets both.";
  return {};
}

bool takesmodifier(std::string_view type) {
  for (std::size_t i = 0; i < opttypenames.size(); ++i)
    if (struequal(opttypenames[i], type)) return optcore::takesmodifier(static_cast<topttype>(i));
  return false;
}

const std::vector<tfield>& fieldsofvalue(std::string_view keyword) {
  constexpr std::string_view meaning = "The value as option files have it.";
  static const std::vector<tfield> integers = {{"value", tform::integer, meaning}, valueflag},
                                   words = {{"value", tform::word, meaning}, valueflag}, none;
  if (struequal(keyword, "enumint")) return integers;
  return struequal(keyword, "enumstr") ? words : none;
}

}  // namespace tool
