// show, help and write, and how the tool answers wrong use.
#include <nlohmann/json.hpp>

#include "tool/process.h"

namespace {

using tooltest::ttool;

constexpr std::string_view definition = R"(basic group 1 1 Basic options
iterlim integer 1 100 minint 1000 1 1 Iteration limit
tol double 2 1e-6 0 maxdouble 1 1 Tolerance
log boolean 3 0 1 1 Log
method enumstr 4 primal 1 1 Method
 primal 1 Primal simplex
 dual 1 Dual simplex
level enumint 5 10 1 1 Level
 10 1 low
 20 1 high
range integer.TWO 6 1 0 9 1 1 Two numbers
title string 7 "no title" 1 1 Title
cuts strlist 8 1 1 Collected texts
iterations synonym iterlim
)";

constexpr std::string_view options = "tol 2.5e-20\nlog yes\nrange 3 4\ntitle R\xE4tsel\ncuts a\ncuts b c\n";

TEST(show, table) {
  const ttool tool({{"solver.def", definition}, {"main.opt", options}});
  const auto all = tool.run({"show", "solver.def", "main.opt"});
  EXPECT_EQ(all.out, R"(Nr  Name     Type       Set  Value     Default     Range or values
 1  Help     immediate
 2  iterlim  integer         100       100         minint to 1000
 3  tol      double     yes  2.5E-20   1E-6        0 to maxdouble
 4  log      boolean    yes  1         0           0, 1
 5  method   enumstr         primal    primal      primal, dual
 6  level    enumint         10        10          10, 20
 7  range    integer    yes  3 4       1           0 to 9
 8  title    string     yes  Rätsel    "no title"
 9  cuts     strlist    yes  a, "b c"
)");
  EXPECT_EQ(all.err, "");
  EXPECT_EQ(all.code, 0);
  EXPECT_EQ(tool.run({"show", "solver.def", "--changed", "--set", "iterations 7"}).out,
            "Nr  Name     Type     Set  Value  Default  Range or values\n"
            " 2  iterlim  integer  yes  7      100      minint to 1000\n");
}

TEST(show, json) {
  const ttool tool({{"solver.def", definition}, {"main.opt", options}});
  const auto document = nlohmann::json::parse(tool.run({"show", "solver.def", "main.opt", "--json"}).out);
  EXPECT_EQ(document["definition"], "solver.def");
  EXPECT_EQ(document["options"], nlohmann::json::parse(R"json([
    {"number": 1, "name": "Help", "type": "immediate", "set": false, "value": null, "default": null},
    {"number": 2, "name": "iterlim", "type": "integer", "set": false, "value": 100, "default": 100,
     "low": -2147483648, "high": 1000},
    {"number": 3, "name": "tol", "type": "double", "set": true, "value": 2.5e-20, "default": 1e-6,
     "low": 0.0, "high": 1e299},
    {"number": 4, "name": "log", "type": "boolean", "set": true, "value": true, "default": false,
     "values": [false, true]},
    {"number": 5, "name": "method", "type": "enumstr", "set": false, "value": "primal", "default": "primal",
     "values": ["primal", "dual"]},
    {"number": 6, "name": "level", "type": "enumint", "set": false, "value": 10, "default": 10,
     "values": [10, 20]},
    {"number": 7, "name": "range", "type": "integer", "set": true, "value": 3, "value2": 4, "default": 1,
     "low": 0, "high": 9},
    {"number": 8, "name": "title", "type": "string", "set": true, "value": "Rätsel", "default": "no title"},
    {"number": 9, "name": "cuts", "type": "strlist", "set": true, "value": ["a", "b c"], "default": []}
  ])json"));
}

TEST(show, problemsGoToStandardError) {
  const ttool tool({{"solver.def", definition}, {"main.opt", "iterlin 5\n"}});
  const auto result = tool.run({"show", "solver.def", "main.opt", "--changed"});
  EXPECT_EQ(result.out, "Nr  Name  Type  Set  Value  Default  Range or values\n");
  EXPECT_EQ(result.err, "main.opt:1: error: Unknown option \"iterlin\"; did you mean \"iterlim\"?\n");
  EXPECT_EQ(result.code, 1);
  const auto unopened = tool.run({"show", "solver.def", "none.opt"});
  EXPECT_EQ(unopened.out, "");
  EXPECT_EQ(unopened.code, 2);
}

TEST(help, requests) {
  const ttool tool({{"solver.def", definition}});
  const std::string indent(24, ' ');
  EXPECT_EQ(tool.run({"help", "solver.def", "iterations"}).out,
            "iterations is a synonym for iterlim\niterlim: Iteration limit\n" + indent +
                "integer,  range: minint to 1000 default: 100\n");
  const auto summary = tool.run({"help", "solver.def"});
  EXPECT_EQ(summary.out.substr(0, 41), "\nOptions summary by group\n\nBasic options\n");
  EXPECT_EQ(summary.code, 0);
  EXPECT_NE(tool.run({"help", "solver.def", "2"}).out.find("Options in alphabetical order\n"),
            std::string::npos);

  const auto unknown = tool.run({"help", "solver.def", "iterlin"});
  EXPECT_EQ(unknown.out, summary.out);
  EXPECT_EQ(unknown.err, "wexcorin: there is no option \"iterlin\"; did you mean \"iterlim\"?\n");
  EXPECT_EQ(unknown.code, 1);
}

TEST(write, settings) {
  const ttool tool({{"solver.def", definition}, {"main.opt", options}});
  constexpr std::string_view written =
      "iterlim=7\ntol=2.5E-20\nlog=1\nrange=3 4\ntitle=R\xE4tsel\ncuts=a\ncuts=\"b c\"\n";
  const auto tofile = tool.run({"write", "solver.def", "main.opt", "--set", "iterlim 7", "-o", "new.opt"});
  EXPECT_EQ(tofile.code, 0);
  EXPECT_EQ(tofile.out + tofile.err, "");
  EXPECT_EQ(tool.contents("new.opt"), written);
  EXPECT_EQ(tool.run({"write", "solver.def", "-", "-o", "-"}, written).out, written);

  const auto unwritable = tool.run({"write", "solver.def", "main.opt", "-o", "none/new.opt"});
  EXPECT_EQ(unwritable.err,
            "none/new.opt: error: Cannot write parameter file \"none/new.opt\"\n"
            "none/new.opt: note: Error code = 2; No such file or directory\n");
  EXPECT_EQ(unwritable.code, 2);
}

TEST(doc, forms) {
  const ttool tool({{"solver.def", "iterlim integer 1 100 minint 1000 1 1 Limit\n"}});
  struct {
    std::string form;
    std::string_view part;
  } const rows[] = {
      {"definition", "\niterlim integer 1 100 minint 1000 1 1 Limit\n"},
      {"pascal", "\n   Tpfintegerkeys = (\n       pfiterlim     );\n"},
      {"html", "<td> iterlim </td>\n<td> integer </td>\n"},
      {"c", "\n  solver_nr_iterlim = 2, /* Limit */\n"},
      {"markdown", "\n### `iterlim`\n"},
      {"json", "\n      \"name\": \"iterlim\",\n"},
  };
  for (const auto& [form, part] : rows) {
    const auto tostdout = tool.run({"doc", form, "solver.def", "-o", "-"});
    EXPECT_NE(tostdout.out.find(part), std::string::npos) << tostdout.out;
    EXPECT_EQ(tostdout.code, 0);
    EXPECT_EQ(tool.run({"doc", form, "solver.def", "-o", "new"}).code, 0);
    EXPECT_EQ(tool.contents("new"), tostdout.out);
    const auto full = tool.run({"doc", form, "solver.def", "-o", "/dev/full"});
    EXPECT_EQ(full.err, "/dev/full: error: cannot write the file: No space left on device\n");
    EXPECT_EQ(full.code, 2);
    const auto directory = tool.run({"doc", form, "solver.def", "-o", "."});
    EXPECT_EQ(directory.err, ".: error: cannot write the file: Is a directory\n");
    EXPECT_EQ(directory.code, 2);
    EXPECT_EQ(tool.run({"doc", form, "none.def", "-o", "new"}).code, 2);
    EXPECT_EQ(tool.contents("new"), tostdout.out);  // what was there stays
  }
}

TEST(tool, wrongUse) {
  const ttool tool({{"solver.def", definition}});
  struct {
    std::vector<std::string> arguments;
    std::string_view said;
  } const rows[] = {
      {{}, "wexcorin: A subcommand is required\nTry 'wexcorin --help'.\n"},
      {{"check"}, "wexcorin check: DEF is required\nTry 'wexcorin check --help'.\n"},
      {{"show", "solver.def", "--all"}, "--all"},
      {{"write", "solver.def", "-o", "new.opt"}, "OPTFILE"},
      {{"doc", "pdf", "solver.def", "-o", "-"}, "there is no form \"pdf\""},
      {{"check", std::string(255, 'x')}, "file names may have at most 254 characters"},
  };
  for (const auto& [arguments, said] : rows) {
    const auto result = tool.run(arguments);
    EXPECT_NE(result.err.find(said), std::string::npos) << result.err;
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.code, 2);
  }
}

TEST(tool, explainsItself) {
  const ttool tool;
  EXPECT_EQ(tool.run({"--version"}).out.substr(0, 9), "wexcorin ");
  for (const std::string command : {"check", "show", "help", "write", "doc"}) {
    const auto result = tool.run({command, "--help"});
    EXPECT_NE(result.out.find("wexcorin " + command), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("Exit codes:"), std::string::npos);
    EXPECT_EQ(result.code, 0);
  }
}

}  // namespace
