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

}  // namespace
