// Lays out a table.
#include "tools/table.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>

#include "tools/text.h"

namespace tool {

void ttable::add(const tcells& cells) {
  frows.emplace_back();
  for (const std::string& cell : cells) frows.back().push_back(printable(cell));
}

std::vector<std::size_t> ttable::widths() const {
  std::vector<std::size_t> result(frows.front().size());
  for (const tcells& cells : frows)
    for (std::size_t column = 0; column < result.size(); ++column)
      result[column] = std::max(result[column], columns(cells[column]));
  return result;
}

// Pads the cells to the widths of their columns, without blanks at the end of the line.
std::string ttable::line(const tcells& cells, const std::vector<std::size_t>& widths) const {
  std::string result;
  for (std::size_t column = 0; column < cells.size(); ++column) {
    const std::string blanks(widths[column] - columns(cells[column]), ' ');
    const bool right = column == 0 && falign == talign::rightfirst;
    result += (right ? blanks + cells[column] : cells[column] + blanks) + "  ";
  }
  result.erase(result.find_last_not_of(' ') + 1);
  return result;
}

void ttable::print() const {
  const tpalette palette(STDOUT_FILENO);
  const std::vector<std::size_t> widths = this->widths();
  for (const tcells& cells : frows)
    std::cout << palette.paint(&cells == &frows.front() ? tcolour::bold : tcolour::none, line(cells, widths))
              << '\n';
}

}  // namespace tool
