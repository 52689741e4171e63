// The operations of the HTML writer that neither the library nor the tool calls. They are kept for programs
// that are linked with the library's objects.
#include <algorithm>
#include <array>

#include "base/numtext.h"
#include "output/htmlwr.h"

namespace optcore {

namespace {

constexpr std::array<std::string_view, 3> alignnames = {"Left", "Right", "Center"};
std::string_view alignname(thtmlwrite::talign align) { return alignnames[static_cast<std::size_t>(align)]; }

}  // namespace

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

void thtmlwrite::startcellaligned(talign align) { fout.write("<td align=", alignname(align), ">"); }

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

void thtmlwrite::addlistitem(std::string_view text) {
  startlistitem();
  writehtmlstr(text);
  endlistitem();
}

}  // namespace optcore
