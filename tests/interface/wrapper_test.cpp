// The C++ header: ownership, optional results, ranges and errors.
#include "wexcorin/wexcorin.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <limits>
#include <ranges>
#include <sstream>
#include <string>
#include <type_traits>

#include "support/handle.h"

namespace {

constexpr const char* definition =
    "main group 3 1 Main options\nlimit integer.TWO 7 5 0 10 1 3 A limit\n"
    "tol double 8 0.5 0 1 1 3 A tolerance\nword enumstr 9 x 1 3 A word\n x 1 first\n y 0 second\n"
    "notes strlist 10 1 3 Notes\n.prior double 11 1 0 100 1 3 Priority\nind indicator\n"
    "most synonym limit\n";

class wrapper : public testing::Test {
 private:
  testsupport::ttempdir fdirectory;

 protected:
  wexcorin::options options{fdirectory.write("def", definition)};
};

// The given fields of each element, or the element itself, with blanks between.
template <class trange, class... tfields>
std::string shown(trange&& range, tfields... fields) {
  std::ostringstream text;
  for (const auto& element : range) {
    text << (text.tellp() == 0 ? "" : " ");
    if constexpr (sizeof...(fields) == 0)
      text << element;
    else
      (text << ... << std::invoke(fields, element));
  }
  return text.str();
}

using wexcorin::option;
using toptionrange = wexcorin::range<option>;
static_assert(std::ranges::random_access_range<toptionrange> && std::ranges::sized_range<toptionrange>);
static_assert(std::ranges::view<toptionrange> && std::ranges::borrowed_range<toptionrange>);
static_assert(std::ranges::common_range<toptionrange>);

TEST_F(wrapper, values_and_ranges) {
  for (const char* line :
       {"most 3 4", "notes one", "notes two words", "v.prior('a',*) 2", "ind e(i)$w(i) 1", "tol 2"})
    options.read(line);
  EXPECT_EQ(options.integer("LIMIT"), 3);
  EXPECT_EQ(options.integer2(2), 4);
  EXPECT_EQ(options.real("tol"), 0.5);
  EXPECT_EQ(options.text("word"), "x");
  EXPECT_EQ(options.find("most"), 2);
  EXPECT_FALSE(options.integer("tol") || options.real("nosuch") || options.find("") || options.realbounds(2));
  EXPECT_EQ(options.integerbounds(2)->high, 10);
  EXPECT_EQ(shown(options.all(), &option::number, &option::name), "1Help 2limit 3tol 4word 5notes 6.prior");
  EXPECT_EQ(options.describe(2)->defined, 3);
  EXPECT_EQ(options.describe(3)->help, "A tolerance");
  EXPECT_FALSE(options.describe(99));
  EXPECT_EQ(shown(options.enumvalues(4), &wexcorin::enumvalue::text, &wexcorin::enumvalue::help),
            "xfirst ysecond");
  EXPECT_TRUE(options.enumvalues(2).empty());
  EXPECT_EQ(shown(options.groups(), &wexcorin::group::name, &wexcorin::group::number), "main3");
  EXPECT_EQ(shown(options.synonyms(), &wexcorin::synonym::name, &wexcorin::synonym::option), "mostlimit");
  EXPECT_EQ(options.findgroup(3)->name, "main");
  EXPECT_FALSE(options.findgroup(1));
  EXPECT_EQ(shown(options.list("notes")), "one two words");
  EXPECT_EQ(options.takefromlist("notes"), "one");
  EXPECT_EQ(options.takefromanylist(false)->option, "notes");
  EXPECT_FALSE(options.takefromanylist(false));
  using wexcorin::dotentry, wexcorin::indicator;
  EXPECT_EQ(shown(options.dotentries(), &dotentry::symbol, &dotentry::option, &dotentry::value), "v62");
  EXPECT_EQ(shown(options.indices(options.dotentries()[0])), "a *");
  EXPECT_EQ(shown(options.indicators(), &indicator::equation, &indicator::variable, &indicator::value),
            "ew1");
  for (const indicator& item : options.indicators())
    EXPECT_EQ(shown(options.equationelements(item)) + shown(options.variableelements(item)), "ii");
  EXPECT_EQ(options.errorcount().errors, 2);
  EXPECT_EQ(options.messages()[1].text, "*** Value Error Double out of range for option \"tol\" saw \"2\"");
}

TEST_F(wrapper, sets_values_by_number_and_name_from_every_kind_of_argument) {
  enum { six = 6 };
  EXPECT_TRUE(options.set(2, 1L) && options.set(2, 2U) && options.set(2, std::size_t{3}));
  EXPECT_TRUE(options.set("limit", 4) && options.set(std::string("most"), short{5}) && options.set2(2, six));
  EXPECT_EQ(options.integer("limit"), 5);
  EXPECT_EQ(options.integer2("MOST"), 6);
  EXPECT_FALSE(options.set(2, 11) || options.set("nosuch", 1));
  EXPECT_THROW(options.set(2, std::numeric_limits<std::uint64_t>::max()), std::out_of_range);
  EXPECT_THROW(options.set(2, -2147483649LL), std::out_of_range);
  EXPECT_TRUE(options.set("tol", 0.25F) && options.set("word", "y") && options.setrefnr("limit", 70));
  EXPECT_EQ(options.text("tol"), "0.25");
  EXPECT_EQ(options.enumitem("word"), 2);
  EXPECT_EQ(options.enumitem("limit"), std::nullopt);
  EXPECT_EQ(options.describe("limit")->refnr, 70);
  EXPECT_EQ(options.describe("limit")->datatype, optDataInteger);
  options.read(std::string_view("v.prior(1) 101\nunread"));
  EXPECT_EQ(options.dotentries().size(), 0U);
  EXPECT_EQ(options.rejecteddotentries(), 1);
}

TEST_F(wrapper, ranges_are_views_that_survive_a_move) {
  const auto all = options.all();
  const wexcorin::options moved = std::move(options);
  EXPECT_EQ(std::ranges::count_if(all, [](const auto& each) { return each.group == 3; }), 5);
  const auto tol = std::ranges::find(moved.all(), "tol", &option::name);  // the element outlives its range
  EXPECT_EQ(tol->help + (tol - 1)->name + all[2].name, "A tolerancelimittol");
  EXPECT_EQ(all.end() - all.begin(), 6);
}

TEST_F(wrapper, a_described_name_is_found_in_every_lookup_mode) {
  const testsupport::ttempdir directory;
  options.readdefinition(directory.write("def", "Minos lookup\nfeas_tolerance double 1 0 0 1 1 1\n"));
  EXPECT_EQ(options.describe(8)->name, "feas_tolerance");
  EXPECT_EQ(options.find(options.describe(8)->name), 8);
}

TEST(wrapperalone, owns_its_handle_and_throws_what_callers_expect) {
  static_assert(!std::is_copy_constructible_v<wexcorin::options>);
  static_assert(sizeof(wexcorin::options) == sizeof(void*));
  wexcorin::options first;
  first.addmessage("here");
  wexcorin::options second = std::move(first);
  EXPECT_EQ(second.messages().size(), 1U);
  first = std::move(second);
  EXPECT_EQ(first.messages().size(), 1U);
  EXPECT_THROW(first.addmessage(std::string(256, 'x')), std::length_error);
  EXPECT_THROW(wexcorin::options("/no/such/file"), std::system_error);
  first.read("--any text");
  EXPECT_EQ(first.takefromanylist(true)->text, "text");
  first.read("--any text");
  EXPECT_EQ(first.writeparameterfile("/dev/full"), EIO);
  EXPECT_EQ(first.writeparameterfile("/dev/null"), 0);
  EXPECT_EQ(first.writeparameterfile("/no/such/file"), ENOENT);
  wexcorin::setloadpath("path");
  EXPECT_EQ(wexcorin::loadpath(), "path");
  wexcorin::setloadpath("");
  EXPECT_EQ(wexcorin::mismatch("optCount", {3}), std::nullopt);
  EXPECT_THAT(wexcorin::mismatch("optCount", {3, 3}).value_or(""), testing::HasSubstr("optCount"));
}

}  // namespace
