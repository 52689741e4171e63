// The writers for maintainers (definition file, Pascal include file, HTML table) and the HTML writer under
// them, byte for byte.
#include <gtest/gtest.h>

#include <string>

#include "base/zqaaudit.h"
#include "output/htmlwr.h"
#include "output/vksoptionwriter.h"
#include "support/handle.h"

namespace wexcorin {
namespace {

using testsupport::readfile;
using testsupport::ttempdir;

// A store that has read a definition.
class tloaded {
 public:
  explicit tloaded(const std::string& definition) {
    fstore.optreaddefinition(fdirectory.write("def", definition));
  }
  tvksoptions& operator*() { return fstore; }
  std::string written(std::int32_t (tvksoptionwriter::*write)(std::string_view) const) const {
    const std::string path = fdirectory.path("out");
    EXPECT_EQ((tvksoptionwriter(fstore).*write)(path), 0);
    return readfile(path);
  }

 private:
  ttempdir fdirectory;
  tvksoptions fstore;
};

constexpr const char* everytype = R"(main group 1 1 Main options
num integer.TWO 1 5 minint maxint 1 1 A number
   with more to say
real double 2 0.5 mindouble 1e20 1 1 A real
name string 3 "a b" 0 1 A name
none string 4 "" 0 1
flag boolean.OPT 5 1 1 1 A flag
  not written back
word enumstr 6 "x" 1 1 A word
 x 1 first
 y 0 second
code enumint.NV 7 2 1 1 A code
 2 1 two
 maxint 1 most
list multilist 8 1 1 A list
 num real missing
texts strlist 9 1 1 Texts
all macro 1 1 All of them
 num
 flag
bounds immediate NoBounds 1 1 Bounds
old synonym num
dep deprecated
 real use num
 old it is num
obs obsolete
 name gone
)";

TEST(definitionwriter, writes_what_the_reader_takes_back) {
  const char* const expected = R"(Help immediate.OPT Help 0 0 
num integer.TWO 1 5 minint maxint 1 1 A number
   with more to say
real double 2 0.5 mindouble 1E20 1 1 A real
name string 3 "a b" 0 1 A name
none string 4 "" 0 1 
flag boolean.OPT 5 1  1 1 A flag
word enumstr 6 x  1 1 A word
 x 1 first
 y 0 second
code enumint.NV 7 2  1 1 A code
 2 1 two
 maxint 1 most
list multilist 8 1 1 A list
 num real
all macro 1 1 All of them
 num
 flag
bounds immediate NoBounds 1 1 Bounds
old synonym num
ver deprecated options
   num  
   real  use num
ver obsolete options
   name  gone
)";
  const tloaded loaded(everytype);
  EXPECT_EQ(loaded.written(&tvksoptionwriter::writedefinition), expected);
}

// What was written reads back the same but for the first option, which every definition has already and which
// its type does not let be written with its sub-type.
TEST(definitionwriter, reading_and_writing_again_changes_nothing_but_help) {
  const std::string first = tloaded(everytype).written(&tvksoptionwriter::writedefinition);
  const std::string again = tloaded(first).written(&tvksoptionwriter::writedefinition);
  EXPECT_EQ(again,
            "Help immediate.OPT Help 0 0 \nHelp immediate Help 0 0 \n" + first.substr(first.find('\n') + 1));
}

TEST(definitionwriter, breaks_a_line_where_a_name_would_pass_80_characters) {
  const auto name = [](std::size_t length, char letter) { return std::string(length, letter); };
  const struct {
    std::vector<std::string> names;
    std::string lines;
  } rows[] = {
      {{name(39, 'a'), name(39, 'b')}, " " + name(39, 'a') + " " + name(39, 'b') + "\n"},
      {{name(39, 'a'), name(40, 'b')}, " " + name(39, 'a') + "\n " + name(40, 'b') + "\n"},
      {{name(79, 'a')}, " " + name(79, 'a') + "\n"},
      {{name(80, 'a')}, "\n " + name(80, 'a') + "\n"},  // the line before it is empty then
  };
  for (const auto& [names, lines] : rows) {
    std::string definition;
    std::string members;
    for (const std::string& member : names) {
      definition += member + " boolean 1 0 1 1\n";
      members += " " + member;
    }
    const std::string written = tloaded(definition + "list multilist 1 1 1 t\n" + members + "\n")
                                    .written(&tvksoptionwriter::writedefinition);
    EXPECT_EQ(written.substr(written.find("list")), "list multilist 1 1 1 t\n" + lines);
  }
}

// Extreme numbers are words where they are values of an integer, and plain where they are an enumint's
// default, a help flag or a group; the HTML table has a word for the group.
constexpr const char* extremes = R"(big integer 1 maxint minint maxint 1 1 t
low integer 2 minint minint maxint maxint maxint t
code enumint 3 maxint 1 1 t
 maxint 1 most
 minint 1 least
tiny double.OPT 4 1e-20 0 1 1 1 t
word enumstr.TWO 5 x 1 1 t
 x 1 one
void multilist 8 1 1 t
 nosuch
.prior double 6 1 0 maxdouble 1 1 t
bare enumint 7 1 1 1 t
synu synonym nosuch
)";

TEST(definitionwriter, writes_extreme_numbers_subtypes_and_unknown_names) {
  EXPECT_EQ(tloaded(extremes).written(&tvksoptionwriter::writedefinition), R"(Help immediate.OPT Help 0 0 
big integer 1 maxint minint maxint 1 1 t
low integer 2 minint minint maxint 2147483647 2147483647 t
code enumint 3 2147483647  1 1 t
 maxint 1 most
 minint 1 least
tiny double.OPT 4 1E-20 0 1 1 1 t
word enumstr.TWO 5 x  1 1 t
 x 1 one
void multilist 8 1 1 t
.prior double 6 1 0 maxdouble 1 1 t
bare enumint 7 1  1 1 t
synu synonym 
)");
}

TEST(delphiwriter, breaks_lines_cuts_names_and_leaves_out_what_is_empty) {
  const std::string head = "// file created by " + std::string(zqagetauditline()) + "\ntype\n";
  EXPECT_EQ(tloaded("texts strlist 1 1 1\n").written(&tvksoptionwriter::writedelphiinc),
            head + "\nconst\n\n");

  const std::string name(254, 'n');  // with "pf" longer than a text can be: cut, and not padded any more
  EXPECT_EQ(tloaded(name + " double 1 0 0 1 1 1\n").written(&tvksoptionwriter::writedelphiinc),
            head + "\n   Tpfrealkeys = (\n       pf" + name.substr(0, 253) + ");\n\nconst\n\n" +
                "   pfrealmap: array[Tpfrealkeys] of integer = (\n       2    );\n\n");

  std::string definition;
  for (int i = 2; i <= 12; ++i) definition += "d" + std::to_string(i) + " double 1 0 0 1 1 1\n";
  const std::string written = tloaded(definition).written(&tvksoptionwriter::writedelphiinc);
  EXPECT_EQ(written.substr(written.find("of integer = (")), R"(of integer = (
       2        , 3        , 4        , 5        , 6        , 7        , 8        , 9        , 10       , 11  
     , 12   );

)");
}

TEST(delphiwriter, lists_names_and_numbers_by_kind_of_value) {
  const tloaded loaded(R"(i1 integer 1 0 0 1 1 1
i2 boolean 1 0 1 1
i3 integer 1 0 0 1 1 1
i4 integer 1 0 0 1 1 1
a_rather_long_name integer 1 0 0 1 1 1
i6 enumint 1 0 1 1
 0 1
s1 string 1 x 1 1
s2 enumstr 1 x 1 1
 x 1
d1 double 1 0 0 1 1 1
skipped strlist 1 1 1
m1 macro 1 1
 i1
)");
  const std::string expected = "// file created by " + std::string(zqagetauditline()) + R"(
type

   Tpfintegerkeys = (
       pfi1               , pfi2               , pfi3               , pfi4               , pfa_rather_long_name        
     , pfi6          );

   Tpfrealkeys = (
       pfd1          );

   Tpfstringkeys = (
       pfs1               , pfs2          );

   Tpfkeys = (
       pfm1          );

const

   pfintegermap: array[Tpfintegerkeys] of integer = (
       2        , 3        , 4        , 5        , 6        , 7    );

   pfrealmap: array[Tpfrealkeys] of integer = (
       10   );

   pfstringmap: array[Tpfstringkeys] of integer = (
       8        , 9    );

   pfmap: array[Tpfkeys] of integer = (
       12   );

)";
  EXPECT_EQ(loaded.written(&tvksoptionwriter::writedelphiinc), expected);
}

std::string cells(const std::vector<std::string>& texts) {
  std::string result;
  for (const std::string& text : texts) result += "<td> " + text + " </td>\n";
  return result;
}
std::string row(const std::vector<std::string>& texts) { return "\n<tr>\n" + cells(texts) + "</tr>\n"; }

TEST(optiontable, has_a_row_for_every_option_and_item) {
  const std::string expected =
      "<html>\n<body>\n\n<table border>\n" +
      row({"Option", "Type", "UserMap", "Default", "Low", "High", "Group", "Hc", "Help Text"}) +
      row({"Help", "immediate", "0", "Help", "", "", "0", "0", ""}) +
      row({"num", "integer", "1", "5", "minint", "maxint", "1", "1", "A number"}) +
      row({"real", "double", "2", "0.5", "mindouble", "1E20", "1", "1", "A real"}) +
      row({"name", "string", "3", "\"a b\"", "", "", "1", "0", "A name"}) +
      row({"none", "string", "4", "\"\"", "", "", "1", "0", ""}) +
      row({"flag", "boolean", "5", "1", "", "", "1", "1", "A flag"}) +
      row({"word", "enumstr", "6", "x", "", "", "1", "1", "A word"}) +
      row({"", "", "", "x", "", "", "", "1", "first"}) + row({"", "", "", "y", "", "", "", "0", "second"}) +
      row({"code", "enumint", "7", "2", "", "", "1", "1", "A code"}) +
      // only the first item row is started, and the rows of lists and macros are not ended
      row({"", "", "", "2", "", "", "", "1", "two"}) +
      cells({"", "", "", "2147483647", "", "", "", "1", "most"}) + "</tr>\n" +
      row({"list", "multilist", "8", "", "", "", "1", "1", "A list"}) + row({"", "", "num"}) +
      row({"", "", "real"}) + row({"", "", ""}) + "\n<tr>\n" + cells({"texts", "strlist", "9"}) + "\n<tr>\n" +
      cells({"all", "macro", "-1"}) +
      row({"bounds", "immediate", "-1", "NoBounds", "", "", "1", "1", "Bounds"}) +
      row({"old", "synonym", "num"}) + "</table>\n\n</body>\n</html>\n";
  EXPECT_EQ(tloaded(everytype).written(&tvksoptionwriter::writeashtml), expected);
}

TEST(optiontable, has_words_for_groups_and_keeps_rows_open) {
  const std::string written = tloaded(extremes).written(&tvksoptionwriter::writeashtml);
  const std::string rows[] = {
      row({"big", "integer", "1", "maxint", "minint", "maxint", "1", "1", "t"}),
      row({"low", "integer", "2", "minint", "minint", "maxint", "maxint", "2147483647", "t"}),
      row({"code", "enumint", "3", "2147483647", "", "", "1", "1", "t"}),
      row({"bare", "enumint", "7", "1", "", "", "1", "1", "t"}) + "\n<tr>\n" + row({"synu", "synonym", ""}),
  };
  for (const std::string& part : rows) EXPECT_NE(written.find(part), std::string::npos) << part << written;
}

TEST(docwriters, tell_what_could_not_be_opened_or_written) {
  tloaded loaded(everytype);
  const tvksoptionwriter writer(*loaded);
  for (const auto write : {&tvksoptionwriter::writedefinition, &tvksoptionwriter::writedelphiinc,
                           &tvksoptionwriter::writeashtml}) {
    EXPECT_EQ((writer.*write)("/no/such/directory/file"), ENOENT);
    EXPECT_EQ((writer.*write)("/dev/full"), ENOSPC);
  }
}

// What one operation writes between the beginning and the end of a page.
template <class toperation>
std::string html(toperation operation) {
  const ttempdir directory;
  {
    thtmlwrite page(directory.path("page"));
    operation(page);
  }
  const std::string text = readfile(directory.path("page"));
  const std::string begin = "<html>\n<body>\n";
  const std::string end = "\n</body>\n</html>\n";
  EXPECT_EQ(text.substr(0, begin.size()), begin);
  EXPECT_EQ(text.substr(text.size() - end.size()), end);
  return text.substr(begin.size(), text.size() - begin.size() - end.size());
}

TEST(htmlwr, upper_bytes_have_names) {
  std::string bytes;
  for (int byte = 160; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(
      html([&](thtmlwrite& page) { page.writehtmlstr(bytes); }),
      "&nbsp;&iexcl;&cent;&pound;&curren;&yen;&brvbar;&sect;&uml;&copy;&ordf;&laquo;&not;&shy;&reg;&macr;"
      "&deg;&plusmn;&sup2;&sup3;&acute;&micro;&para;&middot;&cedille;&sup1;&ordm;&raquo;&frac14;&frac12;"
      "&frac34;&iquest;&Agrave;&Aacute;&Acirc;&Atilde;&Auml;&Aring;&AElig;&Ccedil;&Egrave;&Eacute;&Ecirc;"
      "&Euml;&Igrave;&Iacute;&Icirc;&Iuml;&ETH;&Ntilde;&Ograve;&Oacute;&Ocirc;&Otilde;&Ouml;&times;"
      "&Oslash;&Ugrave;&Uacute;&Ucirc;&Uuml;&Yacute;&THORN;&szlig;&agrave;&aacute;&acirc;&atilde;&auml;"
      "&aring;&aelig;&ccedil;&egrave;&eacute;&ecirc;&euml;&igrave;&iacute;&icirc;&iuml;&eth;&ntilde;"
      "&ograve;&oacute;&ocirc;&otilde;&ouml;&divide;&oslash;&ugrave;&uacute;&ucirc;&uuml;&yacute;&thorn;"
      "&yuml;");
}

TEST(htmlwr, operations_write_their_markup) {
  using thtml = thtmlwrite;
  struct {
    int where;
    void (*operation)(thtml&);
    const char* markup;
  } const rows[] = {
      {__LINE__, [](thtml& h) { h.writehtmlstr("a<b & \"c\">"); }, "a&lt;b &amp; \"c\"&gt;"},
      {__LINE__, [](thtml& h) { h.writehtmlstr("\x9F"); }, "\x9F"},
      {__LINE__, [](thtml& h) { h.addtext("<"); }, "&lt; "},
      {__LINE__, [](thtml& h) { h.passhtml("<hr>"); }, "<hr>\n"},
      {__LINE__, [](thtml& h) { h.addbreak(); }, "<br>"},
      {__LINE__, [](thtml& h) { h.addpara("a&b"); }, "<p>a&amp;b </p>\n"},
      {__LINE__, [](thtml& h) { h.starttable(true); }, "\n<table border>\n"},
      {__LINE__, [](thtml& h) { h.starttable(false); }, "\n<table>\n"},
      {__LINE__, [](thtml& h) { h.endtable(); }, "</table>\n"},
      {__LINE__, [](thtml& h) { h.startrow(); }, "\n<tr>\n"},
      {__LINE__, [](thtml& h) { h.endrow(); }, "</tr>\n"},
      {__LINE__, [](thtml& h) { h.addcell("a<b & c"); }, "<td> a&lt;b &amp; c </td>\n"},
      {__LINE__, [](thtml& h) { h.addcell(""); }, "<td>  </td>\n"},
      {__LINE__, [](thtml& h) { h.startcellaligned(thtml::talign::center); }, "<td align=Center>"},
      {__LINE__, [](thtml& h) { h.startcellcolor(255, 16, 0); }, "<td BGCOLOR=\"FF1000\">"},
      {__LINE__, [](thtml& h) { h.fgcolor(1, 2, 171); }, "<COLOR=\"0102AB\">"},
      {__LINE__, [](thtml& h) { h.bgcolor(0, 0, 0); }, "<BGCOLOR=\"000000\">"},
      {__LINE__, [](thtml& h) { h.startbulletlist(), h.addlistitem("a>"), h.endbulletlist(); },
       "<ul><li> a&gt;</li>\n</ul>\n"},
      {__LINE__, [](thtml& h) { h.startnumberedlist(), h.endnumberedlist(); }, "\n<ol></ol>\n"},
      {__LINE__, [](thtml& h) { h.addanchor("a&b"); }, "\n<a name=\"a&b\">\n"},
      {__LINE__, [](thtml& h) { h.addhyperlink("f.html", "x", "<t>"); },
       "<a href=\"f.html#x\">&lt;t&gt;</a>"},
      {__LINE__, [](thtml& h) { h.addhyperlink("f.html", "", "t"); }, "<a href=\"f.html\">t</a>"},
      {__LINE__, [](thtml& h) { h.addheading(0, thtml::talign::left, "a&b"); },
       "\n<h1 align=Left>a&amp;b</h1>\n"},
      {__LINE__, [](thtml& h) { h.addheading(9, thtml::talign::right, "t"); }, "\n<h6 align=Right>t</h6>\n"},
  };
  for (const auto& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.where, row.markup);
    EXPECT_EQ(html(row.operation), row.markup);
  }
}

}  // namespace
}  // namespace wexcorin
