// Keeps notes and changes of a file.
#include "tools/migrating/migratedfile.h"

namespace tool {

void tnotelist::add(std::int32_t line, const tnote& note) {
  fdecisions += note.decide ? 1 : 0;
  if (++fcounts[static_cast<std::size_t>(note.action)] <= limit)
    fkept.push_back({line, note});
  else
    ++funlisted;
}

void tmigratedfile::replace(std::string_view lines, std::string_view text) {
  const auto begin = static_cast<std::size_t>(lines.data() - before.data());
  replaced.push_back({begin, lines.size(), after.size(), text.size()});
  after.append(text);
}

std::string_view tmigratedfile::lineend() const {
  const std::size_t feed = before.find('\n');
  const bool iscrlf = feed != std::string::npos && feed > 0 && before[feed - 1] == '\r';
  return iscrlf ? "\r\n" : "\n";
}

// A last line without a line end counts as replaced.
void tmigratedfile::addlines(const std::vector<std::string>& lines) {
  treplacedlines added{before.size(), 0, after.size(), 0};
  if (!after.empty() && !after.ends_with('\n')) {
    if (!replaced.empty() && replaced.back().before + replaced.back().beforesize == before.size()) {
      added = replaced.back();
      replaced.pop_back();
    } else {
      const std::size_t length = after.size() - (after.rfind('\n') + 1);
      added = {before.size() - length, length, after.size() - length, 0};
    }
    after.append(after.ends_with('\r') ? "\n" : lineend());
  }
  for (const std::string& line : lines) after.append(line).append(lineend());
  added.aftersize = after.size() - added.after;
  replaced.push_back(added);
}

}  // namespace tool
