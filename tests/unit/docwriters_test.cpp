// The writers for maintainers (definition file, Pascal include file, HTML table) and the HTML writer under
// them.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <regex>
#include <string>

#include "options/vksoptions.h"
#include "output/htmlwr.h"
#include "output/vksoptionwriter.h"
#include "support/handle.h"

namespace optcore::docwriterstest {

// What they write otherwise is what `wexcorin doc` writes.
TEST(writers, return_the_code_of_a_file_that_cannot_be_written) {
  tvksoptions store;
  store.optreaddefinition("examples/types.def");
  const tvksoptionwriter writer(store.definition());
  for (const auto write : {&tvksoptionwriter::writedefinition, &tvksoptionwriter::writedelphiinc,
                           &tvksoptionwriter::writeashtml}) {
    EXPECT_EQ((writer.*write)("/no/such/directory/file"), ENOENT);
    EXPECT_EQ((writer.*write)("/dev/full"), ENOSPC);
    EXPECT_EQ((writer.*write)("/dev/null"), 0);
  }
  EXPECT_NE(fcntl(STDIN_FILENO, F_GETFD), -1);  // is still open
}

TEST(htmlwr, operations_write_their_markup) {
  using enum thtmlwrite::talign;
  const testsupport::ttempdir directory;
  std::string bytes;
  for (int byte = 159; byte < 256; ++byte) bytes += static_cast<char>(byte);
  {
    thtmlwrite page(directory.path("page"));
    page.writehtmlstr(bytes), page.addtext("a<b & \"c\">"), page.passhtml("<hr>"), page.addbreak();
    page.addpara("a&b"), page.starttable(true), page.starttable(false), page.startrow();
    page.addcell("a<b & c"), page.addcell(""), page.startcellaligned(center), page.startcellcolor(255, 16, 0);
    page.fgcolor(1, 2, 171), page.bgcolor(0, 0, 0), page.endrow(), page.endtable();
    page.startbulletlist(), page.addlistitem("a>"), page.endbulletlist();
    page.startnumberedlist(), page.endnumberedlist(), page.addanchor("a&b");
    page.addhyperlink("f.html", "x", "<t>"), page.addhyperlink("f.html", "", "t");
    page.addheading(0, left, "a&b"), page.addheading(9, right, "t");
  }
  const std::string page =
      std::regex_replace(testsupport::readfile(directory.path("page")), std::regex("\n"), "|");
  EXPECT_EQ(
      page,
      "<html>|<body>|\x9F"
      "&nbsp;&iexcl;&cent;&pound;&curren;&yen;&brvbar;&sect;&uml;&copy;&ordf;&laquo;&not;&shy;&reg;&macr;"
      "&deg;&plusmn;&sup2;&sup3;&acute;&micro;&para;&middot;&cedille;&sup1;&ordm;&raquo;&frac14;&frac12;"
      "&frac34;&iquest;&Agrave;&Aacute;&Acirc;&Atilde;&Auml;&Aring;&AElig;&Ccedil;&Egrave;&Eacute;&Ecirc;"
      "&Euml;&Igrave;&Iacute;&Icirc;&Iuml;&ETH;&Ntilde;&Ograve;&Oacute;&Ocirc;&Otilde;&Ouml;&times;"
      "&Oslash;&Ugrave;&Uacute;&Ucirc;&Uuml;&Yacute;&THORN;&szlig;&agrave;&aacute;&acirc;&atilde;&auml;"
      "&aring;&aelig;&ccedil;&egrave;&eacute;&ecirc;&euml;&igrave;&iacute;&icirc;&iuml;&eth;&ntilde;"
      "&ograve;&oacute;&ocirc;&otilde;&ouml;&divide;&oslash;&ugrave;&uacute;&ucirc;&uuml;&yacute;&thorn;"
      "&yuml;"
      R"(a&lt;b &amp; "c"&gt; <hr>|<br><p>a&amp;b </p>||<table border>||<table>||<tr>|<td> a&lt;b &amp; c </td>|)"
      R"(<td>  </td>|<td align=Center><td BGCOLOR="FF1000"><COLOR="0102AB"><BGCOLOR="000000"></tr>|</table>|)"
      R"(<ul><li> a&gt;</li>|</ul>||<ol></ol>||<a name="a&b">|<a href="f.html#x">&lt;t&gt;</a>)"
      R"(<a href="f.html">t</a>|<h1 align=Left>a&amp;b</h1>||<h6 align=Right>t</h6>||</body>|</html>|)");
}

}  // namespace optcore::docwriterstest
