// Collects what each line does, and writes its file anew line by line.
#include "tools/migrating/migration.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "input/linereader.h"
#include "tools/reading/regularfile.h"

namespace tool {

using namespace optcore;

// ---- definitions

bool tdefinitions::read(const std::string& olderfile, const std::string& newerfile) {
  older.keepdefinition();
  newer.keepdefinition();
  if (olderfile.empty()) return readnewer(newerfile);
  const bool opened = older.readdefinition(olderfile);
  if (!readnewer(newerfile) || !opened || older.findings().count(tseverity::error) != 0) return false;
  if (!prepareolder()) return false;
  const auto one = contentsof(older.definitionpath()), other = contentsof(newer.definitionpath());
  fareequal = one && other && *one == *other;
  return true;
}

bool tdefinitions::readnewer(const std::string& filename) {
  if (!newer.readdefinition(filename) || newer.findings().count(tseverity::error) != 0) return false;
  return preparenewer();
}

bool tdefinitions::preparenewer() {
  fnewertrial.reset();
  if (!newer.readdefinitionagain(fnewerstore.emplace())) return false;
  fnewertrial.emplace(*fnewerstore);
  return true;
}

bool tdefinitions::prepareolder() {
  foldertrial.reset();
  if (!older.readdefinitionagain(folderstore.emplace())) return false;
  foldertrial.emplace(*folderstore);
  folderpositions.emplace(folderstore->definition());
  fnewerpositions.emplace(fnewerstore->definition());
  fsuccessors.emplace(*folderpositions, *fnewerpositions);
  frewriter.emplace(*foldertrial, *folderpositions, *fnewertrial, *fsuccessors, fclamps);
  return true;
}

bool tdefinitions::forgetlists() {
  const bool havenone = folderstore->getcount() == older.store().getcount() &&
                        fnewerstore->getcount() == newer.store().getcount();
  return havenone || (preparenewer() && prepareolder());
}

std::optional<std::string> contentsof(const std::string& path) { return tregularfile(path).contents(); }

// ---- files

bool tmigration::run(const std::string& filename) {
  if (!fdefinitions.forgetlists()) return false;
  treading& reading = freading.emplace();
  reading.readdefinitionof(fdefinitions.older);
  fstore = &reading.store();
  froot = filename;
  fpositions.emplace(fstore->definition());
  foldset.assign(static_cast<std::size_t>(fstore->definition().getcount()), 0);
  fset.assign(static_cast<std::size_t>(fdefinitions.newdefinition().getcount()), 0);
  fnewnobounds = fagainnobounds = false;
  reading.follow(this);
  const bool opened = reading.readoptions({{}, {filename}, {}});
  reading.follow(nullptr);
  if (!opened) {
    reportproblems(reading.findings());
    return false;
  }
  tmigratedfile& file = fileof(filename);
  file.isnamed = true;
  if (file.isread) pin(file);
  return true;
}

tmigratedfile& tmigration::fileof(const std::string& name) {
  std::error_code problem;
  const auto path = std::filesystem::weakly_canonical(name, problem);
  const auto [found, isnew] = findex.try_emplace(problem ? name : path.string());
  if (isnew) {
    found->second = &ffiles.emplace_back();
    found->second->name = name;
    found->second->root = froot;
  }
  return *found->second;
}

void tmigration::enter(const tlinesource& source) {
  const std::string name(source.sourcename());
  tmigratedfile& file = fileof(name);
  if (!fopen.empty()) {
    if (!std::exchange(file.isincluded, true))
      file.includedat = {std::string(source.includer()->sourcename()), source.includer()->linenr()};
    fnewnobounds = fnewnobounds || (fopen.back()->meaning.hasimmediate() && fstore->nobounds());
  }
  auto open = std::make_unique<topen>();
  open->file = &file;
  if (auto contents = fcontents(name))
    open->result.before = std::move(*contents);
  else
    open->isskipped = true;
  fopen.push_back(std::move(open));
}

// `lines` is the number of lines that were read.
void tmigration::leave(std::int32_t lines) {
  topen& open = *fopen.back();
  flush(open);
  plainlines(open, lines);
  flastagaineolonly = open.againeolonly;
  flastneweolonly = open.neweolonly;
  finish(open);
  fopen.pop_back();
}

// A file that is included several times must become the same each time.
void tmigration::finish(topen& open) {
  tmigratedfile& file = *open.file;
  const bool iscomplete = !open.isskipped && open.at == open.result.before.size();
  const auto decide = [&](const char* text) { file.notes.add(0, {taction::left, {}, text, true}); };
  if (file.isread) {
    const bool issame = file.before == open.result.before && file.after == open.result.after;
    if (iscomplete && !issame) decide("It is read more than once, and not always in the same way");
  } else if (iscomplete) {
    const tmigratedfile before = std::exchange(file, std::move(open.result));
    file.name = before.name;
    file.root = before.root;
    file.isnamed = before.isnamed;
    file.isincluded = before.isincluded;
    file.includedat = before.includedat;
    file.isread = true;
  } else {
    decide("It could not be read to its end, so it is not migrated");
  }
}

// ---- what the store reports

void tmigration::filed(const tmessage& message) {
  if (message.kind == tmsgkind::fileenter) return enter(*message.source);
  if (message.kind == tmsgkind::fileleave) return leave(message.line);
  if (fopen.empty()) return;
  fopen.back()->meaning.filed(message);
}

void tmigration::assigned(const toption& option, std::int32_t bits) {
  fopen.back()->meaning.assigned(option, bits);
}

void tmigration::stepped(const tstep& step) {
  begin(fstore->messages().activesource()->linenr());
  fopen.back()->meaning.step(step, *fstore);
}

void tmigration::begin(std::int32_t line) {
  topen& open = *fopen.back();
  if (open.current == line) return;
  flush(open);
  open.current = line;
}

// Rewrites the line that was read last.
void tmigration::flush(topen& open) {
  if (open.isskipped || open.current == 0) return;
  plainlines(open, open.current - 1);
  line(open, open.meaning);
  open.meaning.clear();
}

// ---- lines

std::string_view tmigration::nextline(topen& open, std::string_view& lineend) {
  const std::string_view rest = std::string_view(open.result.before).substr(open.at);
  const std::size_t feed = rest.find('\n');
  std::string_view text = rest.substr(0, feed == std::string_view::npos ? rest.size() : feed + 1);
  open.at += text.size();
  ++open.line;
  std::size_t length = text.size();
  if (length > 0 && text[length - 1] == '\n') --length;
  if (length > 0 && text[length - 1] == '\r') --length;
  lineend = text.substr(length);
  return text.substr(0, length);
}

// Lines in which the older definition sees no statement.
void tmigration::plainlines(topen& open, std::int32_t upto) {
  static const tmeaning nothing;
  while (open.line < upto && open.at < open.result.before.size()) line(open, nothing);
}

void tmigration::line(topen& open, const tmeaning& meaning) {
  std::string_view lineend;
  const std::string_view text = nextline(open, lineend);
  const toldline current{text,        meaning,      fstore->definition(),
                         *fpositions, open.eolonly, {open.againeolonly, fagainnobounds}};
  const bool isskipped = text.empty() || text.front() == '*';
  std::optional<tnewline> lines;
  if (fdefinitions.areequal()) {
    checkrefused(open, meaning);
  } else if (!isskipped) {
    tlinestate state{open.neweolonly, fnewnobounds};
    lines = fdefinitions.rewriter().rewrite(current, state);
    markset(current, lines, {open.neweolonly, fnewnobounds});
    const tlinestate next = again(current, lines);
    open.againeolonly = next.eolonly;
    fagainnobounds = next.nobounds;
    open.neweolonly = state.eolonly;
    fnewnobounds = state.nobounds;
  }
  if (meaning.hasimmediate())
    open.eolonly = spansof(fstore->definition(), text.substr(0, tlinereader::maxline), open.eolonly).eolonly;
  if (lines)
    add(open, *lines, text, lineend);
  else
    open.result.keep({text.data(), text.size() + lineend.size()});
}

void tmigration::add(topen& open, const tnewline& lines, std::string_view text, std::string_view lineend) {
  for (const tnote& note : lines.notes) open.result.notes.add(open.line, note);
  const std::string_view whole(text.data(), text.size() + lineend.size());
  if (!lines.ischanged) return open.result.keep(whole);
  const std::string_view inner = lineend.ends_with('\n') ? lineend : open.result.lineend();
  std::string all;
  for (std::size_t i = 0; i < lines.lines.size(); ++i)
    all.append(lines.lines[i]).append(i + 1 < lines.lines.size() ? inner : lineend);
  open.result.replace(whole, all);
}

void tmigration::checkrefused(topen& open, const tmeaning& meaning) {
  for (std::size_t i = 0; i < meaning.statements.size(); ++i)
    if (const tmeaning own = meaning.of(i);
        own.haserror() && (!own.hasimmediate() || own.problems.front().isfile))
      open.result.notes.add(open.line, {taction::refused, own.statements[0].key,
                                        "It is not taken: " + own.problemtext(), true});
}

// Notes what the lines of the result set, as the next migration will see it.
void tmigration::markset(const toldline& line, const std::optional<tnewline>& lines, tlinestate newstate) {
  for (const titem& item : fdefinitions.rewriter().seen().items) mark(item.option, valuebit(item.which));
  if (!lines || line.text.find('\0') != std::string_view::npos) markolder(line.meaning.effects, *fpositions);
  if (!lines) return;
  tlinestate oldstate = line.again;
  for (const std::string& text : lines->lines) {
    markolder(fdefinitions.oldtrial().read(text, oldstate).effects, fdefinitions.successors().older());
    // a pin would replace what a person writes in the place of a value that is refused
    const tmeaning& seen = fdefinitions.newtrial().read(text, newstate);
    if (!seen.haserror()) continue;
    for (const tstatement& each : seen.statements)
      mark(each.option, valuebit(twhich::first) | valuebit(twhich::second));
  }
}

// How the older definition reads on behind the line when it reads the result.
tlinestate tmigration::again(const toldline& line, const std::optional<tnewline>& lines) {
  tlinestate result = line.again;
  if (!line.meaning.hasimmediate() || line.text.find('\0') != std::string_view::npos) return result;
  if (!lines) fdefinitions.oldtrial().read(line.text, result);
  if (lines)
    for (const std::string& text : lines->lines) fdefinitions.oldtrial().read(text, result);
  return result;
}

void tmigration::markolder(const std::vector<teffect>& effects, const tpositions& positions) {
  for (const teffect& effect : effects)
    if (const std::int32_t position = positions.of(effect.option); position >= 0)
      foldset[static_cast<std::size_t>(position)] |= static_cast<std::uint8_t>(valuebit(effect.which));
}

void tmigration::mark(const toption* newer, std::int32_t bits) {
  if (const std::int32_t position = fdefinitions.successors().newer().of(newer); position >= 0)
    fset[static_cast<std::size_t>(position)] |= static_cast<std::uint8_t>(bits);
}

}  // namespace tool
