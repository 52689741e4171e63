// Notes about the lines of a definition that the library refuses: which field is wrong, and which fields the
// line has.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "options/observer.h"
#include "tools/reading/linespans.h"

namespace tool {

struct tfieldnote {
  std::string text;
  std::string field{};  // that is meant; empty if it is none
};

class tfieldnotes {
 public:
  // To be called with the line on which an option begins, because its type decides what may follow.
  void begin(std::string_view line);
  // The names of other options that the message is about, as they stand in its line.
  std::vector<std::string> references(const optcore::tmessage& message) const;

  // A note on a message about the definition; empty if there is none. The messages about one line share its
  // notes: each note is returned once.
  std::string next(const optcore::tmessage& message);
  // The field that the last note is about; empty if it is not about one.
  const std::string& field() const { return ffield; }

 private:
  bool isaboutlast(const optcore::tmessage& message) const { return message.subject.name == fname; }

  std::string fname, ftype;  // of the option that was begun last
  std::int32_t fline = 0;
  std::deque<tfieldnote> fnotes;  // about that line, those that were not yet returned
  std::string ffield;
};

// A field of a line, in bytes; the name, "type" and "text" are fields, too. Empty at the end of a line that
// ends before it.
struct tfieldpart {
  std::string_view name;
  tspan span;
};
// The fields of a line that begins an option or a group; of other lines, name and type.
std::vector<tfieldpart> partsof(std::string_view line);

// What the fields of a type are, in their order; empty for what is not the keyword of a definition.
std::string fieldsof(std::string_view type);

}  // namespace tool
