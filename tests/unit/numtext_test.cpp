// Numbers to text and text to numbers.
#include "base/numtext.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

#include "support/table.h"

namespace wexcorin {
namespace {

// check(input) gives the result for each word "input:result"; "z" is a zero.
template <class tcheck>
void pairs(const char* text, tcheck check) {
  std::istringstream words(testsupport::literal(text));
  for (std::string word; words >> word;) {
    std::replace(word.begin(), word.end(), 'z', '0');
    const std::string input = word.substr(0, word.find(':'));
    EXPECT_EQ(input + ':' + check(input), word);
  }
}

TEST(numtext, doubles_have_15_digits_and_the_shorter_of_two_forms) {
  // The fixed form reaches from 0.0001 to below 1e15.
  pairs(R"(0:0 -0.0:0 -2.5:-2.5 0.30000000000000004:0.3 0.33333333333333331:0.333333333333333 0.0001:0.0001
           123456789012345:123456789012345 0.000099:9.9E-5 999999999999999:999999999999999
           999999999999999.9:1000000000000000 1e15:1E15 1.25e-300:1.25E-300 nan:NAN inf:INF -inf:-INF
           1.7976931348623157e308:1.79769313486232E308)",
        [](const std::string& number) { return std::string(dbltostr(std::stod(number)).view()); });
  EXPECT_EQ(dbltostr(5e-324).view(), "4.94065645841247E-324");
  EXPECT_EQ(dbltostrex(1e299).view(), "maxdouble");
  EXPECT_EQ(dbltostrex(-1e299).view(), "mindouble");
  EXPECT_EQ(dbltostrex(1e298).view(), "1E298");
}

TEST(numtext, texts_are_doubles_as_a_whole_or_not_at_all) {
  const auto read = [](const std::string& text) {
    double number = -1.0;
    return strasdoubleex(text, number) ? std::string(dbltostr(number).view()) : "none";
  };
  pairs(R"(+1.5:1.5 -.5:-0.5 2.5d-3:0.0025 MaxDouble:1E299 mindouble:-1E299 EPS:1E-20 epsdouble:1E-20 1e-400:0
           0.000001e-320:0 0e99999999999999999999:0 1e-99999999999999999999:0 0.<240z>1e300:1E59
           1<240z>e-300:1E-60 0.<400z>1:0 1e400:none 1e99999999999999999999:none 1<400z>:none 1d0<300z>:none
           1<240z>e100:none .:none 1.2.3:none +-1:none 1e:none 1dd5:none 1,5:none 0x10:none inf:none nan:none)",
        read);
  EXPECT_EQ(read("") + read("1 ") + read(" 1"), "nonenonenone");
}

TEST(numtext, texts_are_integers_within_32_bits) {
  pairs(R"(12:12/12 -0012:-12/-12 MaxInt:2147483647/2147483647 minint:-2147483648/-2147483648
           2147483647:2147483647/2147483647 -2147483648:-2147483648/-2147483648 2147483648:none/none 3.0:none/3
           1e3:none/1000 2.5:none/none eps:none/none 12x:none/none)",
        [](const std::string& text) {
          std::int32_t plain = -1, wide = -1;
          const bool isplain = strasintex(text, plain), iswide = strasintex2(text, wide);
          EXPECT_TRUE((isplain || plain == 0) && (iswide || wide == 0));
          return (isplain ? std::to_string(plain) : "none") + '/' + (iswide ? std::to_string(wide) : "none");
        });
  std::int32_t number = -1;
  EXPECT_FALSE(strasintex("", number) || strasintex2("", number));
}

TEST(numtext, integers_as_text) {
  EXPECT_EQ(inttostr(minint).view(), "-2147483648");
  EXPECT_EQ(std::string(inttostrex(maxint)) + std::string(inttostrex(minint)), "maxintminint");
  EXPECT_EQ(inttonicestr(-1234567).view(), "-1,234,567");
  EXPECT_EQ(int64tonicestr(std::numeric_limits<std::int64_t>::min()).view(), "-9,223,372,036,854,775,808");
  EXPECT_EQ(inttonicestrw(1000, 8).view(), "   1,000");
  EXPECT_EQ(inttonicestrw(1000, 3).view(), "1,000");
  EXPECT_EQ(inttonicestrw(1000, 400).size(), 255U);
  EXPECT_EQ(integerwidth(-120), 4);
}

}  // namespace
}  // namespace wexcorin
