// Prints unified diffs from lists of replaced lines, in linear time.
#include "tools/migrating/unifieddiff.h"

#include <algorithm>
#include <ostream>

namespace tool {

namespace {

constexpr std::size_t contextlines = 3;

std::size_t linecount(std::string_view text) {
  const auto feeds = static_cast<std::size_t>(std::ranges::count(text, '\n'));
  return feeds + (text.empty() || text.ends_with('\n') ? 0 : 1);
}

// The last lines of the text, at most so many.
std::string_view lastlines(std::string_view text, std::size_t count) {
  std::size_t begin = text.size();
  for (; count > 0 && begin > 0; --count) {
    const std::size_t feed = begin < 2 ? std::string_view::npos : text.rfind('\n', begin - 2);
    begin = feed == std::string_view::npos ? 0 : feed + 1;
  }
  return text.substr(begin);
}

std::string_view firstlines(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (; count > 0 && end < text.size(); --count) {
    const std::size_t feed = text.find('\n', end);
    end = feed == std::string_view::npos ? text.size() : feed + 1;
  }
  return text.substr(0, end);
}

class tdiffprinter {
 public:
  tdiffprinter(std::ostream& stream, std::string_view before, std::string_view after, const tpalette& palette,
               bool isshown)
      : fstream(stream), fbefore(before), fafter(after), fpalette(palette), fisshown(isshown) {}

  // Returns the replacement behind the hunk.
  std::size_t hunk(const std::vector<treplacedlines>& all, std::size_t first) {
    const treplacedlines& begin = all[first];
    const std::string_view ahead = lastlines(fbefore.substr(fdone, begin.before - fdone), contextlines);
    const std::size_t last = lastof(all, first);
    const std::size_t behind = all[last].before + all[last].beforesize;
    const std::string_view tail = firstlines(fbefore.substr(behind), contextlines);
    const std::size_t from = begin.before - ahead.size(), to = begin.after - ahead.size();
    fline += linecount(fbefore.substr(fcounted, from - fcounted));
    fnewline += linecount(fafter.substr(fnewcounted, to - fnewcounted));
    fcounted = from;
    fnewcounted = to;
    const std::size_t newbehind = all[last].after + all[last].aftersize;
    const std::size_t old = linecount(fbefore.substr(from, behind - from)) + linecount(tail);
    const std::size_t now = linecount(fafter.substr(to, newbehind - to)) + linecount(tail);
    fstream << fpalette.paint(tcolour::cyan, "@@ -" + range(fline, old) + " +" + range(fnewline, now) + " @@")
            << '\n';
    lines(ahead, ' ', tcolour::none);
    for (std::size_t i = first; i <= last; ++i) {
      if (i > first) {
        const std::size_t end = all[i - 1].before + all[i - 1].beforesize;
        lines(fbefore.substr(end, all[i].before - end), ' ', tcolour::none);
      }
      lines(fbefore.substr(all[i].before, all[i].beforesize), '-', tcolour::red);
      lines(fafter.substr(all[i].after, all[i].aftersize), '+', tcolour::green);
    }
    lines(tail, ' ', tcolour::none);
    fdone = behind;
    return last + 1;
  }

 private:
  // Replacements with few lines between them are in one hunk.
  std::size_t lastof(const std::vector<treplacedlines>& all, std::size_t first) const {
    std::size_t last = first;
    while (last + 1 < all.size()) {
      const std::size_t end = all[last].before + all[last].beforesize;
      const std::string_view between = fbefore.substr(end, all[last + 1].before - end);
      if (firstlines(between, 2 * contextlines).size() < between.size()) break;
      ++last;
    }
    return last;
  }

  // An empty range is named after the line before it.
  static std::string range(std::size_t linesbefore, std::size_t count) {
    const std::string begin = std::to_string(count == 0 ? linesbefore : linesbefore + 1);
    return count == 1 ? begin : begin + "," + std::to_string(count);
  }

  void lines(std::string_view text, char mark, tcolour colour) {
    while (!text.empty()) {
      const std::size_t feed = text.find('\n');
      const std::string_view line = text.substr(0, feed);
      const std::string shown = mark + (fisshown ? printable(line) : std::string(line));
      fstream << (colour == tcolour::none ? shown : fpalette.paint(colour, shown)) << '\n';
      if (feed == std::string_view::npos) fstream << "\\ No newline at end of file\n";
      text.remove_prefix(feed == std::string_view::npos ? text.size() : feed + 1);
    }
  }

  std::ostream& fstream;
  std::string_view fbefore, fafter;
  const tpalette& fpalette;
  const bool fisshown;
  std::size_t fdone = 0;                      // behind the last hunk, without its context
  std::size_t fcounted = 0, fnewcounted = 0;  // the bytes whose lines are counted
  std::size_t fline = 0, fnewline = 0;        // the lines before a hunk
};

}  // namespace

void printdiff(std::ostream& stream, const std::string& name, std::string_view before, std::string_view after,
               const std::vector<treplacedlines>& replaced, const tpalette& palette, bool isshown) {
  if (replaced.empty()) return;
  const std::string shown = isshown ? printable(name) : name;
  stream << palette.paint(tcolour::bold, "--- " + shown) << '\n'
         << palette.paint(tcolour::bold, "+++ " + shown) << '\n';
  tdiffprinter printer(stream, before, after, palette, isshown);
  for (std::size_t next = 0; next < replaced.size();) next = printer.hunk(replaced, next);
}

}  // namespace tool
