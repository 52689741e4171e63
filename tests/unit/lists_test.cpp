// The lists: growth, search, deletion, ownership and sorting.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "base/vksobj.h"

namespace wexcorin {
namespace {

TEST(lists, grow_eightfold_while_small_and_by_a_quarter_past_a_million) {
  EXPECT_EQ(growncapacity(0), 16);
  EXPECT_EQ(growncapacity(0xFFFFF), 8 * 0xFFFFF);
  EXPECT_EQ(growncapacity(0x100000), 0x140000);
  EXPECT_THROW(growncapacity(2000000000), std::bad_alloc);
}

// Tells on destruction.
struct tteller {
  tteller(std::string& target, char name) : ftarget(target), fname(name) {}
  tteller(const tteller&) = delete;
  tteller& operator=(const tteller&) = delete;
  ~tteller() { ftarget += fname; }
  std::string& ftarget;
  char fname;
};

TEST(lists, owning_lists_free_what_they_lose_and_clear_from_the_end) {
  std::string told;
  {
    txstringlistobj<tteller> texts;
    for (const char name : {'a', 'b', 'c', 'd'})
      texts.addobject(std::string(1, name), new tteller(told, name));
    texts.remove(1);
    EXPECT_EQ(told, "b");
    EXPECT_EQ(texts.getname(1), "c");
    texts.setcapacity(1);
    EXPECT_EQ(texts.capacity(), 3);
    texts.clear();
    EXPECT_EQ(told, "bdca");
    EXPECT_EQ(texts.capacity(), 0);
    texts.addobject("e", new tteller(told, 'e'));
    txlistobj<tteller> items;
    items.add(new tteller(told, 'x'));
    items.put(0, new tteller(told, 'y'));
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
  EXPECT_EQ(std::string(texts.get(0)) + std::string(texts.get(1)) + std::string(texts.get(2)), "AbC");
  txlist<std::int32_t> numbers;  // have no order
  for (const std::int32_t number : {2, 1}) numbers.add(number);
  numbers.sortn(2);
  EXPECT_EQ(numbers.indexof(2), 1);
  EXPECT_EQ(numbers.indexof(3), -1);
}

// A search by walking, to compare the index with.
std::int32_t walked(const txstringlist<std::int32_t>& list, std::string_view name) {
  for (std::int32_t i = 0; i < list.count(); ++i)
    if (struequal(list.getname(i), name)) return i;
  return -1;
}

TEST(lists, a_search_finds_the_first_of_equal_names_after_every_change) {
  std::mt19937 random(1);
  const auto number = [&random](std::int32_t below) {
    return static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(below));
  };
  const auto name = [&] { return (number(2) == 0 ? "name" : "NAME") + std::to_string(number(200)); };
  txstringlist<std::int32_t> list;
  EXPECT_EQ(list.indexof("x"), -1);
  for (int step = 0; step < 4000; ++step) {
    const std::int32_t change = number(20);
    if (change < 8 || list.count() < 3)
      list.add(name());
    else if (change == 8)
      list.insertitem(number(list.count()), name(), step);
    else if (change == 9)
      list.remove(number(list.count()));
    else if (change == 10)
      list.exchange(number(list.count()), number(list.count()));
    else if (change == 11 && step % 50 == 0)
      list.sortn(list.count());
    const std::string wanted = name();
    ASSERT_EQ(list.indexof(wanted), walked(list, wanted)) << "step " << step << ", " << wanted;
  }
}

}  // namespace
// Decides only when it is asked how its items are ordered, so that every pivot is among the least.
class tadversary : public tquicksortclass {
 public:
  explicit tadversary(std::int32_t count) : fvalues(static_cast<std::size_t>(count), undecided) {}
  void exchange(std::int32_t i, std::int32_t j) override { std::swap(value(i), value(j)); }
  std::int32_t compare(std::int32_t i, std::int32_t j) const override {
    ++fcompared;
    if (value(i) == undecided && value(j) == undecided) value(i == fpivot ? i : j) = fnext++;
    if (value(i) == undecided) fpivot = i;
    if (value(j) == undecided) fpivot = j;
    return value(i) < value(j) ? -1 : i == j ? 0 : 1;
  }
  std::int64_t compared() const { return fcompared; }
  bool issorted() const { return std::is_sorted(fvalues.begin(), fvalues.end()); }

 private:
  static constexpr std::int32_t undecided = std::numeric_limits<std::int32_t>::max();
  std::int32_t& value(std::int32_t i) const { return fvalues[static_cast<std::size_t>(i)]; }

  mutable std::vector<std::int32_t> fvalues;
  mutable std::int32_t fnext = 0;
  mutable std::int32_t fpivot = -1;
  mutable std::int64_t fcompared = 0;
};

TEST(lists, sorting_takes_no_quadratic_time_whatever_the_order) {
  constexpr std::int32_t count = 20000;
  tadversary list(count);
  list.sortn(count);
  EXPECT_TRUE(list.issorted());
  EXPECT_LT(list.compared(), 400 * count) << "the pivots alone would take " << count << " to the square";
}

}  // namespace wexcorin
