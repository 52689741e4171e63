// The text scanner: lines and characters. Tokens and echo are tested where what they become can be fetched.
#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "input/miniparser.h"
#include "support/handle.h"

namespace wexcorin {
namespace {

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
