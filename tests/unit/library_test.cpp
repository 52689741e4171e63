// What stands around the store: text conversion, the version line, start and stop of the units.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "api/pchutil.h"
#include "api/signatures.h"
#include "api/units.h"
#include "base/zqaaudit.h"
#include "options/globals.h"
#include "options/vksoptions.h"

namespace wexcorin {
namespace {

TEST(pchutil, texts_of_255_and_more_characters_are_replaced) {
  char buffer[300] = "abc";
  convertpchar(buffer);
  EXPECT_EQ(std::memcmp(buffer, "\3abc", 4), 0);
  std::memset(buffer, 'x', 255);
  buffer[255] = '\0';
  convertpchar(buffer);
  EXPECT_EQ(std::string(buffer, 22),
            "\x15"
            "ConvertPChar Overflow");
}

TEST(pchutil, copies_end_in_a_zero) {
  char buffer[8] = "-------";
  EXPECT_EQ(strpcopy(buffer, "abc"), 3);
  EXPECT_STREQ(buffer, "abc");
  EXPECT_EQ(strpcopyn(buffer, "defgh", 2), 2);
  EXPECT_STREQ(buffer, "de");
  EXPECT_EQ(strtopchar(""), nullptr);
  EXPECT_STREQ(strtopchar("abc").get(), "abc");
  EXPECT_STREQ(emptytopchar().get(), "");
  EXPECT_EQ(pcharlen(nullptr), 0U);
  EXPECT_EQ(pcharlen("abc"), 3U);
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
  zqasetauditlinelib("123456789012");
  EXPECT_EQ(zqagetauditline(), std::string(78, ' '));
  zqasetauditlinelib("short");
  EXPECT_EQ(zqagetauditline(), std::string(78, ' '));
  zqasetauditline("_MARK_a name of its own and more_MARK_");
  EXPECT_EQ(zqagetauditline(), "a name of its own and more" + std::string(52, ' '));
  EXPECT_EQ(zqagetsysname(), "a name of its ow");
  zqasetauditline("123456" + std::string(100, 'x') + "123456");
  EXPECT_EQ(zqagetauditline(), std::string(78, 'x'));
}

TEST_F(audit, release_values_agree_with_each_other) {
  EXPECT_FALSE(zqaisalfa());
  EXPECT_FALSE(zqaisbeta());
  EXPECT_EQ(zqagetreldat().size(), 12U);
  EXPECT_EQ(zqagetblddat().size(), 12U);
  EXPECT_EQ(zqagethdr(), "x86_64/Linux          ");
  EXPECT_EQ(zqagetcpr().size(), 70U);
  EXPECT_EQ(std::string(zqagetvid()), std::string(zqagetcod()) + "020-020");
  EXPECT_EQ(zqagetver(), 20.0);
  EXPECT_EQ(zqagetjul(), 46346);  // 21 November 2026
  EXPECT_GT(zqagettoday(), 46000);
  EXPECT_TRUE(zqaisauditword("aUdIt"));
  EXPECT_FALSE(zqaisauditword("audit1"));
  EXPECT_FALSE(zqaauditrun());
}

// The reader adds an entry before its parts; parts without an entry would be a mistake in the library.
TEST(dotoptions, parts_without_an_entry_are_told) {
  tvksoptions store;
  EXPECT_FALSE(store.dotoptions().addindex("'a'"));
  store.dotoptions().setvalue("1");
  EXPECT_EQ(store.messages().decorated(1).view(), "*** Error Cannot AddIndex to DotObj");
  EXPECT_EQ(store.messages().decorated(2).view(), "*** Error Cannot SetValue to DotObj");
}

// The test program itself has loaded the library once; a second load and its unload change nothing.
TEST(units, start_with_the_first_load_and_stop_after_the_exit_procedures) {
  static std::string told;
  setloadpath("/somewhere");
  libraryload();
  EXPECT_EQ(loadpath(), "/somewhere");
  EXPECT_TRUE(registerexitprocedure([] { told.append("first, load path ").append(loadpath()); }));
  EXPECT_TRUE(registerexitprocedure([] { told.append("second; "); }));
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

// A function that is added to the interface has to be added to the check.
TEST(library, every_function_with_a_handle_can_be_checked) { EXPECT_EQ(signatures().size(), 75U); }

}  // namespace
}  // namespace wexcorin
