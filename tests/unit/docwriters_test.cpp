// The writers for maintainers (definition file, Pascal include file, HTML table) and the HTML writer under
// them, byte for byte.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <regex>
#include <string>

#include "base/zqaaudit.h"
#include "options/vksoptions.h"
#include "output/htmlwr.h"
#include "output/vksoptionwriter.h"
#include "support/handle.h"

namespace optcore::docwriterstest {

using testsupport::readfile;
using testsupport::ttempdir;
using twrite = std::int32_t (tvksoptionwriter::*)(std::string_view) const;

std::string written(twrite write, const std::string& definition) {
  const ttempdir directory;
  tvksoptions store;
  store.optreaddefinition(directory.write("def", definition));
  const int standardinput = fcntl(STDIN_FILENO, F_GETFD);
  EXPECT_EQ((tvksoptionwriter(store.definition()).*write)("/no/such/directory/file"), ENOENT);
  EXPECT_EQ((tvksoptionwriter(store.definition()).*write)("/dev/full"), ENOSPC);
  EXPECT_EQ((tvksoptionwriter(store.definition()).*write)(directory.path("out")), 0);
  EXPECT_EQ(fcntl(STDIN_FILENO, F_GETFD), standardinput);  // is still open
  return readfile(directory.path("out"));
}

// A definition as the writer writes it. The extreme integers are written as words if they are values of an
// integer option, but as digits in an enumint's default, a help flag or a group; the HTML table has a word
// for the group.
constexpr const char* everytype =
    "num integer.TWO 1 5 minint maxint 1 1 A number\n   with more to say\n"
    "low integer 2 minint minint maxint 2147483647 2147483647 t\n"
    "real double.OPT 2 1E-20 mindouble 1E20 1 1 A real\nname string 3 \"a b\" 0 1 A name\n"
    "none string 4 \"\" 0 1 \nflag boolean.OPT 5 1  1 1 A flag\nword enumstr.TWO 6 x  1 1 A word\n"
    " x 1 first\n y 0 second\ncode enumint.NV 7 2147483647  1 1 A code\n 2 1 two\n maxint 1 most\n"
    "bare enumint 7 1  1 1 t\nlist multilist 8 1 1 A list\n num real\nall macro 1 1 All of them\n num\n"
    " flag\nbounds immediate NoBounds 1 1 Bounds\n.prior double 6 1 0 maxdouble 1 1 t\n"
    "old synonym num\nver deprecated options\n   num  \n   real  use num\nver obsolete options\n"
    "   name  gone\n";

TEST(definitionwriter, writes_what_the_reader_takes_back) {
  // Every definition already has the first option, which is written without its modifier because of its type.
  const std::string help = "Help immediate.OPT Help 0 0 \n";
  EXPECT_EQ(written(&tvksoptionwriter::writedefinition, everytype), help + everytype);
  EXPECT_EQ(written(&tvksoptionwriter::writedefinition, help), help + "Help immediate Help 0 0 \n");
  // Not written: groups, lists of strings, the longer help of a boolean, names that are unknown.
  EXPECT_EQ(written(&tvksoptionwriter::writedefinition,
                    "g group 1 1 Main\nr double 4 1e-20 .5 maxdouble 1 1 t\ntexts strlist 9 1 1 Texts\n"
                    "flag boolean 5 1 1 1\n not written back\nlist multilist 8 1 1 t\n nosuch\n"
                    "lost synonym nosuch\nold synonym r\ndep deprecated\n old\n"),
            help +
                "r double 4 1E-20 0.5 maxdouble 1 1 t\nflag boolean 5 1  1 1 \nlist multilist 8 1 1 t\n"
                "lost synonym \nold synonym r\nver deprecated options\n   r  \n");
}

// The members of a list, and the lines that are written for them.
TEST(definitionwriter, breaks_a_line_where_a_name_would_pass_80_characters) {
  const testsupport::ttable rows = {__LINE__, R"(
    <39a> <39b> => \x20<39a> <39b>\n
    <39a> <40b> => \x20<39a>\n <40b>\n
    <79a> => \x20<79a>\n
    // the line before a long name is then empty
    <80a> => \n <80a>\n
  )"};
  testsupport::eachrow(rows, [](const testsupport::tcolumns& columns) {
    const std::string members = std::regex_replace(columns[0] + ' ', std::regex(" "), " boolean 1 0 1 1\n");
    const std::string text = written(&tvksoptionwriter::writedefinition,
                                     members + "list multilist 1 1 1 t\n " + columns[0] + '\n');
    EXPECT_EQ(text.substr(text.find("list")), "list multilist 1 1 1 t\n" + columns[1]);
  });
}

// An empty line follows each line that ends in "|".
TEST(delphiwriter, lists_names_and_numbers_by_kind_of_value) {
  const auto include = [](const std::string& definition) {
    const std::string head = "// file created by " + std::string(zqagetauditline()) + "\ntype\n";
    const std::string text = written(&tvksoptionwriter::writedelphiinc, definition);
    EXPECT_EQ(text.substr(0, head.size()), head);
    return std::regex_replace(text.substr(head.size()), std::regex("\n\n"), "|\n");
  };
  EXPECT_EQ(include("texts strlist 1 1 1\n"), "\nconst|\n");
  const std::string name(254, 'n');  // with "pf" too long for a text: it is cut, and not padded
  EXPECT_EQ(include(name + " double 1 0 0 1 1 1\n"),
            "\n   Tpfrealkeys = (\n       pf" + name.substr(0, 253) + ");|\nconst|\n" +
                "   pfrealmap: array[Tpfrealkeys] of integer = (\n       2    );|\n");
  const std::string names = "i1 i2 i3 i4 a_rather_long_name i6 i7 i8 i9 ";
  EXPECT_EQ(
      include(
          std::regex_replace(names, std::regex(" "), " boolean 1 0 1 1\n") +
          "i10 integer 1 0 0 1 1 1\ni11 enumint 1 0 1 1\n 0 1\ns1 string 1 x 1 1\ns2 enumstr 1 x 1 1\n"
          " x 1\nd1 double 1 0 0 1 1 1\nskipped strlist 1 1 1\nno multilist 1 1 1\n i1\nm1 macro 1 1\n i1\n"),
      R"(
   Tpfintegerkeys = (
       pfi1               , pfi2               , pfi3               , pfi4               , pfa_rather_long_name        
     , pfi6               , pfi7               , pfi8               , pfi9               , pfi10         
     , pfi11         );|
   Tpfrealkeys = (
       pfd1          );|
   Tpfstringkeys = (
       pfs1               , pfs2          );|
   Tpfkeys = (
       pfm1          );|
const|
   pfintegermap: array[Tpfintegerkeys] of integer = (
       2        , 3        , 4        , 5        , 6        , 7        , 8        , 9        , 10       , 11  
     , 12   );|
   pfrealmap: array[Tpfrealkeys] of integer = (
       15   );|
   pfstringmap: array[Tpfstringkeys] of integer = (
       13       , 14   );|
   pfmap: array[Tpfkeys] of integer = (
       18   );|
)");
}

TEST(optiontable, has_a_row_for_every_option_and_item) {
  // In the text below "[" stands for the begin of a row, "]" for its end, and "|" for the end of a cell. The
  // writer begins only the first row of items, and does not end the rows of lists and macros.
  std::string table = written(&tvksoptionwriter::writeashtml,
                              "void multilist 8 1 1 t\n nosuch\nlost synonym nosuch\n"
                              "low integer 2 minint minint maxint 2147483647 2147483647 t\n"
                              "code enumint.NV 7 2147483647  1 1 A code\n 2 1 two\n maxint 1 most\n"
                              "bare enumint 7 1  1 1 t\n");
  for (const auto& [markup, sign] :
       {std::pair{"\n<tr>\n", "["}, {"</tr>\n", "]\n"}, {"<td> ", ""}, {" </td>\n", "|"}})
    table = std::regex_replace(table, std::regex(markup), sign);
  EXPECT_EQ(table.substr(table.find("[void")), R"([void|multilist|8||||1|1|t|]
[|||]
[low|integer|2|minint|minint|maxint|maxint|2147483647|t|]
[code|enumint|7|2147483647|||1|1|A code|]
[|||2||||1|two|]
|||2147483647||||1|most|]
[bare|enumint|7|1|||1|1|t|]
[[lost|synonym||]
</table>

</body>
</html>
)");
}

TEST(htmlwr, operations_write_their_markup) {
  using enum thtmlwrite::talign;
  const ttempdir directory;
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
  const std::string page = std::regex_replace(readfile(directory.path("page")), std::regex("\n"), "|");
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
