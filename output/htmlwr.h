// A small streaming writer of HTML files. Each operation writes its markup at once; there is no document
// tree. Texts are escaped; raw markup, anchor names and link targets are written as they are.
#pragma once

#include <cstdint>
#include <string_view>

#include "output/textfile.h"

namespace optcore {

class thtmlwrite {
 public:
  enum class talign : std::uint8_t { left, right, center };

  // Creates or truncates the file and begins the page. If the file cannot be opened, close returns the error,
  // and the operations do nothing.
  explicit thtmlwrite(std::string_view filename);
  thtmlwrite(const thtmlwrite&) = delete;
  thtmlwrite& operator=(const thtmlwrite&) = delete;
  ~thtmlwrite() { close(); }

  // Ends the page and closes the file. Returns 0 or the system's code of the first error. Further calls only
  // return the same code.
  std::int32_t close() noexcept;

  void writehtmlstr(std::string_view text);

  // ---- tables
  void starttable(bool border);
  void endtable() { fout.writeline("</table>"); }
  void startrow() { fout.write("\n<tr>\n"); }
  void endrow() { fout.writeline("</tr>"); }
  void startcell() { fout.write("<td> "); }
  void endcell() { fout.writeline(" </td>"); }
  void addcell(std::string_view text);

  // ---- operations that neither the library nor the tool calls (htmlwrmore.cpp): text, links, lists, and
  // colours as red, green and blue
  void addtext(std::string_view text);
  void passhtml(std::string_view markup);
  void addbreak() { fout.write("<br>"); }
  void startpara() { fout.write("<p>"); }
  void endpara() { fout.writeline("</p>"); }
  void addpara(std::string_view text);
  void addheading(std::int32_t level, talign align, std::string_view text);
  void addanchor(std::string_view name);
  void addhyperlink(std::string_view target, std::string_view anchor, std::string_view text);
  void startcellaligned(talign align);
  void startcellcolor(std::uint8_t r, std::uint8_t g, std::uint8_t b);
  void fgcolor(std::uint8_t r, std::uint8_t g, std::uint8_t b) { writecolor("<COLOR", r, g, b); }
  void bgcolor(std::uint8_t r, std::uint8_t g, std::uint8_t b) { writecolor("<BGCOLOR", r, g, b); }
  void writecolor(std::string_view prefix, std::uint8_t r, std::uint8_t g, std::uint8_t b);
  void writehexbyte(std::uint8_t value);
  void startbulletlist() { fout.write("<ul>"); }
  void endbulletlist() { fout.writeline("</ul>"); }
  void startnumberedlist() { fout.write("\n<ol>"); }
  void endnumberedlist() { fout.writeline("</ol>"); }
  void startlistitem() { fout.write("<li> "); }
  void endlistitem() { fout.writeline("</li>"); }
  void addlistitem(std::string_view text);

 private:
  ttextfile fout;
};

}  // namespace optcore
