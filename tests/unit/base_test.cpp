// Short strings, heap strings, comparison without regard to case and the routines on short texts; numbers to
// text and text to numbers; the lists: growth, search, deletion, ownership and sorting.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "base/heapstring.h"
#include "base/numtext.h"
#include "base/strutilxmore.h"
#include "base/vksobj.h"
#include "support/table.h"

namespace optcore::basetest {

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

// Every pair of bytes, at the end and at the beginning of texts of the lengths that are compared in different
// ways. Only A to Z are letters with two cases.
TEST(comparison, only_letters_of_the_alphabet_have_a_case) {
  const auto upper = [](int code) { return code >= 'a' && code <= 'z' ? code - 32 : code; };
  for (const std::size_t length : {0U, 1U, 3U, 7U, 15U, 31U}) {
    const std::string lowercases(length, 'q'), uppercases(length, 'Q');
    for (int first = 0; first < 256; ++first)
      for (int second = 0; second < 256; ++second) {
        const char a = static_cast<char>(first), b = static_cast<char>(second);
        const bool equal = upper(first) == upper(second);
        const std::string texta = lowercases + a, textb = uppercases + b;
        ASSERT_EQ(struequal(texta, textb), equal) << first << " " << second << " " << length;
        ASSERT_EQ(struequal(a + lowercases, b + uppercases), equal)
            << first << " " << second << " " << length;
        ASSERT_EQ(strucmp(texta, textb), upper(first) - upper(second));
        ASSERT_TRUE(!equal || struhash(texta) == struhash(textb));
      }
  }
  EXPECT_LT(strucmp("abc", "ABCD"), 0);
  EXPECT_EQ(strucmp("abc", "ABC"), 0);
  EXPECT_FALSE(struequal("abc", "abcd"));
}

// Texts of two characters that differ as the two cases of a letter do, but are no letters.
TEST(comparison, a_hash_tells_what_is_no_letter) {
  std::set<std::uint32_t> hashes;
  std::string text(20, '@');
  for (std::uint32_t bits = 0; bits < 1U << 15; ++bits) {
    for (std::size_t i = 0; i < 15; ++i) text[i] = (bits >> i & 1) != 0 ? '`' : '@';
    hashes.insert(struhash(text));
  }
  EXPECT_GT(hashes.size(), 32700U);
}

TEST(comparison, numbers_at_the_end_of_names_count_by_their_values) {
  EXPECT_LT(strucmpnum("9", "10"), 0);
  EXPECT_LT(strucmpnum("a12", "A21"), 0);
  EXPECT_EQ(strucmpnum("a012", "a12"), 0);
}

TEST(texts, positions_count_from_1) {
  tcharset set;
  set.set('n').set('b');
  EXPECT_EQ(lchpos('b', "banana"), 1);
  EXPECT_EQ(lchpos('a', "banana"), 2);
  EXPECT_EQ(lchpos('a', "banana", 3), 4);
  EXPECT_EQ(lchpos('a', std::string_view("aba").substr(1), 0), 2);  // what stands before the text is not read
  EXPECT_EQ(lchpos('x', "banana"), 0);
  EXPECT_EQ(rchpos('a', "banana"), 6);
  EXPECT_EQ(rchpos('b', "banana"), 1);
  EXPECT_EQ(lchupos('N', "banana"), 3);
  EXPECT_EQ(rchupos('N', "banana"), 5);
  EXPECT_EQ(rchupos('N', "banana", 4), 3);
  EXPECT_EQ(lchsetpos(set, "banana", 2), 3);
  EXPECT_EQ(rchsetpos(set, "banana"), 5);
  EXPECT_EQ(rchsetpos(set, ""), 0);
}

TEST(texts, replacing_filling_and_splitting) {
  EXPECT_EQ(replacestr("an", "x", "banana").view(), "bxxa");
  EXPECT_EQ(replacestr("", "x", "banana").view(), "banana");
  EXPECT_EQ(replacechar('a', 'o', "banana").view(), "bonono");
  EXPECT_EQ(deletechar('a', "banana").view(), "bnn");
  EXPECT_EQ(lowercase("AbC\xC4").view(), "abc\xC4");
  EXPECT_EQ(uppercase("aBc\xE4").view(), "ABC\xE4");
  EXPECT_EQ(concat(padleft("", 0), padleft("ab", 4), padright("ab", 4), padright("abcde", 4)).view(),
            "  abab  abcde");
  EXPECT_EQ(padrightmod("abcde", 4).view(), "abcde   ");
  EXPECT_EQ(concat(padrightmod("abcd", 4), padrightmod("abcd", 0), fillstr('-', 3)).view(), "abcdabcd---");
  EXPECT_EQ(trim(" \t a b\t "), "a b");
  EXPECT_EQ(trim("  "), "");
  std::int32_t position = 0;  // as 1
  for (const auto& [token, behind] : {std::pair{"one", 6}, {"two", 10}, {"", 10}}) {
    EXPECT_EQ(extracttoken("  one two", position), token);
    EXPECT_EQ(position, behind);
  }
  position = 1;
  EXPECT_EQ(extracttoken("one two", position), "one");
}

// For each word "input:result", check(input) must return the result; "z" stands for a zero byte.
template <class tcheck>
void pairs(const testsupport::ttable& table, tcheck check) {
  testsupport::eachrow(table, [check](const testsupport::tcolumns& columns) {
    std::istringstream words(columns[0]);
    for (std::string word; words >> word;) {
      std::replace(word.begin(), word.end(), 'z', '0');
      const std::string input = word.substr(0, word.find(':'));
      EXPECT_EQ(input + ':' + check(input), word);
    }
  });
}

TEST(numtext, doubles_have_15_digits_and_the_shorter_of_two_forms) {
  // Numbers from 0.0001 to below 1e15 are written without an exponent.
  pairs({__LINE__, R"(
           0:0 -0.0:0 -2.5:-2.5 0.30000000000000004:0.3 0.33333333333333331:0.333333333333333 0.0001:0.0001
           123456789012345:123456789012345 0.000099:9.9E-5 999999999999999:999999999999999
           999999999999999.9:1000000000000000 1e15:1E15 1.25e-300:1.25E-300 nan:NAN inf:INF -inf:-INF
           1.7976931348623157e308:1.79769313486232E308)"},
        [](const std::string& number) { return std::string(dbltostr(std::stod(number)).view()); });
  EXPECT_EQ(dbltostr(5e-324).view(), "4.94065645841247E-324");
  EXPECT_EQ(dbltostrex(1e299).view(), "maxdouble");
  EXPECT_EQ(dbltostrex(-1e299).view(), "mindouble");
  EXPECT_EQ(dbltostrex(1e298).view(), "1E298");
}

TEST(numtext, texts_are_doubles_as_a_whole_or_not_at_all) {
  const auto read = [](const std::string& text) {
    double number = -1.0;
    return strasdoubleex(text, number) ? std::string(dbltostr(number).view()) : "none";
  };
  pairs({__LINE__, R"(
           +1.5:1.5 -.5:-0.5 2.5d-3:0.0025 MaxDouble:1E299 mindouble:-1E299 EPS:1E-20 epsdouble:1E-20 1e-400:0
           0.000001e-320:0 0e99999999999999999999:0 1e-99999999999999999999:0 0.<240z>1e300:1E59
           1<240z>e-300:1E-60 0.<400z>1:0 0.<500z>1e100:0 1e400:none 1e99999999999999999999:none 1<400z>:none 1d0<300z>:none
           1<240z>e100:none .:none 1.2.3:none +-1:none 1e:none 1dd5:none 1,5:none 0x10:none inf:none nan:none)"},
        read);
  EXPECT_EQ(read("") + read("1 ") + read(" 1"), "nonenonenone");
  const std::string fraction = ".12345678912345";
  for (std::size_t length = 2; length <= fraction.size(); ++length)
    EXPECT_EQ(read(fraction.substr(0, length)), "0" + fraction.substr(0, length));
  std::string between;  // of two digits
  for (int code = 0; code < 256; ++code)
    if (read(std::string{'1', static_cast<char>(code), '2'}) != "none") between += static_cast<char>(code);
  EXPECT_EQ(between, ".0123456789DEde");
}

TEST(numtext, texts_are_integers_within_32_bits) {
  pairs({__LINE__, R"(
           12:12/12 -0012:-12/-12 MaxInt:2147483647/2147483647 minint:-2147483648/-2147483648
           2147483647:2147483647/2147483647 -2147483648:-2147483648/-2147483648 2147483648:none/none 3.0:none/3
           1e3:none/1000 -2147483648.0:none/-2147483648 2147483648.0:none/none 2.5:none/none eps:none/none
           12x:none/none)"},
        [](const std::string& text) {
          std::int32_t plain = -1, wide = -1;
          const bool isplain = strasintex(text, plain), iswide = strasintex2(text, wide);
          EXPECT_TRUE((isplain || plain == 0) && (iswide || wide == 0));
          return (isplain ? std::to_string(plain) : "none") + '/' + (iswide ? std::to_string(wide) : "none");
        });
  std::int32_t number = -1;
  EXPECT_FALSE(strasintex("", number) || strasintex2("", number));
}

TEST(numtext, integers_as_text) {
  EXPECT_EQ(inttostr(minint).view(), "-2147483648");
  EXPECT_EQ(std::string(inttostrex(maxint)) + std::string(inttostrex(minint)), "maxintminint");
  EXPECT_EQ(concat(inttonicestr(-1234567), " ", inttonicestr(0)).view(), "-1,234,567 0");
  EXPECT_EQ(int64tonicestr(std::numeric_limits<std::int64_t>::min()).view(), "-9,223,372,036,854,775,808");
  EXPECT_EQ(inttonicestrw(1000, 8).view(), "   1,000");
  EXPECT_EQ(inttonicestrw(1000, 3).view(), "1,000");
  EXPECT_EQ(inttonicestrw(1000, 400).size(), 255U);
  EXPECT_EQ(integerwidth(-120), 4);
}

TEST(lists, grow_eightfold_while_small_and_by_a_quarter_past_a_million) {
  EXPECT_EQ(growncapacity(0), 16);
  EXPECT_EQ(growncapacity(0xFFFFF), 8 * 0xFFFFF);
  EXPECT_EQ(growncapacity(0x100000), 0x140000);
  EXPECT_THROW(growncapacity(2000000000), std::bad_alloc);
}

// Appends its name to the target when it is destroyed.
struct tteller {
  tteller(std::string& target, char name) : ftarget(target), fname(name) {}
  ~tteller() { ftarget += fname; }
  std::string& ftarget;
  char fname;
};

TEST(lists, owning_lists_free_what_they_lose_and_clear_from_the_end) {
  std::string told;
  {
    txstringlistobj<tteller> texts;
    for (const char name : {'a', 'b', 'c', 'd'})
      texts.addobject(std::string(1, name), std::make_unique<tteller>(told, name));
    texts.remove(1);
    EXPECT_EQ(told, "b");
    EXPECT_EQ(texts.getname(1), "c");
    for (const std::int32_t capacity : {1, 3}) {
      texts.setcapacity(capacity);
      EXPECT_EQ(texts.capacity(), 3);
    }
    texts.clear();
    EXPECT_EQ(told, "bdca");
    EXPECT_EQ(texts.capacity(), 0);
    for (const std::int32_t capacity : {5, 0}) texts.setcapacity(capacity);
    EXPECT_EQ(texts.capacity(), 0);
    texts.addobject("e", std::make_unique<tteller>(told, 'e'));
    txlistobj<tteller> items;
    items.add(std::make_unique<tteller>(told, 'x'));
    items.put(0, new tteller{told, 'y'});
    EXPECT_EQ(told, "bdcax");
  }
  EXPECT_EQ(told, "bdcaxye");
}

TEST(lists, of_texts_are_searched_and_sorted_without_regard_to_case) {
  txstrings texts;
  for (const char* text : {"b", "C", "A"}) texts.add(text);
  EXPECT_EQ(texts.indexof("a"), 2);
  EXPECT_EQ(texts.indexof("d"), -1);
  texts.sortn(3);
  EXPECT_EQ(concat(texts.get(0), texts.get(1), texts.get(2)).view(), "AbC");
  txlist<std::int32_t> numbers;  // has no order for its items
  for (const std::int32_t number : {2, 1}) numbers.add(number);
  numbers.sortn(2);
  EXPECT_EQ(numbers.indexof(2), 1);
  EXPECT_EQ(numbers.indexof(3), -1);
}

// A list of this length has an index.
TEST(lists, a_search_finds_the_first_of_equal_names_after_every_change) {
  txstringlist<std::int32_t> list;
  EXPECT_EQ(list.indexof("b"), -1);
  for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "B"}) list.add(name);
  EXPECT_EQ(list.indexof("b"), 1);
  list.add("j");
  EXPECT_EQ(list.indexof("J"), 10);
  list.exchange(1, 4);
  EXPECT_EQ(list.indexof("B"), 4);
  list.insertitem(2, "b", 0);
  EXPECT_EQ(list.indexof("b"), 2);
  list.remove(2);
  EXPECT_EQ(list.indexof("b"), 4);
  list.sortn(list.count());
  EXPECT_EQ(list.indexof("B"), 1);
  EXPECT_EQ(list.indexof("k"), -1);
}

// Decides on the order of its items only when they are compared, so that every pivot is among the first, or the
// last, of its part.
struct tadversary : tquicksortclass {
  explicit tadversary(bool forwards) : fsign(forwards ? 1 : -1) {}
  void exchange(std::int32_t i, std::int32_t j) override { std::swap(value(i), value(j)); }
  std::int32_t compare(std::int32_t i, std::int32_t j) const override {
    ++fcompared;
    if (value(i) == undecided && value(j) == undecided) value(i == fpivot ? i : j) = fnext++;
    if (value(i) == undecided) fpivot = i;
    if (value(j) == undecided) fpivot = j;
    return value(i) < value(j) ? -fsign : i == j ? 0 : fsign;
  }
  std::int32_t& value(std::int32_t i) const { return fvalues[static_cast<std::size_t>(i)]; }

  static constexpr std::int32_t count = 20000, undecided = count;
  mutable std::vector<std::int32_t> fvalues = std::vector<std::int32_t>(count, undecided);
  mutable std::int32_t fnext = 0, fpivot = -1, fcompared = 0;
  std::int32_t fsign;
};

TEST(lists, sorting_takes_no_quadratic_time_whatever_the_order) {
  for (const bool forwards : {true, false}) {
    tadversary list(forwards);
    list.sortn(list.count);
    if (!forwards) std::ranges::reverse(list.fvalues);
    EXPECT_TRUE(std::ranges::is_sorted(list.fvalues));
    EXPECT_LT(list.fcompared, 400 * list.count) << "the pivots alone would take the square of " << list.count;
  }
}

}  // namespace optcore::basetest
