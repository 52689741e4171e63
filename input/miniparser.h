// The text scanner under both readers. It reads one source (a file, a short string or a zero-terminated text)
// line by line, keeps a current character, and offers the small readers of tokens. It knows characters, no
// grammar.
//
// Texts that it hands out are views of the current line, valid until the next line is read. A text of more
// than 255 characters keeps its first 254 and its last one: once 255 are held, every further one takes the
// last place.
#pragma once

#include <array>
#include <cassert>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

#include "base/strutilx.h"
#include "base/vksobj.h"
#include "input/linereader.h"
#include "options/linesource.h"
#include "options/messages.h"

namespace optcore {

class tminiparser final : public tlinesource {
 public:
  // What the current character is where there is none: the end of the line, and the end of the input.
  static constexpr char endofline = '\n';
  static constexpr char endofinput = '\x1a';

  // `messages` receives the lines while the echo switch is on; it is not owned. The characters of
  // `commentset` start a comment that ends with the line.
  tminiparser(tmessagelist& messages, bool echo, const tcharset& commentset);

  // ---- sources: one of these is called once
  // Returns 0 or the system's code. Reading begins with nextline.
  std::int32_t fileopen(std::string_view filename);
  // The text as the one line of the source. Of a short string 255 characters count. Both echo the line.
  void readfromstr(std::string_view text);
  void readfrompchar(const char* text);

  // ---- lines and characters
  // Moves to the next line and makes its first character current. In a file, empty lines and lines whose
  // first character is "*" are passed over; the one line of a text in memory is there unless it is empty.
  bool nextline() { return fkind == tsourcekind::file ? nextfileline() : nexttextline(); }
  // The next character: after the last one of a line endofline, and after that, in a file, the first one of
  // the next line, else endofinput, which stays.
  void nextch();
  char ch() const noexcept { return *fposition; }
  bool atlineend() const noexcept { return is(ch(), lineend); }
  void skiptolineend() {
    if (!atlineend()) fposition = endofrest();
  }

  // ---- tokens, in the order of their complexity; the results say whether something was read
  // Skips blanks, tabs and a comment. False at the end of the line.
  bool skipbl() {
    if (is(ch(), blank)) ++fposition;  // mostly there is one
    if (is(ch(), blank | comment)) skipblanksandcomment();
    return !atlineend();
  }
  // Letter { letter | digit | "_" }, or without the "_"; blanks are not skipped.
  bool nextident(std::string_view& text) {
    text = is(ch(), letter) ? collect(letter | digit | underscore) : std::string_view();
    return !text.empty();
  }
  bool nextidentx(std::string_view& text) {
    text = is(ch(), letter) ? collect(letter | digit) : std::string_view();
    return !text.empty();
  }
  // { "-" | "/" } identifier, with the number of signs.
  bool nextkey(std::string_view& text, std::int32_t& dashes) {
    dashes = 0;
    for (; ch() == '-' || ch() == '/'; ++fposition) ++dashes;
    return nextident(text);
  }
  // Up to a blank, tab or comma, or a text in double quotes. Empty and true before a comma, which stays.
  bool nexttoken(std::string_view& text);
  // A token as a number. Without a token the number stays as it was; a token that is none makes it 0.
  bool nextinteger(std::int32_t& number);
  bool nextdouble(double& number);
  // An identifier, "*", or a quoted text with its quotes.
  bool nextindex(shortstring& text);
  // An optional "=" or ":=". False when nothing follows it on the line, or at a ":" without "=".
  bool skipbecomes() {
    if (!skipbl()) return false;
    if (ch() == '=')
      ++fposition;
    else if (ch() != ':')
      return true;
    else if (fposition[1] == '=')
      fposition += 2;
    else
      return false;
    return skipbl();
  }
  // Skips the character, or one of the set, if it comes next after blanks.
  bool skiptochar(char character);
  bool skiptochars(const tcharset& set, char& found);
  // Everything up to the end of the line, without blanks and tabs at either end.
  void restofline(std::string_view& text);
  // Everything up to the end of the line or an end-of-line comment; nothing is skipped or trimmed.
  std::string_view untilcomment() { return collectuntil(lineend | comment); }
  // The same behind a double quote that is the current character: a comment begins only where an odd number
  // of further double quotes came before.
  std::string_view untilcommentafterquote();

  // ---- what the store asks
  std::int32_t linenr() const override { return flinenr; }
  tsourcekind sourcekind() const override { return fkind; }
  std::string_view sourcename() const override { return fsourcename.view(); }
  void setecho(bool echo) override { fechoflag = echo; }
  // The system's code of a read that failed in the middle of a file, else 0.
  std::int32_t readerror() const noexcept { return ffile.readerror(); }

 private:
  // What a character belongs to, as bits: one look tells whether it is one of several kinds.
  static constexpr std::uint8_t letter = 1, digit = 2, underscore = 4, blank = 8, comma = 16, lineend = 32;
  static constexpr std::uint8_t comment = 64;
  using tclasses = std::array<std::uint8_t, 256>;
  static consteval tclasses classesofcharacters();

  bool is(char character, unsigned classes) const noexcept {
    return (fclasses[static_cast<unsigned char>(character)] & classes) != 0;
  }

  void skipblanksandcomment();
  void flushecho(std::string_view line);
  void echo(std::string_view text) { fmessages.addecho(text, *this); }
  void setsource(tsourcekind kind, std::string_view name, std::string_view text);
  bool nextfileline();
  bool nexttextline();
  void endinput() noexcept;

  // The text from the current character up to another, which becomes the current one. It is cut in place to
  // 255 characters.
  std::string_view taken(char* end) noexcept {
    assert(end == fposition || (end > fposition && end <= flineend));
    constexpr std::size_t longest = shortstring::capacity;
    char* const begin = std::exchange(fposition, end);
    const auto length = static_cast<std::size_t>(end - begin);
    if (length <= longest) return {begin, length};
    begin[longest - 1] = begin[length - 1];
    return {begin, longest};
  }
  // Takes the characters of the classes, among which the end of the line is not.
  std::string_view collect(unsigned classes) {
    char* end = fposition;
    while (is(*end, classes)) ++end;
    return taken(end);
  }
  // Takes the characters that are not of the classes, among which the end of the line must be.
  std::string_view collectuntil(unsigned classes) {
    char* end = fposition;
    while (!is(*end, classes)) ++end;
    return taken(end);
  }
  template <class tbelongs>
  std::string_view collectwhile(tbelongs belongs);
  char* endofrest() const noexcept;
  bool nextquotedtoken(std::string_view& text);

  bool shortinteger(std::int32_t& number) noexcept;
  bool longinteger(std::int32_t& number);

  tlinereader ffile;
  std::unique_ptr<char[]> ftext;  // the line of a text in memory
  std::size_t ftextlength = 0;
  char fnothing = endofinput;   // the current character where there is no line
  char* fposition = &fnothing;  // of the current character in the line
  char* flineend = nullptr;     // where an endofline stands, so that no loop has to look for the end
  std::int32_t flinenr = 0;
  tsourcekind fkind = tsourcekind::file;
  bool fechoflag;
  tmessagelist& fmessages;
  tclasses fclasses;
  heapstring fsourcename;
};

}  // namespace optcore
