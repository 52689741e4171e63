// check: each kind of finding with its place, the tool's own warnings, suggestions, JSON and exit codes.
#include <nlohmann/json.hpp>

#include "tool/process.h"

namespace {

using tooltest::ttool;

constexpr std::string_view definition = R"(iterlim integer 1 100 0 1000 1 1 Iteration limit
logfreq integer 2 10 0 maxint 1 1 Log frequency
tol double 3 1e-6 0 1 1 1 Tolerance
method enumstr 4 primal 1 1 Method
 primal 1 Primal simplex
 dual 1 Dual simplex
 barrier 1 Interior point
level enumint 5 10 1 1 Level
 10 1 low
 20 1 high
range integer.TWO 6 1 0 9 1 1 Two numbers
cuts strlist 7 1 1 Collected texts
.prior integer 8 0 0 100 1 1 Priority
fast macro 1 1 Preset
 iterlim
pair multilist 9 1 1 Both
 iterlim logfreq
readfile immediate ReadFile 0 0
iterations synonym iterlim
x deprecated
 logfreq use verbosity
)";

struct tcheckrow {
  int where;
  std::string_view options;   // main.opt
  std::string_view included;  // sub.opt
  std::string findings;       // without the summary
  int code;
};

const tcheckrow rows[] = {
    // library messages: the line, the kind, further messages as notes
    {__LINE__, "iterlim 5\ntol 0.5\n", "", "", 0},
    {__LINE__, "\n* comment\niterlim 1001\n", "",
     "main.opt:3: error: Integer range error for option \"iterlim\" saw \"1001\"\n"
     "main.opt:3: note: Valid range is 0 to 1000\n",
     1},
    {__LINE__, "logfreq 5\n", "", "main.opt:1: warning: deprecated option \"logfreq\"; use verbosity\n", 0},
    {__LINE__, "= 5\n", "", "main.opt:1: error: Option keyword expected, saw \"=\"\n", 1},

    // nested files, also such as leave no notes
    {__LINE__, "readfile sub.opt\niterlim x\n", "\ntol x\n",
     "sub.opt:2: error: Double expected for option \"tol\" saw \"x\"\n"
     "main.opt:2: error: Integer expected, for option \"iterlim\" saw \"x\"\n",
     1},
    {__LINE__, "readfile sub.opt\nreadfile sub.opt\niterlim x\n", "tol 1\n",
     "main.opt:3: error: Integer expected, for option \"iterlim\" saw \"x\"\n", 1},
    {__LINE__, "readfile none.opt\n", "",
     "main.opt:1: error: Cannot open parameter file \"none.opt\"\n"
     "main.opt:1: note: Error code = 2; No such file or directory\n",
     1},

    // suggestions: options and synonyms, nearest first; dot options; enumerated values
    {__LINE__, "iterlmi 5\n", "",
     "main.opt:1: error: Unknown option \"iterlmi\"; did you mean \"iterlim\"?\n", 1},
    {__LINE__, "ITER 5\n", "",
     "main.opt:1: error: Unknown option \"ITER\"; did you mean \"iterlim\" or \"iterations\"?\n", 1},
    {__LINE__, "iterlim_max 5\n", "",
     "main.opt:1: error: Unknown option \"iterlim_max\"; did you mean \"iterlim\"?\n", 1},
    {__LINE__, "zzz 5\n", "", "main.opt:1: error: Unknown option \"zzz\"\n", 1},
    {__LINE__, "x.piror\n", "",
     "main.opt:1: error: unknown .suffix \".piror\" for key \"x\"; did you mean \".prior\"?\n", 1},
    {__LINE__, "method daul\n", "",
     "main.opt:1: error: Unknown value for option \"method\" saw \"daul\"; did you mean \"dual\"?\n"
     "main.opt:1: note: Possible values are  primal dual barrier\n",
     1},
    {__LINE__, "level 11\n", "",
     "main.opt:1: error: Unknown value for option \"level\" saw \"11\"\n"
     "main.opt:1: note: Possible values are  10 20\n",
     1},

    // set twice: only another value matters, by whatever name and through whatever file it comes
    {__LINE__, "iterlim 5\niterlim 5\ntol 1e-3\ntol 0.001\n", "", "", 0},
    {__LINE__, "iterlim 5\niterations 6\n", "",
     "main.opt:2: warning: Option \"iterlim\" is set to 6, but was set to 5 at main.opt:1\n", 0},
    {__LINE__, "iterlim 5\niterlim x\nreadfile sub.opt\ntol x\n", "method dual\niterlim 6\n",
     "main.opt:2: error: Integer expected, for option \"iterlim\" saw \"x\"\n"
     "sub.opt:2: warning: Option \"iterlim\" is set to 6, but was set to 5 at main.opt:1\n"
     "main.opt:4: error: Double expected for option \"tol\" saw \"x\"\n",
     1},
    {__LINE__, "range 1 2\nrange 3 4\nrange * 5\n", "",
     "main.opt:2: warning: First value of option \"range\" is set to 3, but was set to 1 at main.opt:1\n"
     "main.opt:3: warning: Second value of option \"range\" is set to 5, but was set to 4 at main.opt:2\n",
     0},
    {__LINE__, "cuts a\ncuts b\n--any a\n--any b\nx.prior 1\ny.prior 2\n", "", "", 0},
    {__LINE__, "fast 5\niterlim 6\n", "", "", 0},
    {__LINE__, "iterlim 6\nfast 5\n", "",
     "main.opt:2: warning: Option \"iterlim\" is set to 5, but was set to 6 at main.opt:1\n", 0},
    {__LINE__, "iterlim 6\npair 5:6\n", "",
     "main.opt:2: warning: Option \"iterlim\" is set to 5, but was set to 6 at main.opt:1\n", 0},

    // what a file asks to be shown is no finding
    {__LINE__, "help tol\n", "",
     "tol: Tolerance\n                        double,  range: 0 to 1 default: 1E-6\n", 0},
};

TEST(check, findings) {
  for (const tcheckrow& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.where, row.options);
    const ttool tool({{"solver.def", definition}, {"main.opt", row.options}, {"sub.opt", row.included}});
    const auto result = tool.run({"check", "solver.def", "main.opt"});
    const std::size_t summary = result.out.rfind('\n', result.out.size() - 2) + 1;
    EXPECT_EQ(result.out.substr(0, summary), row.findings);
    EXPECT_EQ(result.code, row.code);
    EXPECT_EQ(result.err, "");
  }
}

TEST(check, definition) {
  struct {
    std::string_view text, output;
    int code;
  } const definitions[] = {
      {"a integer 1 5 0 9 1 1 A\n", "no problems; 2 options, 0 set\n", 0},
      {"a integer 1 15 0 9 1 1 A\n",
       "a.def:1: error: Default not in range for option \"a\"\n1 error, 0 warnings; 2 options, 0 set\n", 1},
      {"a integer 1 5 0 9 1 1 A\n\n1 stray\nb integer 1 5 0 9 1 1 B\n",
       "a.def:3: warning: The definition ends here, because no definition can begin like this line; "
       "this line and all that follow are not read\n0 errors, 1 warning; 2 options, 0 set\n",
       0},
  };
  for (const auto& [text, output, code] : definitions) {
    const auto result = ttool({{"a.def", text}}).run({"check", "a.def"});
    EXPECT_EQ(result.out, output);
    EXPECT_EQ(result.code, code);
  }
}

// Names are suggested as the definition's lookup mode wants them typed, and never the one that was typed.
TEST(check, suggestionsInLookupModes) {
  struct {
    std::string_view definition, option, suggestion;
  } const modes[] = {
      {"Minos lookup\nmajor_iterations integer 1 5 0 9 1 1 A\n", "major_iterations 5",
       "\"major iterations\""},
      {"Minos lookup\nmajor_iterations integer 1 5 0 9 1 1 A\n", "major itrations 5", "\"major iterations\""},
      {"Minos lookup\nmethod string 1 a 1 1 A\n", "mtehod slow", "\"method\""},
      {"Path lookup\ntol_x integer 1 5 0 9 1 1 A\ntol_xy integer 1 5 0 9 1 1 A\n", "tol_x 5", "\"tol_xy\""},
  };
  for (const auto& [text, option, suggestion] : modes) {
    const auto result = ttool({{"a.def", text}, {"a.opt", option}}).run({"check", "a.def", "a.opt"});
    EXPECT_NE(result.out.find("; did you mean " + std::string(suggestion) + "?\n"), std::string::npos)
        << result.out;
  }
}

TEST(check, textsAreReadAfterTheFiles) {
  const ttool tool({{"solver.def", definition}, {"main.opt", "iterlim 5\n"}});
  const auto result = tool.run({"check", "solver.def", "--set", "iterlim 6", "--set=tol x", "main.opt"});
  EXPECT_EQ(result.out,
            "--set 'iterlim 6': warning: Option \"iterlim\" is set to 6, but was set to 5 at main.opt:1\n"
            "--set 'tol x': error: Double expected for option \"tol\" saw \"x\"\n"
            "1 error, 1 warning; 12 options, 1 set\n");
  EXPECT_EQ(result.code, 1);
}

TEST(check, standardInput) {
  const ttool tool({{"solver.def", definition}});
  const auto options = tool.run({"check", "solver.def", "-"}, "iterlim 5\niterlim 6\n");
  EXPECT_EQ(options.out,
            "<stdin>:2: warning: Option \"iterlim\" is set to 6, but was set to 5 at <stdin>:1\n"
            "0 errors, 1 warning; 12 options, 1 set\n");
  EXPECT_EQ(tool.run({"check", "-"}, "a widget 1\n").out.substr(0, 17), "<stdin>:1: error:");
  EXPECT_EQ(tool.run({"check", "-", "-"}).code, 2);
}

TEST(check, filesThatCannotBeOpened) {
  const ttool tool({{"solver.def", definition}, {"main.opt", "iterlim x\n"}});
  const auto options = tool.run({"check", "solver.def", "none.opt", "main.opt"});
  EXPECT_EQ(options.err,
            "none.opt: error: Cannot open parameter file \"none.opt\"\n"
            "none.opt: note: Error code = 2; No such file or directory\n");
  EXPECT_EQ(options.out,
            "main.opt:1: error: Integer expected, for option \"iterlim\" saw \"x\"\n"
            "2 errors, 0 warnings; 12 options, 0 set\n");
  EXPECT_EQ(options.code, 2);
  EXPECT_EQ(tool.run({"check", "none.def", "main.opt"}).code, 2);
}

TEST(check, warningsAsErrors) {
  const ttool tool({{"solver.def", definition}, {"main.opt", "logfreq 5\n"}});
  EXPECT_EQ(tool.run({"check", "solver.def", "main.opt"}).code, 0);
  EXPECT_EQ(tool.run({"check", "solver.def", "main.opt", "--warnings-as-errors"}).code, 1);
}

TEST(check, json) {
  // \xE4 alone is no UTF-8: it stands for the ISO 8859-1 character; \xC3\xA4 is the same as UTF-8
  const ttool tool({{"solver.def", definition}, {"main.opt", "method \xE4\xC3\xA4\nmethdo 1\nhelp tol\n"}});
  const auto result = tool.run({"check", "solver.def", "main.opt", "--json"});
  const auto document = nlohmann::json::parse(result.out);
  EXPECT_EQ(document, nlohmann::json::parse(R"json({
    "findings": [
      {"file": "main.opt", "line": 1, "severity": "error",
       "text": "Unknown value for option \"method\" saw \"ää\"",
       "details": ["Possible values are  primal dual barrier"], "suggestions": []},
      {"file": "main.opt", "line": 2, "severity": "error", "text": "Unknown option \"methdo\"",
       "details": [], "suggestions": ["method"]}
    ],
    "help": ["tol: Tolerance", "                        double,  range: 0 to 1 default: 1E-6"],
    "summary": {"errors": 2, "warnings": 0, "options": 12, "set": 0}
  })json"));
  EXPECT_EQ(result.code, 1);
}

// Every message comes out, and the note that there were too many, with the file that was being read.
TEST(check, messageLimit) {
  std::string options;
  for (int line = 1; line <= 6000; ++line) options += "zzz 1\n";
  const ttool tool({{"solver.def", definition}, {"main.opt", options}});
  const std::string out = tool.run({"check", "solver.def", "main.opt"}).out;
  EXPECT_NE(out.find("\nmain.opt:4999: error: Unknown option \"zzz\"\n"
                     "main.opt: error: Maximum of 5000 messages reached\n"),
            std::string::npos);
}

}  // namespace
