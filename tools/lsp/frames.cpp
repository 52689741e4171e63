// Reads and writes the headers of messages.
#include "tools/lsp/frames.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "base/strutilx.h"
#include "base/textcase.h"

namespace tool::lsp {

namespace {

constexpr std::string_view lengthfield = "Content-Length";
constexpr std::string_view lineend = "\r\n";
constexpr std::string_view headerend = "\r\n\r\n";

// The length in the header; nothing if no line has one, or a line is none of a header.
std::optional<std::size_t> lengthof(std::string_view header) {
  std::optional<std::size_t> result;
  for (std::string_view rest = header; !rest.empty();) {
    const std::string_view line = rest.substr(0, rest.find(lineend));
    rest.remove_prefix(std::min(line.size() + lineend.size(), rest.size()));
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) return std::nullopt;
    if (!optcore::struequal(line.substr(0, colon), lengthfield)) continue;
    const std::string_view digits = optcore::trim(line.substr(colon + 1));
    std::size_t length = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), length);
    if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    result = length;
  }
  return result;
}

}  // namespace

void tframes::append(std::string_view bytes) {
  const std::size_t skipped = std::min(fskipped, bytes.size());
  fskipped -= skipped;
  bytes.remove_prefix(skipped);
  if (ftaken > fbytes.size() / 2) {
    fbytes.erase(0, ftaken);
    ftaken = 0;
  }
  fbytes.append(bytes);
}

// Leaves out what stands before the next header. Returns false if there is none yet.
bool tframes::findheader() {
  const auto begin = fbytes.begin() + static_cast<std::ptrdiff_t>(ftaken);
  const auto same = [](char a, char b) { return optcore::upchar(a) == optcore::upchar(b); };
  const auto found = std::search(begin, fbytes.end(), lengthfield.begin(), lengthfield.end(), same);
  fbroken = found == fbytes.end();
  ftaken = static_cast<std::size_t>(found - fbytes.begin());
  if (fbroken)
    ftaken -= std::min<std::size_t>(lengthfield.size() - 1, static_cast<std::size_t>(found - begin));
  return !fbroken;
}

// Takes the header, if it is there. Returns false if it is not, or is broken.
bool tframes::takeheader() {
  const std::string_view rest = std::string_view(fbytes).substr(ftaken);
  const std::size_t end = rest.substr(0, longestheader).find(headerend);
  if (end == std::string_view::npos) {
    fbroken = rest.size() >= longestheader;
    return false;
  }
  const std::optional<std::size_t> length = lengthof(rest.substr(0, end));
  fbroken = !length || *length > longestskipped;
  if (fbroken) return false;
  ftaken += end + headerend.size();
  flength = *length;
  return true;
}

tframe tframes::next() {
  if (fbroken && !findheader()) return {tframe::tkind::incomplete};
  if (!fhasheader && fskipped == 0) fhasheader = takeheader();
  if (fbroken) {
    ++ftaken;  // behind the beginning of what is no header
    return {tframe::tkind::broken};
  }
  if (!fhasheader) return {tframe::tkind::incomplete};
  const std::size_t there = fbytes.size() - ftaken;
  if (flength > longestmessage) {
    fhasheader = false;
    fskipped = flength - std::min(flength, there);
    ftaken += std::min(flength, there);
    return {tframe::tkind::toolong};
  }
  if (there < flength) return {tframe::tkind::incomplete};
  fhasheader = false;
  ftaken += flength;
  return {tframe::tkind::message, fbytes.substr(ftaken - flength, flength)};
}

std::string framed(std::string_view message) {
  return std::string(lengthfield) + ": " + std::to_string(message.size()) + std::string(headerend) +
         std::string(message);
}

}  // namespace tool::lsp
