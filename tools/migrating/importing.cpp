// Rewrites assignments line by line. Each line that is written was read by the library before.
#include "tools/migrating/importing.h"

#include <algorithm>
#include <array>
#include <iostream>

#include "base/strutilx.h"
#include "base/textcase.h"
#include "options/checkboolean.h"
#include "tools/migrating/settingtexts.h"
#include "tools/reading/findings.h"
#include "tools/reading/nearnames.h"
#include "tools/reading/suggest.h"

namespace tool {

using namespace optcore;

namespace {

constexpr std::string_view blanks = " \t";

// The parts of a line "name = value  # comment".
struct tassignment {
  std::string_view indent, name, between, value, gap, comment;
};

// Where a comment begins: at a "#" that is not in quotes.
std::size_t commentof(std::string_view text) {
  char quote = '\0';
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (quote == '\0' && text[i] == '#') return i;
    if (quote == '\0' && (text[i] == '"' || text[i] == '\''))
      quote = text[i];
    else if (text[i] == quote)
      quote = '\0';
  }
  return text.size();
}

// Returns false if the line is no assignment.
bool divide(std::string_view line, tassignment& result) {
  const std::size_t begin = line.find_first_not_of(blanks);
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos || begin == equals || commentof(line) < equals) return false;
  const std::size_t nameend = line.find_last_not_of(blanks, equals - 1) + 1;
  const std::size_t value = std::min(line.find_first_not_of(blanks, equals + 1), line.size());
  const std::size_t comment = commentof(line.substr(value)) + value;
  std::size_t valueend = comment;
  while (valueend > value && blanks.find(line[valueend - 1]) != std::string_view::npos) --valueend;
  result = {line.substr(0, begin),
            line.substr(begin, nameend - begin),
            line.substr(nameend, value - nameend),
            line.substr(value, valueend - value),
            line.substr(valueend, comment - valueend),
            line.substr(comment)};
  return valueend > value;
}

// The name as that of an option: what separates words is an underscore.
std::string mapped(std::string_view name) {
  std::string result(name);
  std::ranges::replace_if(
      result, [](char c) { return std::string_view("/.-: \t").find(c) != std::string_view::npos; }, '_');
  return result;
}

// A value without the quotes around it.
std::string plainvalue(std::string_view value) {
  const bool isquoted =
      value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
  return std::string(isquoted ? value.substr(1, value.size() - 2) : value);
}

class timport {
 public:
  timport(ttrial& trial, bool clamps, tmigratedfile& file)
      : ftrial(trial), fclamps(clamps), ffile(file), fnames(keynames(trial.store())) {}

  void run() {
    for (std::size_t at = 0; at < ffile.before.size();) {
      const std::size_t feed = ffile.before.find('\n', at);
      const std::size_t next = feed == std::string::npos ? ffile.before.size() : feed + 1;
      fwhole = std::string_view(ffile.before).substr(at, next - at);
      at = next;
      ++fline;
      const std::size_t length = fwhole.substr(0, fwhole.find_last_not_of("\r\n") + 1).size();
      fend = fwhole.substr(length);
      line(fwhole.substr(0, length));
    }
  }

 private:
  const tdefinition& definition() const { return ftrial.definition(); }
  bool iscommentmark(char c) const { return definition().eolcommset().test(static_cast<unsigned char>(c)); }
  void note(taction action, std::string_view name, const std::string& text, bool decide) {
    ffile.notes.add(fline, {action, std::string(name), text, decide});
  }
  void write(const std::string& text) { ffile.replace(fwhole, text + std::string(fend)); }
  void commentout(std::string_view text, std::string_view name, const std::string& why) {
    note(taction::commented, name, why, true);
    const std::string_view lineend = fend.ends_with('\n') ? fend : ffile.lineend();
    write("* " + why + std::string(lineend) + "* " + std::string(text));
  }

  void line(std::string_view text) {
    const std::string_view trimmed = trim(text);
    if (trimmed.empty() || text.front() == '*') return ffile.keep(fwhole);
    if (trimmed.front() == '#' || trimmed.front() == ';') return comment(text, trimmed.front());
    if (trimmed.front() == '[') return section(text, trimmed);
    tassignment assignment;
    if (text.find('\0') != std::string_view::npos) return commentout(text, {}, "it contains the byte 0");
    if (divide(text, assignment)) return assign(text, assignment);
    if (istaken(text)) return ffile.keep(fwhole);
    commentout(text, {}, "This is no assignment");
  }

  void comment(std::string_view text, char mark) {
    if (iscommentmark(mark)) return ffile.keep(fwhole);
    std::string result(text.substr(text.find(mark)));
    result.front() = '*';
    write(result);
  }

  // Until the next one, it stands before the names.
  void section(std::string_view text, std::string_view trimmed) {
    const std::string_view inside = trimmed.substr(1, trimmed.find(']') - 1);
    fsection = mapped(trim(inside));
    note(taction::remark, {},
         fsection.empty() ? "The section ends" : "Names get the section before them: " + fsection, false);
    write("* " + std::string(text));
  }

  // The option of the name, with or without the section; the name that finds it is in `name`.
  const toption* find(std::string& name) const {
    const std::string short_ = name;
    if (!fsection.empty()) {
      name = fsection + "_" + short_;
      if (const toption* option = definition().optionasobj(name)) return option;
    }
    if (const toption* option = definition().optionasobj(short_)) {
      name = short_;
      return option;
    }
    return nullptr;
  }

  // Whether the text is a setting that is taken.
  bool istaken(const std::string_view text) {
    tlinestate state;
    const tmeaning& seen = ftrial.read(text, state);
    return seen.statements.size() == 1 && !seen.haserror() && !seen.effects.empty();
  }
  // Whether it is, with this value if that is a text.
  bool means(const std::string& text, const std::string& value) {
    if (!istaken(text)) return false;
    tlinestate state;
    const teffect& effect = ftrial.read(text, state).effects.back();
    const auto* stored = std::get_if<std::string>(&effect.value);
    const bool istext =
        effect.option->opttype() == topttype::string || effect.option->opttype() == topttype::strlist;
    return stored == nullptr || !istext || *stored == value;
  }

  void assign(std::string_view text, const tassignment& parts) {
    std::string name = mapped(parts.name);
    const toption* option = find(name);
    if (option == nullptr) {
      const std::string meant = suggestiontext(fnames.nearest(name, tmatch::nearorlonger));
      return commentout(text, name, "There is no option " + name + (meant.empty() ? "" : "; " + meant));
    }
    if (option->opttype() == topttype::immediate)
      return commentout(text, name, name + " acts on the reading of option files");
    const std::string typed(definition().nounderscore(name).view());
    if (option->subtype() == tsubtype::novalue) return flag(text, parts, typed);
    setting(parts, name, typed);
  }

  // An option without a value is named or not.
  void flag(std::string_view text, const tassignment& parts, const std::string& typed) {
    const tbooleanword word = checkboolean(plainvalue(parts.value));
    if (word != tbooleanword::yes) return commentout(text, typed, typed + " takes no value");
    finish(parts, typed);
    note(taction::spelled, typed, "It takes no value", false);
  }

  void setting(const tassignment& parts, const std::string& name, const std::string& typed) {
    const std::string value = plainvalue(parts.value);
    const std::string head = std::string(parts.indent) + typed + std::string(parts.between);
    const bool isrenamed = !struequal(parts.name, typed);
    const auto renamed = [&] {
      if (isrenamed) note(taction::renamed, std::string(parts.name), "It is called " + typed, false);
    };
    for (const std::string& way :
         {std::string(parts.value), writtenvalue(definition(), value), inquotes(value)})
      if (means(head + way, value)) {
        renamed();
        return finish(parts, head + way);
      }
    renamed();
    tlinestate state;
    const std::string problem = ftrial.read(head + std::string(parts.value), state).problemtext();
    if (fclamps && clampedto(parts, head, name)) return;
    note(taction::left, name, problem.empty() ? "The value would not be the same" : problem, true);
    finish(parts, head + std::string(parts.value));
  }

  bool clampedto(const tassignment& parts, const std::string& head, const std::string& name) {
    double number = 0;
    if (!strasdoubleex(plainvalue(parts.value), number)) return false;
    toutcome outcome;
    outcome.items = {
        {.kind = teffect::tkind::value, .option = definition().optionasobj(name), .value = number}};
    const std::vector<std::string> moved = clamp(outcome);
    const std::string text = head + valuetext(outcome.items.front().value);
    if (moved.empty() || !istaken(text)) return false;
    note(taction::clamped, name, moved.front(), false);
    finish(parts, text);
    return true;
  }

  // Writes the line with its comment, which goes above it if "#" begins no comment.
  void finish(const tassignment& parts, const std::string& text) {
    const std::string comment(parts.comment);
    const std::string whole = text + std::string(parts.gap) + comment;
    const bool isbehind = comment.empty() || iscommentmark('#');
    const std::string_view lineend = fend.ends_with('\n') ? fend : ffile.lineend();
    const std::string result =
        isbehind ? whole : "* " + std::string(trim(comment.substr(1))) + std::string(lineend) + text;
    if (result + std::string(fend) == fwhole) return ffile.keep(fwhole);
    write(result);
  }

  ttrial& ftrial;
  const bool fclamps;
  tmigratedfile& ffile;
  const tnearnames fnames;
  std::string fsection;
  std::string_view fwhole, fend;  // the line, and its line end
  std::int32_t fline = 0;
};

}  // namespace

bool importassignments(const std::string& name, tdefinitions& definitions, bool clamps,
                       std::deque<tmigratedfile>& files) {
  auto contents = contentsof(name);
  if (!contents) {
    std::cerr << printable(name) << ": error: cannot read the file\n";
    return false;
  }
  tmigratedfile& file = files.emplace_back();
  file.name = file.root = name;
  file.before = std::move(*contents);
  file.isread = file.isnamed = true;
  timport(definitions.newtrial(), clamps, file).run();
  return true;
}

}  // namespace tool
