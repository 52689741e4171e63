// Walks over a line in the same steps as the library's reader of definitions.
#include "tools/reading/definitionspans.h"

#include <algorithm>

#include "base/textcase.h"

namespace tool {

using namespace optcore;

namespace {

using tkind = tdefinitionspans::tkind;

bool isblank(char character) { return character == ' ' || character == '\t'; }
bool isnamecharacter(char character) { return isletter(character) || isdigit(character) || character == '_'; }

// A comma ends the tokens: it is never skipped.
class tscanner {
 public:
  explicit tscanner(std::string_view line) : fline(line.substr(0, line.find('\x1a'))) {}

  tspan name() {
    const std::size_t begin = fat;
    if (fline.starts_with('.')) ++fat;
    const std::size_t first = fat;
    if (fat < fline.size() && isletter(fline[fat]))
      while (fat < fline.size() && isnamecharacter(fline[fat])) ++fat;
    return fat == first ? tspan{begin, begin} : tspan{begin, fat};
  }

  tspan token() {
    skipblanks();
    const std::size_t begin = fat;
    if (fat < fline.size() && fline[fat] == '"')
      toendofquoted();
    else
      while (fat < fline.size() && !isblank(fline[fat]) && fline[fat] != ',') ++fat;
    return {begin, fat};
  }

  tspan rest() {
    skipblanks();
    std::size_t end = fline.size();
    while (end > fat && isblank(fline[end - 1])) --end;
    return {fat, end};
  }

  void addfields(const std::vector<tfield>& fields, std::vector<tfieldspan>& spans) {
    spans.reserve(fields.size());
    for (const tfield& field : fields) spans.push_back({&field, token()});
  }

 private:
  void skipblanks() {
    while (fat < fline.size() && isblank(fline[fat])) ++fat;
  }
  // A double quote ends a text only if their number is even then, and if something follows that separates.
  void toendofquoted() {
    bool odd = false, afterquote = false;
    for (++fat; fat < fline.size(); ++fat) {
      if (afterquote && odd && (isblank(fline[fat]) || fline[fat] == ',')) return;
      afterquote = fline[fat] == '"';
      odd ^= afterquote;
    }
  }

  std::string_view fline;
  std::size_t fat = 0;
};

}  // namespace

tspan withoutquotes(std::string_view line, tspan token) {
  const std::string_view word = token.of(line);
  const bool isquoted = word.size() > 1 && word.starts_with('"') && word.ends_with('"');
  return isquoted ? tspan{token.begin + 1, token.end - 1} : token;
}

const tfieldspan* tdefinitionspans::fieldat(std::size_t column) const {
  const bool isbefore = kind == tkind::entry && (name.empty() || column <= name.end || type.empty() ||
                                                 column <= (ismodified ? modifier.end : type.end));
  if (isbefore) return nullptr;
  for (const tfieldspan& each : fields)
    if (each.span.empty() || column <= each.span.end) return &each;
  return nullptr;
}

tdefinitionspans entryspans(std::string_view line) {
  tscanner scanner(line);
  tdefinitionspans result;
  result.kind = tkind::entry;
  result.name = scanner.name();
  const tspan token = scanner.token();
  const std::size_t period = withoutquotes(line, token).of(line).rfind('.');
  result.type = withoutquotes(line, token);
  result.ismodified = period != std::string_view::npos;
  if (result.ismodified) {
    result.modifier = {result.type.begin + period + 1, result.type.end};
    result.type.end = result.type.begin + period;
  }
  result.keyword = keywordof(result.type.of(line));
  scanner.addfields(fieldsbetween(result.keyword), result.fields);
  if (result.keyword == "synonym") result.references.push_back(withoutquotes(line, scanner.token()));
  if (!result.fields.empty() || result.keyword == "eolcomm") result.text = scanner.rest();
  return result;
}

tdefinitionspans valuespans(std::string_view line, std::string_view keyword) {
  tscanner scanner(line);
  tdefinitionspans result;
  result.kind = tkind::value;
  scanner.addfields(fieldsofvalue(keyword), result.fields);
  result.text = scanner.rest();
  return result;
}

tdefinitionspans namespans(std::string_view line, std::string_view keyword) {
  const bool several = struequal(keyword, "multilist"), ismember = several || struequal(keyword, "macro");
  tscanner scanner(line);
  tdefinitionspans result;
  result.kind = ismember ? tkind::members : tkind::mark;
  do {
    const tspan name = withoutquotes(line, scanner.token());
    if (name.empty()) break;
    result.references.push_back(name);
  } while (several);
  if (!ismember) result.text = scanner.rest();
  return result;
}

tdefinitionspans tdefinitionwalk::ended() {
  fended = true;
  tdefinitionspans result;
  result.kind = tkind::unread;
  return result;
}

tdefinitionspans tdefinitionwalk::next(std::string_view line) {
  if (line.empty() || line.front() == '*') return {};
  if (fended) return ended();
  if (line.front() == ' ') {
    tdefinitionspans result = fmaycontinue ? continuation(line) : ended();
    result.keyword = fkeyword;
    return result;
  }
  tdefinitionspans result = entryspans(line);
  if (result.name.empty()) return ended();
  fkeyword = result.keyword;
  fmaycontinue = true;
  return result;
}

tdefinitionspans tdefinitionwalk::continuation(std::string_view line) {
  const auto is = [this](std::string_view keyword) { return fkeyword == keyword; };
  if (is("integer") || is("double") || is("boolean")) {
    tdefinitionspans result;
    result.kind = tkind::help;
    result.text = tscanner(line).rest();
    return result;
  }
  if (is("enumint")) return valuespans(line, fkeyword);
  if (is("multilist")) return namespans(line, fkeyword);
  const bool isblankline = withoutquotes(line, tscanner(line).token()).empty();
  if (is("enumstr")) return isblankline ? ended() : valuespans(line, fkeyword);
  if (is("macro")) return isblankline ? ended() : namespans(line, fkeyword);
  if (!is("deprecated") && !is("obsolete")) return ended();
  if (!isblankline) return namespans(line, fkeyword);
  fmaycontinue = false;
  return {};
}

}  // namespace tool
