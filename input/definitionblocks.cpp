// The other half of the definition reader: the continuation lines of options, and the definitions that are
// not options. Lines, names, types and the fields of options are in definitionreader.cpp.
#include <unordered_set>

#include "input/definitionreader.h"

namespace optcore {

// ---- continuation lines

// helpline = text .
void tdefinitionreader::helplines(toption& option) {
  while (nextcontinuation()) {
    std::string_view line;
    fscanner.restofline(line);
    option.addbigtext(line);
  }
}

// valueline = value hc text .
void tdefinitionreader::enumstrvalues(tenumstroption& option) {
  while (nextcontinuation()) {
    std::string_view word;
    fscanner.nexttoken(word);
    if (word.empty()) {
      endearly();
      break;
    }
    tell(tentry::tkind::value, {});
    integerfield(fhc, "Bad HC");
    std::string_view text;
    fscanner.restofline(text);
    option.additem(word, fhc, text);
  }
  if (option.items().indexof(option.defaultvalue()) < 0)
    error("Default is undefined", tsubject::tproblem::undefineddefault);
}

// valueline = integer hc text .
void tdefinitionreader::enumintvalues(tenumintoption& option) {
  while (nextcontinuation()) {
    integerfield(fenumvalue, "Bad integer enum");
    tell(tentry::tkind::value, {});
    integerfield(fhc, "Bad HC");
    std::string_view text;
    fscanner.restofline(text);
    option.additem(fenumvalue, fhc, text);
  }
  if (!option.hasitem(option.defaultvalue()))
    error("Default is undefined", tsubject::tproblem::undefineddefault);
}

// memberline = { name } .
void tdefinitionreader::multilistmembers(tmultilistoption& option) {
  std::unordered_set<std::int32_t> used;
  while (nextcontinuation()) {
    std::string_view word;
    for (fscanner.nexttoken(word); !word.empty(); fscanner.nexttoken(word)) {
      const std::int32_t index = fdefinition.optlookup(word);
      if (index < 0) error(concat("MultiList option ", quoted(word), " is undefined"));
      if (!used.insert(index).second) error("Duplicate option used");
      option.additem(index);
    }
  }
}

// memberline = name .
void tdefinitionreader::macromembers(tmacrooption& option) {
  while (nextcontinuation()) {
    std::string_view word;
    fscanner.nexttoken(word);
    if (word.empty()) return endearly();
    if (toption* member = fdefinition.exactoption(word))
      option.additem(member);
    else
      error(concat("Unknown option ", quoted(word), " for macro ", quoted(fname)));
  }
}

// ---- the other definitions

// synonym = optionname .
void tdefinitionreader::synonym() {
  if (fdefinition.synonyms().indexof(fname) >= 0) error("Duplicate synonym");
  std::string_view word;
  fscanner.nexttoken(word);
  const std::int32_t index = fdefinition.optlookup(word);
  if (index < 0) error("Unknown option for synonym");
  fdefinition.addsynonym(fname, index);
  nextline();
}

// group = number hc text .
void tdefinitionreader::group() {
  if (fdefinition.groups().indexof(fname) >= 0) error("Duplicate group");
  integerfield(fgroup, "Bad group number");
  integerfield(fhc, "Bad HC");
  if (fdefinition.groupwithnumber(fgroup) >= 0) error("Group number not unique");
  std::string_view text;
  fscanner.restofline(text);
  fdefinition.addgroup(fname, fgroup, fhc, text);
  nextline();
}

// marks = { name text } , one on each continuation line; a line without a name ends them.
void tdefinitionreader::marks(tdeprecation ownname, tdeprecation itssynonym) {
  while (nextcontinuation()) {
    std::string_view word;
    fscanner.nexttoken(word);
    if (word.empty()) {
      nextline();
      return;
    }
    toption* option = fdefinition.getobjects(fdefinition.optlookup(word));
    tdeprecation kind = ownname;
    if (option == nullptr) {
      const std::int32_t synonym = fdefinition.synonyms().indexof(word);
      if (synonym >= 0) option = fdefinition.synonymtarget(synonym);
      kind = itssynonym;
    }
    if (option == nullptr) {
      error(concat("Deprecated option ", quoted(word), " is undefined"));
      continue;
    }
    std::string_view text;
    fscanner.restofline(text);
    option->setdeprecated(kind, text);
  }
}

// The name is the keyword with which indicator lines of parameter files begin.
void tdefinitionreader::indicator() {
  if (!fdefinition.dotname().empty()) error("Indicator redefined");
  if (fname.size() > maxidentifier) error(concat("Indicator ", quoted(fname), " not a good identifier"));
  fdefinition.setdotname(fname);
  findicators.clear();
  nextline();
}

// The name is the name of a lookup mode.
void tdefinitionreader::lookup() {
  bool isknown = false;
  for (std::size_t mode = 0; mode < lookupmodenames.size() && !isknown; ++mode) {
    isknown = struequal(fname, lookupmodenames[mode]);
    if (isknown) fdefinition.setlookupmode(static_cast<tlookupmode>(mode));
  }
  if (!isknown) error(concat("Unknown lookup code ", quoted(fname)));
  nextline();
}

namespace {

// Characters of which values and identifiers consist cannot start a comment.
bool startscomment(char character) {
  constexpr std::string_view others = "\"'+-.";
  return static_cast<unsigned char>(character) > ' ' && !isdigit(character) && !isletter(character) &&
         others.find(character) == std::string_view::npos;
}

}  // namespace

// eolcomm = { character } , up to the first one that cannot start a comment.
void tdefinitionreader::eolcomm() {
  std::string_view text;
  fscanner.restofline(text);
  tcharset set;
  for (const char character : text) {
    if (!startscomment(character)) break;
    set.set(static_cast<unsigned char>(character));
  }
  fdefinition.seteolcommset(set);
  nextline();
}

}  // namespace optcore
