// Rewrites a line: puts together what becomes of its statements and its comment.
#include "tools/migrating/rewriter.h"

#include <algorithm>

#include "base/textcase.h"
#include "input/linereader.h"

namespace tool {

using namespace optcore;

// ---- lines that stay

// Nearly all lines.
std::optional<tnewline> trewriter::rewrite(const toldline& line, tlinestate& state) {
  fline = &line;
  fstate = state;
  if (line.text.find('\0') != std::string_view::npos) {
    fseen = {};
    if (line.meaning.isnothing()) return std::nullopt;
    return tnewline{{std::string(line.text)},
                    {{taction::left, {}, "The line contains the byte 0; it stays as it is", true}},
                    false};
  }
  const tmeaning& seen = fnewer.read(line.text, state);
  fseen = outcomeof(seen.effects);
  if (isunchanged(line, seen)) return std::nullopt;
  state = fstate;
  tnewline result = [&] {
    if (line.meaning.isnothing()) return comment();
    const tlinespans spans =
        spansof(line.definition, line.text.substr(0, tlinereader::maxline), line.eolonly);
    if (spans.statements.size() == line.meaning.statements.size())
      if (auto composition = composed(spans, piecesof(spans))) return *composition;
    return uncomposed();
  }();
  fseen = {};
  for (const std::string& text : result.lines) fseen.append(outcomeof(fnewer.read(text, state).effects));
  result.ischanged = result.lines != std::vector{std::string(line.text)};
  if (!result.ischanged && result.notes.empty()) return std::nullopt;
  return result;
}

// Each statement is read as the ones before it leave the reading: an immediate option may switch the bounds off.
std::vector<trewriter::tpiece> trewriter::piecesof(const tlinespans& spans) {
  const toldline& line = *fline;
  const tlinestate before = fstate;
  toldline rest = line;
  fline = &rest;
  std::vector<tpiece> result;
  result.reserve(spans.statements.size());
  for (const tstatementspans& each : spans.statements) {
    result.push_back(piece(caseof(result.size(), each)));
    for (const std::string& text : result.back().texts) {
      folder.read(text, rest.again);
      fnewer.read(text, fstate);
    }
  }
  fline = &line;
  fstate = before;
  return result;
}

namespace {

bool iskept(const tstatement& before, const tstatement& after) {
  if (before.kind != after.kind) return false;
  if (before.option == nullptr || before.option->name().starts_with("--")) return true;
  return struequal(before.key, after.option->name()) || !struequal(before.key, before.option->name());
}

}  // namespace

bool trewriter::isunchanged(const toldline& line, const tmeaning& seen) const {
  if (line.meaning.statements.size() != seen.statements.size() || !line.meaning.problems.empty())
    return false;
  if (!seen.problems.empty() || seen.hasimmediate()) return false;
  for (std::size_t i = 0; i < seen.statements.size(); ++i)
    if (!iskept(line.meaning.statements[i], seen.statements[i])) return false;
  const toutcome expected = outcomeof(line.meaning.effects, line.positions, fsuccessors);
  return !expected.isreduced && issame(expected, fseen);  // otherwise there is a note
}

// Whether the name in the line should follow: it finds another option or none, is a deprecated synonym, or is
// the name that the option had before.
bool trewriter::isdue(const tstatement& before, const tmeaning& seen) const {
  if (seen.statements.size() != 1 || before.option == nullptr) return false;
  const tstatement& after = seen.statements.front();
  const toption* newer = fsuccessors.of(fline->positions.of(before.option));
  if (newer == nullptr || before.kind != tstep::tkind::statement) return false;
  if (after.option != newer) return true;
  if (struequal(after.key, newer->name())) return false;
  const bool isdeprecated = std::ranges::any_of(
      seen.problems, [](const tlineproblem& each) { return each.kind == tmsgkind::deprecated; });
  return isdeprecated || struequal(before.key, before.option->name());
}

bool trewriter::holds(const std::vector<std::string>& lines, const toutcome& expected) {
  tlinestate state = fstate;
  toutcome all;
  for (const std::string& line : lines) all.append(outcomeof(fnewer.read(line, state).effects));
  return issame(expected, all) && (fistrying || stay(lines));
}

// Whether each of the lines comes back when it is rewritten. That trial does not ask the same of its own
// lines, so it may see a change where there would be none, but never the other way round.
bool trewriter::stay(const std::vector<std::string>& lines) const {
  trewriter other(folder, folderpositions, fnewer, fsuccessors, fclamps);
  other.fistrying = true;
  tlinestate before = fline->again, now = fstate;
  for (const std::string& line : lines) {
    const tlinestate then = before;
    const tmeaning meaning = folder.read(line, before);
    const auto again =
        other.rewrite({line, meaning, folder.definition(), folderpositions, then.eolonly, then}, now);
    if (again && again->ischanged) return false;
  }
  return true;
}

bool trewriter::canadd(const std::string& text, const toutcome& expected, tlinestate before, tlinestate now) {
  static const tmeaning nothing;
  const toldline line{{}, nothing, folder.definition(), folderpositions, before.eolonly, before};
  fline = &line;
  fstate = now;
  const bool result = holds({text}, expected);
  fline = nullptr;
  return result;
}

// ---- lines that change

namespace {

// The comment of a line, as a line of its own.
std::string commentline(std::string_view text) { return "* " + std::string(text); }

std::string_view trimleft(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
}

// The reasons why statements become comments.
std::vector<std::string> reasonlines(const tnote& note) {
  return {commentline(note.name + " is " + note.text)};
}

}  // namespace

// A line without statements, in which the newer definition sees some.
tnewline trewriter::comment() const {
  std::string text(fline->text);
  const bool ismarked = fline->definition.eolcommset().test(static_cast<unsigned char>(text.front()));
  if (ismarked)
    text.front() = '*';
  else
    text.insert(0, "*");
  return {{text}, {{taction::remark, {}, "The comment begins with * now"}}, true};
}

std::optional<tnewline> trewriter::composed(const tlinespans& spans, const std::vector<tpiece>& pieces) {
  tnewline result;
  toutcome expected;
  bool mayfail = fline->meaning.haserror();
  for (const tpiece& each : pieces) {
    expected.append(each.outcome);
    mayfail = mayfail || std::ranges::any_of(each.notes, &tnote::decide);
    result.notes.insert(result.notes.end(), each.notes.begin(), each.notes.end());
  }
  for (const ttexts& lines : variants(spans, pieces)) {
    tlinestate state = fstate;
    toutcome all;
    bool haserror = false;
    for (const std::string& line : lines) {
      const tmeaning& seen = fnewer.read(line, state);
      haserror = haserror || seen.haserror();
      all.append(outcomeof(seen.effects));
    }
    if (haserror && !mayfail) continue;  // the comment may be read as a setting
    const bool isoriginal = lines.size() == 1 && lines.front() == fline->text;
    const bool isknown = isoriginal || isproved(lines, pieces);
    if (!issame(expected, all) || (!isknown && !fistrying && !stay(lines))) continue;
    result.lines = lines;
    const bool explained = isoriginal || std::ranges::any_of(pieces, &tpiece::ischanged);
    if (!explained && pieces.size() > 1 && lines == split(spans, pieces))
      result.notes.push_back({taction::spelled, {}, "Each setting is on a line of its own now"});
    else if (!explained)
      result.notes.push_back({taction::remark, {}, "The comment is marked in another way"});
    return result;
  }
  return std::nullopt;
}

// Whether the lines were tried as those of their only statement.
bool trewriter::isproved(const ttexts& lines, const std::vector<tpiece>& pieces) {
  return pieces.size() == 1 && !pieces.front().isaction && pieces.front().texts == lines;
}

// The ways to put the line together, the nearest to the original first.
std::vector<trewriter::ttexts> trewriter::variants(const tlinespans& spans,
                                                   const std::vector<tpiece>& pieces) const {
  const std::string comment(spans.comment.of(fline->text));
  std::vector<ttexts> result = {inplace(spans, pieces, comment, false)};
  const tcharset& marks = fnewer.definition().eolcommset();
  const bool ismarked = !comment.empty() && marks.test(static_cast<unsigned char>(comment.front()));
  for (const bool both : {true, false})  // first the characters that begin comments in both definitions
    for (std::size_t code = 1; !comment.empty() && !ismarked && code < marks.size(); ++code)
      if (marks[code] && fline->definition.eolcommset()[code] == both)
        result.push_back(inplace(spans, pieces, static_cast<char>(code) + comment.substr(1), false));
  if (!comment.empty()) result.push_back(inplace(spans, pieces, comment, true));
  if (pieces.size() > 1) result.push_back(split(spans, pieces));
  return result;
}

// Each statement in its place; what takes several lines continues below, and what becomes a comment is above.
trewriter::ttexts trewriter::inplace(const tlinespans& spans, const std::vector<tpiece>& pieces,
                                     std::string_view comment, bool commentabove) const {
  ttexts above, below;
  std::string text;
  std::size_t at = 0;
  bool isany = false;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const tspan whole = spans.statements[i].whole;
    text.append(fline->text.substr(at, whole.begin - at));
    at = whole.end;
    if (!pieces[i].texts.empty()) {
      isany = true;
      text.append(pieces[i].texts.front());
      below.insert(below.end(), pieces[i].texts.begin() + 1, pieces[i].texts.end());
      continue;
    }
    for (const std::string& line : reasonlines(pieces[i].notes.front())) above.push_back(line);
    above.push_back(commentline(whole.of(fline->text)));
    while (at < fline->text.size() &&
           std::string_view(" \t,").find(fline->text[at]) != std::string_view::npos)
      ++at;
  }
  if (!isany) {  // the whole line is a comment
    above.resize(0);
    for (const tpiece& each : pieces)
      for (const std::string& line : reasonlines(each.notes.front())) above.push_back(line);
    above.push_back(commentline(fline->text));
    return above;
  }
  const std::size_t begin = spans.comment.empty() ? fline->text.size() : spans.comment.begin;
  text.append(fline->text.substr(at, std::max(begin, at) - at));
  if (commentabove) {
    above.push_back(commentline(trimleft(comment.substr(1))));
    text.resize(text.find_last_not_of(" \t") + 1);
  } else if (!spans.comment.empty()) {
    text.append(comment).append(fline->text.substr(spans.comment.end));
  }
  above.push_back(text);
  above.insert(above.end(), below.begin(), below.end());
  return above;
}

// Each statement on a line of its own, for reading in end-of-line mode.
trewriter::ttexts trewriter::split(const tlinespans& spans, const std::vector<tpiece>& pieces) const {
  ttexts result;
  if (!spans.comment.empty())
    result.push_back(commentline(trimleft(spans.comment.of(fline->text).substr(1))));
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    for (const std::string& text : pieces[i].texts) result.push_back(text);
    if (!pieces[i].texts.empty()) continue;
    for (const std::string& line : reasonlines(pieces[i].notes.front())) result.push_back(line);
    result.push_back(commentline(spans.statements[i].whole.of(fline->text)));
  }
  return result;
}

// A line that cannot be put together stays if the newer definition sets nothing else, and otherwise becomes a
// comment.
tnewline trewriter::uncomposed() {
  tlinestate state = fstate;
  const tmeaning& seen = fnewer.read(fline->text, state);
  const toutcome expected = outcomeof(fline->meaning.effects, fline->positions, fsuccessors);
  const bool stays = isnothingelse(expected, outcomeof(seen.effects)) && !seen.hasimmediate();
  const std::string text = "The line means something else now and cannot be rewritten";
  if (stays) return {{std::string(fline->text)}, {{taction::left, {}, text, true}}, false};
  return {{commentline(text), commentline(fline->text)}, {{taction::commented, {}, text, true}}, true};
}

}  // namespace tool
