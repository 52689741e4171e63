// Lays out a table.
#include "tools/table.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <numeric>

#include "tools/text.h"

namespace tool {

namespace {

constexpr std::size_t gap = 2;
constexpr std::size_t leastlast = 20;  // the last column is made as narrow as this before others are
constexpr std::size_t least = 8;

void shrink(std::vector<std::size_t>& widths, std::size_t width) {
  const std::size_t total = std::accumulate(widths.begin(), widths.end(), gap * (widths.size() - 1));
  std::size_t over = total > width ? total - width : 0;
  const auto narrow = [&over](std::size_t& column, std::size_t smallest) {
    const std::size_t less = std::min(over, column - std::min(column, smallest));
    column -= less;
    over -= less;
    return less != 0;
  };
  narrow(widths.back(), leastlast);
  while (over != 0 && narrow(*std::ranges::max_element(widths), least)) {
  }
}

// Where to cut a long word that would be cut at `end`: before the character that a comma follows.
std::size_t beforecomma(std::string_view text, std::size_t end) {
  std::size_t cut = end;
  while (cut > 0 && (text[cut] == ',' || columns(text.substr(cut, 1)) == 0)) --cut;
  return cut == 0 ? end : cut;
}

// Removes from the text what fits into the width, and returns it: whole words, or a part of a long word. No
// line begins with a comma.
std::string taken(std::string& text, std::size_t width) {
  std::size_t end = 0;
  for (std::size_t count = 0; end < text.size() && count < width; ++count) do
      ++end;
    while (end < text.size() && columns(text.substr(end, 1)) == 0);
  if (end < text.size()) {
    if (const std::size_t blank = text.rfind(' ', end); blank != std::string::npos)
      end = blank;
    else
      end = beforecomma(text, end);
  }
  std::string result = text.substr(0, end);
  text.erase(0, text.find_first_not_of(' ', end));
  return result;
}

}  // namespace

void ttable::add(const tcells& cells) {
  frows.emplace_back();
  for (const std::string& cell : cells) frows.back().push_back(printable(cell));
}

void ttable::select(const std::vector<std::size_t>& columns) {
  if (columns.front() != 0) falign = talign::left;
  for (tcells& cells : frows) {
    tcells selected;
    for (const std::size_t column : columns) selected.push_back(cells[column]);
    cells = std::move(selected);
  }
}

std::vector<std::size_t> ttable::widths(std::size_t width) const {
  std::vector<std::size_t> result(frows.front().size());
  for (const tcells& cells : frows)
    for (std::size_t column = 0; column < result.size(); ++column)
      result[column] = std::max(result[column], columns(cells[column]));
  if (width != 0) shrink(result, width);
  return result;
}

// Pads the cells to the widths of their columns, without blanks at the end of the line.
std::string ttable::line(const tcells& cells, const std::vector<std::size_t>& widths) const {
  std::string result;
  for (std::size_t column = 0; column < cells.size(); ++column) {
    const std::string blanks(widths[column] - columns(cells[column]), ' ');
    const bool right = column == 0 && falign == talign::rightfirst;
    result += (right ? blanks + cells[column] : cells[column] + blanks) + std::string(gap, ' ');
  }
  result.erase(result.find_last_not_of(' ') + 1);
  return result;
}

// As many lines as the highest cell needs.
std::string ttable::lines(const tcells& cells, const std::vector<std::size_t>& widths) const {
  std::string result;
  tcells rest = cells;
  do {
    tcells first;
    for (std::size_t column = 0; column < rest.size(); ++column)
      first.push_back(taken(rest[column], widths[column]));
    result += (result.empty() ? "" : "\n") + line(first, widths);
  } while (std::ranges::any_of(rest, [](const std::string& cell) { return !cell.empty(); }));
  return result;
}

void ttable::print(std::size_t width) const {
  const tpalette palette(STDOUT_FILENO);
  const std::vector<std::size_t> widths = this->widths(width);
  for (const tcells& cells : frows)
    std::cout << palette.paint(&cells == &frows.front() ? tcolour::bold : tcolour::none, lines(cells, widths))
              << '\n';
}

}  // namespace tool
