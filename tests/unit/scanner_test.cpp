// The text scanner: lines, characters, tokens and their limits. Echo is tested where its result can be
// fetched.
#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "base/numtext.h"
#include "input/miniparser.h"
#include "support/handle.h"

namespace wexcorin {
namespace {

// A scanner over the one line of a text, standing on its first character.
class tscanner {
 public:
  explicit tscanner(const std::string& text, std::string_view comments = {})
      : fscanner(fecho, false, set(comments)) {
    fscanner.readfrompchar(text.c_str());
    fscanner.nextline();
  }
  tminiparser* operator->() { return &fscanner; }
  // The rest of the line from the current character on; changes the state.
  std::string rest() {
    std::string text;
    for (; !fscanner.atlineend(); fscanner.nextch()) text += fscanner.ch();
    return text;
  }

 private:
  static tcharset set(std::string_view characters) {
    tcharset result;
    for (const char character : characters) result.set(static_cast<unsigned char>(character));
    return result;
  }
  txstringlist<tmsgkind> fecho;
  tminiparser fscanner;
};

std::string shown(bool good, std::string_view text, const std::string& rest) {
  return std::string(good ? "yes <" : "no <").append(text).append("> ").append(rest);
}

// The token readers, each by the letter that the rows name it with.
std::string read(tscanner& scanner, char reader) {
  std::string_view text;
  shortstring index;
  std::int32_t number = 99;
  double real = 99.0;
  char found = '?';
  bool good = true;
  switch (reader) {
    case 't': good = scanner->nexttoken(text); break;
    case 'i': good = scanner->nextident(text); break;
    case 'x': good = scanner->nextidentx(text); break;
    case 'r': scanner->restofline(text); break;
    case 'k':
      good = scanner->nextkey(text, number);
      return shown(good, text, std::to_string(number) + " " + scanner.rest());
    case 'e':
      good = scanner->nextindex(index);
      text = index;
      break;
    case 'b': good = scanner->skipbecomes(); break;
    case '$': good = scanner->skiptochar('$'); break;
    case 's':
      good = scanner->skiptochars(tcharset().set('(').set('['), found);
      return shown(good, {&found, 1}, scanner.rest());
    case 'n': good = scanner->nextinteger(number); return shown(good, std::to_string(number), scanner.rest());
    case 'd': good = scanner->nextdouble(real); return shown(good, dbltostr(real).view(), scanner.rest());
    default: ADD_FAILURE() << "no reader " << reader;
  }
  const std::string kept(text);
  return shown(good, kept, scanner.rest());
}

TEST(scanner, tokens) {
  struct {
    int where;
    char reader;
    const char* line;
    const char* result;  // what was answered, <the text>, and what is left of the line
  } const rows[] = {
      // up to a blank, tab or comma; the comma stays
      {__LINE__, 't', " abc,def", "yes <abc> ,def"},
      {__LINE__, 't', ",def", "yes <> ,def"},
      {__LINE__, 't', "ab\"c d", "yes <ab\"c>  d"},
      {__LINE__, 't', "  ", "no <> "},
      {__LINE__, 't', "ab\ncd", "yes <ab> "},
      {__LINE__, 't',
       "ab\x1a"
       "cd",
       "yes <ab> "},
      // in double quotes
      {__LINE__, 't', "\"a b\" c", "yes <a b>  c"},
      {__LINE__, 't', "\"a\"b\", c", "no <a\"b\", c> "},
      {__LINE__, 't', "\"a\"b\"\" c", "yes <a\"b\">  c"},
      {__LINE__, 't', "\"a, b", "no <a, b> "},
      // numbers
      {__LINE__, 'n', " 12 x", "yes <12>  x"},
      {__LINE__, 'n', "1.5 x", "no <0>  x"},
      {__LINE__, 'n', "  ", "no <99> "},
      {__LINE__, 'd', "1.5d1,", "yes <15> ,"},
      {__LINE__, 'd', "", "no <99> "},
      // identifiers and keys
      {__LINE__, 'i', "a_1-b", "yes <a_1> -b"},
      {__LINE__, 'i', "1a", "no <> 1a"},
      {__LINE__, 'x', "a1_b", "yes <a1> _b"},
      {__LINE__, 'k', "-/-key=1", "yes <key> 3 =1"},
      {__LINE__, 'k', "--1", "no <> 2 1"},
      // index words
      {__LINE__, 'e', " abc)", "yes <abc> )"},
      {__LINE__, 'e', "*,", "yes <*> ,"},
      {__LINE__, 'e', "'a \"b'  ", "yes <'a \"b'>   "},
      {__LINE__, 'e', "\"a b  \")", "yes <\"a b\"> )"},
      {__LINE__, 'e', "'ab", "yes <'ab'> "},
      // signs
      {__LINE__, 'b', "= 5", "yes <> 5"},
      {__LINE__, 'b', " := 5", "yes <> 5"},
      {__LINE__, 'b', ":5", "no <> :5"},
      {__LINE__, 'b', ": =5", "no <> : =5"},
      {__LINE__, 'b', "==5", "yes <> =5"},
      {__LINE__, '$', " $x", "yes <> x"},
      {__LINE__, '$', " x", "no <> x"},
      {__LINE__, 's', " [x", "yes <[> x"},
      {__LINE__, 's', "x", "no <x> x"},
      {__LINE__, 'r', " \tab c \t", "yes <ab c> "},
      // a comment ends the line
      {__LINE__, 't', "a#x", "yes <a#x> "},
      {__LINE__, 'b', "= #x", "no <> "},
  };
  for (const auto& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.where, row.line);
    tscanner scanner(row.line, "#");
    EXPECT_EQ(read(scanner, row.reader), row.result);
  }
}

TEST(scanner, collected_texts_keep_254_characters_and_the_last_one) {
  const std::string a254(254, 'a');
  const std::string line = a254 + "bcd";
  const std::string cut = a254 + "d";
  for (const char reader : {'t', 'i', 'x', 'r'}) {
    const testing::ScopedTrace trace(__FILE__, __LINE__, std::string(1, reader));
    tscanner scanner(line);
    EXPECT_EQ(read(scanner, reader), shown(true, cut, ""));
    tscanner whole(a254 + "b");
    EXPECT_EQ(read(whole, reader), shown(true, a254 + "b", ""));
  }
  tscanner quotedtext("\"" + line + "\" x");
  EXPECT_EQ(read(quotedtext, 't'), shown(true, a254, " x"));
  tscanner quotedindex("'" + line + "' x");
  EXPECT_EQ(read(quotedindex, 'e'), shown(true, "'" + a254, " x"));
}

TEST(scanner, the_next_character_runs_across_the_lines_of_a_file_only) {
  const testsupport::ttempdir directory;
  txstringlist<tmsgkind> echo;
  tminiparser file(echo, false, {});
  EXPECT_EQ(file.fileopen(directory.path(".")), EISDIR);
  EXPECT_EQ(file.fileopen(directory.path("none")), ENOENT);
  ASSERT_EQ(file.fileopen(directory.write("lines", "ab\n\n*comment\nc")), 0);
  std::string seen;
  for (file.nextline(); file.ch() != tminiparser::endofinput; file.nextch())
    seen += file.ch() == tminiparser::endofline ? std::string("|") : std::string(1, file.ch());
  EXPECT_EQ(seen, "ab|c|");
  EXPECT_EQ(file.linenr(), 4);
  tminiparser text(echo, false, {});
  text.readfromstr("a");
  EXPECT_EQ(text.ch(), tminiparser::endofinput);
  EXPECT_TRUE(text.nextline());
  text.nextch();
  EXPECT_EQ(text.ch(), tminiparser::endofline);
  for (int more = 0; more < 2; ++more) text.nextch();
  EXPECT_EQ(text.ch(), tminiparser::endofinput);
  EXPECT_FALSE(text.nextline());
  EXPECT_EQ(text.linenr(), 0);
}

// Lines of every length around the limits, each ended in every way, so that line ends fall on all sides of
// the blocks in which a file is read.
TEST(scanner, files_come_back_line_by_line_whatever_the_block_they_end_in) {
  const testsupport::ttempdir directory;
  for (const std::string end : {"\n", "\r\n"}) {
    std::string bytes;
    std::vector<std::string> lines;
    for (const std::size_t length : {1UL, 130UL, 1019UL, 1020UL, 1021UL, 5000UL, 65533UL, 65534UL, 65535UL,
                                     65536UL, 65537UL, 2UL, 200000UL, 131072UL, 3UL}) {
      for (std::size_t repeat = 0; repeat < 3; ++repeat) {
        const std::string line(length, static_cast<char>('a' + lines.size() % 26));
        bytes += line + end;
        lines.push_back(line.substr(0, 1020));
      }
    }
    bytes += "last\r";
    lines.emplace_back("last");
    txstringlist<tmsgkind> echo;
    tminiparser scanner(echo, false, {});
    ASSERT_EQ(scanner.fileopen(directory.write("lines", bytes)), 0);
    for (std::size_t i = 0; i < lines.size(); ++i) {
      ASSERT_TRUE(scanner.nextline());
      std::string line;
      for (; !scanner.atlineend(); scanner.nextch()) line += scanner.ch();
      ASSERT_EQ(line, lines[i]) << "line " << i + 1;
    }
    EXPECT_FALSE(scanner.nextline());
  }
}

}  // namespace
}  // namespace wexcorin
