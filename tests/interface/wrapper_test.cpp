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

constexpr const char* more =
    "big double 12 0 mindouble maxdouble 1 3\nlabel string 13 x 1 3\nget immediate ReadFile 1 3\n"
    "say immediate Message 1 3\n";

class wrapper : public testing::Test {
 private:
  testsupport::ttempdir fdirectory;

 protected:
  const testsupport::ttempdir& directory() const { return fdirectory; }
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
  options.read("most 3 4\nnotes one\r\nnotes two words\n\nv.prior('a',*) 2\nind e(i)$w(i) 1\ntol 2\n");
  EXPECT_EQ(options.definitionfile(), "def");
  EXPECT_EQ(options.integer("LIMIT"), 3);
  EXPECT_EQ(options.integer2(2), 4);
  EXPECT_EQ(options.real("tol"), 0.5);
  EXPECT_EQ(options.text("word"), "x");
  EXPECT_EQ(options.find("most"), 2);
  EXPECT_FALSE(options.integer("none") || options.find("") || options.realbounds(99) || options.text(0));
  EXPECT_EQ(options.integerbounds(2)->high, 10);
  EXPECT_EQ(shown(options.all(), &option::number, &option::name), "1Help 2limit 3tol 4word 5notes 6.prior");
  EXPECT_EQ(options.describe(2)->defined, 3);
  EXPECT_EQ(options.describe(3)->help, "A tolerance");
  EXPECT_FALSE(options.describe(99));
  EXPECT_EQ(shown(options.enumvalues(4), &wexcorin::enumvalue::text, &wexcorin::enumvalue::help),
            "xfirst ysecond");
  EXPECT_TRUE(options.enumvalues(99).empty() && options.list("none").empty());
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
  EXPECT_TRUE(options.set("tol", 0.25F) && options.set("word", "y") && options.setrefnr("limit", 70));
  EXPECT_EQ(options.text("tol"), "0.25");
  EXPECT_EQ(options.enumitem("word"), 2);
  EXPECT_EQ(options.describe("limit")->refnr, 70);
  EXPECT_EQ(options.describe("limit")->datatype, optDataInteger);
  options.read("v.prior(1) 101");
  EXPECT_EQ(options.dotentries().size(), 0U);
  EXPECT_EQ(options.rejecteddotentries(), 1);
}

// What a setter throws or answers, and the value as text after it.
template <class tset>
std::string outcome(wexcorin::options& options, tset set, const char* name) {
  std::string result;
  try {
    result = set() ? "true" : "false";
  } catch (const std::out_of_range&) {
    result = "out_of_range";
  } catch (const wexcorin::wrong_type& wrong) {
    result = wrong.what();
  }
  return result + ' ' + options.text(name).value_or("");
}

TEST_F(wrapper, a_number_is_converted_where_nothing_is_lost) {
  options.readdefinition(directory().write("more", more));
  const auto set = [&](const char* name, auto value) {
    return outcome(
        options, [&] { return options.set(name, value); }, name);
  };
  EXPECT_EQ(set("tol", 1), "true 1");
  EXPECT_EQ(set("limit", 4.0), "true 4");
  EXPECT_EQ(set("limit", 2.5), "false 4");
  EXPECT_EQ(set("limit", std::numeric_limits<double>::quiet_NaN()), "false 4");
  EXPECT_EQ(set("limit", -2147483648.0), "false 4");
  EXPECT_EQ(set("limit", -2147483649.0), "false 4");
  EXPECT_EQ(options.messages()[0].text, "*** Value Error Integer expected, for option \"limit\" saw \"2.5\"");
  EXPECT_EQ(options.problems()[2].text, "Integer range error for option \"limit\" saw \"-2147483648\"");
  EXPECT_EQ(options.problems()[3].text, "Integer expected, for option \"limit\" saw \"-2147483649\"");
  EXPECT_EQ(set("limit", std::numeric_limits<std::uint64_t>::max()), "out_of_range 4");
  EXPECT_EQ(set("limit", -2147483649LL), "out_of_range 4");
  EXPECT_EQ(set("big", std::numeric_limits<std::int64_t>::min()), "true -9.22337203685478E18");
  EXPECT_EQ(set("big", (1LL << 53) + 1), "out_of_range -9.22337203685478E18");
  EXPECT_EQ(set("label", 0.1), "true 0.1");
  EXPECT_EQ(set("label", 18446744073709551615U), "true 18446744073709551615");
  EXPECT_EQ(set("word", 5), "false x");
  EXPECT_EQ(set("none", 5), "false ");
  EXPECT_EQ(outcome(
                options, [&] { return options.set("notes", 5); }, "tol"),
            "true 1");
  EXPECT_EQ(options.list("notes")[0], "5");
}

TEST_F(wrapper, an_option_of_the_wrong_type_is_an_error) {
  using wexcorin::wrong_type;
  EXPECT_THROW((void)options.integer("tol"), wrong_type);
  EXPECT_THROW((void)options.integer2("tol"), wrong_type);
  EXPECT_THROW((void)options.real("limit"), wrong_type);
  EXPECT_THROW((void)options.text("notes"), wrong_type);
  EXPECT_THROW((void)options.text(1), wrong_type);
  EXPECT_THROW((void)options.text2("word"), wrong_type);
  EXPECT_THROW((void)options.integerbounds("tol"), wrong_type);
  EXPECT_THROW((void)options.realbounds(2), wrong_type);
  EXPECT_THROW((void)options.defaulttext("word"), wrong_type);
  EXPECT_THROW((void)options.enumvalues("limit"), wrong_type);
  EXPECT_THROW((void)options.enumitem("limit"), wrong_type);
  EXPECT_THROW((void)options.list("word"), wrong_type);
  EXPECT_THROW((void)options.takefromlist("word"), wrong_type);
  EXPECT_EQ(outcome(
                options, [&] { return options.set("help", "word"); }, "tol"),
            "wexcorin: Option \"Help\" (immediate, one value) does not fit set(). 0.5");
  EXPECT_EQ(outcome(
                options, [&] { return options.set2("tol", 1); }, "tol"),
            "wexcorin: Option \"tol\" (double, one value) does not fit set2(). 0.5");
}

TEST_F(wrapper, a_key_keeps_its_name) {
  std::string name = "tol";
  const wexcorin::key key = name;
  name = "word";
  EXPECT_EQ(options.describe(key)->name, "tol");
}

// The problems, one on a line.
std::string listed(const wexcorin::options& options) {
  std::ostringstream text;
  for (const wexcorin::problem& each : options.problems()) {
    text << each.file.substr(each.file.rfind('/') + 1) << ':' << each.line
         << (each.severity == wexcorin::severity::error ? " error " : " warning ") << each.text;
    for (const std::string& detail : each.details) text << " | " << detail;
    text << '\n';
  }
  return text.str();
}

TEST_F(wrapper, problems_have_the_file_and_line_that_they_are_about) {
  const std::string part = directory().write("part", "none 1\n\nsay \"line 1: x\"\n");
  const std::string top = directory().write("top", "get " + part + "\nmost 4 11\nget none\n");
  options.addmessage("line 1: mine");
  options.readdefinition(directory().write("more", std::string(more) + "bad strange 1\n"));
  options.readparameterfile(top);
  options.readparameterfile("/no/such");
  options.read("limit 3\nlimit 11\nget " + part + "\nsay \"line 9: here\"");
  EXPECT_FALSE(options.set("limit", 11));
  EXPECT_EQ(options.writeparameterfile("/no/such/written"), ENOENT);
  EXPECT_EQ(listed(options), R"(:0 error line 1: mine
more:5 error Unknown option type "strange" for option "bad"
part:1 error Unknown option "none"
part:3 error line 1: x
top:2 error Integer range error for option "most" saw "11" | Valid range is 0 to 10
top:3 error Cannot open parameter file "none" | Error code = 2; No such file or directory
such:0 error Cannot open parameter file "/no/such" | Error code = 2; No such file or directory
pchar:2 error Integer range error for option "limit" saw "11" | Valid range is 0 to 10
part:1 error Unknown option "none"
part:3 error line 1: x
pchar:4 error line 9: here
:0 error Integer range error for option "limit" saw "11" | Valid range is 0 to 10
written:0 error Cannot write parameter file "/no/such/written" | Error code = 2; No such file or directory
)");
  options.clearmessages();
  EXPECT_EQ(listed(options), "");
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
  static_assert(std::is_nothrow_move_constructible_v<wexcorin::options>);
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
