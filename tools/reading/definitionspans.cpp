// Walks over a line in the same steps as the library's reader of definitions.
#include "tools/reading/definitionspans.h"

#include <algorithm>

#include "base/textcase.h"
#include "tools/reading/characters.h"

namespace tool {

using namespace optcore;

namespace {

using tspankind = tdefinitionspans::tkind;

// A comma ends the tokens: it is never skipped. Editors have definitions with very many lines walked over at
// each key, so the loops use pointers.
class tscanner {
 public:
  explicit tscanner(std::string_view line)
      : fbegin(line.data()), fat(fbegin), fend(fbegin + std::min(line.find('\x1a'), line.size())) {}

  tspan name() {
    if (fat != fend && *fat == '.') ++fat;
    const char* const first = fat;
    if (fat != fend && isletter(*fat))
      while (fat != fend && isnamecharacter(*fat)) ++fat;
    return fat == first ? tspan{} : spanfrom(fbegin);
  }

  tspan token() {
    skipblanks();
    const char* const begin = fat;
    if (fat != fend && *fat == '"')
      toendofquoted();
    else
      while (fat != fend && !isblank(*fat) && *fat != ',') ++fat;
    return spanfrom(begin);
  }

  tspan rest() {
    skipblanks();
    const char* const begin = fat;
    for (fat = fend; fat != begin && isblank(fat[-1]);) --fat;
    return spanfrom(begin);
  }

  void addfields(const std::vector<tfield>& fields, std::vector<tfieldspan>& spans) {
    spans.reserve(fields.size());
    for (const tfield& field : fields) spans.push_back({&field, token()});
  }

 private:
  tspan spanfrom(const char* begin) const {
    return {static_cast<std::size_t>(begin - fbegin), static_cast<std::size_t>(fat - fbegin)};
  }
  void skipblanks() {
    while (fat != fend && isblank(*fat)) ++fat;
  }
  // A double quote ends a text only if their number is even then, and if something follows that separates.
  void toendofquoted() {
    bool odd = false, afterquote = false;
    for (++fat; fat != fend; ++fat) {
      if (afterquote && odd && (isblank(*fat) || *fat == ',')) return;
      afterquote = *fat == '"';
      odd ^= afterquote;
    }
  }

  const char* fbegin;
  const char* fat;
  const char* fend;
};

}  // namespace

tspan withoutquotes(std::string_view line, tspan token) {
  const std::string_view word = token.of(line);
  const bool isquoted = word.size() > 1 && word.starts_with('"') && word.ends_with('"');
  return isquoted ? tspan{token.begin + 1, token.end - 1} : token;
}

const tfieldspan* tdefinitionspans::fieldat(std::size_t column) const {
  const bool isbefore = kind == tspankind::entry && (name.empty() || column <= name.end || type.empty() ||
                                                     column <= (ismodified ? modifier.end : type.end));
  if (isbefore) return nullptr;
  for (const tfieldspan& each : fields)
    if (each.span.empty() || column <= each.span.end) return &each;
  return nullptr;
}

tdefinitionspans entryspans(std::string_view line) {
  tscanner scanner(line);
  tdefinitionspans result;
  result.kind = tspankind::entry;
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
  if (!result.fields.empty() || result.keyword == "eolcomm" || result.keyword == "synonym")
    result.text = scanner.rest();
  return result;
}

tdefinitionspans valuespans(std::string_view line, std::string_view keyword) {
  tscanner scanner(line);
  tdefinitionspans result;
  result.kind = tspankind::value;
  scanner.addfields(fieldsofvalue(keyword), result.fields);
  result.text = scanner.rest();
  return result;
}

tdefinitionspans namespans(std::string_view line, std::string_view keyword) {
  const bool several = struequal(keyword, "multilist"), ismember = several || struequal(keyword, "macro");
  tscanner scanner(line);
  tdefinitionspans result;
  result.kind = ismember ? tspankind::members : tspankind::mark;
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
  result.kind = tspankind::unread;
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
    result.kind = tspankind::help;
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
