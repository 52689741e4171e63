// Reads the beginning of a file and looks at the second word of each line.
#include "tools/reading/filelooks.h"

#include <algorithm>
#include <sstream>
#include <string_view>

#include "base/textcase.h"
#include "tools/reading/definitionfields.h"
#include "tools/reading/regularfile.h"

namespace tool {

namespace {

using namespace optcore;

constexpr std::size_t mostread = 64 * 1024;  // as much as the first part of a file

bool begins(const std::string& line) {
  const bool isname = !line.empty() && (isletter(line.front()) || line.front() == '.');
  std::istringstream stream(line);
  std::string name, keyword;
  return isname && stream >> name >> keyword && !keywordof(keyword.substr(0, keyword.find('.'))).empty();
}

bool iscomment(const std::string& line) {
  return line.starts_with('*') || line.find_first_not_of(" \t") == std::string::npos;
}

std::vector<std::string> linesof(const std::string& text) {
  std::vector<std::string> result;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (line.ends_with('\r')) line.pop_back();
    result.push_back(std::move(line));
  }
  return result;
}

tlooks looksoflines(const std::vector<std::string>& lines) {
  if (std::ranges::any_of(lines, begins)) return tlooks::definition;
  return std::ranges::all_of(lines, iscomment) ? tlooks::unclear : tlooks::options;
}

}  // namespace

std::vector<std::string> firstlines(const std::string& filename) {
  return linesof(std::string(tregularfile(filename).next()));
}

tlooks looksof(const std::string& filename) { return looksoflines(firstlines(filename)); }

tlooks looksoftext(const std::string& text) { return looksoflines(linesof(text.substr(0, mostread))); }

}  // namespace tool
