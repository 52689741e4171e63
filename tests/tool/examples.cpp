// The tool on the examples of the repository.
#include "tool/process.h"

namespace {

using tooltest::ttool;

constexpr const char* definition = "examples/solver.def";

TEST(examples, the_option_file_is_clean) {
  const ttool tool;
  tool.linkexamples();
  const auto result = tool.run({"check", definition, "examples/solver.opt", "--warnings-as-errors"});
  EXPECT_EQ(result.code, 0) << result.out << result.err;
}

// Each planted mistake is reported at its line.
TEST(examples, mistakes_are_reported_where_they_are) {
  const ttool tool;
  tool.linkexamples();
  const auto result = tool.run({"check", definition, "examples/solver_mistakes.opt"});
  EXPECT_EQ(result.out, testsupport::readfile(WEXCORIN_EXAMPLES "/solver_mistakes.expected"));
  EXPECT_EQ(result.code, 1);
}

TEST(examples, settings_that_are_written_read_back_the_same) {
  const ttool tool;
  tool.linkexamples();
  for (const char* options : {"examples/solver.opt", "examples/solver_priorities.opt"}) {
    tool.run({"write", definition, options, "-o", "first.opt"});
    const auto result = tool.run({"write", definition, "first.opt", "-o", "second.opt"});
    EXPECT_EQ(result.code, 0) << result.err;
    EXPECT_FALSE(tool.contents("first.opt").empty());
    EXPECT_EQ(tool.contents("second.opt"), tool.contents("first.opt"));
  }
}

}  // namespace
