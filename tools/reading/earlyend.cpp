// Reads the file once more, up to the line at which the library stopped.
#include "tools/reading/earlyend.h"

#include <algorithm>
#include <sstream>
#include <string_view>

#include "base/textcase.h"
#include "input/linereader.h"
#include "options/codes.h"
#include "tools/reading/regularfile.h"
#include "tools/text.h"

namespace tool {

using namespace optcore;

namespace {

struct tlines {
  std::string last;   // the line at which the library stopped
  std::string above;  // the line before it that begins a definition
  bool blankabove;    // a line of blanks stands between the two
  bool isattheend;    // it is the last one, and only marks the end
};

// The library's reader keeps the beginning of a long line only, and ends where the library does.
tlines linesupto(const std::string& path, std::int32_t number) {
  twaiting waiting;
  tlinereader reader;
  tlines result{};
  if (reader.open(path, waiting) != 0) return result;
  for (std::int32_t i = 1; i <= number; ++i) {
    const tlinereader::tline line = reader.next();
    if (line.text == nullptr) break;
    result.last.assign(line.text, line.length);
    if (result.last.empty() || result.last[0] == '*' || i == number) continue;
    if (result.last[0] != ' ') result.above = result.last;
    result.blankabove = result.last.find_first_not_of(" \t") == std::string::npos;
  }
  result.isattheend = result.last == "\x1a" && reader.next().text == nullptr;
  return result;
}

// Why the line continues nothing, although it begins with a blank.
std::string reasonabove(const tlines& lines) {
  if (lines.last.find_first_not_of(" \t") == std::string::npos)
    return "because the line consists of blanks, which end the definition above it";
  std::istringstream words(lines.above);
  std::string name, type;
  words >> name >> type;
  type.resize(std::min(type.rfind('.'), type.size()));
  const std::string begins = "because the line begins with a blank, but ";
  if (name.empty()) return begins + "there is no line above that it continues";
  if (lines.blankabove) return begins + "a line of blanks has ended the definition above it";
  if (struequal(type, "enumstr") || struequal(type, "macro"))
    return "because the line has no word, which ends the list of option " + inquotes(name) + " above it";
  const bool isoption =
      std::ranges::any_of(opttypenames, [&](std::string_view each) { return struequal(each, type); });
  if (isoption) return begins + "option " + inquotes(name) + " of type " + type + " takes no further lines";
  return begins + "the line above, of type " + inquotes(type) + ", takes no further lines";
}

std::string reasonof(const tlines& lines) {
  const unsigned char first = lines.last.empty() ? 0 : static_cast<unsigned char>(lines.last[0]);
  if (lines.last.starts_with("\xEF\xBB\xBF"))
    return "because a byte order mark stands before the line; save the file without the mark";
  if (first == '\t')
    return "because the line begins with a tab; a line that continues the one above begins with a blank";
  if (first == ' ') return reasonabove(lines);
  if (first == 26) return "because the line begins with the byte 26 (Ctrl-Z), which ends the text";
  if (first < ' ' || first > '~')
    return "because the line begins with the byte " + std::to_string(first) +
           ", so the file is hardly a definition";
  return "because the line begins with " + inquotes(lines.last.substr(0, 1)) +
         ", but a name begins with a letter";
}

}  // namespace

bool isutf16(const std::string& path) {
  tregularfile file(path);
  const std::string_view text = file.next().substr(0, 2);
  if (text.size() < 2) return false;
  return text == "\xFF\xFE" || text == "\xFE\xFF" || (text[0] == '\0') != (text[1] == '\0');
}

std::string reasonofearlyend(const std::string& path, std::int32_t line) {
  if (!tregularfile(path).isopen()) return "because no line of a definition can begin like this one";
  if (isutf16(path)) return "";  // which is reported
  const tlines lines = linesupto(path, line);
  return lines.isattheend ? "" : reasonof(lines);
}

}  // namespace tool
