// The text of a file at one moment, with its lines, and positions in it. A protocol position is a line and a
// character, counted in UTF-16 or UTF-8; inside the server, a position is an offset in bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/lsp/json.h"
#include "tools/reading/linespans.h"

namespace tool::lsp {

enum class tencoding { utf16, utf8 };

struct tposition {
  std::int64_t line = 0;  // from 0
  std::int64_t character = 0;
};

class ttext {
 public:
  explicit ttext(std::string bytes);

  const std::string& bytes() const { return fbytes; }
  std::string_view part(tspan span) const { return span.of(fbytes); }

  // What lies beyond the end of a line or of the text stands for that end; what lies inside a character, for
  // its beginning.
  std::size_t offsetat(tposition position, tencoding encoding) const;
  tposition positionof(std::size_t offset, tencoding encoding) const;

  // The lines as the library counts them, from 1: they end at a line feed. Without the end of the line. An
  // empty span at the end of the text if there is no such line.
  tspan line(std::int32_t number) const;
  std::int32_t linecount() const { return static_cast<std::int32_t>(feedlines().size()); }
  // What ends the first line; a line feed if there is only one line.
  std::string_view lineend() const;
  // The line that has this offset.
  std::int32_t lineat(std::size_t offset) const;

 private:
  using tstarts = std::vector<std::size_t>;
  // In the protocol, a carriage return alone ends a line, too.
  const tstarts& feedlines() const { return ffeedlines.empty() ? flines : ffeedlines; }
  std::size_t endofline(const tstarts& starts, std::size_t line) const;

  std::string fbytes;
  tstarts flines;      // where the lines of the protocol begin
  tstarts ffeedlines;  // those of the library; empty if they are the same for sure
};

// As the protocol has them. A position that is none is the beginning of the text.
tposition positionfrom(const json& value);
json rangejson(const ttext& text, tspan span, tencoding encoding);
void appendrange(std::string& written, const ttext& text, tspan span, tencoding encoding);

}  // namespace tool::lsp
