// What stands where in the lines of an option file, as the client has them now.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "options/vksoptions.h"
#include "tools/lsp/documents.h"
#include "tools/reading/linespans.h"

namespace tool::lsp {

// Whether the line is neither empty nor a comment.
inline bool isread(std::string_view line) { return !line.empty() && line.front() != '*'; }

struct toptionline {
  const optcore::tvksoptions* store;  // with the definition, and the values of the last analysis
  std::int32_t number;                // from 1
  tspan span;                         // of the line in the text
  std::string_view text;              // the part that is read
  bool eolonly;                       // whether end-of-line mode is on when its reading begins
  tlinespans parts;                   // from the beginning of the line

  // A part of the line as one of the text.
  tspan intext(tspan part) const { return {span.begin + part.begin, span.begin + part.end}; }
};

// Goes through the lines of an option file that is read with this store, until `each` returns false. A comment
// line and an empty one have no parts.
void walklines(const optcore::tvksoptions& store, const ttext& text,
               const std::function<bool(const toptionline&)>& each);

// The line that has this place of the text. Nothing in a document that is no option file, or whose definition
// is not known.
std::optional<toptionline> optionlineat(const tdocument& document, std::size_t offset);

// The part of a statement at a place of the text; nothing where none is.
struct tpartat {
  enum class tkind { name, symbol, value };
  tkind kind;
  const tstatementspans* statement;  // one of the line's
  tspan span;                        // in the text
};
std::optional<tpartat> partat(const toptionline& line, std::size_t offset);

}  // namespace tool::lsp
