// Reads a file in blocks and looks at the beginning and the length of each line.
#include "tools/reading/linewarnings.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

#include "base/strutilx.h"
#include "input/linereader.h"
#include "options/codes.h"

namespace tool {

namespace {

using namespace optcore;

// A line, or its first characters.
struct tbytesofline {
  std::string_view text;
  std::size_t length = 0;
  bool returns = false;  // has a carriage return that is not at its end
};

// A line that consists of several parts or has a carriage return. Its first characters are kept.
class tlongline {
 public:
  bool isempty() const { return flength == 0; }
  void append(std::string_view part) {
    if (part.empty()) return;
    freturns = freturns || fendsinreturn || part.find('\r') < part.size() - 1;
    fendsinreturn = part.back() == '\r';
    flength += part.size();
    ftext.append(part.substr(0, kept - std::min(kept, ftext.size())));
  }
  tbytesofline bytes() const {
    const std::size_t length = flength - (fendsinreturn ? 1 : 0);
    return {std::string_view(ftext).substr(0, length), length, freturns};
  }
  void clear() { *this = {}; }

 private:
  static constexpr std::size_t kept = 256;
  std::string ftext;
  std::size_t flength = 0;
  bool freturns = false, fendsinreturn = false;
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
};

bool isnumber(std::string_view word) {
  if (word.starts_with('-')) word.remove_prefix(1);
  return !word.empty() && std::ranges::all_of(word, [](char c) { return isdigit(c); });
}

// Whether a line that begins with a blank or tab has the form "name type number" and two more fields, or that
// of a group. Lines of help hardly do.
bool tlinewatch::isindented(std::string_view text) const {
  if (fkind != tfilekind::definition || (text[0] != ' ' && text[0] != '\t')) return false;
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
  if (line.returns && !std::exchange(freturns, true))
    warn(number, "return-alone",
         "A carriage return alone does not end a line; end the lines with line feeds");
  if (line.text.empty() || line.text.starts_with('*')) return;
  if (line.length > tlinereader::maxline)
    warn(number, "line-cut",
         "The line has " + std::to_string(line.length) + " characters; only the first " +
             std::to_string(tlinereader::maxline) + " are read");
  if (isindented(line.text))
    warn(number, "indented",
         std::string("The line looks like the beginning of a definition, but begins with a ") +
             (line.text[0] == '\t' ? "tab" : "blank, so it continues the definition above it"));
}

}  // namespace

void warnoflines(const std::string& path, const std::string& name, tfilekind kind, std::int32_t last,
                 const std::function<void(tfinding)>& add) {
  std::error_code problem;
  if (!std::filesystem::is_regular_file(path, problem)) return;
  std::ifstream file(path, std::ios::binary);
  tlinewatch watch(name, kind, add);
  std::array<char, 64 * 1024> block{};
  tlongline line;
  std::int32_t number = 1;
  const auto reads = [&] { return last == 0 || number <= last; };
  while (reads() && (file.read(block.data(), block.size()), file.gcount() > 0)) {
    std::string_view rest(block.data(), static_cast<std::size_t>(file.gcount()));
    const bool hasreturns = rest.find('\r') != std::string_view::npos;
    while (!rest.empty() && reads()) {
      const std::size_t feed = rest.find('\n');
      if (feed == std::string_view::npos || !line.isempty() || hasreturns) line.append(rest.substr(0, feed));
      if (feed == std::string_view::npos) break;
      watch.line(number++, line.isempty() ? tbytesofline{rest.substr(0, feed), feed} : line.bytes());
      if (!line.isempty()) line.clear();
      rest.remove_prefix(feed + 1);
    }
  }
  if (!line.isempty() && reads()) watch.line(number, line.bytes());
}

}  // namespace tool
