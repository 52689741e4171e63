// The scanner: sources, lines, echo and tokens.
#include "input/miniparser.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include "base/numtext.h"

namespace optcore {

consteval tminiparser::tclasses tminiparser::classesofcharacters() {
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

tminiparser::tminiparser(tmessagelist& messages, const tcharset& commentset)
    : fmessages(messages), fhascomments(commentset.any()) {
  static constexpr tclasses classes = classesofcharacters();
  fclasses = classes;
  for (std::size_t code = 0; fhascomments && code < commentset.size(); ++code)
    if (commentset[code]) fclasses[code] |= comment;
}

// ---- sources

std::int32_t tminiparser::fileopen(std::string_view filename, twaiting& waiting) {
  return ffile.open(setfile(filename), waiting);
}

std::int32_t tminiparser::filenamed(std::string_view filename) {
  return tlinereader::openerror(setfile(filename));
}

// Returns the path under which the file is opened.
std::string_view tminiparser::setfile(std::string_view filename) {
  assert(flinenr == 0 && flineend == nullptr);  // a scanner reads one source
  strassign(fsourcename, filename);
  fkind = tsourcekind::file;
  tstoreobserver* const observer = fmessages.observer();
  return observer == nullptr ? filename : observer->pathtoopen(filename);
}

void tminiparser::readfromstr(std::string_view text) {
  setsource(tsourcekind::string, "string", text.substr(0, shortstring::capacity));
}

void tminiparser::readfrompchar(const char* text) {
  setsource(tsourcekind::pchar, "pchar", text == nullptr ? std::string_view() : std::string_view(text));
}

void tminiparser::setsource(tsourcekind kind, std::string_view name, std::string_view text) {
  assert(flinenr == 0 && flineend == nullptr);  // a scanner reads one source
  strassign(fsourcename, name);
  ftext = std::make_unique_for_overwrite<char[]>(text.size() + 1 + blockpadding);
  std::copy(text.begin(), text.end(), ftext.get());
  std::memset(ftext.get() + text.size(), endofline, 1 + blockpadding);
  ftextlength = text.size();
  fkind = kind;
  if (fmessages.echo()) flushecho(text);
}

// ---- lines and characters

bool tminiparser::nextfileline() {
  for (;;) {
    const tlinereader::tline line = ffile.next();
    if (line.text == nullptr) {
      endinput();
      return false;
    }
    ++flinenr;  // cannot overflow: tlinereader limits the size of a file
    if (fmessages.echo()) flushecho({line.text, line.length});
    if (line.length == 0 || line.text[0] == '*') continue;
    fposition = flinebegin = line.text;
    flineend = line.text + line.length;
    *flineend = endofline;
    return true;
  }
}

bool tminiparser::nexttextline() {
  if (flineend != nullptr) {
    endinput();
    return false;
  }
  fposition = flinebegin = ftext.get();
  flineend = fposition + ftextlength;
  return ftextlength != 0;
}

void tminiparser::endinput() noexcept { fposition = &fnothing; }

void tminiparser::nextch() {
  if (ch() == endofinput) return;
  if (fposition < flineend)
    ++fposition;
  else if (fkind == tsourcekind::file)
    nextfileline();
  else
    endinput();
}

// The end of the line, or the first endofline or endofinput character in its text, which ends it early. Such
// characters are rare, so memchr looks for each separately.
char* tminiparser::endofrest() const noexcept {
  char* end = flineend;
  const auto endat = [&](char character) {
    void* found = std::memchr(fposition, character, static_cast<std::size_t>(end - fposition));
    if (found != nullptr) end = static_cast<char*>(found);
  };
  if (fkind != tsourcekind::file) endat(endofline);
  endat(endofinput);
  return end;
}

// ---- echo

void tminiparser::flushecho(std::string_view line) {
  constexpr std::size_t width = 130;
  constexpr char broken = static_cast<char>(187);  // marks where a line is split; replaces the leading blank
  if (line.empty()) {
    echo({});
    return;
  }
  if (line.size() <= width) {
    echo(concat(" ", line));
    return;
  }
  for (std::size_t begin = 0; begin < line.size(); begin += width) {
    shortstring piece;
    piece.append(1, broken).append(line.substr(begin, width));
    // there is no mark if only one character follows
    if (begin + width + 1 < line.size()) piece.append(1, broken);
    echo(piece);
  }
}

// ---- tokens

// Takes characters as long as `belongs` returns true for them, up to the end of the line.
template <class tbelongs>
std::string_view tminiparser::collectwhile(tbelongs belongs) {
  if (atlineend()) return {};
  char* end = fposition;
  while (!is(*end, lineend) && belongs(*end)) ++end;
  return taken(end);
}

void tminiparser::skipblanksandcomment() {
  collect(blank);
  if (is(ch(), comment)) skiptolineend();
}

bool tminiparser::nexttoken(std::string_view& text) {
  text = {};
  if (!skipbl()) return false;
  if (ch() == '"') return nextquotedtoken(text);
  text = taken(findanyof(fposition, endofline, endofinput, ' ', '\t', ','));
  return true;
}

// Reads a token in double quotes. It ends at the end of the line, or at a comma, blank or tab that follows a
// double quote, if the number of double quotes since the opening one is odd. Other double quotes are part of
// the text. Returns false if the last character is not a double quote.
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

// The fast path for most numbers, tokens of at most nine digits. For other tokens it returns false and reads
// nothing.
inline bool tminiparser::shortinteger(std::int32_t& number) noexcept {
  constexpr std::ptrdiff_t longest = 9;  // cannot overflow
  const bool negative = ch() == '-';
  char* const first = fposition + (negative ? 1 : 0);
  char* end = first;
  std::uint32_t value = 0;
  for (; is(*end, digit); ++end) value = 10 * value + static_cast<std::uint32_t>(*end - '0');
  if (end == first || end - first > longest || !is(*end, lineend | blank | comma)) return false;
  fposition = end;
  number = static_cast<std::int32_t>(negative ? -value : value);
  return true;
}

bool tminiparser::nextinteger(std::int32_t& number) {
  if (is(ch(), blank)) ++fposition;  // usually there is exactly one
  return shortinteger(number) || longinteger(number);
}

bool tminiparser::longinteger(std::int32_t& number) {
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
  if (is(ch(), letter)) {
    std::string_view identifier;
    nextident(identifier);
    text.assign(identifier);
    return true;
  }
  const char first = ch();
  if (first != '*' && first != '\'' && first != '"') return false;
  nextch();
  if (first == '*') {
    text.assign("*");
    return true;
  }
  std::string_view inside = collectwhile([first](char character) { return character != first; });
  if (ch() == first) nextch();
  inside = inside.substr(0, inside.find_last_not_of(' ') + 1);
  text.append(1, first).append(inside).append(1, first);
  return true;
}

bool tminiparser::skiptochar(char character) {
  skipbl();
  if (ch() != character) return false;
  nextch();
  return true;
}

bool tminiparser::skiptochars(const tcharset& set, char& found) {
  skipbl();
  found = ch();
  if (!inset(set, ch())) return false;
  nextch();
  return true;
}

void tminiparser::restofline(std::string_view& text) {
  text = skipbl() ? trimright(taken(endofrest())) : std::string_view();
}

std::string_view tminiparser::untilcommentafterquote() {
  nextch();
  bool odd = false;
  return collectwhile([&](char character) {
    if (odd && is(character, comment)) return false;
    if (character == '"') odd = !odd;
    return true;
  });
}

}  // namespace optcore
