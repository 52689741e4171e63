// A table on the terminal.
#pragma once

#include <string>
#include <vector>

namespace tool {

enum class talign {
  left,
  rightfirst  // the first column, a number, is aligned to the right
};

class ttable {
 public:
  using tcells = std::vector<std::string>;

  ttable(tcells headings, talign align) : frows{std::move(headings)}, falign(align) {}
  // As many cells as there are headings. Their texts are made safe to print.
  void add(const tcells& cells);
  // Keeps only these columns, in this order; columns are numbered from 0.
  void select(const std::vector<std::size_t>& columns);
  // Prints the table on standard output, the headings bold. If it is wider than `width`, texts are broken: in
  // the last column, then in the widest ones. 0 stands for any width.
  void print(std::size_t width) const;

 private:
  std::vector<std::size_t> widths(std::size_t width) const;
  std::string line(const tcells& cells, const std::vector<std::size_t>& widths) const;
  std::string lines(const tcells& cells, const std::vector<std::size_t>& widths) const;

  std::vector<tcells> frows;  // the headings first
  talign falign;
};

}  // namespace tool
