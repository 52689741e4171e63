// What bounds the work that a few bytes can ask for.
#include <string>

#include "support/handle.h"

namespace {

using testsupport::foreachrow;
using testsupport::thandle;

// Macros of macros that name each member twice: every level doubles the assignments.
TEST(limits, a_macro_of_macros_gives_up_past_the_number_of_options) {
  std::string definition = "texts strlist 1 1 1\nm0 macro 1 1\n texts\n texts\n";
  for (int level = 1; level < 40; ++level) {
    const std::string below = " m" + std::to_string(level - 1) + "\n";
    definition += "m" + std::to_string(level) + " macro 1 1\n" + below + below;
  }
  thandle handle;
  handle.definition(definition);
  handle.string("m8 x");
  EXPECT_EQ(handle.listcountstr("texts"), 512);
  EXPECT_EQ(optmessagecount(handle.get()), 0);
  handle.string("m39 x");
  EXPECT_EQ(handle.messages()[1], "*** Value Error Too many members for option \"m39\"");
  EXPECT_LT(handle.listcountstr("texts"), 2000);
}

// A macro's own members all get their turn, however many they are.
TEST(limits, a_macro_sets_all_its_members) {
  std::string definition = "texts strlist 1 1 1\nall macro 1 1\n";
  for (int member = 0; member < 5000; ++member) definition += " texts\n";
  thandle handle;
  handle.definition(definition);
  handle.string("all x");
  EXPECT_EQ(handle.listcountstr("texts"), 5000);
}

// Files that include each other several times over would otherwise be read many millions of times.
TEST(limits, one_call_reads_ten_thousand_files) {
  thandle handle;
  handle.definition("read immediate ReadFile 1 1\nnote strlist 1 1 1\n");
  handle.file("f5", "note x\n");
  for (const std::string name : {"f4", "f3", "f2", "f1"}) {
    std::string lines;
    for (int line = 0; line < 11; ++line) lines += "read %DIR%/f" + std::to_string(name[1] - '0' + 1) + "\n";
    handle.file(name, lines);
  }
  EXPECT_EQ(handle.parameters("read %DIR%/f1\n"), 0);  // would read f5 14,641 times
  EXPECT_LT(handle.listcountstr("note"), 10000);
  std::string innermost;
  for (const std::string& message : handle.takemessages())
    if (message.find("Error") != std::string::npos) innermost = message;
  EXPECT_EQ(innermost, "*** Error Too many parameter files; file ignored");
  // the next call has its own count
  EXPECT_EQ(handle.parameters("read %DIR%/f4\n"), 0);
  EXPECT_EQ(optmessagecount(handle.get()), 0);
}

}  // namespace
