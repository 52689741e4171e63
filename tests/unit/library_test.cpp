// The library outside the store: text conversion, the version line, start and stop of the units, and the text
// scanner. Tokens and echo are tested through the interface.
#include <gmock/gmock.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "api/conversion.h"
#include "api/pchutil.h"
#include "api/pchutilmore.h"
#include "api/signatures.h"
#include "api/units.h"
#include "base/strutilxmore.h"
#include "base/systemerror.h"
#include "base/zqaaudit.h"
#include "base/zqaauditmore.h"
#include "input/miniparser.h"
#include "options/globals.h"
#include "options/vksoptions.h"
#include "support/handle.h"

namespace optcore::librarytest {

TEST(pchutil, texts_of_255_and_more_characters_are_replaced_and_copies_end_in_a_zero) {
  char buffer[300] = "abc";
  convertpchar(buffer);
  EXPECT_EQ(std::memcmp(buffer, "\3abc", 4), 0);
  std::memset(buffer, 'x', 255);
  buffer[255] = '\0';
  convertpchar(buffer);
  EXPECT_EQ(std::string(buffer, 22), "\x15" + std::string("ConvertPChar Overflow"));
  EXPECT_EQ(strpcopy(buffer, "abc") + strpcopyn(buffer + 4, "defgh", 2), 5);
  EXPECT_EQ(std::string(buffer, 8), std::string("abc\0de\0t", 8));
  EXPECT_EQ(strpcopyn(buffer, "abc", 0) + strpcopyn(buffer + 1, "abc", -1), 0);
  EXPECT_EQ(std::string(buffer, 4), std::string("\0\0c\0", 4));
  EXPECT_EQ(strtopchar(""), nullptr);
  EXPECT_EQ(strtopchar("abc").get() + std::string(emptytopchar().get()), "abc");
  EXPECT_EQ(pcharlen(nullptr) + pcharlen("abc"), 3U);
}

class audit : public testing::Test {
 protected:
  void SetUp() override {
    zqaauditstart();
    vksoptionsstart();
  }
  void TearDown() override { SetUp(); }
};

TEST_F(audit, line_that_is_set_goes_before_the_library_s) {
  EXPECT_EQ(zqagetsysname(), "Uninitialized   ");
  for (const char* line : {"123456789012", "short"}) {
    zqasetauditlinelib(line);
    EXPECT_EQ(zqagetauditline(), std::string(78, ' '));
  }
  zqasetauditline("_MARK_a name of its own and more_MARK_");
  EXPECT_EQ(zqagetauditline(), "a name of its own and more" + std::string(52, ' '));
  EXPECT_EQ(zqagetsysname(), "a name of its ow");
  zqasetauditline("123456" + std::string(100, 'x') + "123456");
  EXPECT_EQ(zqagetauditline(), std::string(78, 'x'));
}

TEST_F(audit, release_values_agree_with_each_other) {
  EXPECT_FALSE(zqaisalfa() || zqaisbeta() || zqaisauditword("audit1"));
  EXPECT_TRUE(zqaisauditword("aUdIt"));
  EXPECT_EQ(zqagetver(), 20.0);
  EXPECT_EQ(zqagetrel(), "02.0");
  EXPECT_EQ(zqagetvid(), "LX8020-020");
  EXPECT_EQ(zqagetjul(), 46346);  // 21 November 2026
  EXPECT_EQ(zqagetreldat(), "GOLD 21Nov26");
  EXPECT_EQ(zqagethdr(), "x86_64/Linux          ");
  constexpr std::int64_t secondsperday = 86400, daysbefore1970 = 25567;
  const std::int64_t before = std::time(nullptr) / secondsperday;
  zqaauditstart();
  const std::int64_t after = std::time(nullptr) / secondsperday;
  EXPECT_THAT(zqagettoday(), testing::AnyOf(before + daysbefore1970, after + daysbefore1970));  // yesterday
}

TEST_F(audit, runs_when_the_first_parameter_asks_for_it) {
  using namespace std::string_literals;
  const testsupport::ttempdir directory;
  for (const std::string& others : {""s, "program"s, "program\0"s, "audit\0x\0audit\0"s, "program\0audit"s})
    EXPECT_FALSE(zqaauditrun(directory.write("commandline", others).c_str())) << others;
  for (const std::string& line : {"program\0audit\0"s, "program\0Audit\0x\0"s})
    EXPECT_TRUE(zqaauditrun(directory.write("commandline", line).c_str())) << line;
  EXPECT_FALSE(zqaauditrun("no/such/file"));
}

// The test starts its own program with the parameter AUDIT, and makes the query there.
TEST_F(audit, runs_when_the_process_was_started_with_the_parameter) {
  constexpr const char* started = "WEXCORIN_STARTED_FOR_AUDIT";
  if (std::getenv(started) != nullptr) _exit(zqaauditrun() ? 7 : 1);
  EXPECT_FALSE(zqaauditrun());
  // Under a memory checker, only the path leads to the program.
  const std::string program = std::filesystem::read_symlink("/proc/self/exe");
  EXPECT_EXIT((setenv(started, "1", 1), execl(program.c_str(), "program", "audit",
                                              "--gtest_filter=audit.runs_when_the_process*", nullptr)),
              testing::ExitedWithCode(7), "");
}

// The reader always adds an entry before its parts. Parts without an entry are a fault of the library.
TEST(dotoptions, parts_without_an_entry_are_reported) {
  tvksoptions store;
  EXPECT_FALSE(store.dotoptions().addindex("'a'"));
  store.dotoptions().setvalue("1");
  EXPECT_EQ(store.messages().decorated(1).view(), "*** Error Cannot AddIndex to DotObj");
  EXPECT_EQ(store.messages().decorated(2).view(), "*** Error Cannot SetValue to DotObj");
}

// Functions for programs that are linked with the library's objects.
TEST(store, values_by_class_and_name) {
  const testsupport::ttempdir directory;
  tvksoptions store;
  store.optreaddefinition(directory.write("def",
                                          "i integer.TWO 1 0 0 9 1 1\nb boolean.TWO 2 0 1 1\n"
                                          "e enumint.TWO 3 5 1 1\n 5 1\n 6 1\nd double.TWO 4 0 0 9 1 1\n"
                                          "l strlist 5 1 1\n"));
  const auto set = [](auto& option, int first, int second) {
    option.setasinteger(first);
    option.setasinteger2(second);
    return std::string(option.getasstring()) + std::string(option.getasstring2());
  };
  EXPECT_EQ(set(as<tintoption>(*store.definition().getobjects(1)), 3, 4), "34");
  EXPECT_EQ(set(as<tbooleanoption>(*store.definition().getobjects(2)), 1, 0), "10");
  EXPECT_EQ(set(as<tenumintoption>(*store.definition().getobjects(3)), 6, 6), "66");  // 5 is the default
  auto& real = as<tdbloption>(*store.definition().getobjects(4));
  real.setasdouble(2.5);
  real.setasdouble2(1);
  EXPECT_EQ(std::string(real.getasstring()) + std::string(real.getasstring2()), "2.51");
  for (const char* name : {"L", "none"}) store.setasstring(name, "x");
  EXPECT_EQ(std::string(as<tstrlistoption>(*store.definition().getobjects(5)).getasstring()), "1");
  EXPECT_EQ(std::string(store.getasstring("I")) + std::string(store.getasstring("none")), "3");
}

TEST(scanner, the_next_character_runs_across_the_lines_of_a_file_only) {
  const testsupport::ttempdir directory;
  tmessagelist messages;
  twaiting waiting;
  tminiparser file(messages, {});
  EXPECT_EQ(file.fileopen(directory.path("none"), waiting), ENOENT);
  ASSERT_EQ(file.fileopen(directory.write("lines", "ab\n\n*comment\nc"), waiting), 0);
  std::string seen;
  for (file.nextline(); file.ch() != tminiparser::endofinput; file.nextch())
    seen += file.ch() == tminiparser::endofline ? '|' : file.ch();
  EXPECT_EQ(seen, "ab|c|");
  tminiparser text(messages, {});
  text.readfromstr("a");
  seen = text.ch();
  EXPECT_TRUE(text.nextline());
  for (int characters = 0; characters < 4; ++characters, text.nextch()) seen += text.ch();
  EXPECT_EQ(seen, std::string("\x1A") + "a\n\x1A\x1A");
  EXPECT_FALSE(text.nextline());
}

TEST(systemerrors, have_a_code_if_the_system_has_no_text) {
  EXPECT_EQ(errorcodetext(99999).view(), "Error code = 99999; Unknown error");
}

// The test program itself has loaded the library once; a second load and its unload change nothing.
TEST(units, start_with_the_first_load_and_stop_after_the_exit_procedures) {
  static std::string told;
  setloadpath("/somewhere");
  libraryload();
  EXPECT_EQ(loadpath(), "/somewhere");
  EXPECT_TRUE(registerexitprocedure([] { told.append("first, load path ").append(loadpath()); }));
  EXPECT_TRUE(registerexitprocedure([] { told.append("second; "); }));
  int further = 0;
  while (registerexitprocedure([] {})) ++further;
  EXPECT_GT(further, 0);
  libraryunload();
  EXPECT_EQ(told, "");
  libraryunload();
  EXPECT_EQ(told, "second; first, load path /somewhere");
  EXPECT_EQ(loadpath(), "");
  EXPECT_EQ(zqagetauditline(), "");
  libraryload();
  EXPECT_EQ(charpath(), ':');
  EXPECT_EQ(zqagetauditline().substr(0, 10), "Option Lib");
}

template <class tresult, class... targuments>
constexpr bool takeshandle(tresult (*)(::tvksoptions*, targuments...)) {
  return true;
}
constexpr bool takeshandle(...) { return false; }

// The list of exported functions comes from api/exports.txt.
TEST(library, every_exported_function_with_a_handle_and_no_other_has_a_signature) {
  std::vector<std::string> exported, described;
#define WEXCORIN_BOTH(function, other) \
  if (takeshandle(function)) exported.emplace_back(#function);
#include "abi_both.inc"
  for (const tsignature& signature : signatures()) described.emplace_back(lowercase(signature.name()).view());
  EXPECT_THAT(described, testing::UnorderedElementsAreArray(exported)) << "signatures and api/exports.txt";
}

// The library itself throws nothing but std::bad_alloc. Any other exception is reported as an internal error.
TEST(entrypoints, let_no_exception_out_and_report_lack_of_memory_or_an_internal_error) {
  ::tvksoptions store;
  EXPECT_EQ(guarded(&store, 7, []() -> std::int32_t { throw std::bad_alloc(); }), 7);
  EXPECT_EQ(guarded(&store, []() -> std::int32_t { throw std::runtime_error("x"); }), 0);
  EXPECT_EQ(store.messages().decorated(1).view(), "*** Error Out of memory");
  EXPECT_EQ(store.messages().decorated(2).view(), "*** Error Internal error");
}

}  // namespace optcore::librarytest
