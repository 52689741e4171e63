// Where the parts of a line of a definition stand: its name, keyword, fields and text, or the names of options
// on the lines below. What a line means, the library says when it reads it; this only finds the columns.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "tools/reading/definitionfields.h"
#include "tools/reading/linespans.h"

namespace tool {

struct tfieldspan {
  const tfield* field;  // never null
  tspan span;           // with its double quotes; empty where the field is missing
};

struct tdefinitionspans {
  enum class tkind : std::uint8_t {
    nothing,  // a comment, an empty line, or a line of blanks that ends a block
    entry,    // the first line of an option, group, synonym, ...
    help,     // a line of long help
    value,    // a value of an option
    members,  // of a multilist, or one of a macro
    mark,     // a name that is deprecated or obsolete
    unread    // the definition has ended before it
  };
  tkind kind = tkind::nothing;
  std::string_view
      keyword;              // of the entry that the line begins or continues, in lower case; empty if unknown
  tspan name;               // of the entry, with its period
  tspan type;               // the keyword as it is written
  bool ismodified = false;  // there is a period behind the keyword
  tspan modifier;           // behind that period
  std::vector<tfieldspan> fields;  // all that the line should have
  std::vector<tspan> references;   // the names of other options, without double quotes
  tspan text;                      // the rest of the line; behind the option of a synonym, it is not read

  // The field that has this place, or of which it is the place; null if the place is before or behind them.
  const tfieldspan* fieldat(std::size_t column) const;
};

// The parts of the first line of an entry, and of the line of a value of an option of this type.
tdefinitionspans entryspans(std::string_view line);
tdefinitionspans valuespans(std::string_view line, std::string_view keyword);
// The parts of a line with the names of other options, below an entry with this keyword.
tdefinitionspans namespans(std::string_view line, std::string_view keyword);

// Finds the parts of all lines, in their order: an entry decides what may follow.
class tdefinitionwalk {
 public:
  // `line` is the part that is read.
  tdefinitionspans next(std::string_view line);

 private:
  tdefinitionspans continuation(std::string_view line);
  tdefinitionspans ended();

  std::string_view fkeyword;
  bool fmaycontinue = false;
  bool fended = false;
};

// A token without the double quotes around it.
tspan withoutquotes(std::string_view line, tspan token);

}  // namespace tool
