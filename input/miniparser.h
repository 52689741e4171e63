// The scanner that both readers use. It reads one source (a file, a short string or a zero-terminated text)
// line by line, keeps a current character, and reads tokens. The grammars are left to the readers.
//
// Texts that it returns are views of the current line, valid until the next line is read. Of a text with more
// than 255 characters, the first 254 and the last one are kept.
#pragma once

#include <array>
#include <cassert>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

#include "base/strutilx.h"
#include "base/vksobj.h"
#include "input/blockscan.h"
#include "input/linereader.h"
#include "options/linesource.h"
#include "options/messages.h"

namespace optcore {

class tminiparser final : public tlinesource {
 public:
  // The current character at the end of a line, and at the end of the input.
  static constexpr char endofline = '\n';
  static constexpr char endofinput = '\x1a';

  // `messages` receives the lines while its echo switch is on; it must outlive the scanner. The characters of
  // `commentset` start a comment that ends with the line.
  tminiparser(tmessagelist& messages, const tcharset& commentset);

  // ---- sources: exactly one of these functions is called, once; then reading begins with nextline
  // Returns 0 or the system's error code. `waiting` must outlive the scanner.
  std::int32_t fileopen(std::string_view filename, twaiting& waiting);
  // For a file that is not to be read: does not open it. Returns the error code that the system has for its
  // name, or 0.
  std::int32_t filenamed(std::string_view filename);
  // Copy the text, which is the only line of the source, and echo it. readfromstr uses at most 255
  // characters.
  void readfromstr(std::string_view text);
  void readfrompchar(const char* text);

  // ---- lines and characters
  // Moves to the next line and makes its first character current. Returns false at the end of the input. In a
  // file, empty lines and lines whose first character is "*" are skipped. A text in memory has one line, or
  // none if it is empty.
  bool nextline() { return fkind == tsourcekind::file ? nextfileline() : nexttextline(); }
  // Makes the next character current. The last character of a line is followed by endofline. In a file,
  // endofline is followed by the first character of the next line; otherwise by endofinput, which stays
  // current.
  void nextch();
  char ch() const noexcept { return *fposition; }
  bool atlineend() const noexcept { return is(ch(), lineend); }
  void skiptolineend() {
    if (!atlineend()) fposition = endofrest();
  }

  // ---- tokens; a bool result says whether something was read
  // Skips blanks, tabs and a comment. Returns false at the end of the line.
  bool skipbl() {
    if (is(ch(), blank)) ++fposition;  // usually there is exactly one
    if (is(ch(), blank | comment)) skipblanksandcomment();
    return !atlineend();
  }
  // An identifier: letter { letter | digit | "_" }; for nextidentx without "_". Blanks before it are not
  // skipped.
  bool nextident(std::string_view& text) {
    text = is(ch(), letter) ? taken(identifierend(fposition)) : std::string_view();
    return !text.empty();
  }
  bool nextidentx(std::string_view& text) {
    text = is(ch(), letter) ? collect(letter | digit) : std::string_view();
    return !text.empty();
  }
  // { "-" | "/" } identifier; `dashes` is the number of signs.
  bool nextkey(std::string_view& text, std::int32_t& dashes) {
    dashes = 0;
    for (; ch() == '-' || ch() == '/'; ++fposition) ++dashes;
    return nextident(text);
  }
  // The text up to a blank, tab or comma, or a text in double quotes. A comma is not skipped: directly before
  // one, the token is empty and the result true.
  bool nexttoken(std::string_view& text);
  // A token as a number. The result is false without a token, which leaves the number unchanged, and for a
  // token that is not a number, which sets it to 0.
  bool nextinteger(std::int32_t& number);
  bool nextdouble(double& number);
  // An identifier, "*", or a text in single or double quotes, which are kept.
  bool nextindex(shortstring& text);
  // Skips an optional "=" or ":=". Returns false if nothing follows on the line, and at a ":" without "=".
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
  // Skips blanks and then the character, or one of the set, if it comes next. Returns whether it does.
  bool skiptochar(char character);
  bool skiptochars(const tcharset& set, char& found);
  // Everything up to the end of the line, without blanks and tabs at either end.
  void restofline(std::string_view& text);
  // Everything up to the end of the line or an end-of-line comment; nothing is skipped or trimmed.
  std::string_view untilcomment() {
    return fhascomments ? collectuntil(lineend | comment)
                        : taken(findanyof(fposition, endofline, endofinput));
  }
  // The same for a text after a double quote, which is the current character and is skipped. A comment begins
  // only after an odd number of further double quotes.
  std::string_view untilcommentafterquote();

  // ---- the interface of a line source
  std::int32_t linenr() const override { return flinenr; }
  tsourcekind sourcekind() const override { return fkind; }
  std::string_view sourcename() const override { return fsourcename.view(); }
  std::string_view linetext() const override {
    return fposition == &fnothing ? std::string_view() : std::string_view(flinebegin, flineend);
  }
  // The system's error code if reading failed in the middle of a file, otherwise 0.
  std::int32_t readerror() const noexcept { return ffile.readerror(); }
  // What the system says about the file that was opened, and how much of it was read.
  const tfilestatus& filestatus() const noexcept { return ffile.status(); }
  std::int64_t bytesread() const noexcept { return ffile.bytesread(); }
  // The length of a text in memory.
  std::size_t textlength() const noexcept { return ftextlength; }

 private:
  // The classes of characters, as bits: one test covers several classes.
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
  std::string_view setfile(std::string_view filename);
  void setsource(tsourcekind kind, std::string_view name, std::string_view text);
  bool nextfileline();
  bool nexttextline();
  void endinput() noexcept;

  // Takes the text from the current character up to `end`, which becomes the current character. A longer text
  // is shortened to 255 characters in place.
  std::string_view taken(char* end) {
    assert(end == fposition || (end > fposition && end <= flineend));
    constexpr std::size_t longest = shortstring::capacity;
    char* const begin = std::exchange(fposition, end);
    const auto length = static_cast<std::size_t>(end - begin);
    if (length <= longest) return {begin, length};
    tellshortened(length);
    begin[longest - 1] = begin[length - 1];
    return {begin, longest};
  }
  void tellshortened(std::size_t length) {
    if (tstoreobserver* observer = fmessages.observer()) observer->shortened(length);
  }
  // Takes characters as long as they are of the classes. The end of the line must not be one of the classes.
  std::string_view collect(unsigned classes) {
    char* end = fposition;
    while (is(*end, classes)) ++end;
    return taken(end);
  }
  // Takes characters as long as they are not of the classes. The end of the line must be one of the classes.
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
  char fnothing = endofinput;   // the current character when there is no line
  char* fposition = &fnothing;  // the current character
  char* flinebegin = nullptr;
  char* flineend = nullptr;  // the endofline at the end of the line, which stops the loops
  std::int32_t flinenr = 0;
  tsourcekind fkind = tsourcekind::file;
  tmessagelist& fmessages;
  tclasses fclasses;
  bool fhascomments;
  heapstring fsourcename;
};

}  // namespace optcore
