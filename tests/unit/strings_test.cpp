// Short strings, heap strings, comparison without regard to case and the routines on short texts.
#include <gtest/gtest.h>

#include <string>

#include "base/heapstring.h"
#include "base/strutilx.h"

namespace wexcorin {
namespace {

TEST(shortstrings, appending_cuts_at_255) {
  const std::string longtext(200, 'a');
  shortstring text{std::string_view(longtext)};
  text.append(longtext).append("z").append(5, 'z');
  EXPECT_EQ(text.view(), std::string(255, 'a'));
  EXPECT_EQ(concat("name ", quoted("x"), std::string_view(longtext), std::string_view(longtext)).size(),
            255U);
  text.assign(text.view().substr(3, 10));
  EXPECT_EQ(text.view(), std::string(10, 'a'));
}

TEST(heapstrings, the_empty_text_is_no_block) {
  EXPECT_EQ(newstring(""), nullptr);
  EXPECT_EQ(getstring(nullptr), "");
  EXPECT_TRUE(pstruequal(nullptr, nullptr));
  heapstring text(std::string(300, 'x'));
  EXPECT_EQ(text.view().size(), 255U);
  strassign(text, text.view().substr(0, 3));
  EXPECT_EQ(text.view(), "xxx");
  strassign(text, "");
  EXPECT_TRUE(text.empty());
}

// Every pair of bytes, and texts long enough to be compared by words: only A to Z have another case.
TEST(comparison, only_letters_of_the_alphabet_have_a_case) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const auto upper = [](int code) { return code >= 'a' && code <= 'z' ? code - 32 : code; };
      const char a = static_cast<char>(first);
      const char b = static_cast<char>(second);
      const bool equal = upper(first) == upper(second);
      const std::string texta = std::string("12345678abcde") + a;
      const std::string textb = std::string("12345678ABCDE") + b;
      ASSERT_EQ(struequal(texta, textb), equal) << first << " " << second;
      ASSERT_EQ(struequal(a + texta, b + textb), equal) << first << " " << second;
      ASSERT_EQ(strucmp(texta, textb), upper(first) - upper(second));
      if (equal) {
        ASSERT_EQ(struhash(texta), struhash(textb));
      }
    }
  }
  EXPECT_LT(strucmp("abc", "ABCD"), 0);
  EXPECT_EQ(strucmp("abc", "ABC"), 0);
  EXPECT_FALSE(struequal("abc", "abcd"));
  EXPECT_LT(strucmpnum("9", "10"), 0);
}

TEST(texts, positions_count_from_1) {
  const std::string_view text = "banana";
  EXPECT_EQ(lchpos('a', text), 2);
  EXPECT_EQ(lchpos('a', text, 3), 4);
  EXPECT_EQ(lchpos('x', text), 0);
  EXPECT_EQ(rchpos('a', text), 6);
  EXPECT_EQ(lchupos('N', text), 3);
  EXPECT_EQ(rchupos('N', text), 5);
  EXPECT_EQ(rchupos('N', text, 4), 3);
  tcharset set;
  set.set('n').set('b');
  EXPECT_EQ(lchsetpos(set, text, 2), 3);
  EXPECT_EQ(rchsetpos(set, text), 5);
  EXPECT_EQ(rchsetpos(set, ""), 0);
}

TEST(texts, replacing_filling_and_splitting) {
  EXPECT_EQ(replacestr("an", "x", "banana").view(), "bxxa");
  EXPECT_EQ(replacestr("", "x", "banana").view(), "banana");
  EXPECT_EQ(replacechar('a', 'o', "banana").view(), "bonono");
  EXPECT_EQ(deletechar('a', "banana").view(), "bnn");
  EXPECT_EQ(lowercase("AbC\xC4").view(), "abc\xC4");
  EXPECT_EQ(uppercase("aBc\xE4").view(), "ABC\xE4");
  EXPECT_EQ(padleft("ab", 4).view(), "  ab");
  EXPECT_EQ(padright("ab", 4).view(), "ab  ");
  EXPECT_EQ(padright("abcde", 4).view(), "abcde");
  EXPECT_EQ(padrightmod("abcde", 4).view(), "abcde   ");
  EXPECT_EQ(padrightmod("abcd", 4).view(), "abcd");
  EXPECT_EQ(padrightmod("abcd", 0).view(), "abcd");
  EXPECT_EQ(fillstr('-', 3).view(), "---");
  EXPECT_EQ(trim(" \t a b\t "), "a b");
  EXPECT_EQ(trim("  "), "");
  std::int32_t position = 1;
  EXPECT_EQ(extracttoken("  one two", position), "one");
  EXPECT_EQ(extracttoken("  one two", position), "two");
  EXPECT_EQ(extracttoken("  one two", position), "");
}

}  // namespace
}  // namespace wexcorin
