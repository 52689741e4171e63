// The documents that doc writes for the reader of today: their exact text for definitions that try to break
// it.
#include <nlohmann/json.hpp>

#include "tool/process.h"

namespace {

using tooltest::ttool;

constexpr std::string_view definition = R"(Minos lookup
a eolcomm #
one group 1 1 A *bold* <b>group</b>
.prior integer 5 1 minint maxint 1 1 # heading
pri_or double.TWO 6 1e-7 -3 maxdouble 1 1 */ ends /* and ??/
 1. no list
 + nor this
level enumint 7 -5 1 1 x|y `code`
 -5 1 minus
 6 0 hidden
word enumstr.OPT 8 "a b" 1 1 words
 "a b" 1 first
 `c` 1 third
old boolean.NV 9 1 1 7 R)"
                                        "\xE4"
                                        R"(tsel
many multilist 10 1 1 several
 pri_or nowhere
 word
both macro 1 1
 word
quiet string 11 "" 0 1
old_one synonym old
b deprecated
 old use word
b obsolete
 old_one gone
)";

constexpr std::string_view undefined =
    "odd.def:16: error: MultiList option \"nowhere\" is undefined for option \"many\"\n";

TEST(documents, cHeader) {
  const ttool tool({{"odd.def", definition}});
  const auto result = tool.run({"doc", "c", "odd.def", "-o", "-"});
  EXPECT_EQ(result.out, R"(/* Options of odd.def, written by "wexcorin doc c". */
#ifndef ODD_OPTIONS_H
#define ODD_OPTIONS_H

/* Numbers, as functions whose names end in nr take them. They hold for this definition file only. */
enum {
  odd_nr_Help = 1,
  odd_nr_dot_prior = 2, /* # heading */
  odd_nr_pri_or = 3, /* * / ends / * and ? ?/ */
  odd_nr_level = 4, /* x|y `code` */
  odd_nr_word = 5, /* words */
  odd_nr_old = 6, /* R\xc3\xa4tsel */
  odd_nr_many = 7, /* several */
  odd_nr_both = 8,
  odd_nr_quiet = 9,
};

/* Reference numbers, which the definition file gives to its options. */
enum {
  odd_ref_Help = 0,
  odd_ref_dot_prior = 5,
  odd_ref_pri_or = 6,
  odd_ref_level = 7,
  odd_ref_word = 8,
  odd_ref_old = 9,
  odd_ref_many = 10,
  odd_ref_both = -1,
  odd_ref_quiet = 11,
};

/* level: values */
enum {
  odd_value_level_minus_5 = -5, /* minus */
  odd_value_level_6 = 6, /* hidden */
};

/* word: items, as optgetenumstrnr gives them */
enum {
  odd_value_word_a_b = 1, /* first */
  odd_value_word_c = 2, /* third */
};

#endif
)");
  EXPECT_EQ(result.err, undefined);
  EXPECT_EQ(result.code, 1);
}

TEST(documents, cHeaderIsRefusedWhenNamesCollide) {
  const ttool tool({{"1.def",
                     "a_b integer 1 0 0 1 1 1\na__b integer 2 0 0 1 1 1\n"
                     "word enumstr 3 a-b 1 1\n a-b 1\n a+b 1\n"},
                    {"out.h", "as it was"}});
  const auto result = tool.run({"doc", "c", "1.def", "-o", "out.h"});
  EXPECT_EQ(
      result.err,
      "1.def: error: option \"a_b\" and option \"a__b\" would both be called \"options_1_nr_a_b\" in C; "
      "rename one of them\n"
      "1.def: error: value a-b of option \"word\" and value a+b of option \"word\" would both be called "
      "\"options_1_value_word_a_b\" in C; rename one of them\n");
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(tool.contents("out.h"), "as it was");
}

TEST(documents, markdown) {
  const ttool tool({{"odd.def", definition}});
  EXPECT_EQ(tool.run({"doc", "markdown", "odd.def", "-o", "-"}).out, R"(# Options of odd.def

Of a name, the first three characters of the first word and four of each later one count.

## A \*bold\* \<b\>group\</b\>

| Option | Default | |
|---|---|---|
| `.prior` | `1` | \# heading |
| `pri or` | `1E-7` | \*/ ends /\* and ??/ |
| `level` | `-5` | x\|y \`code\` |
| `word` | `"a b"` | words |
| `many` |  | several |
| `both` |  |  |

### `.prior`

\# heading

- Type: integer
- Range: minint to maxint
- Default: `1`

### `pri or`

\*/ ends /\* and ??/

- Type: number, two values
- Range: -3 to maxdouble
- Default: `1E-7`

1\. no list
\+ nor this

### `level`

x\|y \`code\`

- Type: choice of numbers
- Default: `-5`

| Value | |
|---|---|
| `-5` | minus |

### `word`

words

- Type: choice, the value may be left out
- Default: `"a b"`

| Value | |
|---|---|
| `"a b"` | first |
| `` `c` `` | third |

### `many`

several

- Type: list of values for several options
- Options: `pri or`, `word`

### `both`

- Type: sets several options
- Options: `word`

## Further options

| Option | Default | |
|---|---|---|
| `old` | `1` | Rätsel |

### `old`

Rätsel

- Type: boolean, takes no value
- Default: `1`
- Synonyms: `old one` (obsolete, not taken any more; gone)
- Standing: deprecated; use word

)");
}

TEST(documents, json) {
  const ttool tool({{"odd.def", definition}});
  const auto document = nlohmann::json::parse(tool.run({"doc", "json", "odd.def", "-o", "-"}).out);
  EXPECT_EQ(document["lookup"], "Minos");
  EXPECT_EQ(document["comment_characters"], "#");
  EXPECT_EQ(document["indicator_keyword"], nullptr);
  EXPECT_EQ(document["groups"], nlohmann::json::parse(R"json([
    {"number": 1, "name": "one", "title": "A *bold* <b>group</b>", "listed": true}])json"));
  struct {
    std::size_t index;
    std::string_view option;
  } const rows[] = {
      {2, R"json({"number": 3, "reference": 6, "name": "pri or", "type": "double", "argument": "two",
         "default": 1e-7, "low": -3.0, "high": 1e299, "listed": true, "group": 1,
         "help": "*/ ends /* and ??/", "details": ["1. no list", "+ nor this"],
         "deprecation": null, "synonyms": [], "synonym_deprecation": null})json"},
      {3, R"json({"number": 4, "reference": 7, "name": "level", "type": "enumint", "argument": "required",
         "default": -5, "values": [{"value": -5, "help": "minus", "listed": true},
         {"value": 6, "help": "hidden", "listed": false}], "listed": true, "group": 1,
         "help": "x|y `code`", "details": [],
         "deprecation": null, "synonyms": [], "synonym_deprecation": null})json"},
      {5, R"json({"number": 6, "reference": 9, "name": "old", "type": "boolean", "argument": "none",
         "default": true, "listed": true, "group": 7, "help": "Rätsel", "details": [],
         "deprecation": {"kind": "deprecated", "reason": "use word"}, "synonyms": ["old one"],
         "synonym_deprecation": {"kind": "obsolete", "reason": "gone"}})json"},
      {6, R"json({"number": 7, "reference": 10, "name": "many", "type": "multilist", "argument": "required",
         "members": ["pri or", null, "word"], "listed": true, "group": 1, "help": "several", "details": [],
         "deprecation": null, "synonyms": [], "synonym_deprecation": null})json"},
  };
  for (const auto& [index, option] : rows)
    EXPECT_EQ(document["options"][index], nlohmann::json::parse(option)) << document["options"][index];
}

}  // namespace
