// Reads a definition file: lines, names, types and the fields of options. Continuation lines and the other
// kinds of definitions are in definitionblocks.cpp.
#include "input/definitionreader.h"

#include <array>
#include <cassert>

#include "base/systemerror.h"

namespace optcore {

std::int32_t tvksoptions::optreaddefinition(std::string_view filename) {
  return readdefinition(*this, filename);
}

std::int32_t readdefinition(tvksoptions& store, std::string_view filename) {
  tdefinition& definition = store.definition();
  tmessagelist& messages = store.messages();
  const auto fileproblem = [&messages, filename](std::string_view problem, std::int32_t code) {
    messages.addmessage(tmsgkind::defineerror, concat(problem, quoted(filename)),
                        {.name = filename, .problem = tsubject::tproblem::unusablefile});
    messages.addexplanation(tmsgkind::defineerror, errorcodetext(code));
  };
  definition.setfilename(filename);
  definition.setearlyend(0);
  twaiting waiting;
  tminiparser scanner(messages, tcharset());
  if (const std::int32_t code = scanner.fileopen(filename, waiting); code != 0) {
    fileproblem("Cannot open option file ", code);
    return code;
  }
  const tactivesource active(messages, scanner);
  tdefinitionreader(definition, store.indicators(), messages, scanner).read();
  const std::int32_t code = scanner.readerror();
  if (code == 0) return 0;
  const bool reported = messages.hasroomfortwo();
  fileproblem("Cannot read option file ", code);
  return reported ? 0 : code;
}

// definitionfile = { definition } .
void tdefinitionreader::read() {
  assert(fmessages.activesource() == &fscanner);
  addhelpoption();
  nextline();
  while (fmore) definition();
}

// Adds the option that every definition has.
void tdefinitionreader::addhelpoption() {
  const toptionhead head{"Help", 0, 0, 0, {}};
  auto help = fdefinition.make<timmediateoption>(head, timmkind::help);
  help->setsubtype(tsubtype::optional);
  fdefinition.addoption(std::move(help), tsoughtname(head.name));
}

// Ends the reading at the current line, with which no definition can begin. The line and all lines after it
// are ignored.
void tdefinitionreader::endearly() {
  fdefinition.setearlyend(fscanner.linenr());
  fmore = false;
}

void tdefinitionreader::error(std::string_view problem, tsubject::tproblem kind, std::string_view value) {
  const bool namesoption = problem.find("synonym") == std::string_view::npos;
  fmessages.addmessage(tmsgkind::defineerror,
                       concat(problem, namesoption ? " for option " : "", quoted(fname)),
                       {.name = fname.view(), .value = value, .problem = kind});
}

// definition = [ "." ] name type [ "." modifier ] rest .
void tdefinitionreader::definition() {
  if (!name()) return endearly();
  const tkeyword keyword = type();
  tell(keyword);
  rest(keyword);
}

void tdefinitionreader::tell(tkeyword keyword) {
  if (optiontype(keyword)) tell(tentry::tkind::option, fname);
  if (keyword == tkeyword::synonym) tell(tentry::tkind::synonym, fname);
  if (keyword == tkeyword::group) tell(tentry::tkind::group, fname);
}

// A name that begins with a period is that of a dot option.
bool tdefinitionreader::name() {
  const bool isdotted = fscanner.ch() == '.';
  if (isdotted) fscanner.nextch();
  std::string_view identifier;
  if (!fscanner.nextident(identifier)) return false;
  fname.clear();
  if (isdotted) fname.append(".");
  fname.append(identifier);
  if (isdotted && identifier.size() > maxidentifier) error("Identifier too long");
  return true;
}

tdefinitionreader::tkeyword tdefinitionreader::type() {
  std::string_view word;
  fscanner.nexttoken(word);
  const std::size_t period = word.rfind('.');
  if (period == std::string_view::npos)
    fmodifier = tsubtype::required;
  else
    modifier(word.substr(period + 1));
  const tkeyword keyword = findkeyword(word.substr(0, period));
  const std::optional<topttype> type = optiontype(keyword);
  // an unknown keyword is treated like an option type until the rest of its line is skipped
  const bool isunknown = keyword == tkeyword::unknown;
  const bool modifiable = isunknown || (type && takesmodifier(*type));
  if (fmodifier != tsubtype::required && !modifiable) error("Type modifier not allowed");
  if (type || isunknown) usermap(type);
  if (isunknown)
    error(concat("Unknown option type ", quoted(word.substr(0, period))), tsubject::tproblem::unknowntype,
          word.substr(0, period));
  return keyword;
}

// Checks that no option or synonym has the name, and reads the user map if the type has one. An unknown type
// counts as one that has.
void tdefinitionreader::usermap(std::optional<topttype> type) {
  fsoughtname = tsoughtname(fname);
  if (fdefinition.indexof(fsoughtname) >= 0) error("Duplicate option", tsubject::tproblem::duplicatename);
  if (type && !hasusermap(*type))
    fusermap = -1;
  else
    integerfield(fusermap, "Bad usermap value");
}

std::optional<topttype> tdefinitionreader::optiontype(tkeyword keyword) {
  const auto code = static_cast<std::int32_t>(keyword);
  if (code < 0 || static_cast<std::size_t>(code) >= opttypecount) return std::nullopt;
  return static_cast<topttype>(code);
}

void tdefinitionreader::modifier(std::string_view word) {
  for (std::size_t code = ordinal(tsubtype::novalue); code < subtypemodifiers.size(); ++code) {
    if (struequal(word, subtypemodifiers[code])) {
      fmodifier = static_cast<tsubtype>(code);
      return;
    }
  }
  error(concat("Unknown type modifier = ", uppercase(word).view()));
}

tdefinitionreader::tkeyword tdefinitionreader::findkeyword(std::string_view word) {
  static constexpr std::array<std::string_view, 7> others = {"synonym",   "group",  "deprecated", "obsolete",
                                                             "indicator", "lookup", "eolcomm"};
  static_assert(opttypecount == static_cast<std::size_t>(tkeyword::synonym),
                "a keyword for each option type, in front of synonym");
  static_assert(opttypecount + others.size() == static_cast<std::size_t>(tkeyword::eolcomm) + 1);
  std::int32_t code = 0;
  for (const std::string_view keyword : opttypenames) {
    if (struequal(word, keyword)) return static_cast<tkeyword>(code);
    ++code;
  }
  for (const std::string_view keyword : others) {
    if (struequal(word, keyword)) return static_cast<tkeyword>(code);
    ++code;
  }
  return tkeyword::unknown;
}

// Every branch moves to the line after the definition.
void tdefinitionreader::rest(tkeyword keyword) {
  switch (keyword) {
    case tkeyword::integer: return integeroption();
    case tkeyword::dbl: return dbloption();
    case tkeyword::string: return stringoption();
    case tkeyword::boolean: return booleanoption();
    case tkeyword::enumstr: return enumstroption();
    case tkeyword::enumint: return enumintoption();
    case tkeyword::multilist: return multilistoption();
    case tkeyword::strlist: return strlistoption();
    case tkeyword::macro: return macrooption();
    case tkeyword::immediate: return immediateoption();
    case tkeyword::synonym: return synonym();
    case tkeyword::group: return group();
    case tkeyword::deprecated: return marks(tdeprecation::deprecated, tdeprecation::deprecatedsynonym);
    case tkeyword::obsolete: return marks(tdeprecation::obsolete, tdeprecation::obsoletesynonym);
    case tkeyword::indicator: return indicator();
    case tkeyword::lookup: return lookup();
    case tkeyword::eolcomm: return eolcomm();
    case tkeyword::unknown: nextline();
  }
}

// ---- fields

// The last two fields of every option, which come before the text.
void tdefinitionreader::hcandgroup(std::string_view hcproblem) {
  integerfield(fhc, hcproblem);
  integerfield(fgroup, "Bad Group value");
}

toptionhead tdefinitionreader::head() {
  std::string_view text;
  fscanner.restofline(text);
  return {fname, fusermap, fhc, fgroup, text};
}

// Makes the option from the fields that have been read; head() reads the text, which comes last on the line.
template <class tclass, class... targuments>
std::unique_ptr<tclass> tdefinitionreader::make(const targuments&... arguments) {
  return fdefinition.make<tclass>(head(), arguments...);
}

// ---- option = fields text { continuation } .

void tdefinitionreader::integeroption() {
  integerfield(fdefault, "Bad default value");
  integerfield(flow, "Bad low value");
  integerfield(fhigh, "Bad high value");
  hcandgroup("Bad HC value");
  if (!(flow <= fdefault && fdefault <= fhigh)) error("Default not in range");
  auto option = make<tintoption>(fdefault, flow, fhigh);
  option->setsubtype(fmodifier);
  helplines(add(std::move(option)));
}

void tdefinitionreader::dbloption() {
  doublefield(fdbldefault, "Bad default value");
  doublefield(fdbllow, "Bad low value");
  doublefield(fdblhigh, "Bad high value");
  hcandgroup("Bad HC");
  if (!(fdbldefault >= fdbllow && fdblhigh >= fdbldefault)) error("Default not in range");
  auto option = make<tdbloption>(fdbldefault, fdbllow, fdblhigh);
  option->setsubtype(fmodifier);
  helplines(add(std::move(option)));
}

// A missing default is the empty text.
void tdefinitionreader::stringoption() {
  std::string_view word;
  fscanner.nexttoken(word);
  hcandgroup("Bad HC");
  add(make<tstringoption>(word));
  nextline();
}

void tdefinitionreader::booleanoption() {
  integerfield(fdefault, "Bad default value");
  hcandgroup("Bad HC");
  auto option = make<tbooleanoption>(fdefault);
  option->setsubtype(fmodifier);
  helplines(add(std::move(option)));
}

void tdefinitionreader::enumstroption() {
  std::string_view word;
  if (!fscanner.nexttoken(word)) error("Bad default string");
  hcandgroup("Bad HC");
  auto option = make<tenumstroption>(word);
  option->setsubtype(fmodifier);
  enumstrvalues(as<tenumstroption>(add(std::move(option))));
}

// The option is added to the definition only after its values have been read.
void tdefinitionreader::enumintoption() {
  integerfield(fdefault, "Bad default value");
  hcandgroup("Bad HC");
  auto option = make<tenumintoption>(fdefault);
  option->setsubtype(fmodifier);
  enumintvalues(*option);
  add(std::move(option));
}

void tdefinitionreader::multilistoption() {
  hcandgroup("Bad HC");
  multilistmembers(as<tmultilistoption>(add(make<tmultilistoption>())));
}

void tdefinitionreader::strlistoption() {
  hcandgroup("Bad HC");
  add(make<tstrlistoption>());
  nextline();
}

// The option is added to the definition only after its members have been read, so it cannot contain itself.
void tdefinitionreader::macrooption() {
  hcandgroup("Bad HC");
  auto option = make<tmacrooption>();
  macromembers(*option);
  add(std::move(option));
}

void tdefinitionreader::immediateoption() {
  std::string_view word;
  if (!fscanner.nexttoken(word)) error("immediate type expected");
  hcandgroup("Bad HC");
  bool isknown = false;
  for (std::size_t kind = 0; kind < immkindnames.size() && !isknown; ++kind) {
    isknown = struequal(word, immkindnames[kind]);
    if (isknown) add(make<timmediateoption>(static_cast<timmkind>(kind)));
  }
  if (!isknown) error("Unknown immediate option");
  nextline();
}

}  // namespace optcore
