// Rewrites one statement of a line: tries ways to write it until one holds.
#include <algorithm>

#include "base/textcase.h"
#include "tools/migrating/outcome.h"
#include "tools/migrating/rewriter.h"
#include "tools/migrating/settingtexts.h"
#include "tools/text.h"

namespace tool {

using namespace optcore;

namespace {

bool isspread(const toption* option) {
  return option != nullptr &&
         (option->opttype() == topttype::macro || option->opttype() == topttype::multilist);
}

bool isobsolete(const toption& option) { return option.hasdeprecation(tdeprecation::obsolete); }

// The text of the statement with another text in the place of one of its parts.
std::string replaced(std::string_view text, const tstatementspans& spans, tspan part, std::string_view by) {
  std::string result(text);
  return result.replace(part.begin - spans.whole.begin, part.size(), by);
}

struct tactionvalue {
  timmkind kind;
  std::string value;
  bool operator==(const tactionvalue&) const = default;
};

std::string because(const char* what, const std::string& reason) {
  return reason.empty() ? what : std::string(what) + ": " + reason;
}

// What the immediate options of a line do.
std::vector<tactionvalue> actions(const tlinespans& spans, std::string_view line) {
  std::vector<tactionvalue> result;
  for (const tstatementspans& each : spans.statements)
    if (each.kind == tstatementspans::tkind::immediate)
      result.push_back({as<timmediateoption>(*each.option).immkind(), std::string(each.value.of(line))});
  return result;
}

// The name of the statement as the newer definition has it; empty if there is none.
std::string newnameof(const tdefinition& newer, const toption* option, const toutcome& expected) {
  if (option != nullptr) return writtenname(newer, *option);
  const titem& item = expected.items.front();
  if (item.kind == teffect::tkind::indicator) return std::string(newer.dotname());
  return item.symbol.starts_with("--") ? item.symbol.substr(2) : std::string();
}

}  // namespace

std::string trewriter::tcase::name() const {
  if (older != nullptr) return std::string(older->getname());
  return meaning.statements.front().key;
}

trewriter::tcase trewriter::caseof(std::size_t statement, const tstatementspans& spans) const {
  tcase result{.meaning = fline->meaning.of(statement),
               .spans = spans,
               .text = spans.whole.of(fline->text),
               .older = fline->meaning.statements[statement].option};
  result.newer = fsuccessors.of(fline->positions.of(result.older));
  result.expected = outcomeof(result.meaning.effects, fline->positions, fsuccessors);
  return result;
}

trewriter::tpiece trewriter::asis(const tcase& each) const {
  tpiece result;
  result.texts = {std::string(each.text)};
  return result;
}

trewriter::tpiece trewriter::commented(const tcase& each, const std::string& why, bool decide) const {
  tpiece result;
  result.ischanged = true;
  result.notes.push_back({taction::commented, each.name(), why, decide});
  return result;
}

trewriter::tpiece trewriter::piece(const tcase& each) {
  if (each.spans.kind == tstatementspans::tkind::immediate) return immediate(each);
  if (each.meaning.effects.empty()) return refused(each);
  if (auto result = gone(each)) return *result;
  std::optional<tpiece> result = same(each);
  if (!result) result = clamped(each);
  if (!result) return left(each);
  if (each.meaning.haserror())
    result->notes.push_back(
        {taction::refused, each.name(), "Not taken before either: " + each.meaning.problemtext(), true});
  return *result;
}

// ---- statements that set nothing under the older definition

trewriter::tpiece trewriter::refused(const tcase& each) {
  const bool isobsolete = !each.meaning.problems.empty() && !each.meaning.haserror();
  if (isobsolete && each.older != nullptr)
    return commented(each, because("obsolete", reasonof(*each.older, each.newer)), false);
  tlinestate state = fstate;
  const tmeaning& seen = fnewer.read(each.text, state);
  tpiece result = asis(each);
  result.outcome = outcomeof(seen.effects);
  if (!seen.effects.empty() || seen.hasimmediate())
    result.notes.push_back({taction::taken, each.name(), "Only the newer definition takes this; it stays"});
  else if (each.meaning.haserror())
    result.notes.push_back(
        {taction::refused, each.name(), "Not taken before either: " + each.meaning.problemtext(), true});
  return result;
}

// ---- immediate options

trewriter::tpiece trewriter::immediate(const tcase& each) {
  const std::vector<tactionvalue> wanted =
      actions(spansof(fline->definition, each.text, fline->eolonly), each.text);
  const auto acts = [&](const std::string& text) {
    tlinestate state = fstate;
    fnewer.read(text, state);
    return actions(fnewer.spans(), text) == wanted && fnewer.spans().statements.size() == 1;
  };
  tpiece result = asis(each);
  result.isaction = true;
  if (std::ranges::any_of(each.meaning.problems, &tlineproblem::isfile))
    result.notes.push_back({taction::refused, each.name(), each.meaning.problemtext(), true});
  if (acts(result.texts.front())) return result;
  const std::string name = each.newer != nullptr ? writtenname(fnewer.definition(), *each.newer) : "";
  const std::string text = replaced(each.text, each.spans, each.spans.name, name);
  // a second migration would not know that the new name switches the mode
  const bool switches = as<timmediateoption>(*each.older).immkind() == timmkind::eolflag;
  if (name.empty() || switches || !acts(text))
    return commented(each, because("gone", reasonof(*each.older, each.newer)), true);
  result.ischanged = true;
  result.texts = {text};
  result.notes.push_back(changenote(each, result.texts));
  return result;
}

// ---- what the newer definition no longer has

std::optional<trewriter::tpiece> trewriter::gone(const tcase& each) const {
  if (each.spans.kind == tstatementspans::tkind::indicator && fnewer.definition().dotname().empty())
    return commented(each, "gone: there are no indicators", false);
  if (each.older == nullptr || isownlist(each.older)) return std::nullopt;
  const std::string reason = reasonof(*each.older, each.newer);
  if (each.newer != nullptr && isobsolete(*each.newer))
    return commented(each, because("obsolete", reason), false);
  const bool hassuccessor = each.newer != nullptr || isspread(each.older);
  if (hassuccessor && !each.expected.items.empty()) return std::nullopt;
  return commented(each, because("gone", reason), false);
}

// ---- what can be written so that it means the same

std::optional<trewriter::tpiece> trewriter::attempt(const tcase& each, const ttexts& texts,
                                                    const toutcome& expected) {
  const bool isoriginal = texts.size() == 1 && texts.front() == each.text;
  tlinestate state = fstate;
  tpiece result;
  for (const std::string& text : texts) {
    const tmeaning& seen = fnewer.read(text, state);
    const bool isworse = seen.haserror() && !each.meaning.haserror();
    if (isworse || seen.hasimmediate() || seen.statements.size() != 1) return std::nullopt;
    result.outcome.append(outcomeof(seen.effects));
  }
  if (!issame(expected, result.outcome)) return std::nullopt;
  if (!isoriginal && !holds(texts, expected)) return std::nullopt;
  result.texts = texts;
  result.ischanged = !isoriginal;
  if (result.ischanged) result.notes.push_back(changenote(each, texts));
  return result;
}

tnote trewriter::changenote(const tcase& each, const ttexts& texts) const {
  const bool isrenamed =
      each.newer != nullptr && each.older != nullptr && !struequal(each.older->name(), each.newer->name());
  const std::string name = newnameof(fnewer.definition(), each.newer, each.expected);
  const std::string typed(each.spans.name.of(fline->text));
  const bool isname =
      texts.size() == 1 && texts.front() == replaced(each.text, each.spans, each.spans.name, name);
  if (isname && isrenamed) return {taction::renamed, each.name(), "It is now called " + name};
  if (isname) return {taction::spelled, each.name(), typed + " is now written " + name};
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : "; ") + text;
  return {isrenamed && texts.size() == 1 ? taction::renamed : taction::spelled, each.name(),
          "To mean the same, it is now written: " + all};
}

std::optional<trewriter::tpiece> trewriter::same(const tcase& each) {
  const std::string original(each.text);
  const tspan value = each.spans.value;
  const bool isplain = !value.empty() && fline->text[value.begin] != '"' && each.spans.second.empty();
  const auto quoted = [&](const std::string& text) {
    std::string result = text;
    const std::string raw(value.of(fline->text));
    return result.replace(result.size() - raw.size(), raw.size(), inquotes(raw));
  };
  tlinestate state = fstate;
  const bool due = isdue(each.meaning.statements.front(), fnewer.read(each.text, state));
  const std::string name = newnameof(fnewer.definition(), each.newer, each.expected);
  std::vector<ttexts> ways = {{original}};
  if (!name.empty()) {
    const std::string renamed = replaced(each.text, each.spans, each.spans.name, name);
    ways.insert(due ? ways.begin() : ways.end(), ttexts{renamed});
    if (isplain && renamed.ends_with(value.of(fline->text))) ways.push_back({quoted(renamed)});
  }
  if (isplain && original.ends_with(value.of(fline->text))) ways.push_back({quoted(original)});
  if (auto texts = settingtexts(fnewer.definition(), each.expected, fstate.eolonly)) ways.push_back(*texts);
  for (const ttexts& way : ways)
    if (auto result = attempt(each, way, each.expected)) {
      addremarks(each, *result);
      return result;
    }
  return std::nullopt;
}

void trewriter::addremarks(const tcase& each, tpiece& piece) {
  if (each.expected.isreduced)
    piece.notes.push_back({taction::reduced, each.name(), "Some of what it set is gone"});
  if (each.newer == nullptr || !each.newer->hasdeprecation(tdeprecation::deprecated)) return;
  piece.notes.push_back({taction::deprecated, each.name(),
                         because("It still works", std::string(each.newer->deprecatedmsg()))});
}

// ---- values that are no longer taken

std::optional<trewriter::tpiece> trewriter::clamped(const tcase& each) {
  if (!fclamps) return std::nullopt;
  toutcome expected = each.expected;
  const std::vector<std::string> moved = clamp(expected);
  if (moved.empty()) return std::nullopt;
  const std::string name = newnameof(fnewer.definition(), each.newer, each.expected);
  std::vector<ttexts> ways;
  const bool issingle = expected.items.size() == 1 && !each.spans.value.empty() && each.spans.second.empty();
  if (issingle && !name.empty()) {
    const std::string text = replaced(each.text, each.spans, each.spans.value,
                                      writtenvalue(fnewer.definition(), valuetext(expected.items[0].value)));
    ways.push_back({text});
    ways.push_back({replaced(text, each.spans, each.spans.name, name)});
  }
  if (auto texts = settingtexts(fnewer.definition(), expected, fstate.eolonly)) ways.push_back(*texts);
  tcase other = each;
  other.expected = expected;
  for (const ttexts& way : ways)
    if (auto result = attempt(other, way, expected)) {
      result->notes.clear();
      for (const std::string& text : moved) result->notes.push_back({taction::clamped, each.name(), text});
      addremarks(each, *result);
      return result;
    }
  return std::nullopt;
}

// The name may follow although the value is not taken.
trewriter::tpiece trewriter::left(const tcase& each) {
  const std::string original(each.text);
  const std::string name = newnameof(fnewer.definition(), each.newer, each.expected);
  tlinestate state = fstate;
  const bool due = isdue(each.meaning.statements.front(), fnewer.read(original, state));
  ttexts ways = {original};
  if (!name.empty()) {
    const std::string renamed = replaced(each.text, each.spans, each.spans.name, name);
    ways.insert(due ? ways.begin() : ways.end(), renamed);
  }
  std::string why;
  for (const std::string& text : ways) {
    const tmeaning& seen = fnewer.read(text, state = fstate);
    const toutcome outcome = outcomeof(seen.effects);
    if (why.empty()) why = seen.problemtext();
    if (seen.hasimmediate() || !isnothingelse(each.expected, outcome)) continue;
    const bool isfound = !seen.statements.empty() && seen.statements.front().option == each.newer;
    if (text != original && (!isfound || !holds({text}, outcome))) continue;
    tpiece result = asis(each);
    result.outcome = outcome;
    result.ischanged = text != original;
    result.texts = {text};
    if (result.ischanged) result.notes.push_back(changenote(each, result.texts));
    result.notes.push_back({taction::left, each.name(),
                            why.empty() ? "The newer definition reads it in another way" : why, true});
    return result;
  }
  return commented(each, because("not taken in the same way", why), true);
}

}  // namespace tool
