// Files of every shape: what is no ordinary file, what changes while it is read, and definitions that name
// themselves.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>

#include "interface/optiontext.h"

namespace testsupport {
namespace {

using namespace std::string_literals;

constexpr const char* options = "a integer 1 0 0 9 1 1\nl strlist 2 1 1\nread immediate ReadFile 1 1\n";

// What a definition and a parameter file of that name are told; nothing is read.
TEST(files, noordinaryfiles) {
  foreachrow(R"(
    %DIR%/ => Error code = 21; Is a directory
    %DIR%/none => Error code = 2; No such file or directory
    \e => Error code = 2; No such file or directory
    /dev/null
  )",
             [](thandle& h, const tcolumns& row) {
               const std::string name =
                   row[0].starts_with('%') ? h.directory().path(row[0].substr(6)) : row[0];
               EXPECT_EQ(h.readdefinition(name) != 0, row[1] != "");
               EXPECT_EQ(h.readparameterfile(name) != 0, row[1] != "");
               const tlines all = h.messages();
               ASSERT_EQ(all.size(), row[1].empty() ? 0u : 4u);
               if (row[1].empty()) return;
               EXPECT_EQ(all[1], "*** Definition Error " + row[1]);
               EXPECT_EQ(all[3], "*** Error " + row[1]);
             });
}

// The system would take such a name for the one before the NUL.
TEST(files, namesarewhole) {
  thandle h;
  h.string("--any x");
  const std::string name = "/dev/null\0x"s;
  EXPECT_EQ(h.readdefinition(name), ENOENT);
  EXPECT_EQ(h.readparameterfile(name), ENOENT);
  EXPECT_EQ(h.writeparameterfile(name), ENOENT);
}

// A device that has no end is one that is too large.
TEST(files, endless) {
  thandle h;
  EXPECT_EQ(h.readparameterfile("/dev/zero"), 0);
  EXPECT_EQ(
      told(h),
      "+/dev/zero | E1 Option keyword expected, saw \"\0\" | E1 Cannot read parameter file \"/dev/zero\" | "
      "E1 Error code = 27; File too large | -/dev/zero"s);
}

TEST(files, fifos) {
  thandle h;
  h.definition(options);
  const std::string path = h.directory().path("fifo");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  // A program that comes late, writes slowly and ends in the middle of a line.
  std::thread writer([&] {
    usleep(100'000);
    const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    for (const std::string_view part : {"a ", "7\nl", " x\n", "l y"}) {
      usleep(20'000);
      EXPECT_EQ(write(descriptor, part.data(), part.size()), static_cast<ssize_t>(part.size()));
    }
    close(descriptor);
  });
  EXPECT_EQ(h.readparameterfile(path), 0);
  writer.join();
  EXPECT_EQ(told(h), "");
  EXPECT_EQ(settings(h), "a=7 l=[x|y]");
}

// Lines that are added during the reading are read or not, one by one; so are files that come and go.
TEST(files, changes) {
  constexpr int n = 1000;
  thandle h;
  h.definition(options);
  std::string text;
  for (int i = 0; i < n; ++i) text += "read %DIR%/inner\nread %DIR%/grows\n";
  h.file("grows", "");
  const std::string inner = h.directory().path("inner");
  const std::string grows = h.directory().path("grows");
  std::thread other([&] {
    const int descriptor = open(grows.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
    for (int i = 0; i < n / 10; ++i) {
      close(open(inner.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
      EXPECT_EQ(write(descriptor, "l x\n", 4), 4);
      unlink(inner.c_str());
    }
    close(descriptor);
  });
  h.parameters(text);
  other.join();
  std::int32_t errors = 0, warnings = 0;
  opterrorcount(h.get(), &errors, &warnings);
  const std::regex expected("No such file or directory|Cannot open parameter file \"inner\"|\"OPT\"");
  for (const std::string& message : h.takemessages())
    EXPECT_TRUE(std::regex_search(message, expected)) << message;
  EXPECT_LE(errors, 2 * n);
  optresetall(h.get());
  h.readparameterfile(grows);
  EXPECT_EQ(h.listcountstr("l"), n / 10);
}

}  // namespace
}  // namespace testsupport
