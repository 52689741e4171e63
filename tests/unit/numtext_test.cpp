// Numbers to text and text to numbers.
#include "base/numtext.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace wexcorin {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(numtext, doubles_have_15_digits_and_the_shorter_of_two_forms) {
  struct {
    int where;
    double number;
    const char* text;
  } const rows[] = {
      {__LINE__, 0.0, "0"},
      {__LINE__, -0.0, "0"},
      {__LINE__, -2.5, "-2.5"},
      {__LINE__, 0.1 + 0.2, "0.3"},
      {__LINE__, 1.0 / 3.0, "0.333333333333333"},
      {__LINE__, 123456789012345.0, "123456789012345"},
      // the fixed form reaches from 0.0001 to below 1e15
      {__LINE__, 0.0001, "0.0001"},
      {__LINE__, 0.000099, "9.9E-5"},
      {__LINE__, 999999999999999.0, "999999999999999"},
      {__LINE__, 999999999999999.9, "1000000000000000"},
      {__LINE__, 1e15, "1E15"},
      {__LINE__, 1.25e-300, "1.25E-300"},
      {__LINE__, std::numeric_limits<double>::max(), "1.79769313486232E308"},
      {__LINE__, 5e-324, "4.94065645841247E-324"},
      {__LINE__, std::nan(""), "NAN"},
      {__LINE__, infinity, "INF"},
      {__LINE__, -infinity, "-INF"},
  };
  for (const auto& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.where, "row");
    EXPECT_EQ(std::string(dbltostr(row.number).view()), row.text);
  }
  EXPECT_EQ(dbltostrex(1e299).view(), "maxdouble");
  EXPECT_EQ(dbltostrex(-1e299).view(), "mindouble");
  EXPECT_EQ(dbltostrex(1e298).view(), "1E298");
}

TEST(numtext, texts_are_doubles_as_a_whole_or_not_at_all) {
  constexpr double no = -4711.0;  // for a text that is none
  struct {
    int where;
    std::string text;
    double number;
  } const rows[] = {
      {__LINE__, "+1.5", 1.5},
      {__LINE__, "-.5", -0.5},
      {__LINE__, "2.5d-3", 0.0025},
      {__LINE__, "MaxDouble", 1e299},
      {__LINE__, "mindouble", -1e299},
      {__LINE__, "EPS", 1e-20},
      {__LINE__, "epsdouble", 1e-20},
      {__LINE__, "1e-400", 0.0},
      {__LINE__, "0.000001e-320", 0.0},
      {__LINE__, "0e99999999999999999999", 0.0},
      {__LINE__, "1e-99999999999999999999", 0.0},
      {__LINE__, "0." + std::string(240, '0') + "1e300", 1e59},
      {__LINE__, "1" + std::string(240, '0') + "e-300", 1e-60},
      {__LINE__, "1e400", no},
      {__LINE__, "1e99999999999999999999", no},
      {__LINE__, "1" + std::string(400, '0'), no},
      {__LINE__, "0." + std::string(400, '0') + "1", 0.0},
      {__LINE__, "1d0" + std::string(300, '0'), no},
      {__LINE__, "1" + std::string(240, '0') + "e100", no},
      {__LINE__, "", no},
      {__LINE__, ".", no},
      {__LINE__, "+-1", no},
      {__LINE__, "1e", no},
      {__LINE__, "1dd5", no},
      {__LINE__, "1 ", no},
      {__LINE__, " 1", no},
      {__LINE__, "1,5", no},
      {__LINE__, "0x10", no},
      {__LINE__, "inf", no},
      {__LINE__, "nan", no},
  };
  for (const auto& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.where, row.text);
    double number = -1.0;
    const bool good = strasdoubleex(row.text, number);
    EXPECT_EQ(good ? number : no, row.number);
  }
}

TEST(numtext, texts_are_integers_within_32_bits) {
  struct {
    int where;
    const char* text;
    bool plain;  // for strasintex
    bool wide;   // for strasintex2
    std::int32_t number;
  } const rows[] = {
      {__LINE__, "12", true, true, 12},
      {__LINE__, "-0012", true, true, -12},
      {__LINE__, "MaxInt", true, true, maxint},
      {__LINE__, "minint", true, true, minint},
      {__LINE__, "2147483647", true, true, maxint},
      {__LINE__, "-2147483648", true, true, minint},
      {__LINE__, "2147483648", false, false, 0},
      {__LINE__, "3.0", false, true, 3},
      {__LINE__, "1e3", false, true, 1000},
      {__LINE__, "2.5", false, false, 0},
      {__LINE__, "eps", false, false, 0},
      {__LINE__, "12x", false, false, 0},
      {__LINE__, "", false, false, 0},
  };
  for (const auto& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.where, row.text);
    std::int32_t number = -1;
    EXPECT_EQ(strasintex(row.text, number), row.plain);
    EXPECT_EQ(number, row.plain ? row.number : 0);
    EXPECT_EQ(strasintex2(row.text, number), row.wide);
    EXPECT_EQ(number, row.number);
  }
}

TEST(numtext, integers_as_text) {
  EXPECT_EQ(inttostr(minint).view(), "-2147483648");
  EXPECT_EQ(inttostrex(maxint).view(), "maxint");
  EXPECT_EQ(inttostrex(minint).view(), "minint");
  EXPECT_EQ(inttonicestr(-1234567).view(), "-1,234,567");
  EXPECT_EQ(inttonicestr(1000).view(), "1,000");
  EXPECT_EQ(int64tonicestr(std::numeric_limits<std::int64_t>::min()).view(), "-9,223,372,036,854,775,808");
  EXPECT_EQ(inttonicestrw(1000, 8).view(), "   1,000");
  EXPECT_EQ(inttonicestrw(1000, 400).size(), 255U);
  EXPECT_EQ(inttonicestrw(1000, 3).view(), "1,000");
  EXPECT_EQ(integerwidth(-120), 4);
}

}  // namespace
}  // namespace wexcorin
