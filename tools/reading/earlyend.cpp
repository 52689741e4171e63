// Reads the file once more, up to the line at which the library stopped.
#include "tools/reading/earlyend.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>

#include "base/textcase.h"
#include "options/codes.h"
#include "tools/text.h"

namespace tool {

using namespace optcore;

namespace {

struct tlines {
  std::string last;   // the line at which the library stopped
  std::string above;  // the line before it that begins a definition
  bool blankabove;    // a line of blanks stands between the two
  bool isattheend;
};

bool isregular(const std::string& path) {
  std::error_code problem;
  return std::filesystem::is_regular_file(path, problem);
}

tlines linesupto(const std::string& path, std::int32_t number) {
  std::ifstream file(path, std::ios::binary);
  tlines result{};
  for (std::int32_t i = 1; i <= number && std::getline(file, result.last); ++i) {
    if (result.last.ends_with('\r')) result.last.pop_back();
    if (result.last.empty() || result.last[0] == '*' || i == number) continue;
    if (result.last[0] != ' ') result.above = result.last;
    result.blankabove = result.last.find_first_not_of(" \t") == std::string::npos;
  }
  result.isattheend = file.peek() == std::ifstream::traits_type::eof();
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
  if (!isregular(path)) return false;
  std::ifstream file(path, std::ios::binary);
  std::array<char, 2> bytes{};
  if (!file.read(bytes.data(), bytes.size())) return false;
  const std::string_view text(bytes.data(), bytes.size());
  return text == "\xFF\xFE" || text == "\xFE\xFF" || (text[0] == '\0') != (text[1] == '\0');
}

std::string reasonofearlyend(const std::string& path, std::int32_t line) {
  if (!isregular(path)) return "because no line of a definition can begin like this one";
  if (isutf16(path)) return "";  // which is reported
  const tlines lines = linesupto(path, line);
  return lines.isattheend && lines.last == "\x1a" ? "" : reasonof(lines);
}

}  // namespace tool
