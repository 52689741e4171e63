// A small streaming writer of HTML files: page, texts and tables. The other operations are in htmlwrmore.cpp.
#include "output/htmlwr.h"

#include <algorithm>
#include <array>

namespace optcore {

namespace {

// The entity names of the bytes from 160 on, which are characters of ISO 8859-1. The name in HTML is "cedil";
// "cedille" is kept so that the output stays the same.
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

// The entity name of each byte; empty for a byte that is written as it is.
consteval std::array<std::string_view, 256> makehtmlcharmap() {
  std::array<std::string_view, 256> map{};
  map['&'] = "amp";
  map['<'] = "lt";
  map['>'] = "gt";
  std::copy(upperentities.begin(), upperentities.end(), map.begin() + firstupper);
  return map;
}
constexpr std::array<std::string_view, 256> htmlcharmap = makehtmlcharmap();

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

// ---- tables

void thtmlwrite::starttable(bool border) { fout.writeline("\n<table", border ? " border" : "", ">"); }

void thtmlwrite::addcell(std::string_view text) {
  startcell();
  writehtmlstr(text);
  endcell();
}

}  // namespace optcore
