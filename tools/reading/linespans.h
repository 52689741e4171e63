// Where the parts of one line of an option file stand: its statements with their names and values, and its
// comment. What a line means, the library says when it reads it; this only finds the columns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "options/definition.h"

namespace tool {

// A part of a line, in bytes from 0. Empty if the line does not have it.
struct tspan {
  std::size_t begin = 0, end = 0;
  bool empty() const { return begin == end; }
  std::size_t size() const { return end - begin; }
  std::string_view of(std::string_view line) const { return line.substr(begin, end - begin); }
  bool operator==(const tspan&) const = default;
};

struct tstatementspans {
  enum class tkind : std::uint8_t { setting, list, immediate, dotline, indicator, unknown };
  tkind kind = tkind::unknown;
  // That the name finds: the dot option of a dot line, null for unknown names and for a list that no line has
  // made yet.
  const optcore::toption* option = nullptr;
  tspan whole;   // from the signs before the name to the end of the value
  tspan name;    // without signs; in lookup mode Minos with all its words; the keyword of an indicator
  tspan symbol;  // of a dot line, whose name stands behind the period
  tspan value;   // with its double quotes, but without "="; of a dot line or indicator the number at its end
  tspan second;  // the second value of an option with two
};

struct tlinespans {
  std::vector<tstatementspans> statements;
  tspan comment;        // from the character that begins it
  bool eolonly = true;  // whether end-of-line mode is on behind this line
};

// The part of a line that is read: without a carriage return at its end, and of a long line the beginning. The
// line has no line feed.
std::string_view readpart(std::string_view line);

// `line` is the part that is read; `eolonly` says whether end-of-line mode is on when its reading begins. The
// definition must be that of the store that reads option files, so that it knows their lists.
tlinespans spansof(const optcore::tdefinition& definition, std::string_view line, bool eolonly);

}  // namespace tool
