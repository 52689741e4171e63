// Chooses a note by the problem and by the type of the option.
#include "tools/reading/advice.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

#include "base/numtext.h"
#include "options/codes.h"
#include "tools/reading/nearnames.h"
#include "tools/text.h"

namespace tool {

using namespace optcore;

namespace {

constexpr double maxdouble = 1e299;

std::string lower(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), [](unsigned char c) { return std::tolower(c); });
  return result;
}

std::string_view withoutsign(std::string_view text) {
  return text.starts_with('-') || text.starts_with('+') ? text.substr(1) : text;
}

bool isinfinity(std::string_view value) {
  const std::string word = lower(withoutsign(value));
  return word == "inf" || word == "infinity";
}

std::string rangeof(const tintoption& option) {
  return "the option takes integers from " + std::to_string(option.lo()) + " to " +
         std::to_string(option.hi());
}

std::string valuesof(const tenumintoption& option) {
  std::string values;
  for (std::int32_t i = 0; i < option.items().count(); ++i)
    values += (i == 0 ? "" : ", ") + std::to_string(option.items().get(i)->enumvalue());
  return "the option takes the integers " + values;
}

std::string oninteger(std::string_view value, const std::string& permitted) {
  if (isinfinity(value)) return "No integer is infinite; " + permitted + ", and maxint is 2147483647";
  return isinteger(value) ? "The number has more than 32 bits; " + permitted : "";
}

// Whether the number is beyond the largest one: at least 300 digits before the point.
bool isbeyond(std::string_view value) {
  const std::string text = lower(withoutsign(value));
  const std::size_t sign = text.find_first_of("ed");
  if (sign == std::string::npos || !isinteger(text.substr(sign + 1)) || text[sign + 1] == '-') return false;
  const std::string exponent = text.substr(sign + 1);
  return exponent.size() <= 6 && std::stoi(exponent) >= 299;
}

std::string ondouble(const tdbloption& option, std::string_view value, bool isillegal) {
  if (isinfinity(value) || isbeyond(value))
    return "The largest number is maxdouble, which is 1E299, and the smallest one mindouble, which is -1E299";
  if (isillegal && (option.hi() == maxdouble || option.lo() == -maxdouble))
    return "maxdouble is 1E299, and mindouble is -1E299";
  return {};
}

std::string onvalue(const tsubject& subject) {
  const bool isillegal = subject.problem == tsubject::tproblem::illegalvalue;
  if (const auto* option = ifis<tintoption>(subject.option); option != nullptr && !isillegal)
    return oninteger(subject.value, rangeof(*option));
  if (const auto* option = ifis<tenumintoption>(subject.option); option != nullptr && !isillegal)
    return oninteger(subject.value, valuesof(*option));
  if (const auto* option = ifis<tdbloption>(subject.option))
    return ondouble(*option, subject.value, isillegal);
  if (subject.option != nullptr && subject.option->opttype() == topttype::boolean)
    return "The words are 1, y, yes, on, t, true and 0, n, no, off, f, false";
  return {};
}

// What stands in the line after the name of the option: a colon, or a value that the option does not take.
std::string onassignment(const tmessage& message) {
  const auto [name, option, value, problem] = message.subject;
  if (message.source == nullptr || option == nullptr || option->opttype() == topttype::immediate) return {};
  const std::string_view line = message.source->linetext();
  const std::size_t at = line.find(name);
  if (at == std::string_view::npos) return {};
  const std::size_t sign = line.find_first_not_of(" \t", at + name.size());
  if (sign == std::string_view::npos) return {};
  if (line[sign] == ':' && !line.substr(sign).starts_with(":="))
    return "A blank, \"=\" or \":=\" must follow the name, not a colon";
  return option->subtype() == tsubtype::novalue ? "The option takes no value; its name alone sets it" : "";
}

}  // namespace

bool isinteger(std::string_view text) {
  text = withoutsign(text);
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string adviceon(const tmessage& message, const tvksoptions& store) {
  using enum tsubject::tproblem;
  const tsubject& subject = message.subject;
  switch (subject.problem) {
    case other:
    case illegalvalue: return message.kind == tmsgkind::valueerror ? onvalue(subject) : onassignment(message);
    case badseparator:
      return store.optionasobj(subject.name) == nullptr
                 ? ""
                 : "There is an option " + inquotes(subject.name) + "; a blank or \"=\" must follow its name";
    case unusablefile:
      return message.kind == tmsgkind::defineerror
                 ? inquotes(subject.name) + " is named as the definition file"
                 : "";
    case unknowntype:
    case unknownoption:
    case unknowndotoption:
    case duplicatename:
    case undefineddefault: break;
  }
  return {};
}

std::vector<std::string> typeslike(std::string_view word) {
  static constexpr auto others = std::to_array<std::pair<std::string_view, std::string_view>>(
      {{"int", "integer"}, {"real", "double"}, {"float", "double"}, {"bool", "boolean"}, {"text", "string"}});
  const std::string typed = lower(word);
  for (const auto& [other, type] : others)
    if (typed == other) return {std::string(type)};
  return tnearnames({opttypenames.begin(), opttypenames.end()}).nearest(typed, tmatch::nearorlonger);
}

}  // namespace tool
