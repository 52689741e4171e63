// A small streaming writer of HTML files.
#include "output/htmlwr.h"

#include <algorithm>
#include <array>

#include "base/numtext.h"

namespace optcore {

namespace {

// The names of the bytes from 160 on, as characters of ISO 8859-1. "cedille" is what this writer has always
// written.
constexpr std::array<std::string_view, 96> upperentities = {
    "nbsp",   "iexcl",  "cent",   "pound",  "curren",  "yen",    "brvbar", "sect",   "uml",    "copy",
    "ordf",   "laquo",  "not",    "shy",    "reg",     "macr",   "deg",    "plusmn", "sup2",   "sup3",
    "acute",  "micro",  "para",   "middot", "cedille", "sup1",   "ordm",   "raquo",  "frac14", "frac12",
    "frac34", "iquest", "Agrave", "Aacute", "Acirc",   "Atilde", "Auml",   "Aring",  "AElig",  "Ccedil",
    "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave",  "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde",
    "Ograve", "Oacute", "Ocirc",  "Otilde", "Ouml",    "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",
    "Uuml",   "Yacute", "THORN",  "szlig",  "agrave",  "aacute", "acirc",  "atilde", "auml",   "aring",
    "aelig",  "ccedil", "egrave", "eacute", "ecirc",   "euml",   "igrave", "iacute", "icirc",  "iuml",
    "eth",    "ntilde", "ograve", "oacute", "ocirc",   "otilde", "ouml",   "divide", "oslash", "ugrave",
    "uacute", "ucirc",  "uuml",   "yacute", "thorn",   "yuml"};

constexpr std::size_t firstupper = 160;
static_assert(upperentities[184 - firstupper] == "cedille" && upperentities.back() == "yuml");

// The entity name of each byte; empty for a byte that stands for itself.
consteval std::array<std::string_view, 256> makehtmlcharmap() {
  std::array<std::string_view, 256> map{};
  map['&'] = "amp";
  map['<'] = "lt";
  map['>'] = "gt";
  std::copy(upperentities.begin(), upperentities.end(), map.begin() + firstupper);
  return map;
}
constexpr std::array<std::string_view, 256> htmlcharmap = makehtmlcharmap();

constexpr std::array<std::string_view, 3> alignnames = {"Left", "Right", "Center"};
std::string_view alignname(thtmlwrite::talign align) { return alignnames[static_cast<std::size_t>(align)]; }

}  // namespace

thtmlwrite::thtmlwrite(std::string_view filename) {
  fout.open(filename);
  fout.write("<html>\n<body>\n");
}

std::int32_t thtmlwrite::close() noexcept {
  fout.write("\n</body>\n</html>\n");
  return fout.close();
}

// ---- text

void thtmlwrite::writehtmlstr(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string_view entity = htmlcharmap[static_cast<unsigned char>(text[i])];
    if (entity.empty())
      fout.write(text.substr(i, 1));
    else
      fout.write("&", entity, ";");
  }
}

void thtmlwrite::addtext(std::string_view text) {
  writehtmlstr(text);
  fout.write(" ");
}

void thtmlwrite::passhtml(std::string_view markup) { fout.writeline(markup); }

void thtmlwrite::addpara(std::string_view text) {
  startpara();
  addtext(text);
  endpara();
}

void thtmlwrite::addheading(std::int32_t level, talign align, std::string_view text) {
  const tnumbertext number = inttostr(std::clamp(level, 1, 6));
  fout.write("\n<h", number, " align=", alignname(align), ">");
  writehtmlstr(text);
  fout.writeline("</h", number, ">");
}

void thtmlwrite::addanchor(std::string_view name) { fout.writeline("\n<a name=\"", name, "\">"); }

void thtmlwrite::addhyperlink(std::string_view target, std::string_view anchor, std::string_view text) {
  fout.write("<a href=\"", target, anchor.empty() ? "" : "#", anchor, "\">");
  writehtmlstr(text);
  fout.write("</a>");
}

// ---- tables

void thtmlwrite::starttable(bool border) { fout.writeline("\n<table", border ? " border" : "", ">"); }

void thtmlwrite::addcell(std::string_view text) {
  startcell();
  writehtmlstr(text);
  endcell();
}

void thtmlwrite::startcellaligned(talign align) { fout.write("<td align=", alignname(align), ">"); }

// ---- colours

void thtmlwrite::startcellcolor(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  fout.write("<td ");
  writecolor("BGCOLOR", r, g, b);
}

void thtmlwrite::writecolor(std::string_view prefix, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  fout.write(prefix, "=\"");
  for (const std::uint8_t part : {r, g, b}) writehexbyte(part);
  fout.write("\">");
}

void thtmlwrite::writehexbyte(std::uint8_t value) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  fout.write(digits.substr(value / 16, 1), digits.substr(value % 16, 1));
}

// ---- lists

void thtmlwrite::addlistitem(std::string_view text) {
  startlistitem();
  writehtmlstr(text);
  endlistitem();
}

}  // namespace optcore
