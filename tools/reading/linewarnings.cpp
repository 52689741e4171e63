// Reads a file in blocks and looks at the beginning and the length of each line.
#include "tools/reading/linewarnings.h"

#include <algorithm>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

#include "base/strutilx.h"
#include "input/linereader.h"
#include "options/codes.h"
#include "tools/reading/earlyend.h"
#include "tools/reading/regularfile.h"

namespace tool {

namespace {

using namespace optcore;

// The characters of a line that do not belong there.
struct toddcharacters {
  bool returns = false;  // has a carriage return that is not at its end
  bool haszero = false;  // has a zero byte
  bool hasmark = false;  // has the byte 26
  bool iscut = false;    // has more than a carriage return after it

  void look(std::string_view part) {
    haszero = haszero || part.find('\0') != std::string_view::npos;
    const std::size_t behind = hasmark ? 0 : part.find('\x1a') + 1;
    if (!hasmark && behind == 0) return;
    hasmark = true;
    iscut = iscut || part.find_first_not_of('\r', behind) != std::string_view::npos;
  }
};

// A line, or its first characters.
struct tbytesofline {
  std::string_view text;
  std::size_t length = 0;
  toddcharacters odd{};
};

// A line that consists of several parts, or may have characters that do not belong there. Its first characters are kept.
class tlongline {
 public:
  bool isempty() const { return flength == 0; }
  void append(std::string_view part) {
    if (part.empty()) return;
    fodd.returns = fodd.returns || fendsinreturn || part.find('\r') < part.size() - 1;
    fodd.look(part);
    fendsinreturn = part.back() == '\r';
    flength += part.size();
    ftext.append(part.substr(0, kept - std::min(kept, ftext.size())));
  }
  tbytesofline bytes() const {
    const std::size_t length = flength - (fendsinreturn ? 1 : 0);
    return {std::string_view(ftext).substr(0, length), length, fodd};
  }
  void clear() { *this = {}; }

 private:
  static constexpr std::size_t kept = 256;
  std::string ftext;
  std::size_t flength = 0;
  toddcharacters fodd;
  bool fendsinreturn = false;
};

class tlinewatch {
 public:
  tlinewatch(const std::string& name, tfilekind kind, const std::function<void(tfinding)>& add)
      : fname(name), fkind(kind), fadd(add) {}

  void line(std::int32_t number, const tbytesofline& line);

 private:
  void warn(std::int32_t number, std::string_view rule, std::string text) {
    fadd({{fname, number}, tseverity::warning, rule, std::move(text)});
  }
  bool isindented(std::string_view text) const;

  const std::string& fname;
  tfilekind fkind;
  const std::function<void(tfinding)>& fadd;
  bool freturns = false;  // was reported
  bool fzero = false;     // was reported
};

bool isnumber(std::string_view word) {
  return !word.empty() && std::ranges::all_of(word, [](char c) { return isdigit(c); });
}

// Whether a line that begins with a blank has the form "name type number" and two more fields, or that of a
// group. Lines of help hardly do. A line that begins with a tab ends the definition, which is reported.
bool tlinewatch::isindented(std::string_view text) const {
  if (fkind != tfilekind::definition || text[0] != ' ') return false;
  std::istringstream stream{std::string(text)};
  std::vector<std::string> words;
  for (std::string word; words.size() < 5 && stream >> word;) words.push_back(word);
  if (words.size() < 4 || !isletter(words[0].front()) || !isnumber(words[2])) return false;
  const std::string_view type = std::string_view(words[1]).substr(0, words[1].find('.'));
  if (struequal(type, "group")) return isnumber(words[3]);
  return words.size() == 5 &&
         std::ranges::any_of(opttypenames, [&](std::string_view each) { return struequal(type, each); });
}

void tlinewatch::line(std::int32_t number, const tbytesofline& line) {
  if (number == 1 && line.text.starts_with("\xEF\xBB\xBF"))
    warn(number, "byte-order-mark",
         "The file begins with a byte order mark, for which its first line is refused; save the file "
         "without the mark");
  if (line.odd.haszero && !std::exchange(fzero, true))
    warn(number, "zero-byte", "The line holds a zero byte, so the file is hardly a text");
  if (line.odd.haszero) return;
  if (line.odd.returns && !std::exchange(freturns, true))
    warn(number, "return-alone",
         "A carriage return alone does not end a line; end the lines with line feeds");
  if (line.text.empty() || line.text.starts_with('*')) return;
  if (line.odd.iscut)
    warn(number, "ctrl-z", "The byte 26 (Ctrl-Z) ends the line; what follows it on the line is not read");
  if (line.length > tlinereader::maxline)
    warn(number, "line-cut",
         "The line has " + std::to_string(line.length) + " characters; only the first " +
             std::to_string(tlinereader::maxline) + " are read");
  if (isindented(line.text))
    warn(number, "indented",
         "The line looks like the beginning of a definition, but begins with a blank, so it continues the "
         "definition above it");
}

}  // namespace

void warnoflines(const std::string& path, const std::string& name, tfilekind kind, std::int32_t last,
                 const std::function<void(tfinding)>& add) {
  if (isutf16(path)) return;
  tregularfile file(path);
  tlinewatch watch(name, kind, add);
  tlongline line;
  std::int32_t number = 1;
  const auto reads = [&] { return last == 0 || number <= last; };
  for (std::string_view rest = file.next(); reads() && !rest.empty(); rest = file.next()) {
    const bool isplain =
        rest.find('\r') == rest.npos && rest.find('\0') == rest.npos && rest.find('\x1a') == rest.npos;
    while (!rest.empty() && reads()) {
      const std::size_t feed = rest.find('\n');
      if (feed == std::string_view::npos || !line.isempty() || !isplain) line.append(rest.substr(0, feed));
      if (feed == std::string_view::npos) break;
      watch.line(number++, line.isempty() ? tbytesofline{rest.substr(0, feed), feed} : line.bytes());
      if (!line.isempty()) line.clear();
      rest.remove_prefix(feed + 1);
    }
  }
  if (!line.isempty() && reads()) watch.line(number, line.bytes());
}

}  // namespace tool
