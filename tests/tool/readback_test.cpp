// What the comparison of a store with a file reports. The tool writes a file before it compares, and few of its files
// differ from what was set; here the file is given.
#include "tools/reading/readback.h"

#include <gtest/gtest.h>

#include "support/handle.h"

namespace tool::readbacktest {

using optcore::tvksoptions;
using namespace testsupport;

constexpr const char* definition =
    ".rank integer 1 0 0 9 1 1\nsize integer.OPT 1 5 0 9 1 1\nword strlist 1 1 1\ntol double.TWO 1 0 -9 9 1 "
    "1\n"
    "note string 1 a 1 1\nlevel enumint 1 1 1 1\n 1 1 low\n 2 1 high\nany immediate NoBounds 1 1\nind "
    "indicator\n"
    "x deprecated\n note Use word.\n";

// The differences of a store from a file, each with the number of its option and with its details.
std::string differences(const tvksoptions& written, const ttempdir& directory, std::string_view file) {
  tvksoptions fresh;
  fresh.optreaddefinition(directory.path("DEF"));
  const treadback readback(fresh);
  fresh.optreadparameterfile(directory.write("OPT", file));
  std::string all;
  for (const tdifference& each : readback.differences(written)) {
    all += (all.empty() ? "" : "\n") + std::to_string(each.option) + ": " + each.text;
    for (const std::string& detail : each.details) all += "\n  " + detail;
  }
  return all;
}

TEST(readback, reports_what_a_file_does_not_hold) {
  // What was set => the file => differences
  eachrow({__LINE__, R"~(
// the same
a.rank 1\nsize 3\nword a\nword b\ntol 1 2\nnote x\nind e('i')$v 1
=> size 3\nword a\nword b\ntol 1 2\nnote x\na.rank 1\nind e('i')$v 1 =>
--one 1\n--two 2 => --two 2\n--one 1 =>
// values
size 3 => => 3: option "size" is set to 3, but is not set when it is read back
\e => size 3 => 3: option "size" is not set, but is read back as 3
size 3 => size 4 => 3: option "size" is set to 3, but is read back as 4
tol 1 2 => tol 1 3 => 5: second value of option "tol" is set to 2, but is read back as 3
tol 1 2 => tol * 2 => 5: first value of option "tol" is set to 1, but is not set when it is read back
size 5 => any 1\nsize 10\nsize => 3: option "size" counts as out of bounds when it is read back
any 1\nsize 10 => size 9 => 3: option "size" is set to 10, but is read back as 9
// lists
word a\nword b => word a => 4: text 2 of option "word" is set to b, but is not set when it is read back
word a => word a\nword b => 4: text 2 of option "word" is not set, but is read back as b
word a\nword b => word a\nword c => 4: text 2 of option "word" is set to b, but is read back as c
// options that reading adds
--new 1 => => 9: text 1 of option "--new" is set to 1, but is not set when it is read back
\e => --new 1 => 0: option "--new" is not set, but is read back as 1
// the reason is what is said of its line, unless the setting is the same
size 3 => size 10
=> 3: option "size" is not read back as it was set: Integer range error for option "size" saw "10"
\n  Valid range is 0 to 9
word a\nword b\nnote x => word a\nword b\nnote "
=> 6: option "note" is not read back as it was set: Bad double-quote in value
any 1\nsize 10\nnote x => any 1\nsize 10\nany 0\nnote "
=> 6: option "note" is not read back as it was set: Bad double-quote in value
note x => note y => 6: option "note" is set to x, but is read back as y
level 2 => level 3
=> 7: option "level" is not read back as it was set: Unknown value for option "level" saw "3"
\n  Possible values are  1 2
size 3\nnote x => b 1\nsize 3\nb 1\nnote x\nc 1
=> 0: reading it back: Unknown option "b"
\n0: reading it back: Unknown option "c"
a.rank 1 => b 1\na.rank 1 => 0: reading it back: Unknown option "b"
any 1\nsize 10 => b 1\nany 1\nsize 10 => 0: reading it back: Unknown option "b"
// dot lines
a.rank 1\nb.rank 2 => a.rank 1\nb.rank 3 => 0: dot line "b.rank" is set to 2, but is read back as 3
a.rank('x') 1 => a.rank('y') 1 => 0: dot line "a.rank('x')" is read back as "a.rank('y')"
a.rank 1 => => 0: dot line "a.rank" is not read back
\e => a.rank 1 => 0: dot line "a.rank" is not set, but is read back\n2: option ".rank" is not set, but is read back as 1
a.rank 1\nb.rank 2 => a.rank 10\nb.rank 2
=> 0: dot line "a.rank" is not read back as it was set: Integer range error for option ".rank" saw "10"
\n  Valid range is 0 to 9
// indicators
ind e$v 1 => ind f$v 1 => 0: indicator "e$v" is read back as "f$v"
ind e$v 1 => ind e$v 0 => 0: indicator "e$v" is set to 1, but is read back as 0
ind e('i')$v 1\nind f$v 1 => ind f$v 1
=> 0: indicator "e('i')$v" is read back as "f$v"\n0: indicator "f$v" is not read back
\e => ind e$v('i') 1 => 0: indicator "e$v('i')" is not set, but is read back
)~"},
          [](const tcolumns& row) {
            const ttempdir directory;
            directory.write("DEF", definition);
            tvksoptions written;
            written.optreaddefinition(directory.path("DEF"));
            written.optreadparameterfile(directory.write("SET", row[0]));
            EXPECT_EQ(differences(written, directory, row[1]), row[2]);
          });
}

TEST(readback, counts_the_lines_of_texts_with_line_ends) {
  const ttempdir directory;
  directory.write("DEF", "words strlist 1 1 1\nnote string 1 a 1 1\nsize integer 1 5 0 9 1 1\n");
  tvksoptions written;
  written.optreaddefinition(directory.path("DEF"));
  for (const std::int32_t number : {2, 3}) written.optsetstrnr(number, "a\nb");
  written.optsetintnr(4, 3);
  EXPECT_EQ(differences(written, directory, "words a\nb\nnote a\nb\nsize 10\n"),
            "2: option \"words\" is not read back as it was set: Unknown option \"b\"\n"
            "3: option \"note\" is not read back as it was set: Unknown option \"b\"\n"
            "4: option \"size\" is not read back as it was set: Integer range error for option \"size\" saw "
            "\"10\"\n"
            "  Valid range is 0 to 9");
}

}  // namespace tool::readbacktest
