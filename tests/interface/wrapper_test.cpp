// The C++ header: ownership, optional results, ranges and errors.
#include "wexcorin/wexcorin.hpp"

#include <string>
#include <type_traits>
#include <vector>

#include "support/handle.h"

namespace {

constexpr const char* definition = R"(main group 3 1 Main options
limit integer.TWO 7 5 0 10 1 3 A limit
tol double 8 0.5 0 1 1 3 A tolerance
word enumstr 9 x 1 3 A word
 x 1 first
 y 0 second
notes strlist 10 1 3 Notes
.prior double 11 1 0 100 1 3 Priority
ind indicator
most synonym limit
)";

template <class trange, class tshow>
std::string shown(const trange& range, tshow show) {
  std::string text;
  for (const auto& element : range) text += (text.empty() ? "" : " ") + show(element);
  return text;
}
const auto itself = [](const std::string& text) { return text; };

TEST(wrapper, values_and_ranges) {
  const testsupport::ttempdir directory;
  wexcorin::options options(directory.write("def", definition));
  options.read("most 3 4");
  options.read("notes one");
  options.read("notes two words");
  options.read("v.prior('a',*) 2");
  options.read("ind e(i)$w(i) 1");
  options.read("tol 2");

  EXPECT_EQ(options.integer("LIMIT"), 3);
  EXPECT_EQ(options.integer2(2), 4);
  EXPECT_EQ(options.real("tol"), 0.5);
  EXPECT_EQ(options.text("word"), "x");
  EXPECT_EQ(options.integer("tol"), std::nullopt);
  EXPECT_EQ(options.real("nosuch"), std::nullopt);
  EXPECT_EQ(options.find("most"), 2);
  EXPECT_EQ(options.find(""), std::nullopt);
  EXPECT_EQ(options.describe(99).has_value(), false);
  EXPECT_EQ(options.integerbounds(2)->high, 10);
  EXPECT_FALSE(options.realbounds(2));

  EXPECT_EQ(
      shown(options.all(), [](const auto& option) { return std::to_string(option.number) + option.name; }),
      "1Help 2limit 3tol 4word 5notes 6.prior");
  EXPECT_EQ(options.describe(2)->defined, 3);
  EXPECT_EQ(options.describe(3)->help, "A tolerance");
  EXPECT_EQ(shown(options.enumvalues(4), [](const auto& value) { return value.text + "=" + value.help; }),
            "x=first y=second");
  EXPECT_TRUE(options.enumvalues(2).empty());
  EXPECT_EQ(
      shown(options.groups(), [](const auto& group) { return group.name + std::to_string(group.number); }),
      "main3");
  EXPECT_EQ(
      shown(options.synonyms(), [](const auto& synonym) { return synonym.name + ">" + synonym.option; }),
      "most>limit");
  EXPECT_EQ(shown(options.list("notes"), itself), "one two words");
  EXPECT_EQ(options.takefromlist("notes"), "one");
  EXPECT_EQ(options.list("notes").size(), 1U);
  for (const wexcorin::dotentry& entry : options.dotentries()) {
    EXPECT_EQ(entry.symbol + std::to_string(entry.option), "v6");
    EXPECT_EQ(entry.value, 2.0);
    EXPECT_EQ(shown(options.indices(entry), itself), "a *");
  }
  for (const wexcorin::indicator& item : options.indicators()) {
    EXPECT_EQ(item.equation + item.variable, "ew");
    EXPECT_TRUE(item.value);
    EXPECT_EQ(shown(options.equationelements(item), itself) + shown(options.variableelements(item), itself),
              "ii");
  }
  EXPECT_EQ(options.dotentries().size() + options.indicators().size(), 2U);
  EXPECT_EQ(options.errorcount().errors, 2);
  std::vector<std::string> texts;
  for (const wexcorin::message& message : options.messages()) texts.push_back(message.text);
  EXPECT_EQ(texts[1], "*** Value Error Double out of range for option \"tol\" saw \"2\"");
  EXPECT_TRUE(options.set(4, "y"));
  EXPECT_FALSE(options.set(2, 11));
  EXPECT_TRUE(options.set2(2, 1));
}

TEST(wrapper, owns_its_handle_and_throws_what_callers_expect) {
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
}

}  // namespace
