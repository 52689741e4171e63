// The text scanner: sources, lines, echo and tokens.
#include "input/miniparser.h"

#include <algorithm>
#include <cstring>

#include "base/numtext.h"

namespace wexcorin {

namespace {

bool isblank(char character) { return character == ' ' || character == '\t'; }
bool isline(char character) {
  return character != tminiparser::endofline && character != tminiparser::endofinput;
}
bool isidentifier(char character) { return isletter(character) || isdigit(character) || character == '_'; }
bool isidentifierx(char character) { return isletter(character) || isdigit(character); }
bool istoken(char character) { return isline(character) && character != ',' && !isblank(character); }

}  // namespace

tminiparser::tminiparser(txstringlist<tmsgkind>& echolist, bool echo, const tcharset& commentset)
    : fechoflag(echo), fecholist(echolist), fcommentset(commentset) {}

// ---- sources

std::int32_t tminiparser::fileopen(std::string_view filename) {
  strassign(fsourcename, filename);
  fmode = tmode::file;
  fch = endofinput;
  flinenr = 0;
  return ffile.open(filename);
}

void tminiparser::readfromstr(std::string_view text) {
  setsource(tmode::shortstring, "string", text.substr(0, shortstring::capacity));
}

void tminiparser::readfrompchar(const char* text) {
  setsource(tmode::pchar, "pchar", text == nullptr ? std::string_view() : std::string_view(text));
}

void tminiparser::setsource(tmode mode, std::string_view name, std::string_view text) {
  strassign(fsourcename, name);
  ftext = std::make_unique_for_overwrite<char[]>(text.size() + 1);
  std::copy(text.begin(), text.end(), ftext.get());
  ftextlength = text.size();
  fmode = mode;
  flinenr = 0;
  flushecho(text);
}

// ---- lines and characters

void tminiparser::moveto(char* position) noexcept {
  fposition = position;
  fch = position < flineend ? *position : endofline;
}

bool tminiparser::nextfileline() {
  for (;;) {
    char* line = nullptr;
    std::size_t length = 0;
    if (!ffile.next(line, length)) {
      fch = endofinput;
      return false;
    }
    if (flinenr < maxint) ++flinenr;
    flushecho({line, length});
    if (length == 0 || line[0] == '*') continue;
    flineend = line + length;
    moveto(line);
    return true;
  }
}

bool tminiparser::nextline() {
  if (fmode == tmode::file) return nextfileline();
  if (fposition != nullptr) {
    fch = endofinput;
    return false;
  }
  flineend = ftext.get() + ftextlength;
  moveto(ftext.get());
  return ftextlength != 0;
}

void tminiparser::nextch() {
  if (fch == endofinput) return;
  if (fposition < flineend)
    moveto(fposition + 1);
  else if (fmode == tmode::file)
    nextfileline();
  else
    fch = endofinput;
}

void tminiparser::skiptolineend() { collect(isline); }

// ---- echo

void tminiparser::flushecho(std::string_view line) {
  constexpr std::size_t width = 130;
  constexpr char broken = static_cast<char>(187);  // in place of the leading blank where a line is cut
  if (!fechoflag) return;
  if (line.empty()) {
    fecholist.add({});
    return;
  }
  if (line.size() <= width) {
    fecholist.add(concat(" ", line));
    return;
  }
  for (std::size_t begin = 0; begin < line.size(); begin += width) {
    shortstring piece;
    piece.append(1, broken).append(line.substr(begin, width));
    // a single character that follows has no mark before it
    if (begin + width + 1 < line.size()) piece.append(1, broken);
    fecholist.add(piece);
  }
}

// ---- tokens

// The text of so many characters from `begin` on, all of them passed already, cut in place to 255.
std::string_view tminiparser::taken(char* begin, std::size_t length) noexcept {
  constexpr std::size_t longest = shortstring::capacity;
  if (length <= longest) return {begin, length};
  begin[longest - 1] = begin[length - 1];
  return {begin, longest};
}

// Takes the characters that belong, from the current one on.
template <class tbelongs>
std::string_view tminiparser::collect(tbelongs belongs) {
  if (atlineend()) return {};
  char* begin = fposition;
  char* end = begin;
  while (end < flineend && belongs(*end)) ++end;
  moveto(end);
  return taken(begin, static_cast<std::size_t>(end - begin));
}

bool tminiparser::skipbl() {
  collect(isblank);
  if (!atlineend() && inset(fcommentset, fch)) skiptolineend();
  return !atlineend();
}

bool tminiparser::nextident(std::string_view& text) {
  text = isletter(fch) ? collect(isidentifier) : std::string_view();
  return !text.empty();
}

bool tminiparser::nextidentx(std::string_view& text) {
  text = isletter(fch) ? collect(isidentifierx) : std::string_view();
  return !text.empty();
}

bool tminiparser::nextkey(std::string_view& text, std::int32_t& dashes) {
  dashes = 0;
  for (; fch == '-' || fch == '/'; nextch()) ++dashes;
  return nextident(text);
}

bool tminiparser::nexttoken(std::string_view& text) {
  text = {};
  if (!skipbl()) return false;
  if (fch == '"') return nextquotedtoken(text);
  text = collect(istoken);
  return true;
}

// The token ends at a comma, blank or tab that follows a double quote, if the number of double quotes so far
// is odd: a double quote that no separator follows stands for itself.
bool tminiparser::nextquotedtoken(std::string_view& text) {
  nextch();
  bool odd = false;
  bool afterquote = false;
  text = collect([&](char character) {
    if (!isline(character) || (afterquote && odd && !istoken(character))) return false;
    afterquote = character == '"';
    if (afterquote) odd = !odd;
    return true;
  });
  if (text.empty() || text.back() != '"') return false;
  text.remove_suffix(1);
  return true;
}

bool tminiparser::nextinteger(std::int32_t& number) {
  std::string_view text;
  return nexttoken(text) && strasintex(text, number);
}

bool tminiparser::nextdouble(double& number) {
  std::string_view text;
  return nexttoken(text) && strasdoubleex(text, number);
}

bool tminiparser::nextindex(shortstring& text) {
  text.clear();
  if (!skipbl()) return false;
  if (isletter(fch)) {
    std::string_view identifier;
    nextident(identifier);
    text.assign(identifier);
    return true;
  }
  const char first = fch;
  if (first != '*' && first != '\'' && first != '"') return false;
  nextch();
  if (first == '*') {
    text.assign("*");
    return true;
  }
  std::string_view inside =
      collect([first](char character) { return isline(character) && character != first; });
  if (fch == first) nextch();
  inside = inside.substr(0, inside.find_last_not_of(' ') + 1);
  text = concat(std::string_view(&first, 1), inside, std::string_view(&first, 1));
  return true;
}

bool tminiparser::skipbecomes() {
  if (!skipbl()) return false;
  if (fch == '=') {
    nextch();
    return skipbl();
  }
  if (fch != ':') return true;
  if (fposition + 1 >= flineend || fposition[1] != '=') return false;
  nextch();
  nextch();
  return skipbl();
}

bool tminiparser::skiptochar(char character) {
  skipbl();
  if (fch != character) return false;
  nextch();
  return true;
}

bool tminiparser::skiptochars(const tcharset& set, char& found) {
  skipbl();
  found = fch;
  if (!inset(set, fch)) return false;
  nextch();
  return true;
}

void tminiparser::restofline(std::string_view& text) {
  text = skipbl() ? trimright(collect(isline)) : std::string_view();
}

std::string_view tminiparser::untilcomment() {
  return collect([this](char character) { return isline(character) && !inset(fcommentset, character); });
}

std::string_view tminiparser::untilcommentafterquote() {
  nextch();
  bool odd = false;
  return collect([&](char character) {
    if (!isline(character) || (odd && inset(fcommentset, character))) return false;
    if (character == '"') odd = !odd;
    return true;
  });
}

}  // namespace wexcorin
