// The text scanner: sources, lines, echo and tokens.
#include "input/miniparser.h"

#include <algorithm>
#include <cstring>

#include "base/numtext.h"

namespace wexcorin {

constexpr tminiparser::tclasses tminiparser::classesofcharacters() {
  tclasses classes{};
  for (unsigned char code = 'A'; code <= 'Z'; ++code) classes[code] = letter;
  for (unsigned char code = 'a'; code <= 'z'; ++code) classes[code] = letter;
  for (unsigned char code = '0'; code <= '9'; ++code) classes[code] = digit;
  classes['_'] = underscore;
  classes[' '] = classes['\t'] = blank;
  classes[','] = comma;
  classes[endofline] = classes[endofinput] = lineend;
  return classes;
}

tminiparser::tminiparser(txstringlist<tmsgkind>& echolist, bool echo, const tcharset& commentset)
    : fechoflag(echo), fecholist(echolist) {
  static constexpr tclasses classes = classesofcharacters();
  fclasses = classes;
  for (std::size_t code = 0; commentset.any() && code < commentset.size(); ++code)
    if (commentset[code]) fclasses[code] |= comment;
}

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
  ftext[text.size()] = endofline;
  ftextlength = text.size();
  fmode = mode;
  flinenr = 0;
  if (fechoflag) flushecho(text);
}

// ---- lines and characters

bool tminiparser::nextfileline() {
  for (;;) {
    char* line = nullptr;
    std::size_t length = 0;
    if (!ffile.next(line, length)) {
      fch = endofinput;
      return false;
    }
    if (flinenr < maxint) ++flinenr;
    if (fechoflag) flushecho({line, length});
    if (length == 0 || line[0] == '*') continue;
    flineend = line + length;
    *flineend = endofline;
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

// The end of the line, or the character in it that ends it before. Such a character is rare: it is looked for
// by itself.
char* tminiparser::endofrest() const noexcept {
  const auto length = static_cast<std::size_t>(flineend - fposition);
  void* end = std::memchr(fposition, endofline, length);
  const std::size_t before =
      end == nullptr ? length : static_cast<std::size_t>(static_cast<char*>(end) - fposition);
  if (void* input = std::memchr(fposition, endofinput, before)) end = input;
  return end == nullptr ? flineend : static_cast<char*>(end);
}

void tminiparser::skiptolineend() {
  if (!atlineend()) moveto(endofrest());
}

// ---- echo

void tminiparser::flushecho(std::string_view line) {
  constexpr std::size_t width = 130;
  constexpr char broken = static_cast<char>(187);  // in place of the leading blank where a line is cut
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

// The text between the two, which is passed: the characters behind it come next. It is cut in place to 255.
std::string_view tminiparser::taken(char* begin, char* end) noexcept {
  constexpr std::size_t longest = shortstring::capacity;
  moveto(end);
  const auto length = static_cast<std::size_t>(end - begin);
  if (length <= longest) return {begin, length};
  begin[longest - 1] = begin[length - 1];
  return {begin, longest};
}

// Takes the characters of the classes, from the current one on; of the end of a line there is none.
std::string_view tminiparser::collect(unsigned classes) {
  if (atlineend()) return {};
  char* end = fposition;
  while (is(*end, classes)) ++end;
  return taken(fposition, end);
}

// Takes the characters that are not of the classes, among which the end of the line must be.
std::string_view tminiparser::collectuntil(unsigned classes) {
  if (atlineend()) return {};
  char* end = fposition;
  while (!is(*end, classes)) ++end;
  return taken(fposition, end);
}

// Takes the characters that belong by more than their class, up to the end of the line.
template <class tbelongs>
std::string_view tminiparser::collectwhile(tbelongs belongs) {
  if (atlineend()) return {};
  char* end = fposition;
  while (!is(*end, lineend) && belongs(*end)) ++end;
  return taken(fposition, end);
}

void tminiparser::skipblanksandcomment() {
  collect(blank);
  if (is(fch, comment)) skiptolineend();
}

bool tminiparser::nextident(std::string_view& text) {
  text = is(fch, letter) ? collect(letter | digit | underscore) : std::string_view();
  return !text.empty();
}

bool tminiparser::nextidentx(std::string_view& text) {
  text = is(fch, letter) ? collect(letter | digit) : std::string_view();
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
  text = collectuntil(lineend | blank | comma);
  return true;
}

// The token ends at a comma, blank or tab that follows a double quote, if the number of double quotes so far
// is odd: a double quote that no separator follows stands for itself.
bool tminiparser::nextquotedtoken(std::string_view& text) {
  nextch();
  bool odd = false;
  bool afterquote = false;
  text = collectwhile([&](char character) {
    if (afterquote && odd && is(character, blank | comma)) return false;
    afterquote = character == '"';
    if (afterquote) odd = !odd;
    return true;
  });
  if (text.empty() || text.back() != '"') return false;
  text.remove_suffix(1);
  return true;
}

// Most numbers are a token of a few digits, read in one go. Nothing is passed when this is none.
bool tminiparser::shortinteger(std::int32_t& number) noexcept {
  constexpr std::ptrdiff_t longest = 9;  // cannot overflow
  const bool negative = fch == '-';
  char* first = negative ? fposition + 1 : fposition;
  char* end = first;
  std::int32_t value = 0;
  for (; is(*end, digit) && end - first < longest; ++end) value = 10 * value + (*end - '0');
  if (end == first || !is(*end, lineend | blank | comma)) return false;
  moveto(end);
  number = negative ? -value : value;
  return true;
}

bool tminiparser::nextinteger(std::int32_t& number) {
  if (!skipbl()) return false;
  if (shortinteger(number)) return true;
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
  if (is(fch, letter)) {
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
  std::string_view inside = collectwhile([first](char character) { return character != first; });
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
  if (fposition[1] != '=') return false;
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
  text = skipbl() ? trimright(taken(fposition, endofrest())) : std::string_view();
}

std::string_view tminiparser::untilcomment() { return collectuntil(lineend | comment); }

std::string_view tminiparser::untilcommentafterquote() {
  nextch();
  bool odd = false;
  return collectwhile([&](char character) {
    if (odd && is(character, comment)) return false;
    if (character == '"') odd = !odd;
    return true;
  });
}

}  // namespace wexcorin
