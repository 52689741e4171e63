// Reads the fields of a line once more, to see which one is wrong.
#include "tools/reading/fieldnotes.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "base/numtext.h"
#include "base/textcase.h"
#include "options/codes.h"
#include "tools/reading/advice.h"
#include "tools/text.h"

namespace tool {

using namespace optcore;

namespace {

enum class tform { word, integer, number, zeroorone, immediatekind };

struct tfield {
  std::string_view name;
  tform form;
};

constexpr tfield reference{"reference number", tform::integer};
constexpr tfield flag{"help flag", tform::integer};
constexpr tfield groupnumber{"group", tform::integer};
constexpr std::string_view typefield = "type";

// The fields between the type and the text.
std::vector<tfield> fieldsbetween(std::string_view type) {
  const auto bounded = [](tform form) -> std::vector<tfield> {
    return {reference, {"default", form}, {"lowest value", form}, {"highest value", form}, flag, groupnumber};
  };
  const auto is = [type](std::string_view word) { return struequal(type, word); };
  if (is("integer")) return bounded(tform::integer);
  if (is("double")) return bounded(tform::number);
  if (is("string") || is("enumstr")) return {reference, {"default", tform::word}, flag, groupnumber};
  if (is("boolean")) return {reference, {"default", tform::zeroorone}, flag, groupnumber};
  if (is("enumint")) return {reference, {"default", tform::integer}, flag, groupnumber};
  if (is("multilist") || is("strlist")) return {reference, flag, groupnumber};
  if (is("macro")) return {flag, groupnumber};
  if (is("immediate")) return {{"kind", tform::immediatekind}, flag, groupnumber};
  if (is("group")) return {{"number", tform::integer}, flag};
  return {};
}

// The fields of a line that gives a value of the option.
std::vector<tfield> fieldsofvalue(std::string_view type) {
  if (struequal(type, "enumint")) return {{"value", tform::integer}, flag};
  if (struequal(type, "enumstr")) return {{"value", tform::word}, flag};
  return {};
}

std::string names(const std::vector<tfield>& fields) {
  std::string result;
  for (const tfield& field : fields) result.append(field.name).append(", ");
  return result + "text";
}

// Takes a word, or a text in double quotes, from the line. A comma ends it and is never skipped.
std::string_view takeword(std::string_view& line) {
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  std::size_t end = line.find_first_of(" \t,");
  if (line.starts_with('"')) end = line.find_first_of(" \t,", std::min(line.find('"', 1), line.size()));
  const std::string_view word = line.substr(0, end);
  line.remove_prefix(word.size());
  return word;
}

std::string_view withoutquotes(std::string_view word) {
  return word.size() > 1 && word.starts_with('"') && word.ends_with('"') ? word.substr(1, word.size() - 2)
                                                                         : word;
}

std::string_view describe(tform form) {
  return form == tform::number ? "a number" : form == tform::zeroorone ? "0 or 1" : "an integer";
}

template <class tnames>
std::string listed(const tnames& names) {
  std::string result;
  for (const std::string_view name : names)
    if (!name.empty())
      result.append(result.empty() ? "" : name == names.back() ? " and " : ", ").append(name);
  return result;
}

bool isfield(tform form, std::string_view word) {
  std::int32_t integer = 0;
  double number = 0;
  switch (form) {
    case tform::word: return true;
    case tform::integer:
    case tform::zeroorone: return strasintex(word, integer);
    case tform::number: return strasdoubleex(word, number);
    case tform::immediatekind: break;
  }
  return std::ranges::any_of(immkindnames, [&](std::string_view kind) { return struequal(kind, word); });
}

// What is wrong with the word as this field; empty if it is right.
std::string problem(const tfield& field, std::string_view word, bool commafollows, bool isfirst) {
  const std::string name(field.name);
  if (word.empty() && commafollows)
    return "A comma stands before the " + name + ", but fields are separated by blanks";
  if (word.empty()) return "The line ends before the " + name;
  if (isfield(field.form, word)) return {};
  if (field.form == tform::immediatekind) return "The kinds are " + listed(immkindnames);
  const std::string seen = inquotes(word);
  double number = 0;
  if (field.form == tform::integer && isinteger(word))
    return seen + " has more than 32 bits; the " + name +
           " is between minint, -2147483648, and maxint, 2147483647";
  const std::string text =
      "The " + name + " must be " + std::string(describe(field.form)) + ", but " + seen + " is in its place";
  if (field.form == tform::number) return text + "; the largest number is maxdouble";
  const bool isother = field.form == tform::zeroorone || strasdoubleex(word, number);
  const std::string which = isfirst ? "" : "or a field before it ";
  return text + (isother ? "" : "; perhaps it " + which + "was left out");
}

tfieldnote problemoffields(std::string_view rest, const std::vector<tfield>& fields) {
  for (const tfield& field : fields) {
    const std::string_view word = withoutquotes(takeword(rest));
    if (std::string text = problem(field, word, rest.starts_with(','), &field == &fields.front());
        !text.empty())
      return {std::move(text), std::string(field.name)};
  }
  return {};
}

tfieldnote onvalueline(std::string_view line, std::string_view type) {
  const std::vector<tfield> fields = fieldsofvalue(type);
  tfieldnote note = problemoffields(line, fields);
  if (note.text.empty()) return note;
  note.text += ". The fields of a value are: " + names(fields) +
               (struequal(type, "enumstr") ? "; a value with blanks stands in double quotes" : "");
  return note;
}

// A modifier that the type does not have.
tfieldnote onmodifier(std::string_view type, std::string_view modifier) {
  if (std::ranges::none_of(subtypemodifiers,
                           [&](std::string_view each) { return !each.empty() && struequal(each, modifier); }))
    return {"The modifiers are NV for no value, OPT for a value that may be left out, and TWO for two values",
            std::string(typefield)};
  for (std::size_t i = 0; i < opttypenames.size(); ++i)
    if (struequal(opttypenames[i], type) && takesmodifier(static_cast<topttype>(i))) return {};
  return {"The types with modifiers are integer, double, string, boolean, enumstr and enumint",
          std::string(typefield)};
}

struct tdefinitionline {
  std::string_view name, type, modifier, rest;
  bool ismodified;
};

tdefinitionline parsed(std::string_view line) {
  tdefinitionline result{};
  result.name = takeword(line);
  const std::string_view word = takeword(line);
  const std::size_t period = word.rfind('.');
  result.type = word.substr(0, period);
  result.ismodified = period != std::string_view::npos;
  if (result.ismodified) result.modifier = word.substr(period + 1);
  result.rest = line;
  return result;
}

tfieldnote onfields(const tdefinitionline& line) {
  tfieldnote note = problemoffields(line.rest, fieldsbetween(line.type));
  if (!note.text.empty()) note.text += ". " + fieldsof(line.type);
  return note;
}

std::deque<tfieldnote> notesabout(std::string_view text) {
  const tdefinitionline line = parsed(text);
  std::deque<tfieldnote> notes;
  if (line.ismodified) notes.push_back(onmodifier(line.type, line.modifier));
  notes.push_back(onfields(line));
  if (struequal(line.type, "lookup")) notes.push_back({"The modes are " + listed(lookupmodenames)});
  std::erase_if(notes, [](const tfieldnote& note) { return note.text.empty(); });
  return notes;
}

// The fields of the type that was meant, or else the types.
std::string ontype(std::string_view word) {
  const std::vector<std::string> types = typeslike(word);
  return types.empty() ? "The types are " + listed(opttypenames) : fieldsof(types[0]);
}

}  // namespace

std::vector<tfieldpart> partsof(std::string_view line) {
  std::vector<tfieldpart> result;
  std::string_view rest = line;
  const auto add = [&](std::string_view name) {
    const std::string_view word = takeword(rest);
    const auto begin = static_cast<std::size_t>(word.data() - line.data());
    result.push_back({name, {begin, begin + word.size()}});
    return word;
  };
  add("name");
  const std::string_view type = add(typefield);
  const std::vector<tfield> fields = fieldsbetween(type.substr(0, type.rfind('.')));
  for (const tfield& field : fields) add(field.name);
  if (fields.empty()) return result;
  rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
  result.push_back({"text", {line.size() - rest.size(), line.size()}});
  return result;
}

std::string fieldsof(std::string_view type) {
  const std::vector<tfield> fields = fieldsbetween(type);
  return fields.empty() ? "" : "The fields are: name, " + std::string(type) + ", " + names(fields);
}

void tfieldnotes::begin(std::string_view line) {
  const tdefinitionline last = parsed(line);
  fname = last.name;
  ftype = last.type;
}

// A line that begins with a blank holds the members of an option, or a name that is marked.
std::vector<std::string> tfieldnotes::references(const tmessage& message) const {
  if (message.source == nullptr || message.subject.problem != tsubject::tproblem::other) return {};
  std::string_view line = message.source->linetext();
  const auto firstword = [](std::string_view text) -> std::vector<std::string> {
    return {std::string(withoutquotes(takeword(text)))};
  };
  if (!line.starts_with(' '))
    return struequal(parsed(line).type, "synonym") ? firstword(parsed(line).rest)
                                                   : std::vector<std::string>();
  if (!isaboutlast(message) || struequal(ftype, "macro")) return firstword(line);
  std::vector<std::string> members;
  if (struequal(ftype, "multilist"))
    for (std::string_view word = takeword(line); !word.empty(); word = takeword(line))
      members.emplace_back(withoutquotes(word));
  return members;
}

std::string tfieldnotes::next(const tmessage& message) {
  using enum tsubject::tproblem;
  const tsubject::tproblem kind = message.subject.problem;
  ffield.clear();
  if (message.source == nullptr ||
      (kind != other && kind != unknowntype && kind != badreference && kind != badhelpflag))
    return {};
  if (kind == unknowntype) return ontype(message.subject.value);
  const std::string_view line = message.source->linetext();
  if (std::exchange(fline, message.line) != message.line)
    fnotes = !line.starts_with(' ') ? notesabout(line)
             : isaboutlast(message) ? std::deque<tfieldnote>{onvalueline(line, ftype)}
                                    : std::deque<tfieldnote>();
  if (fnotes.empty()) return {};
  tfieldnote note = std::move(fnotes.front());
  fnotes.pop_front();
  ffield = std::move(note.field);
  return std::move(note.text);
}

}  // namespace tool
