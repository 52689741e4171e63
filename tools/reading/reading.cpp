// Reads the sources of a command and makes findings of the messages.
#include "tools/reading/reading.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <utility>

#include "base/numtext.h"
#include "output/parameterwriter.h"
#include "tools/commands.h"
#include "tools/outofmemory.h"
#include "tools/reading/advice.h"
#include "tools/reading/definitionwarnings.h"
#include "tools/reading/earlyend.h"
#include "tools/reading/linewarnings.h"

namespace tool {

namespace {

using namespace optcore;

constexpr const char* standardinputname = "<stdin>";

// Whether the file is a pipe or a device, which may deliver its contents only once.
bool givesonce(const std::string& filename) {
  std::error_code problem;
  const std::filesystem::file_status status = std::filesystem::status(filename, problem);
  return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status) &&
         !std::filesystem::is_directory(status);
}

tseverity severityof(tmsgkind kind) {
  switch (kind) {
    case tmsgkind::inputecho:
    case tmsgkind::help: return tseverity::plain;
    case tmsgkind::valuewarning:
    case tmsgkind::deprecated: return tseverity::warning;
    case tmsgkind::defineerror:
    case tmsgkind::valueerror:
    case tmsgkind::usererror:
    case tmsgkind::toomanymsgs:
    case tmsgkind::fileenter:
    case tmsgkind::fileleave: break;
  }
  return tseverity::error;
}

// The kind of a message, as a name. What has no name of its own is a problem of the definition or of an option
// file.
std::string_view ruleof(const tmessage& message) {
  switch (message.subject.problem) {
    case tsubject::tproblem::unknownoption:
    case tsubject::tproblem::unknowndotoption: return "unknown-option";
    case tsubject::tproblem::badseparator: return "bad-separator";
    case tsubject::tproblem::illegalvalue: return "illegal-value";
    case tsubject::tproblem::unusablefile: return "unusable-file";
    case tsubject::tproblem::unknowntype:
    case tsubject::tproblem::duplicatename:
    case tsubject::tproblem::undefineddefault:
    case tsubject::tproblem::other: break;
  }
  switch (message.kind) {
    case tmsgkind::defineerror: return "definition";
    case tmsgkind::valueerror:
    case tmsgkind::valuewarning: return "value";
    case tmsgkind::deprecated: return "deprecated";
    case tmsgkind::inputecho:
    case tmsgkind::help:
    case tmsgkind::usererror:
    case tmsgkind::toomanymsgs:
    case tmsgkind::fileenter:
    case tmsgkind::fileleave: break;
  }
  return "option-file";
}

}  // namespace

// ---- what is read

std::string displayname(const std::string& filename) {
  return filename == "-" ? standardinputname : filename;
}

bool treading::readdefinition(const std::string& filename) {
  fdefinition = displayname(filename);
  fdefinitionpath = pathof(filename, fkeepsdefinition);
  ffilesread.add(fdefinitionpath);
  addutf16({fdefinition, 1}, fdefinitionpath);
  if (!collect(fdefinition, [&] { return fstore.optreaddefinition(fdefinitionpath); })) return false;
  addearlyend();
  return true;
}

void treading::readdefinitionof(const treading& other) {
  fdefinition = other.fdefinition;
  fdefinitionpath = other.fdefinitionpath;
  fstore.setobserver(nullptr);
  fstore.optreaddefinition(fdefinitionpath);
  fstore.optclearmessages();
  fstore.setobserver(this);
}

// Adds a finding if the library stopped reading before the end of the definition file. It files no message
// about that.
void treading::addearlyend() {
  const std::int32_t line = fstore.definition().earlyend();
  if (line == 0) return;
  const std::string reason = reasonofearlyend(fdefinitionpath, line);
  if (!reason.empty())
    add({.place = {fdefinition, line},
         .severity = tseverity::warning,
         .rule = "early-end",
         .text = "The definition ends here, " + reason + "; this line and all that follow are not read"});
}

// A file of that kind is refused line by line, so this is told before all else.
void treading::addutf16(const tplace& place, const std::string& path) {
  if (isutf16(path))
    add({.place = place,
         .severity = tseverity::warning,
         .rule = "utf-16",
         .text = "The file is saved as UTF-16, which cannot be read; save it as UTF-8"});
}

void treading::checkdefinition() {
  const std::int32_t end = fstore.definition().earlyend();
  warnoflines(fdefinitionpath, fdefinition, tfilekind::definition, end, [&](tfinding finding) {
    const bool isexplained = finding.place.line == end && finding.rule == "indented";  // by the early end
    if (!isexplained) add(std::move(finding));
  });
  if (fstore.getcount() == 1 && errors() == 0)  // every definition has the option of help
    add({{fdefinition}, tseverity::warning, "no-options", "The definition has no options"});
  for (tfinding& finding : definitionwarnings(fstore.definition(), flines, fdefinition, fduplicates))
    add(std::move(finding));
}

void treading::checklines() {
  for (const auto& [name, path] : foptionfiles)
    warnoflines(path, name, tfilekind::options, 0, [&](tfinding finding) { add(std::move(finding)); });
}

bool treading::readdefinitionagain(tvksoptions& other) const {
  const bool opened = other.optreaddefinition(fdefinitionpath) == 0;
  other.optclearmessages();
  return opened;
}

bool treading::readoptions(const tinputs& inputs) {
  bool result = true;
  for (const std::string& filename : inputs.optionfiles) {
    const std::string path = pathof(filename, fwatches);
    foptionfiles.emplace(displayname(filename), path);
    result &= collect(displayname(filename), [&] { return fstore.optreadparameterfile(path); });
  }
  for (const std::string& text : inputs.texts)
    collect("--set '" + text + "'", [&] {
      fstore.optreadfrompchar(text.c_str());
      return 0;
    });
  return result;
}

void treading::showhelp(const std::string& request) {
  collect(fdefinition, [&] {
    fstore.optshowhelp(request);
    return 0;
  });
}

// Writing reports one problem at most. It is listed however many findings there are.
bool treading::write(const std::string& name, const std::string& path, bool exact) {
  const std::size_t before = errors();
  fwriting = true;
  collect(name, [&] { return writeparameters(fstore, path, exact ? dbltostrexact : dbltostr); });
  fwriting = false;
  return errors() == before;
}

bool treading::collect(const std::string& name, const std::function<std::int32_t()>& action) {
  fsource = name;
  // with a full list of messages, the code may be that of a file that was opened but not read to its end
  const bool opened = namingfile(name, action) == 0 || fstore.messages().full();
  fstore.optclearmessages();
  ffindings.end();
  return opened;
}

// The path under which the library opens a file on the command line: that of a copy for standard input and,
// if the file is read again, for a pipe or a device.
std::string treading::pathof(const std::string& filename, bool readagain) {
  if (ftextsource != nullptr) return sourcepath(filename);
  if (filename == "-") {
    fcopies.emplace_back().write(readstandardinput());
    return fcopies.back().path();
  }
  if (readagain && givesonce(filename) && fcopies.emplace_back().copylines(filename))
    return fcopies.back().path();
  return filename;
}

// ---- what the store reports

void treading::filed(const tmessage& message) {
  if (ffollower != nullptr) ffollower->filed(message);
  if (message.kind == tmsgkind::fileenter && message.source->sourcekind() == tsourcekind::file) {
    const std::string path(message.source->sourcename());
    ffilesread.add(path);
    const std::string text = sourcepath(path);
    if (message.source->includer() != nullptr) foptionfiles.emplace(path, text);
    addutf16(placeof(message.source, 1), text);
  }
  if (message.kind == tmsgkind::fileenter || message.kind == tmsgkind::fileleave) return;
  if (message.explains) {
    ffindings.explain(std::string(message.text.substr(message.text.find_first_not_of(' '))));
    return;
  }
  const std::string_view rule = fwriting ? "not-written" : ruleof(message);
  const std::string_view line = message.source != nullptr ? message.source->linetext() : std::string_view();
  std::vector<std::string> suggestions;
  const bool suggests = fsuggests && ffindings.keeps(rule);
  if (suggests) suggestions = fsuggester.suggestionsfor(message.subject, line);
  if (suggests && message.kind == tmsgkind::defineerror && suggestions.empty())
    suggestions = fsuggester.definedlike(ffieldnotes.references(message));
  ffindings.begin({.place = placeof(message),
                   .severity = severityof(message.kind),
                   .rule = rule,
                   .text = std::string(message.text),
                   .suggestions = std::move(suggestions),
                   .unusable = message.subject.problem == tsubject::tproblem::unusablefile,
                   .name = std::string(message.subject.name),
                   .value = std::string(message.subject.value)});
  advise(message);
  if (message.subject.problem == tsubject::tproblem::duplicatename) explainduplicate(message);
  if (message.subject.problem == tsubject::tproblem::unusablefile) adviseoninclude(message);
}

// Messages about one line that have the same note have it once.
void treading::advise(const tmessage& message) {
  std::string advice = adviceon(message, fstore);
  if (advice.empty() && message.kind == tmsgkind::defineerror) {
    advice = ffieldnotes.next(message);
    ffindings.mean(ffieldnotes.field());
  }
  if (advice.empty() || (advice == fadvice && message.line == fadviceline)) return;
  fadvice = advice;
  fadviceline = message.line;
  ffindings.advise(std::move(advice));
}

// That a default is none of the values is known only after them, but it stands on the option's own line.
tplace treading::placeof(const tmessage& message) const {
  const bool earlier = message.subject.problem == tsubject::tproblem::undefineddefault;
  return placeof(message.source, earlier ? flines.last() : message.line);
}

void treading::explainduplicate(const tmessage& message) {
  fduplicates.insert(message.line);
  const tholder holder = holderof(message.subject.name, fstore.definition(), flines);
  ffindings.advise(holder.text);
  if (holder.line > 0) ffindings.relate({{fdefinition, holder.line}, std::string(definedhere)});
}

// A relative path counts from the current directory, not from the file that names it.
void treading::adviseoninclude(const tmessage& message) {
  const tlinesource* source = message.source;
  if (source == nullptr || source->sourcekind() != tsourcekind::file) return;
  const std::filesystem::path path(message.subject.name);
  if (path.is_absolute()) return;
  const std::filesystem::path beside = std::filesystem::path(source->sourcename()).parent_path() / path;
  std::error_code problem;
  if (beside != path && std::filesystem::exists(beside, problem))
    ffindings.advise("There is a file " + inquotes(beside.string()) +
                     ", but relative paths count from the current directory, not from the including file");
}

void treading::begun(const tentry& entry) {
  flines.add(entry);
  if (entry.kind == tentry::tkind::option) ffieldnotes.begin(fstore.messages().activesource()->linetext());
  if (fwatches && entry.name.size() > maxidentifier)
    add({{fdefinition, entry.line},
         tseverity::warning,
         "long-name",
         "The name " + inquotes(entry.name) + " has " + std::to_string(entry.name.size()) +
             " characters; use at most " + std::to_string(maxidentifier)});
}

namespace {

// Whether a text of this length stands in double quotes in the line; its length includes the closing quote.
bool isquoted(std::string_view line, std::size_t length) {
  for (std::size_t at = line.find('"'); at != std::string_view::npos; at = line.find('"', at + 1))
    if (at + length < line.size() && line[at + length] == '"' &&
        (at + length + 1 == line.size() || line.find_first_of(" \t,", at + length + 1) == at + length + 1))
      return true;
  return false;
}

}  // namespace

// A line may shorten several texts.
void treading::shortened(std::size_t length) {
  const tlinesource* source = fstore.messages().activesource();
  if (!fwatches || source == nullptr) return;
  const tplace place = placeof(source, source->linenr());
  if (fshortenedat == place || !ffindings.keeps("text-cut")) return;
  fshortenedat = place;
  const bool quoted = isquoted(source->linetext(), length);
  add({place, tseverity::warning, "text-cut",
       "A text has " + std::to_string(quoted ? length - 1 : length) + " characters; " +
           (quoted ? "only the first 254 of a text in double quotes are used"
                   : "only the first 254 and the last one are used")});
}

void treading::watchsetting(const toption& option) {
  const tlinesource* source = fstore.messages().activesource();
  if (source == nullptr) return;
  const tcharset& comments = fstore.definition().eolcommset();
  const bool hascomment = comments.any() && std::ranges::any_of(source->linetext(), [&](char c) {
                            return comments.test(static_cast<unsigned char>(c));
                          });
  if (!hascomment && !option.name().starts_with("--")) return;  // nearly all lines
  const tplace place = placeof(source, source->linenr());
  if (option.name().starts_with("--") && option.name().size() > maxidentifier + 2)
    add({place, tseverity::warning, "long-name",
         "The name " + inquotes(typedname(option, source->linetext())) + " has more than " +
             std::to_string(maxidentifier) + " characters"});
  if (auto finding = fsettingwarnings.list(option, source->linetext(), place)) add(std::move(*finding));
  if (auto finding = fsettingwarnings.comment(option, source->linetext(), place)) add(std::move(*finding));
}

void treading::assigned(const toption& option, std::int32_t bits) {
  if (ffollower != nullptr) ffollower->assigned(option, bits);
  if (fwatches && (option.opttype() == topttype::string || option.opttype() == topttype::strlist))
    watchsetting(option);
  if (!fassignments) return;
  const tlinesource* source = fstore.messages().activesource();
  const std::int32_t line = source != nullptr ? source->linenr() : 0;
  const tassignments::tearlier* earlier = fassignments->replaced(option, bits, nameof(source), line);
  if (earlier == nullptr) return;
  flistreplaced = flistreplaced && ffindings.keeps(replacedrule);
  if (flistreplaced)
    ffindings.begin(replacedfinding(option, bits, *earlier, placeof(source, line)));
  else
    ffindings.countunlisted(tseverity::warning);
}

// Each name is on a line of its own.
void treading::listed(std::string_view names) {
  for (; !names.empty(); names.remove_prefix(std::min(names.find('\n'), names.size() - 1) + 1))
    ffindings.begin({.place = {fsource},
                     .severity = tseverity::plain,
                     .rule = {},
                     .text = std::string(names.substr(0, names.find('\n')))});
}

std::string_view treading::pathtoopen(std::string_view filename) {
  return fpath = sourcepath(std::string(filename));
}

// An included file has its own name.
std::string_view treading::nameof(const tlinesource* source) const {
  return source != nullptr && source->includer() != nullptr ? source->sourcename() : fsource;
}

tplace treading::placeof(const tlinesource* source, std::int32_t line) const {
  return {std::string(nameof(source)), line};
}

// ---- what is found

int exitcode(const tfindings& findings, bool warningsaserrors) {
  if (std::ranges::any_of(findings, &tfinding::unusable)) return exitunusable;
  const bool problems = std::ranges::any_of(findings, [&](const tfinding& finding) {
    return finding.severity == tseverity::error ||
           (warningsaserrors && finding.severity == tseverity::warning);
  });
  return problems ? exitproblems : exitclean;
}

int reportproblems(const tfindings& findings, std::size_t unlisted) {
  const tpalette palette(STDERR_FILENO);
  for (const tfinding& finding : findings) writefinding(std::cerr, finding, palette);
  if (unlisted != 0) std::cerr << "wexcorin: " << counted(unlisted, "further problem") << " not listed\n";
  return exitcode(findings, false);
}

int reportproblems(const tfindinglist& findings) {
  return reportproblems(findings.kept(), findings.unlisted());
}

}  // namespace tool
