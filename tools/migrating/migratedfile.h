// A file that was migrated, with what was done to it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/migrating/note.h"
#include "tools/migrating/unifieddiff.h"
#include "tools/reading/findings.h"

namespace tool {

struct tlinenote {
  std::int32_t line;  // in the file as it was; 0 for the whole file
  tnote note;
};

// Of each kind of note, only the first ones are kept; the others are counted.
class tnotelist {
 public:
  void add(std::int32_t line, const tnote& note);

  const std::vector<tlinenote>& kept() const { return fkept; }
  std::size_t unlisted() const { return funlisted; }
  // Of all notes.
  std::size_t decisions() const { return fdecisions; }

 private:
  static constexpr std::size_t limit = 1000;

  std::vector<tlinenote> fkept;
  std::array<std::size_t, actionnames.size()> fcounts{};
  std::size_t funlisted = 0, fdecisions = 0;
};

struct tmigratedfile {
  std::string name;  // as the command line or the line that includes it has it
  std::string root;  // the file on the command line through which it was reached
  std::string before, after;
  std::vector<treplacedlines> replaced;
  tnotelist notes;
  bool isread = false;      // to its end
  bool isnamed = false;     // on the command line
  bool isincluded = false;  // by another file
  tplace includedat{};      // the first line that includes it

  // Lines that end with a line end, or the last line. `text` without a line end at its end, if the lines
  // before have none.
  void keep(std::string_view lines) { after.append(lines); }
  void replace(std::string_view lines, std::string_view text);
  // Adds lines at the end.
  void addlines(const std::vector<std::string>& lines);

  // The line end of new lines.
  std::string_view lineend() const;
};

}  // namespace tool
