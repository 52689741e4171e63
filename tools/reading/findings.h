// Findings: the errors and warnings that a command reports, each with the file and line that it is about.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/text.h"

namespace tool {

struct tplace {
  std::string file;
  std::int32_t line = 0;  // from 1; 0 for no particular line
  bool operator==(const tplace&) const = default;
};

// "file:line", or "file"
std::string placetext(const tplace& place);

enum class tseverity {
  error,
  warning,
  plain  // no problem, but a line of help or echoed input, printed without place and label
};

// Another line that a finding has to do with.
struct trelated {
  tplace place;
  std::string text;  // what is there
};

struct tfinding {
  tplace place;
  tseverity severity;
  std::string_view rule;  // its kind, one of rules.h
  std::string text;
  std::vector<std::string> details{};      // the explanations of the library, printed as notes
  std::vector<std::string> suggestions{};  // names that may have been meant, nearest first
  std::vector<std::string> advice{};       // what the tool adds, printed as further notes
  bool unusable = false;                   // a file could not be opened, read or written
  std::string optionfile{};                // the one that was checked, if each is checked on its own
  std::string name{}, value{};             // in the line, as they are written: what the finding is about
  std::string field{};                     // the name of the field that is meant, in a line of a definition
  std::vector<trelated> related{};
};

using tfindings = std::vector<tfinding>;

// Collects findings. Of each kind, only the first ones are kept; the others are counted.
class tfindinglist {
 public:
  static constexpr std::size_t usuallimit = 1000;

  // At most so many findings of each kind are kept from now on. At least 1.
  void setlimit(std::size_t limit) { flimit = limit; }
  // Warnings of this rule are dropped from now on.
  void allow(const std::string& rule) { fallowed.insert(rule); }
  bool allows(std::string_view rule) const { return fallowed.contains(rule); }
  bool keeps(std::string_view rule) const {
    const auto count = fcounts.find(rule);
    return count == fcounts.end() || count->second < flimit;
  }

  // Begins a finding. It is complete when the next one begins or end is called; until then `details` may be
  // added. A finding that repeats the one before it is dropped.
  void begin(tfinding finding);
  void explain(std::string detail);
  void advise(std::string advice) {
    if (fopen) fopen->advice.push_back(std::move(advice));
  }
  // Adds to what the finding is about.
  void mean(std::string field) {
    if (fopen) fopen->field = std::move(field);
  }
  void relate(trelated related) {
    if (fopen) fopen->related.push_back(std::move(related));
  }
  void end();
  // Counts a finding of a kind of which no more are kept.
  void countunlisted(tseverity severity);

  // Adds the findings of another list. `optionfile` is the file that was checked then; it may be empty.
  void append(const tfindinglist& other, const std::string& optionfile);

  // The findings that are kept.
  const tfindings& kept() const { return fkept; }
  tfindings& kept() { return fkept; }
  // All findings, and those that are not kept.
  std::size_t count(tseverity severity) const { return fseverities[static_cast<std::size_t>(severity)]; }
  std::size_t unlisted() const { return funlisted; }

 private:
  tfindings fkept;
  std::optional<tfinding> fopen;
  std::optional<tfinding> flast;
  std::set<std::string, std::less<>> fallowed;
  std::map<std::string_view, std::size_t> fcounts;
  std::array<std::size_t, 3> fseverities{};
  std::size_t funlisted = 0;
  std::size_t flimit = usuallimit;
};

// The text of the finding with its suggestions, and the notes below it.
std::string messagetext(const tfinding& finding);
std::vector<std::string> notesof(const tfinding& finding);

// Writes one line for the finding and one for each of its details.
void writefinding(std::ostream& stream, const tfinding& finding, const tpalette& palette);

// Returns 'did you mean "a", "b" or "c"?', or an empty text if there are no suggestions.
std::string suggestiontext(const std::vector<std::string>& suggestions);

}  // namespace tool
