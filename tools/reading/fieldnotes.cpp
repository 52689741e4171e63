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
#include "tools/reading/definitionspans.h"
#include "tools/text.h"

namespace tool {

using namespace optcore;

namespace {

constexpr std::string_view typefield = "type";

std::string names(const std::vector<tfield>& fields) {
  std::string result;
  for (const tfield& field : fields) result.append(field.name).append(", ");
  return result + "text";
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
  const bool isswitch = field.form == tform::zeroorone;
  if (!isswitch && field.form != tform::number && isinteger(word))
    return seen + " has more than 32 bits; the " + name +
           " is between minint, -2147483648, and maxint, 2147483647";
  const std::string text =
      "The " + name + " must be " + std::string(describe(field.form)) + ", but " + seen + " is in its place";
  if (field.form == tform::number) return text + "; the largest number is maxdouble";
  const std::string which = isfirst ? "" : "or a field before it ";
  return text + (isswitch || strasdoubleex(word, number) ? "" : "; perhaps it " + which + "was left out");
}

tfieldnote problemoffields(std::string_view line, const std::vector<tfieldspan>& fields) {
  for (const tfieldspan& each : fields) {
    const bool commafollows = line.substr(each.span.end).starts_with(',');
    if (std::string text = problem(*each.field, withoutquotes(line, each.span).of(line), commafollows,
                                   &each == &fields.front());
        !text.empty())
      return {std::move(text), std::string(each.field->name)};
  }
  return {};
}

tfieldnote onvalueline(std::string_view line, std::string_view type) {
  tfieldnote note = problemoffields(line, valuespans(line, type).fields);
  if (note.text.empty()) return note;
  note.text += ". The fields of a value are: " + names(fieldsofvalue(type)) +
               (struequal(type, "enumstr") ? "; a value with blanks stands in double quotes" : "");
  return note;
}

// A modifier that the type does not have.
tfieldnote onmodifier(std::string_view type, std::string_view modifier) {
  if (std::ranges::none_of(subtypemodifiers,
                           [&](std::string_view each) { return !each.empty() && struequal(each, modifier); }))
    return {"The modifiers are NV for no value, OPT for a value that may be left out, and TWO for two values",
            std::string(typefield)};
  if (takesmodifier(type)) return {};
  return {"The types with modifiers are integer, double, string, boolean, enumstr and enumint",
          std::string(typefield)};
}

tfieldnote onfields(std::string_view line, const tdefinitionspans& spans) {
  tfieldnote note = problemoffields(line, spans.fields);
  if (!note.text.empty()) note.text += ". " + fieldsof(spans.type.of(line));
  return note;
}

std::deque<tfieldnote> notesabout(std::string_view line) {
  const tdefinitionspans spans = entryspans(line);
  std::deque<tfieldnote> notes;
  if (spans.ismodified) notes.push_back(onmodifier(spans.type.of(line), spans.modifier.of(line)));
  notes.push_back(onfields(line, spans));
  if (spans.keyword == "lookup") notes.push_back({"The modes are " + listed(lookupmodenames)});
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
  const tdefinitionspans spans = entryspans(line);
  std::vector<tfieldpart> result = {
      {"name", spans.name},
      {typefield, spans.ismodified ? tspan{spans.type.begin, spans.modifier.end} : spans.type}};
  for (const tfieldspan& each : spans.fields) result.push_back({each.field->name, each.span});
  return result;
}

std::string fieldsof(std::string_view type) {
  const std::vector<tfield>& fields = fieldsbetween(type);
  return fields.empty() ? "" : "The fields are: name, " + std::string(type) + ", " + names(fields);
}

void tfieldnotes::begin(std::string_view line) {
  const tdefinitionspans spans = entryspans(line);
  fname = spans.name.of(line);
  ftype = spans.type.of(line);
}

// A line that begins with a blank holds the members of an option, or a name that is marked.
std::vector<std::string> tfieldnotes::references(const tmessage& message) const {
  if (message.source == nullptr || message.subject.problem != tsubject::tproblem::other) return {};
  const std::string_view line = message.source->linetext();
  const bool continues = line.starts_with(' '), ismark = !isaboutlast(message);
  if (continues && !ismark && !struequal(ftype, "multilist") && !struequal(ftype, "macro")) return {};
  const tdefinitionspans spans =
      continues ? namespans(line, ismark ? "deprecated" : ftype) : entryspans(line);
  std::vector<std::string> names;
  names.reserve(spans.references.size());
  const bool isone = spans.kind != tdefinitionspans::tkind::members || struequal(ftype, "macro");
  for (const tspan& each : spans.references)
    if (isone || message.text.find(inquotes(each.of(line))) != std::string_view::npos)
      names.emplace_back(each.of(line));
  return names;
}

std::string tfieldnotes::next(const tmessage& message) {
  using enum tsubject::tproblem;
  const tsubject::tproblem kind = message.subject.problem;
  ffield.clear();
  if (message.source == nullptr || (kind != other && kind != unknowntype)) return {};
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
