// Reads parameter text: sources, statements, keys and values. Dot lines and indicator lines are in
// symbollines.cpp.
#include "input/parameterreader.h"

#include <cassert>

#include "base/systemerror.h"
#include "options/checkboolean.h"

namespace optcore {

namespace {

// The deepest nesting of parameter files, counting the first one.
constexpr std::int32_t deepestnesting = 9;

// The largest number of parameter files that one call reads. Files that include each other several times
// would otherwise be read many millions of times, even with limited nesting.
constexpr std::int32_t mostfiles = 10000;

// Counts a level of nesting while it exists.
class tnesting {
 public:
  explicit tnesting(std::int32_t& level) noexcept : flevel(level) { ++flevel; }
  tnesting(const tnesting&) = delete;
  tnesting& operator=(const tnesting&) = delete;
  ~tnesting() { --flevel; }

 private:
  std::int32_t& flevel;
};

}  // namespace

// ---- sources

std::int32_t tvksoptions::optreadparameterfile(std::string_view filename) {
  tparameterreading reading(*this);
  const std::int32_t code = reading.readfile(filename);
  return code != 0 ? code : reading.unreported();
}
void tvksoptions::optreadfromstr(std::string_view text) { tparameterreading(*this).readstring(text); }
void tvksoptions::optreadfrompchar(const char* text) { tparameterreading(*this).readpchar(text); }

std::int32_t tparameterreading::readfile(std::string_view filename) {
  if (fbytes.hasrefused()) return refuse(filename);
  tminiparser scanner(fstore.messages(), fstore.definition().eolcommset());
  const bool isignored = fnestlevel == deepestnesting || ffilesread >= mostfiles;
  const std::int32_t opened = isignored ? scanner.filenamed(filename) : scanner.fileopen(filename, fwaiting);
  if (opened != 0) {
    if (scanner.readerror() != 0) keepunreported(opened);
    fileproblem("Cannot open parameter file ", filename, opened);
    return opened;
  }
  if (isignored) {
    ignorefile(scanner);
    return 0;
  }
  if (!fbytes.admits(scanner.filestatus())) return refuse(filename);
  const tactivesource active(fstore.messages(), scanner);
  fstore.messages().addmessage(tmsgkind::fileenter, filename);
  parsefile(scanner);
  fbytes.wasread(scanner.filestatus(), scanner.bytesread());
  if (const std::int32_t code = scanner.readerror(); code != 0) {
    keepunreported(code);
    fileproblem("Cannot read parameter file ", filename, code);
  }
  fstore.messages().addmessage(tmsgkind::fileleave, filename);
  return 0;
}

// Beyond a limit, a file is not even opened: opening a FIFO would be noticed by the program that writes to it.
void tparameterreading::ignorefile(tminiparser& scanner) {
  const tactivesource active(fstore.messages(), scanner);
  fstore.messages().addmessage(tmsgkind::fileenter, scanner.sourcename());
  ++ffilesread;
  if (fnestlevel == deepestnesting)
    fstore.messages().addmessage(tmsgkind::usererror, "File nesting level too deep; file ignored");
  else
    fstore.messages().addmessage(tmsgkind::usererror, "Too many parameter files; file ignored");
  fstore.messages().addmessage(tmsgkind::fileleave, scanner.sourcename());
}

// To be called for a file that could be opened but not read, before the messages about it are filed.
void tparameterreading::keepunreported(std::int32_t code) noexcept {
  if (funreported == 0 && !fstore.messages().hasroomfortwo()) funreported = code;
}

// From the first refusal on, no file is opened: a text can name very many.
std::int32_t tparameterreading::refuse(std::string_view filename) {
  fstore.messages().addmessage(tmsgkind::usererror,
                               concat("Too many bytes read again; file ", quoted(filename), " ignored"));
  return 0;
}

void tparameterreading::showhelp(std::string_view request) {
  if (fhelp > mosthelp)
    fstore.messages().addmessage(tmsgkind::usererror, "Too much help requested; request ignored");
  else
    fhelp += fstore.optshowhelp(request);
}

void tparameterreading::readstring(std::string_view text) {
  tminiparser scanner(fstore.messages(), fstore.definition().eolcommset());
  scanner.readfromstr(text);
  readtext(scanner);
}

void tparameterreading::readpchar(const char* text) {
  tminiparser scanner(fstore.messages(), fstore.definition().eolcommset());
  scanner.readfrompchar(text);
  readtext(scanner);
}

void tparameterreading::readtext(tminiparser& scanner) {
  const tactivesource active(fstore.messages(), scanner);
  fbytes.addtext(scanner.textlength());
  fstore.messages().addmessage(tmsgkind::fileenter, scanner.sourcename());
  parse(scanner);
  fstore.messages().addmessage(tmsgkind::fileleave, scanner.sourcename());
}

void tparameterreading::parsefile(tminiparser& scanner) {
  const tnesting nesting(fnestlevel);
  ++ffilesread;
  parse(scanner);
}

void tparameterreading::parse(tminiparser& scanner) { tparameterreader(fstore, scanner, *this).parse(); }

void tparameterreading::fileproblem(std::string_view problem, std::string_view filename, std::int32_t code) {
  fstore.messages().addmessage(tmsgkind::usererror, concat(problem, quoted(filename)),
                               {.name = filename, .problem = tsubject::tproblem::unusablefile});
  fstore.messages().addexplanation(tmsgkind::usererror, errorcodetext(code));
}

// ---- statements

// parametertext = { line } .
// line          = { statement } .
void tparameterreader::parse() {
  assert(messages().activesource() == &fscanner);
  while (fscanner.nextline())
    while (statement()) continue;
}

// statement = [ "," ] key ( dotline | indicatorline | listvalue | immediate | ordinary ) .
// Returns false when the rest of the line is to be dropped.
bool tparameterreader::statement() {
  if (!fscanner.skipbl()) return false;
  if (fscanner.ch() == ',') {
    fscanner.nextch();
    if (!fscanner.skipbl()) return false;
  }
  std::string_view identifier;
  std::int32_t dashes = 0;
  if (!fscanner.nextkey(identifier, dashes)) return nokey();
  const char separator = fscanner.ch();
  if (!fscanner.atlineend() && separator != '.' && separator != ' ' && separator != '\t' && separator != '=')
    return badseparator(identifier);
  setkey(identifier, dashes);
  return dispatch(dashes);
}

// Messages are built in functions of their own, so that lines without errors need no stack space for them.
bool tparameterreader::nokey() {
  messages().tellstep(tstep::tkind::statement);
  const char saw = fscanner.ch();
  error(concat("Option keyword expected, saw ", quoted({&saw, fscanner.atlineend() ? 0U : 1U})));
  return false;
}

bool tparameterreader::badseparator(std::string_view key) {
  messages().tellstep(tstep::tkind::statement, key);
  error(concat("Bad separator after key ", quoted(key)),
        {.name = key, .problem = tsubject::tproblem::badseparator});
  return false;
}

[[gnu::noinline]] void tparameterreader::novalue(const toption& option) {
  error(concat("Value expected for key ", quoted(option.name())), {fkey, &option});
}

void tparameterreader::setkey(std::string_view identifier, std::int32_t dashes) {
  fkey = dashes >= 2 ? fkeytext.assign("--").append(identifier).view() : identifier;
}

[[gnu::always_inline]] inline bool tparameterreader::dispatch(std::int32_t dashes) {
  if (dashes == 0 && fscanner.ch() == '.') {
    dotline();
    return true;
  }
  if (dashes == 0 && isindicatorkeyword()) {
    indicatorline();
    return true;
  }
  toption* option = findoption();
  const tcurrentname current(messages(), fkey);
  messages().tellstep(tstep::tkind::statement, fkey, option);
  if (dashes >= 2) {
    listvalue(option != nullptr ? *option : addlist());
    return true;
  }
  if (option == nullptr) return unknownkey();
  if (const auto* immediateoption = ifis<timmediateoption>(option)) {
    immediate(*immediateoption);
    return true;
  }
  return ordinary(*option);
}

[[gnu::always_inline]] inline toption* tparameterreader::findoption() {
  if (definition().lookupmode() != tlookupmode::minos) return definition().optionasobj(fkey);
  // in this mode, names are written with blanks in place of underscores
  if (fkey.find('_') != std::string_view::npos) return nullptr;
  toption* option = definition().optionasobj(fkey);
  return option != nullptr ? option : findjoined();
}

// Up to three more words of the line may belong to the key.
toption* tparameterreader::findjoined() {
  toption* option = nullptr;
  for (int words = 0; words < 3 && option == nullptr; ++words) {
    std::string_view word;
    if (!fscanner.skipbl() || !fscanner.nextidentx(word)) break;  // a sign, digit or period ends the key
    fkey = fkeytext.assign(fkey).append("_").append(word);
    option = definition().optionasobj(fkey);
  }
  return option;
}

// Adds a string list for a key with two dashes that is not the name of an option.
toption& tparameterreader::addlist() {
  const toptionhead head{fkey, 0, 0, 0, {}};
  return definition().addoption(definition().make<tstrlistoption>(head), tsoughtname(fkey));
}

bool tparameterreader::unknownkey() {
  error(concat("Unknown option ", quoted(fkey)),
        {.name = fkey, .problem = tsubject::tproblem::unknownoption});
  if (feolonly) return false;
  std::string_view discarded;
  fscanner.nexttoken(discarded);
  return true;
}

// listvalue = [ "=" | ":=" ] value .
void tparameterreader::listvalue(toption& option) {
  fscanner.skipbecomes();
  std::string_view text;
  if (feolonly)
    fscanner.restofline(text);
  else
    fscanner.nexttoken(text);
  option.setasstring(text);
}

// immediate = [ "=" | ":=" ] [ value ] .
void tparameterreader::immediate(const timmediateoption& option) {
  fscanner.skipbecomes();
  std::string_view text;
  if (!fscanner.nexttoken(text)) {
    if (option.immkind() == timmkind::help)
      freading.showhelp({});
    else
      error(concat("Value expected for immediate option ", quoted(fkey)), {fkey, &option});
    return;
  }
  switch (option.immkind()) {
    case timmkind::eolflag: feolonly = checkboolean(text) != tbooleanword::no; break;
    case timmkind::readfile: freading.readfile(text); break;
    case timmkind::message: error(text, {fkey, &option, text}); break;
    case timmkind::nobounds: fstore.optnoboundsset(checkboolean(text) != tbooleanword::no); break;
    case timmkind::help: freading.showhelp(text); break;
  }
}

// ---- ordinary options

// ordinary = [ [ "=" | ":=" ] value [ value ] ] .
bool tparameterreader::ordinary(toption& option) {
  const tsubtype subtype = option.subtype();
  if (subtype == tsubtype::novalue || (subtype == tsubtype::optional && !fscanner.skipbl())) {
    if (checkdeprecation(option)) {
      messages().tellstep(tstep::tkind::takesdefault, fkey, &option);
      option.usedefined();
    }
  } else if (!fscanner.skipbecomes()) {
    novalue(option);
  } else if (subtype == tsubtype::twovalues) {
    twovalues(option);
  } else if (feolonly) {
    restasvalue(option);
    return false;
  } else {
    tokenasvalue(option);
  }
  if (feolonly && fscanner.skipbl()) ignoredrest(option);
  return !feolonly;
}

[[gnu::noinline]] void tparameterreader::ignoredrest(const toption& option) {
  error("Remainder of line ignored", {fkey, &option});
}

// A value is a token in normal mode, and the rest of the line in end-of-line mode.
[[gnu::noinline]] void tparameterreader::tokenasvalue(toption& option) {
  const tvalue value = token();
  if (checkdeprecation(option) && value) option.setasstring(*value);
}

void tparameterreader::restasvalue(toption& option) {
  const std::string_view text = restvalue();
  if (checkdeprecation(option)) option.setasstring(text);
}

// The first of two values is a token in both modes. "*" leaves a value unchanged. A single value sets both.
[[gnu::noinline]] void tparameterreader::twovalues(toption& option) {
  const tvalue first = token();
  const tvalue second = !feolonly ? token() : fscanner.skipbl() ? tvalue(restvalue()) : std::nullopt;
  if (!checkdeprecation(option)) return;
  if (first && *first != "*") {
    option.setasstring(*first);
    if (!second) option.setasstring2(*first);
  }
  if (second && *second != "*") option.setasstring2(*second);
}

bool tparameterreader::reportdeprecation(const toption& option) {
  const bool ownname = struequal(fkey, option.name());
  const bool isdeprecated =
      option.hasdeprecation(ownname ? tdeprecation::deprecated : tdeprecation::deprecatedsynonym);
  const bool isobsolete =
      option.hasdeprecation(ownname ? tdeprecation::obsolete : tdeprecation::obsoletesynonym);
  if (!isdeprecated && !isobsolete) return true;
  const bool anydeprecated = option.hasdeprecation(tdeprecation::deprecated) ||
                             option.hasdeprecation(tdeprecation::deprecatedsynonym);
  messages().addmessage(
      tmsgkind::deprecated,
      concat(anydeprecated ? "deprecated" : "obsolete", ownname ? " option " : " synonym ", quoted(fkey),
             "; ", ownname ? option.deprecatedmsg() : option.deprecatedmsg2()),
      {fkey, &option});
  return !isobsolete;
}

// ---- values

tparameterreader::tvalue tparameterreader::token() {
  std::string_view text;
  return fscanner.nexttoken(text) ? tvalue(text) : std::nullopt;
}

// The rest of the line up to a comment, as a value. The line must not be at its end.
[[gnu::always_inline]] inline std::string_view tparameterreader::restvalue() {
  const std::string_view text = fscanner.ch() == '"' ? quotedrest() : trimright(fscanner.untilcomment());
  fscanner.skiptolineend();
  return text;
}

// Removes the double quotes at both ends. If the closing one is missing, a double quote is added to the text,
// so that the setters refuse it.
std::string_view tparameterreader::quotedrest() {
  std::string_view text = trim(fscanner.untilcommentafterquote());
  if (!text.empty() && text.back() == '"')
    text.remove_suffix(1);
  else
    text = fresttext.assign(text).append("\"");
  return trim(text);
}

}  // namespace optcore
