// The fields of the lines of a definition: their names, what may stand there, and what they mean.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace tool {

enum class tform : std::uint8_t { word, integer, number, zeroorone, helpflag, groupnumber, immediatekind };

struct tfield {
  std::string_view name;
  tform form;
  std::string_view meaning;  // one sentence
};

// Whether the word can stand in the field.
bool isfield(tform form, std::string_view word);

// The keyword as the tables have it, in lower case; empty for what is not the keyword of a definition.
std::string_view keywordof(std::string_view word);
// All keywords, the types of options first.
const std::vector<std::string_view>& keywords();
// What a line with this keyword is, or what a modifier does, as one sentence; empty for other words.
std::string_view meaningof(std::string_view keyword);
std::string_view meaningofmodifier(std::string_view modifier);
// Whether the type may have a modifier.
bool takesmodifier(std::string_view type);

// The fields between the keyword and the text.
const std::vector<tfield>& fieldsbetween(std::string_view keyword);
// The fields of a line that gives a value of the option, before the text.
const std::vector<tfield>& fieldsofvalue(std::string_view keyword);
// Whether a line with this keyword ends with a text, and what the text means.
std::string_view meaningoftext(std::string_view keyword);

}  // namespace tool
