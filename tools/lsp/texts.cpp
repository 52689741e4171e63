// Counts lines and characters.
#include "tools/lsp/texts.h"

#include <algorithm>
#include <utility>

namespace tool::lsp {

namespace {

// The bytes of the character at this place. A byte that belongs to no character counts as one of its own, as
// editors show it.
std::size_t lengthat(std::string_view text, std::size_t at) {
  const auto byte = static_cast<unsigned char>(text[at]);
  const std::size_t length = byte < 0xC2 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : byte < 0xF5 ? 4 : 1;
  if (at + length > text.size()) return 1;
  for (std::size_t i = 1; i < length; ++i)
    if ((static_cast<unsigned char>(text[at + i]) & 0xC0) != 0x80) return 1;
  return length;
}

std::int64_t unitsof(std::size_t length, tencoding encoding) {
  if (encoding == tencoding::utf8) return static_cast<std::int64_t>(length);
  return length == 4 ? 2 : 1;
}

std::vector<std::size_t> startsof(std::string_view text, bool withreturns) {
  std::vector<std::size_t> result = {0};
  const char* const ends = withreturns ? "\r\n" : "\n";
  for (std::size_t at = text.find_first_of(ends); at != std::string_view::npos;
       at = text.find_first_of(ends, at + 1)) {
    const bool isbeforefeed = text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
    if (!isbeforefeed) result.push_back(at + 1);
  }
  return result;
}

std::size_t lineof(const std::vector<std::size_t>& starts, std::size_t offset) {
  return static_cast<std::size_t>(std::ranges::upper_bound(starts, offset) - starts.begin()) - 1;
}

}  // namespace

ttext::ttext(std::string bytes) : fbytes(std::move(bytes)) {
  flines = startsof(fbytes, true);
  if (fbytes.find('\r') != std::string::npos) ffeedlines = startsof(fbytes, false);
}

// The end of a line is not part of it.
std::size_t ttext::endofline(const tstarts& starts, std::size_t line) const {
  if (line + 1 >= starts.size()) return fbytes.size();
  std::size_t end = starts[line + 1] - 1;
  if (end > starts[line] && fbytes[end] == '\n' && fbytes[end - 1] == '\r') --end;
  return end;
}

std::size_t ttext::offsetat(tposition position, tencoding encoding) const {
  if (position.line < 0) return 0;
  if (static_cast<std::uint64_t>(position.line) >= flines.size()) return fbytes.size();
  const auto line = static_cast<std::size_t>(position.line);
  const std::size_t end = endofline(flines, line);
  std::size_t at = flines[line];
  for (std::int64_t left = position.character; at < end;) {
    const std::size_t length = lengthat(fbytes, at);
    left -= unitsof(length, encoding);
    if (left < 0) break;
    at += length;
  }
  return at;
}

tposition ttext::positionof(std::size_t offset, tencoding encoding) const {
  const std::size_t line = lineof(flines, std::min(offset, fbytes.size()));
  const std::size_t end = std::min(offset, endofline(flines, line));
  tposition result = {static_cast<std::int64_t>(line), 0};
  for (std::size_t at = flines[line]; at < end;) {
    const std::size_t length = lengthat(fbytes, at);
    if (at + length > end) break;
    result.character += unitsof(length, encoding);
    at += length;
  }
  return result;
}

tspan ttext::line(std::int32_t number) const {
  const tstarts& starts = feedlines();
  const auto index = static_cast<std::size_t>(number - 1);
  if (number < 1 || index >= starts.size()) return {fbytes.size(), fbytes.size()};
  return {starts[index], endofline(starts, index)};
}

std::string_view ttext::lineend() const {
  const std::size_t feed = fbytes.find('\n');
  return feed != std::string::npos && feed > 0 && fbytes[feed - 1] == '\r' ? "\r\n" : "\n";
}

std::int32_t ttext::lineat(std::size_t offset) const {
  return static_cast<std::int32_t>(lineof(feedlines(), std::min(offset, fbytes.size()))) + 1;
}

tposition positionfrom(const json& value) {
  return {integerof(member(value, "line")).value_or(0), integerof(member(value, "character")).value_or(0)};
}

json rangejson(const ttext& text, tspan span, tencoding encoding) {
  const auto position = [&](std::size_t offset) -> json {
    const tposition at = text.positionof(offset, encoding);
    return {{"line", at.line}, {"character", at.character}};
  };
  return {{"start", position(span.begin)}, {"end", position(span.end)}};
}

void appendrange(std::string& written, const ttext& text, tspan span, tencoding encoding) {
  const auto append = [&](std::string_view name, std::size_t offset) {
    const tposition at = text.positionof(offset, encoding);
    written.append(name).append("{\"line\":").append(std::to_string(at.line));
    written.append(",\"character\":").append(std::to_string(at.character)).append("}");
  };
  append("{\"start\":", span.begin);
  append(",\"end\":", span.end);
  written += '}';
}

}  // namespace tool::lsp
